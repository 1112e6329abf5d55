// SPDX-License-Identifier: Apache-2.0
#include "Planner.h"

#include "alarms/NextRings.h"
#include "alarms/RingDurations.h"
#include "almanac/PlaceClock.h"
#include "common/GlobalFuncs.h"
#include "platform/eventkit/EKEventStore.h"
#include "platform/eventkit/GnomeSource.h"
#include "platform/foundation/Locations.h"
#include "platform/foundation/ProgramLocations.h"
#include "ring/Schedule.h"

#include <algorithm>
#include <string_view>

namespace zorel::ring {
namespace {

constexpr std::int32_t kBeforeKey = 1033;
constexpr std::int32_t kAfterKey = 1034;
constexpr std::int32_t kStopKey = 1060;
constexpr std::int32_t kSnoozeKey = 1061;
constexpr std::int32_t kWasAtKey = 1062;
constexpr const char* kBundledTone = "Dawn Bell.wav";

std::string replaced(std::string text, std::string_view what, const std::string& with) {
    const auto at = text.find(what);
    return at == std::string::npos ? text : text.replace(at, what.size(), with);
}

almanac::PlaceClock clockOf(const HomePlace& home) {
    return home.place ? home.place->clock : almanac::PlaceClock::ofMachine();
}

/// When an alarm that is on rings. What could not be placed in the calendar rings here all the same.
std::optional<Instant> ringsAt(const AlarmStatus& alarm) {
    if (!alarm.info.active) {
        return std::nullopt;
    }
    return alarm.state == AlarmState::rings ? alarm.ringsAt : alarm.due;
}

/// When the clock of the machine next shows 0:00.
Instant midnightAfter(Instant now) {
    const auto clock = almanac::PlaceClock::ofMachine();
    const auto tomorrow = std::chrono::sys_days(clock.dateAt(now)) + std::chrono::days(1);
    return clock.instantOf(almanac::Date(tomorrow), std::chrono::seconds(0));
}

bool areKnown(const AlarmReport& report) {
    return report.trouble != AlarmTrouble::busy && report.trouble != AlarmTrouble::unreadableRows &&
           report.trouble != AlarmTrouble::unreadableCalendar;
}

} // namespace

std::chrono::seconds durationOf(std::int32_t choice) {
    const bool isKnown = choice >= 0 && choice < static_cast<std::int32_t>(kRingDurations.size());
    return kRingDurations[isKnown ? static_cast<std::size_t>(choice) : 0];
}

Planned Planner::plan(const AlarmReport& before, const AlarmReport& after) const {
    Planned planned{emptyPlan(), areKnown(after)};
    planned.plan.trouble = after.complaint();
    for (const AlarmStatus& alarm : before.alarms) {
        if (alarm.state == AlarmState::passed && now_ - *alarm.ringsAt <= kStillTold) {
            planned.plan.rings.push_back(ringOf(before, alarm, *alarm.ringsAt));
        }
    }
    for (const AlarmStatus& alarm : after.alarms) {
        if (const auto at = ringsAt(alarm)) {
            planned.plan.rings.push_back(ringOf(after, alarm, *at));
        }
    }
    return planned;
}

Planned Planner::test(const AlarmReport& report, almanac::Prayer prayer) const {
    Planned planned = nothing();
    const AlarmStatus& alarm = report.of(almanac::identityOf(prayer).id);
    Instant at = alarm.ringsAt.value_or(now_);
    if (report.home.place) {
        at = AlarmDays(*report.home.place, now_).nextRings(prayer, alarm.info.timeOffset).next.value_or(at);
    }
    planned.plan.rings.push_back(ringOf(report, alarm, at));
    return planned;
}

Plan Planner::emptyPlan() const {
    Plan plan;
    plan.again = midnightAfter(now_);
    plan.stop = text(kStopKey);
    plan.snooze = text(kSnoozeKey);
    plan.keeper =
        isGnomeConnected(EKEventStore().defaultCalendarForNewEvents().calendarIdentifier) ? "GNOME" : "";
    return plan;
}

Ring Planner::ringOf(const AlarmReport& report, const AlarmStatus& alarm, Instant at) const {
    const std::string name =
        services_.GetTextPrayLabels(alarm.prayerId()).value_or(std::string(almanac::keyOf(alarm.prayer)));
    const Instant prayerAt = at - std::chrono::minutes(alarm.info.timeOffset);
    const std::string time =
        almanac::clockText(clockOf(report.home).localTime(prayerAt).timeOfDay, almanac::Precision::minutes);
    const Locations& folders = Locations::current();
    Ring ring;
    ring.prayer = almanac::keyOf(alarm.prayer);
    ring.at = at;
    ring.title = name + " " + time;
    ring.body = bodyOf(report.home, alarm.info.timeOffset);
    // Of an alarm before its prayer nobody can say whether that has been when the person hears of it.
    ring.missed =
        alarm.info.timeOffset < 0 ? ring.title : replaced(replaced(text(kWasAtKey), "%@", name), "%@", time);
    ring.ringtone = alarm.info.melodyName.empty() ? "" : folders.ringtones + "/" + alarm.info.melodyName;
    ring.bundled = ringtonesBesideBundle(folders.bundle) + "/" + kBundledTone;
    ring.duration = durationOf(alarm.info.melodyTime);
    return ring;
}

std::string Planner::text(std::int32_t key) const {
    return services_.GetKeyValue(key).value_or("");
}

std::string Planner::bodyOf(const HomePlace& home, std::int32_t offset) const {
    const std::string city = home.place ? home.place->name : "";
    if (offset == 0) {
        return city;
    }
    const std::string distance =
        replaced(text(offset < 0 ? kBeforeKey : kAfterKey), "%d", std::to_string(std::abs(offset)));
    return distance + (city.empty() ? "" : ", " + city);
}

} // namespace zorel::ring
