// SPDX-License-Identifier: Apache-2.0
#include "platform/eventkit/IcsText.h"

#include "platform/eventkit/IcsLines.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace zorel {
namespace {

bool isItem(icalcomponent_kind kind) {
    return kind == ICAL_VEVENT_COMPONENT || kind == ICAL_VTODO_COMPONENT || kind == ICAL_VJOURNAL_COMPONENT ||
           kind == ICAL_VFREEBUSY_COMPONENT;
}

/// As it would be written again: one of control characters alone is none.
std::string uidOf(icalcomponent* item) {
    const char* uid = icalcomponent_get_uid(item);
    return uid == nullptr ? std::string() : withoutControls(uid);
}

bool isException(icalcomponent* event) {
    return icalcomponent_get_first_property(event, ICAL_RECURRENCEID_PROPERTY) != nullptr;
}

} // namespace

Component parseCalendar(const std::string& text) {
    if (!isFitForParsing(text)) {
        return nullptr;
    }
    icalerror_set_errors_are_fatal(0);
    Component calendar(icalparser_parse_string(text.c_str()));
    icalerror_clear_errno();
    if (calendar && icalcomponent_isa(calendar.get()) != ICAL_VCALENDAR_COMPONENT) {
        return nullptr;
    }
    return calendar;
}

std::string textOfCalendar(icalcomponent* calendar) {
    char* raw = icalcomponent_as_ical_string_r(calendar);
    std::string text = raw == nullptr ? std::string() : std::string(raw);
    std::free(raw);
    return text;
}

icalcomponent* singleEvent(icalcomponent* calendar) {
    icalcomponent* found = nullptr;
    for (icalcomponent* item = icalcomponent_get_first_component(calendar, ICAL_ANY_COMPONENT);
         item != nullptr; item = icalcomponent_get_next_component(calendar, ICAL_ANY_COMPONENT)) {
        const icalcomponent_kind kind = icalcomponent_isa(item);
        if (!isItem(kind)) {
            continue;
        }
        const bool another = found != nullptr && uidOf(found) != uidOf(item);
        if (kind != ICAL_VEVENT_COMPONENT || another || uidOf(item).empty()) {
            return nullptr;
        }
        if (found == nullptr || (isException(found) && !isException(item))) {
            found = item;
        }
    }
    return found;
}

std::string withoutControls(std::string_view text) {
    std::string clean;
    std::ranges::copy_if(text, std::back_inserter(clean), [](char character) {
        return static_cast<unsigned char>(character) >= 0x20 ? character != 0x7F
                                                             : character == '\n' || character == '\t';
    });
    return clean;
}

} // namespace zorel
