// SPDX-License-Identifier: Apache-2.0
/// @file
/// iCalendar text to libical's components and back, with every resource freed.
#pragma once

#include <libical/ical.h>

#include <memory>
#include <string>
#include <string_view>

namespace zorel {

struct ComponentFree {
    void operator()(icalcomponent* component) const { icalcomponent_free(component); }
};
using Component = std::unique_ptr<icalcomponent, ComponentFree>;

/// The VCALENDAR of a text; empty when it is none, or is not fit for parsing (IcsLines.h).
[[nodiscard]] Component parseCalendar(const std::string& text);
/// CRLF line ends, lines folded at 75 octets, texts escaped (RFC 5545, 3.1 and 3.3.11).
[[nodiscard]] std::string textOfCalendar(icalcomponent* calendar);
/// The one event in a VCALENDAR (of a repeated event with exceptions, the event itself); nullptr when it
/// holds several items, tasks or no event, or when the event has no UID.
[[nodiscard]] icalcomponent* singleEvent(icalcomponent* calendar);
/// The text without control characters other than line feeds and tabs: they may not stand in iCalendar text.
[[nodiscard]] std::string withoutControls(std::string_view text);

} // namespace zorel
