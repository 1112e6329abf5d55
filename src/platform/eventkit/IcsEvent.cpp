// SPDX-License-Identifier: Apache-2.0
#include "platform/eventkit/IcsEvent.h"

#include "platform/eventkit/IcsText.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace zorel {
namespace {

constexpr int kFirstYear = 1700;
constexpr int kLastYear = 2200;
/// No clock is further from universal time [s]; a zone of a file may claim anything.
constexpr std::int64_t kLargestOffset = std::int64_t{26} * 3600;
constexpr const char* kProduct = "-//Zorel//Prayer alarms//EN";

// Times.

/// Months and days out of their range can lead a time with a good year anywhere.
bool isNearTheYears(std::int64_t seconds) {
    using namespace std::chrono;
    constexpr sys_seconds first = sys_days(year(kFirstYear - 1) / January / 1);
    constexpr sys_seconds last = sys_days(year(kLastYear + 2) / January / 1);
    return seconds > first.time_since_epoch().count() && seconds < last.time_since_epoch().count();
}

std::optional<Instant> instantOf(const icaltimetype& time) {
    if (icaltime_is_null_time(time) != 0 || time.year < kFirstYear || time.year > kLastYear) {
        return std::nullopt;
    }
    if (time.is_date != 0 || time.zone == nullptr) {
        return instantFromLocal({time.year, time.month, time.day, time.hour, time.minute, time.second, 0.0});
    }
    // libical takes zones without const, but keeps them as they are.
    const auto zone = const_cast<icaltimezone*>(time.zone);
    const std::int64_t seconds = icaltime_as_timet_with_zone(time, zone);
    // Not icaltime_as_timet(time), which knows no year before 1902.
    const std::int64_t asIfUtc = icaltime_as_timet_with_zone(time, icaltimezone_get_utc_timezone());
    if (!isNearTheYears(seconds) || std::abs(asIfUtc - seconds) > kLargestOffset) {
        return std::nullopt;
    }
    return Instant(std::chrono::seconds(seconds));
}

bool isWritable(Instant instant) {
    const std::chrono::year_month_day date(std::chrono::floor<std::chrono::days>(instant));
    return static_cast<int>(date.year()) > kFirstYear && static_cast<int>(date.year()) < kLastYear;
}

icaltimetype utcTime(Instant instant) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(instant).time_since_epoch().count();
    return icaltime_from_timet_with_zone(static_cast<time_t>(seconds), 0, icaltimezone_get_utc_timezone());
}

icaltimetype localDate(Instant instant) {
    const LocalDateTime local = localDateTime(instant);
    icaltimetype date = icaltime_null_date();
    date.year = local.year;
    date.month = local.month;
    date.day = local.day;
    return date;
}

icaltimetype timeFor(Instant instant, bool allDay) {
    return allDay ? localDate(instant) : utcTime(instant);
}

// Reading.

std::string textOf(const char* text) {
    return text == nullptr ? std::string() : std::string(text);
}

std::optional<std::string> notesOf(icalcomponent* event) {
    const char* text = icalcomponent_get_description(event);
    return text == nullptr ? std::nullopt : std::optional<std::string>(text);
}

std::vector<std::string> rulesOf(icalcomponent* event) {
    std::vector<std::string> rules;
    for (icalproperty* rule = icalcomponent_get_first_property(event, ICAL_RRULE_PROPERTY); rule != nullptr;
         rule = icalcomponent_get_next_property(event, ICAL_RRULE_PROPERTY)) {
        char* text = icalproperty_get_value_as_string_r(rule);
        rules.push_back(textOf(text));
        std::free(text);
    }
    return rules;
}

bool displays(icalcomponent* alarm) {
    icalproperty* action = icalcomponent_get_first_property(alarm, ICAL_ACTION_PROPERTY);
    return action != nullptr && icalproperty_get_action(action) == ICAL_ACTION_DISPLAY;
}

std::optional<EKAlarm> alarmOf(icalcomponent* alarm, Instant start) {
    icalproperty* property = icalcomponent_get_first_property(alarm, ICAL_TRIGGER_PROPERTY);
    if (property == nullptr || !displays(alarm)) {
        return std::nullopt;
    }
    const icaltriggertype trigger = icalproperty_get_trigger(property);
    if (icaltime_is_null_time(trigger.time) != 0) {
        return EKAlarm::alarmWithRelativeOffset(icaldurationtype_as_int(trigger.duration));
    }
    const auto moment = instantOf(trigger.time);
    if (!moment) {
        return std::nullopt;
    }
    constexpr std::int64_t largest = std::int64_t{1} << 30;
    // In seconds: five centuries apart, two instants differ by more nanoseconds than an instant can count.
    using std::chrono::seconds;
    const std::int64_t offset =
        (std::chrono::floor<seconds>(*moment) - std::chrono::floor<seconds>(start)).count();
    return EKAlarm::alarmWithRelativeOffset(static_cast<std::int32_t>(std::clamp(offset, -largest, largest)));
}

std::vector<EKAlarm> alarmsOf(icalcomponent* event, Instant start) {
    const std::string title = textOf(icalcomponent_get_summary(event));
    std::vector<EKAlarm> alarms;
    for (icalcomponent* alarm = icalcomponent_get_first_component(event, ICAL_VALARM_COMPONENT);
         alarm != nullptr; alarm = icalcomponent_get_next_component(event, ICAL_VALARM_COMPONENT)) {
        if (auto one = alarmOf(alarm, start)) {
            const std::string shown = notesOf(alarm).value_or(title);
            one->text = shown == title ? std::string() : shown;
            alarms.push_back(*std::move(one));
        }
    }
    return alarms;
}

// Writing.

void add(icalcomponent* component, icalproperty* property) {
    icalcomponent_add_property(component, property);
}

/// Takes out the properties that icsFromEvent writes itself, and those of a repetition.
void removeOwnProperties(icalcomponent* event) {
    constexpr std::array kinds{ICAL_UID_PROPERTY,          ICAL_SUMMARY_PROPERTY,  ICAL_LOCATION_PROPERTY,
                               ICAL_DESCRIPTION_PROPERTY,  ICAL_DTSTART_PROPERTY,  ICAL_DTEND_PROPERTY,
                               ICAL_DURATION_PROPERTY,     ICAL_DTSTAMP_PROPERTY,  ICAL_LASTMODIFIED_PROPERTY,
                               ICAL_SEQUENCE_PROPERTY,     ICAL_TRANSP_PROPERTY,   ICAL_RRULE_PROPERTY,
                               ICAL_RDATE_PROPERTY,        ICAL_EXDATE_PROPERTY,   ICAL_EXRULE_PROPERTY,
                               ICAL_RECURRENCEID_PROPERTY, ICAL_XLICERROR_PROPERTY};
    for (const icalproperty_kind kind : kinds) {
        while (icalproperty* property = icalcomponent_get_first_property(event, kind)) {
            icalcomponent_remove_property(event, property);
            icalproperty_free(property);
        }
    }
}

void removeComponents(icalcomponent* event) {
    while (icalcomponent* part = icalcomponent_get_first_component(event, ICAL_ANY_COMPONENT)) {
        icalcomponent_remove_component(event, part);
        icalcomponent_free(part);
    }
}

/// The event of the earlier text without what is written anew, or an event with nothing but its creation
/// time.
Component foundation(icalcomponent* previous, Instant stamp) {
    if (previous != nullptr) {
        Component event(icalcomponent_new_clone(previous));
        removeOwnProperties(event.get());
        removeComponents(event.get());
        return event;
    }
    Component event(icalcomponent_new(ICAL_VEVENT_COMPONENT));
    add(event.get(), icalproperty_new_created(utcTime(stamp)));
    return event;
}

int nextSequence(icalcomponent* previous) {
    constexpr int largest = 1 << 30;
    return previous == nullptr ? 0 : std::clamp(icalcomponent_get_sequence(previous), 0, largest) + 1;
}

bool addRules(icalcomponent* component, const std::vector<std::string>& rules) {
    return std::ranges::all_of(rules, [component](const std::string& text) {
        const icalrecurrencetype rule = icalrecurrencetype_from_string(text.c_str());
        icalerror_clear_errno();
        if (rule.freq == ICAL_NO_RECURRENCE) {
            return false;
        }
        add(component, icalproperty_new_rrule(rule));
        return true;
    });
}

void addTexts(icalcomponent* component, const EKEvent& event) {
    add(component, icalproperty_new_uid(withoutControls(event.eventIdentifier).c_str()));
    add(component, icalproperty_new_summary(withoutControls(event.title).c_str()));
    add(component, icalproperty_new_location(withoutControls(event.location).c_str()));
    if (event.notes) {
        add(component, icalproperty_new_description(withoutControls(*event.notes).c_str()));
    }
}

/// The end of an all-day event is a date after the one of its start (RFC 5545, 3.6.1).
icaltimetype endFor(const EKEvent& event) {
    icaltimetype end = timeFor(event.endDate, event.allDay);
    const icaltimetype start = timeFor(event.startDate, event.allDay);
    if (event.allDay && icaltime_compare(end, start) <= 0) {
        end = start;
        icaltime_adjust(&end, 1, 0, 0, 0);
    }
    return end;
}

void addTimes(icalcomponent* component, const EKEvent& event, Instant stamp) {
    add(component, icalproperty_new_dtstamp(utcTime(stamp)));
    add(component, icalproperty_new_lastmodified(utcTime(stamp)));
    add(component, icalproperty_new_dtstart(timeFor(event.startDate, event.allDay)));
    add(component, icalproperty_new_dtend(endFor(event)));
    add(component, icalproperty_new_transp(ICAL_TRANSP_TRANSPARENT));
}

/// Every display alarm has a DESCRIPTION: RFC 5545 (3.6.6) asks for it, and clients have crashed without it.
Component alarmComponent(const EKAlarm& alarm, const std::string& title) {
    Component component(icalcomponent_new(ICAL_VALARM_COMPONENT));
    icaltriggertype trigger{};
    trigger.time = icaltime_null_time();
    trigger.duration = icaldurationtype_from_int(alarm.relativeOffset);
    add(component.get(), icalproperty_new_action(ICAL_ACTION_DISPLAY));
    add(component.get(),
        icalproperty_new_description(withoutControls(alarm.text.empty() ? title : alarm.text).c_str()));
    add(component.get(), icalproperty_new_trigger(trigger));
    return component;
}

Component newCalendar() {
    Component calendar(icalcomponent_new(ICAL_VCALENDAR_COMPONENT));
    add(calendar.get(), icalproperty_new_version("2.0"));
    add(calendar.get(), icalproperty_new_prodid(kProduct));
    add(calendar.get(), icalproperty_new_name(std::string(kCalendarName).c_str()));
    add(calendar.get(), icalproperty_new_color(kCalendarColorName));
    return calendar;
}

} // namespace

std::optional<EKEvent> eventFromIcs(const std::string& text) {
    const Component calendar = parseCalendar(text);
    icalcomponent* source = calendar ? singleEvent(calendar.get()) : nullptr;
    if (source == nullptr) {
        return std::nullopt;
    }
    const icaltimetype startTime = icalcomponent_get_dtstart(source);
    const auto start = instantOf(startTime);
    if (!start) {
        return std::nullopt;
    }
    EKEvent event;
    event.eventIdentifier = icalcomponent_get_uid(source);
    event.title = textOf(icalcomponent_get_summary(source));
    event.location = textOf(icalcomponent_get_location(source));
    event.notes = notesOf(source);
    event.allDay = startTime.is_date != 0;
    event.startDate = *start;
    event.endDate = instantOf(icalcomponent_get_dtend(source)).value_or(*start);
    event.alarms = alarmsOf(source, *start);
    event.recurrenceRules = rulesOf(source);
    return event;
}

std::optional<std::string> icsFromEvent(const EKEvent& event, const std::string& previous, Instant stamp) {
    if (!isWritable(event.startDate) || !isWritable(event.endDate) || !isWritable(stamp)) {
        return std::nullopt;
    }
    const Component earlier = parseCalendar(previous);
    icalcomponent* source = earlier ? singleEvent(earlier.get()) : nullptr;
    Component component = foundation(source, stamp);
    addTexts(component.get(), event);
    addTimes(component.get(), event, stamp);
    add(component.get(), icalproperty_new_sequence(nextSequence(source)));
    if (!addRules(component.get(), event.recurrenceRules)) {
        return std::nullopt;
    }
    for (const EKAlarm& alarm : event.alarms) {
        icalcomponent_add_component(component.get(), alarmComponent(alarm, event.title).release());
    }
    const Component calendar = newCalendar();
    icalcomponent_add_component(calendar.get(), component.release());
    return textOfCalendar(calendar.get());
}

} // namespace zorel
