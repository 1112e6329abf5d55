// SPDX-License-Identifier: Apache-2.0
#include "print/IcsTable.h"

#include "platform/eventkit/IcsText.h"

#include <cstdlib>
#include <fmt/format.h>
#include <libical/ical.h>

namespace zorel::cli {

namespace {
icaltimetype utcTime(almanac::Instant instant) {
    return icaltime_from_timet_with_zone(instant.time_since_epoch().count(), 0,
                                         icaltimezone_get_utc_timezone());
}

icalproperty* extension(const char* name, const std::string& value) {
    icalproperty* property = icalproperty_new_x(value.c_str());
    icalproperty_set_x_name(property, name);
    return property;
}

icalproperty* refreshInterval() {
    icaldurationtype day{};
    day.days = 1;
    icalproperty* property = icalproperty_new_refreshinterval(day);
    icalproperty_add_parameter(property, icalparameter_new_value(ICAL_VALUE_DURATION));
    return property;
}

Component emptyCalendar(const IcsHead& head) {
    Component calendar(icalcomponent_new_vcalendar());
    icalcomponent_add_property(calendar.get(), icalproperty_new_version("2.0"));
    icalcomponent_add_property(calendar.get(), icalproperty_new_prodid("-//Zorel//Prayer times//EN"));
    icalcomponent_add_property(calendar.get(), icalproperty_new_calscale("GREGORIAN"));
    icalcomponent_add_property(calendar.get(), icalproperty_new_name(head.name.c_str()));
    icalcomponent_add_property(calendar.get(), extension("X-WR-CALNAME", head.name));
    if (!head.description.empty()) {
        icalcomponent_add_property(calendar.get(), icalproperty_new_description(head.description.c_str()));
    }
    icalcomponent_add_property(calendar.get(), refreshInterval());
    icalcomponent_add_property(calendar.get(), extension("X-PUBLISHED-TTL", "P1D"));
    return calendar;
}

/// A property as its content line, escaped and folded.
std::string line(icalproperty* property) {
    char* raw = icalproperty_as_ical_string_r(property);
    std::string text = raw == nullptr ? std::string() : std::string(raw);
    std::free(raw);
    icalproperty_free(property);
    return text;
}
} // namespace

std::string icsDocument(const IcsHead& head, const std::vector<IcsEntry>& entries) {
    constexpr std::string_view kEnd = "END:VCALENDAR\r\n";
    std::string text = textOfCalendar(emptyCalendar(head).get());
    text.erase(text.size() - kEnd.size());
    // Events are written line by line, what all of them share only once: a tree of a year's events takes half
    // as long again and 5 MB more.
    const std::string stamp = line(icalproperty_new_dtstamp(utcTime(head.made)));
    const std::string shared = line(icalproperty_new_location(head.location.c_str())) +
                               line(icalproperty_new_transp(ICAL_TRANSP_TRANSPARENT));
    for (const IcsEntry& entry : entries) {
        text += fmt::format("BEGIN:VEVENT\r\n{}{}{}{}{}{}END:VEVENT\r\n",
                            line(icalproperty_new_uid(entry.uid.c_str())), stamp,
                            line(icalproperty_new_dtstart(utcTime(entry.start))),
                            line(icalproperty_new_dtend(utcTime(entry.start + std::chrono::minutes(1)))),
                            line(icalproperty_new_summary(entry.title.c_str())), shared);
    }
    return text.append(kEnd);
}

} // namespace zorel::cli
