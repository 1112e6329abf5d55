// SPDX-License-Identifier: Apache-2.0
/// @file
/// Events as iCalendar text (libical).
#pragma once

#include "platform/eventkit/EKEvent.h"

#include <optional>
#include <string>
#include <string_view>

namespace zorel {

/// Name of the calendar (RFC 7986 NAME; the vdir's "displayname").
inline constexpr std::string_view kCalendarName = "Prayer alarms";
/// Colour of the calendar for people who see several; in the vdir's form and as a CSS name (RFC 7986 COLOR).
inline constexpr std::string_view kCalendarColor = "#008080";
inline constexpr const char* kCalendarColorName = "teal";

/// The one event of an iCalendar text. Nothing when the text is broken or holds several items, tasks or no
/// event; when the event has no UID or no start; when its times lie outside the years 1700 to 2200.
///
/// Times with a zone are resolved by the text's VTIMEZONE or the system's zones, floating times are local. Of
/// the alarms those that display something count. `calendar` stays unset.
[[nodiscard]] std::optional<EKEvent> eventFromIcs(const std::string& text);

/// The event as iCalendar text: times in UTC, transparent, one display alarm for each of its alarms.
///
/// `previous`: the text that held the event before, or an empty one. What it says beyond the fields of
/// EKEvent (category, what an alarm program noted) is kept, and SEQUENCE is one more than there. `stamp`:
/// DTSTAMP and LAST-MODIFIED. Nothing when a repetition rule is broken or a time lies outside the years 1700
/// to 2200.
[[nodiscard]] std::optional<std::string> icsFromEvent(const EKEvent& event, const std::string& previous,
                                                      Instant stamp);

} // namespace zorel
