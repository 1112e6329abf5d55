// SPDX-License-Identifier: Apache-2.0
#include "print/IcsTable.h"

#include "platform/eventkit/IcsText.h"

#include <chrono>
#include <cstdlib>
#include <fmt/compile.h>
#include <libical/ical.h>
#include <map>

namespace zorel::cli {

namespace {
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

/// "20270401T052300Z".
std::string utcText(almanac::Instant instant) {
    const auto day = std::chrono::floor<std::chrono::days>(instant);
    const almanac::Date date(day);
    const std::chrono::hh_mm_ss time(instant - day);
    return fmt::format(FMT_COMPILE("{:04d}{:02d}{:02d}T{:02d}{:02d}{:02d}Z"), static_cast<int>(date.year()),
                       static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                       time.hours().count(), time.minutes().count(), time.seconds().count());
}

/// Events written line by line: a tree of a year's events takes three times as long and 5 MB more. What has
/// nothing to escape and is short goes out as it is, titles are escaped once.
class Events {
public:
    explicit Events(const IcsHead& head)
        : stamp_("DTSTAMP:" + utcText(head.made) + "\r\n"),
          shared_(line(icalproperty_new_location(head.location.c_str())) +
                  line(icalproperty_new_transp(ICAL_TRANSP_TRANSPARENT))),
          reminders_(head.reminders) {}

    void append(std::string& text, const IcsEntry& entry) {
        text.append("BEGIN:VEVENT\r\n").append(line(icalproperty_new_uid(entry.uid.c_str())));
        text.append(stamp_);
        text.append("DTSTART:").append(utcText(entry.start));
        text.append("\r\nDTEND:").append(utcText(entry.start + std::chrono::minutes(1)));
        text.append("\r\n").append(title(entry.title)).append(shared_).append(reminders(entry.title));
        text.append("END:VEVENT\r\n");
    }

private:
    const std::string& title(const std::string& text) {
        std::string& known = titles_[text];
        if (known.empty()) {
            known = line(icalproperty_new_summary(text.c_str()));
        }
        return known;
    }

    const std::string& reminders(const std::string& title) {
        std::string& known = alarms_[title];
        if (known.empty()) {
            for (const int minutes : reminders_) {
                known += fmt::format("BEGIN:VALARM\r\nACTION:DISPLAY\r\n{}TRIGGER:-PT{}M\r\nEND:VALARM\r\n",
                                     line(icalproperty_new_description(title.c_str())), minutes);
            }
        }
        return known;
    }

    std::string stamp_;
    std::string shared_;                        // by all events
    std::vector<int> reminders_;                // [min]
    std::map<std::string, std::string> alarms_; // by title
    std::map<std::string, std::string> titles_;
};
} // namespace

std::string icsDocument(const IcsHead& head, const std::vector<IcsEntry>& entries) {
    constexpr std::string_view kEnd = "END:VCALENDAR\r\n";
    std::string text = textOfCalendar(emptyCalendar(head).get());
    text.erase(text.size() - kEnd.size());
    Events events(head);
    for (const IcsEntry& entry : entries) {
        events.append(text, entry);
    }
    return text.append(kEnd);
}

} // namespace zorel::cli
