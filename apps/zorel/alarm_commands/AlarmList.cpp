// SPDX-License-Identifier: Apache-2.0
#include "alarm_commands/AlarmList.h"

#include "commands/CataloguePlaces.h"
#include "commands/UserData.h"
#include "print/ClockNotices.h"
#include "print/DayJson.h"
#include "print/DayText.h"

#include "almanac/Almanac.h"

#include <fmt/format.h>

#include <optional>

namespace zorel::cli {

namespace {
constexpr std::int32_t kNoSuchTimeText = 1043;

/// The report, and the home city's day beside it.
struct List {
    const AlarmReport& report;
    std::optional<ShownPlace> home;
    almanac::Date today{};
    almanac::Day day;
};

List listOf(const Context& context, const AlarmReport& report) {
    List list{report, std::nullopt, {}, {}};
    if (report.home.row) {
        list.home = shownPlace(*report.home.row);
        list.today = list.home->clock().dateAt(context.now());
        list.day = almanac::Almanac(list.home->place).day(list.today);
    }
    return list;
}

ShownTime prayerTime(const List& list, const AlarmStatus& alarm) {
    const almanac::DayTime& time = list.day[alarm.prayer];
    return list.home && time.exists() ? ShownTime(time.local) : std::nullopt;
}

ShownTime onMachine(const std::optional<almanac::Instant>& instant) {
    return instant ? ShownTime(almanac::PlaceClock::ofMachine().localTime(*instant)) : std::nullopt;
}

/// On the home city's clock.
ShownTime atHome(const List& list, const std::optional<almanac::Instant>& instant) {
    return instant && list.home ? ShownTime(list.home->clock().localTime(*instant)) : onMachine(instant);
}

std::string_view keyOf(AlarmState state) {
    switch (state) {
    case AlarmState::off:
        return "off";
    case AlarmState::rings:
        return "rings";
    case AlarmState::passed:
        return "passed";
    case AlarmState::noSuchTime:
        return "no_such_time";
    default:
        return "failed";
    }
}

std::string durationLabel(const HeadlessPane& pane, std::int32_t duration) {
    const auto& durations = pane.durations();
    const bool known = duration >= 0 && duration < static_cast<std::int32_t>(durations.size());
    return known ? durations[static_cast<std::size_t>(duration)].displayText : std::string();
}

std::string prayerText(const Context& context, const List& list, const AlarmStatus& alarm) {
    if (!list.home) {
        return "-";
    }
    const ShownTime time = prayerTime(list, alarm);
    return time ? timeText(context, time, list.today)
                : context.services.GetKeyValue(kNoSuchTimeText).value_or(tr("No such time today"));
}

/// "2026-11-22 05:26", with this machine's "(2026-11-22 03:26 here)" where its clock is another.
std::string momentText(const List& list, almanac::Instant instant) {
    const auto text = [](const almanac::LocalTime& time) {
        return fmt::format("{} {}", almanac::isoDate(time.date),
                           almanac::clockText(time.timeOfDay, almanac::Precision::minutes));
    };
    const almanac::LocalTime here = almanac::PlaceClock::ofMachine().localTime(instant);
    const almanac::LocalTime there = list.home ? list.home->clock().localTime(instant) : here;
    // translators: {0} when it rings by the home city's clock, {1} by the clock of this machine
    return there.offset == here.offset ? text(there) : tr("{0} ({1} here)", text(there), text(here));
}

/// When it rings; of an alarm that was left out alone, what it leaves out too.
std::string ringText(const List& list, const AlarmStatus& alarm) {
    const std::string text = momentText(list, *alarm.ringsAt);
    const bool isSkipped = alarm.skipped && !list.report.pausedUntil;
    // translators: {0} when the alarm rings, {1} when it would have rung had the person not left that out
    return isSkipped ? tr("{0} (skips {1})", text, momentText(list, *alarm.skipped)) : text;
}

std::string stateText(const List& list, const AlarmStatus& alarm) {
    switch (alarm.state) {
    case AlarmState::rings:
        return ringText(list, alarm);
    case AlarmState::passed:
        return tr("{} has passed", ringText(list, alarm));
    case AlarmState::noSuchTime:
        return tr("no such time in the next days");
    case AlarmState::failed:
        return tr("will not ring");
    default:
        return {};
    }
}

/// Of the home city; empty without one.
std::string homeName(const HeadlessPane& pane, const List& list) {
    if (list.report.home.place) {
        return list.report.home.place->name;
    }
    return pane.home() == nullptr ? std::string() : pane.home()->name;
}

void printText(const Context& context, const HeadlessPane& pane, const List& list) {
    TextTable table("lllrlll");
    table.add({"", "", trIn("column", "time"), trIn("column", "minutes"), trIn("column", "rings at"),
               trIn("column", "ringtone"), trIn("column", "duration")},
              TextTable::Emphasis::dim);
    for (const AlarmStatus& alarm : list.report.alarms) {
        table.add({context.nameOf(alarm.prayer),
                   alarm.info.active ? trIn("alarm", "on") : trIn("alarm", "off"),
                   prayerText(context, list, alarm), fmt::format("{:+}", alarm.info.timeOffset),
                   stateText(list, alarm), alarm.info.melodyName, durationLabel(pane, alarm.info.melodyTime)},
                  alarm.info.active ? TextTable::Emphasis::bold : TextTable::Emphasis::none);
    }
    context.streams.out << (pane.home() == nullptr ? noCitiesText()
                                                   : context.style.bold(homeName(pane, list)))
                        << '\n';
    if (const auto until = list.report.pausedUntil) {
        context.streams.out << tr("paused until {}", momentText(list, *until)) << '\n';
    }
    context.streams.out << table.text(context.style);
    if (list.home) {
        context.streams.out << clockNoticeLine(context, *list.home, list.today);
    }
}

Json alarmJson(const Context& context, const HeadlessPane& pane, const List& list, const AlarmStatus& alarm) {
    const ShownTime time = prayerTime(list, alarm);
    return Json{{"name", almanac::keyOf(alarm.prayer)},
                {"label", context.nameOf(alarm.prayer)},
                {"active", alarm.info.active},
                {"state", keyOf(alarm.state)},
                {"reason", alarm.reason.empty() ? Json(nullptr) : Json(alarm.reason)},
                {"offset_minutes", alarm.info.timeOffset},
                {"ringtone", alarm.info.melodyName},
                {"duration", alarm.info.melodyTime},
                {"duration_label", durationLabel(pane, alarm.info.melodyTime)},
                {"prayer_time", timeJson(time)},
                {"rings_at", timeJson(onMachine(alarm.ringsAt))},
                {"rings_at_home", timeJson(atHome(list, alarm.ringsAt))},
                {"skipped", timeJson(atHome(list, alarm.skipped))},
                {"skips_next", alarm.skipsNext()},
                {"no_such_time_today", list.home && !time}};
}

Json listJson(const Context& context, const HeadlessPane& pane, const List& list) {
    Json items = Json::array();
    for (const AlarmStatus& alarm : list.report.alarms) {
        items.push_back(alarmJson(context, pane, list, alarm));
    }
    return Json{{"schema", "zorel/alarms/1"},
                {"home", pane.home() == nullptr ? Json(nullptr) : Json(homeName(pane, list))},
                {"clock", list.home ? clockJson(*list.home, list.today) : Json(nullptr)},
                {"paused_until", timeJson(atHome(list, list.report.pausedUntil))},
                {"good", list.report.isGood()},
                {"complaint", list.report.isGood() ? Json(nullptr) : Json(list.report.complaint())},
                {"alarms", items}};
}

/// Alarms ring at the home city's times; this machine shows others then.
void compareClocks(const Context& context, const std::optional<ShownPlace>& home) {
    if (!home) {
        return;
    }
    const auto here = almanac::PlaceClock::ofMachine().offsetAt(context.now());
    const auto there = home->clock().offsetAt(context.now());
    if (here != there) {
        context.note(tr("alarms ring at the times of {0} (UTC{1}); this machine's clock is UTC{2}",
                        home->place.name, almanac::isoOffset(there), almanac::isoOffset(here)));
    }
}
} // namespace

void printAlarms(const Context& context, const HeadlessPane& pane, const AlarmReport& report) {
    const List list = listOf(context, report);
    compareClocks(context, list.home);
    if (context.options.json) {
        writeJson(context, listJson(context, pane, list));
    } else {
        printText(context, pane, list);
    }
}

} // namespace zorel::cli
