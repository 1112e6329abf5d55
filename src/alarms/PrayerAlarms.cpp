// SPDX-License-Identifier: Apache-2.0
#include "alarms/PrayerAlarms.h"

#include "alarms/NextRings.h"
#include "common/GlobalFuncs.h"
#include "platform/eventkit/EKEventStore.h"
#include "platform/foundation/Clock.h"
#include "store/AlarmOwner.h"
#include "store/DatabaseFunctions.h"
#include "store/UserRows.h"
#include "store/UserStatements.h"
#include "words/Tr.h"

#include <algorithm>
#include <utility>

namespace zorel {
namespace {

using almanac::Instant;

/// Why each alarm could not be brought to where it should be; empty: it could.
using Refusals = std::array<std::string, kAlarms>;

/// All that is looked at, at one moment.
struct Scene {
    UserRows rows;
    HomePlace home;
    std::optional<AlarmDays> days; ///< when the home city's times can be told
    EKEventStore store;
    Instant now;

    [[nodiscard]] NextRings ringsOf(const AlarmRow& row) const {
        const auto prayer = almanac::prayerOfId(row.prayerId());
        return days && prayer && row.active ? days->nextRings(*prayer, row.minute, silentUntil(rows, row))
                                            : NextRings{};
    }
};

std::string idOf(const AlarmRow& row) {
    return row.eventId.value_or(std::string());
}

Scene lookAround(const GlobalFuncs& glbFuncs, const DatabaseFunctions& dbFuncs) {
    Scene scene{storedUserRows(dbFuncs.userDBPath()),
                {},
                std::nullopt,
                EKEventStore(alarmOwner(dbFuncs.userDBPath())),
                std::chrono::floor<std::chrono::seconds>(now())};
    if (scene.rows.result.isDone()) {
        scene.home = homePlaceOf(glbFuncs, scene.rows.cities);
    }
    if (scene.home.place) {
        scene.days.emplace(*scene.home.place, scene.now);
    }
    return scene;
}

Instant startOf(const EKEvent& event) {
    return std::chrono::floor<std::chrono::seconds>(event.startDate);
}

bool hasItsAlarm(const EKEvent& event) {
    const auto isAtStart = [](const EKAlarm& alarm) { return alarm.relativeOffset == 0; };
    return !event.allDay && event.recurrenceRules.empty() && std::ranges::any_of(event.alarms, isAtStart);
}

bool standsAt(const EKEvent& event, const std::optional<Instant>& instant) {
    return instant && startOf(event) == *instant;
}

/// Whether it rings at its next time, or at the one behind it when that is too near for a person's edit.
bool isRight(const EKEvent& event, const NextRings& rings) {
    return hasItsAlarm(event) && (standsAt(event, rings.next) || standsAt(event, rings.afterMargin));
}

// What changes the calendar. Each answers with a reason, or with nothing when it was done.

std::string removeEvent(const Scene& scene, DatabaseFunctions& dbFuncs, const AlarmRow& row) {
    if (idOf(row).empty()) {
        return {};
    }
    std::string error;
    const auto event = scene.store.eventWithIdentifier(idOf(row), &error);
    if (event) {
        scene.store.removeEvent(*event, EKSpan::thisEvent, &error);
    }
    if (!error.empty()) {
        return error;
    }
    return dbFuncs.executeSQL(statements::setEventId(row.timeId, "")) ? std::string() : dbFuncs.trouble();
}

/// "Fajr 06:08, Istanbul": all events have the same title, so that their alarms name what they ring for.
std::string alarmText(const Scene& scene, const GlobalFuncs& glbFuncs, const AlarmRow& row, Instant rings) {
    const almanac::Place& place = *scene.home.place;
    const auto shown = place.clock.localTime(rings - std::chrono::minutes(row.minute)).timeOfDay;
    return glbFuncs.GetTextPrayLabels(row.prayerId()).value_or(std::string()) + " " +
           almanac::clockText(shown, almanac::Precision::minutes) + ", " + place.name;
}

/// What DatabaseFunctions does not know: the second of two equal local times, and what the alarm says.
std::string finishEvent(const Scene& scene, EKEvent event, Instant rings, std::string text) {
    std::string error;
    event.startDate = rings;
    event.endDate = rings + std::chrono::minutes(1);
    event.alarms = {{0, std::move(text)}};
    scene.store.saveEvent(event, EKSpan::thisEvent, &error);
    return error;
}

std::string placeEvent(const Scene& scene, const GlobalFuncs& glbFuncs, DatabaseFunctions& dbFuncs,
                       const AlarmRow& row, Instant rings) {
    dbFuncs.forgetTrouble();
    dbFuncs.updateAlarmPrayerTime(row.prayerId(), handedOverTime(rings, row.minute, scene.now));
    const UserRows placed = storedUserRows(dbFuncs.userDBPath());
    if (!placed.result.isDone()) {
        return placed.result.reason;
    }
    std::string error;
    const auto event = scene.store.eventWithIdentifier(
        idOf(placed.alarms.at(static_cast<std::size_t>(row.timeId - 1))), &error);
    if (!error.empty()) {
        return error;
    }
    if (!event) {
        return dbFuncs.trouble().empty() ? tr("the calendar did not keep its event") : dbFuncs.trouble();
    }
    return finishEvent(scene, *event, rings, alarmText(scene, glbFuncs, row, rings));
}

std::string settleActive(const Scene& scene, const GlobalFuncs& glbFuncs, DatabaseFunctions& dbFuncs,
                         const AlarmRow& row, std::optional<Soonest> edited) {
    const NextRings rings = scene.ringsOf(row);
    const auto& wanted = edited == Soonest::afterMargin ? rings.afterMargin : rings.next;
    if (!wanted) {
        return removeEvent(scene, dbFuncs, row);
    }
    std::string error;
    const auto event = scene.store.eventWithIdentifier(idOf(row), &error);
    if (!error.empty()) {
        return error;
    }
    const NextRings allowed = edited ? NextRings{wanted, wanted, std::nullopt} : rings;
    return event && isRight(*event, allowed) ? std::string()
                                             : placeEvent(scene, glbFuncs, dbFuncs, row, *wanted);
}

/// While the home city's times cannot be told, what is on stays as it is.
std::string settle(const Scene& scene, const GlobalFuncs& glbFuncs, DatabaseFunctions& dbFuncs,
                   const AlarmRow& row, std::optional<Soonest> edited) {
    if (!row.active || scene.home.state == HomeState::none) {
        return removeEvent(scene, dbFuncs, row);
    }
    return scene.days ? settleActive(scene, glbFuncs, dbFuncs, row, edited) : std::string();
}

std::vector<std::string> eventsOfActiveAlarms(const UserRows& rows) {
    std::vector<std::string> identifiers;
    for (const AlarmRow& row : rows.alarms) {
        if (row.active) {
            identifiers.push_back(idOf(row));
        }
    }
    return identifiers;
}

/// Only with complete rows: an event whose alarm is not known must not go.
void sweep(const Scene& scene, const DatabaseFunctions& dbFuncs) {
    const UserRows rows = storedUserRows(dbFuncs.userDBPath());
    if (rows.result.isDone()) {
        scene.store.removeEventsExcept(eventsOfActiveAlarms(rows));
    }
}

// What is told.

std::string whyNotAhead(const HomePlace& home, const NextRings& rings) {
    if (home.state == HomeState::none) {
        return tr("there is no home city whose times it could follow");
    }
    return rings.next ? tr("there is no event of it in the calendar") : home.reason;
}

void tellEvent(const Scene& scene, const EKEvent& event, const NextRings& rings, AlarmStatus& status) {
    status.ringsAt = startOf(event);
    if (*status.ringsAt <= scene.now) {
        status.state = AlarmState::passed;
    } else if (!hasItsAlarm(event)) {
        status.reason = tr("its event in the calendar has lost its alarm");
    } else if (scene.days && !isRight(event, rings)) {
        status.reason = tr("its event in the calendar does not stand at the home city's next time");
    } else {
        status.state = AlarmState::rings;
    }
}

void tellActive(const Scene& scene, const AlarmRow& row, AlarmStatus& status) {
    const NextRings rings = scene.ringsOf(row);
    status.due = rings.next;
    status.skipped = rings.skipped;
    std::string error;
    const auto event = scene.store.eventWithIdentifier(idOf(row), &error);
    if (!error.empty()) {
        status.reason = error;
    } else if (event) {
        tellEvent(scene, *event, rings, status);
    } else {
        status.reason = whyNotAhead(scene.home, rings);
    }
    const bool nothingAhead = status.state != AlarmState::rings && error.empty();
    if (scene.days && !rings.next && nothingAhead) {
        status.state = event && startOf(*event) > scene.now ? AlarmState::failed : AlarmState::noSuchTime;
    }
}

AlarmStatus statusOf(const Scene& scene, const AlarmRow& row, const std::string& refusal) {
    AlarmStatus status;
    status.prayer = almanac::prayerOfId(row.prayerId()).value_or(almanac::Prayer::fajr);
    status.info = row.info();
    status.eventId = idOf(row);
    status.state = row.active ? AlarmState::failed : AlarmState::off;
    if (row.active) {
        tellActive(scene, row, status);
    }
    if (!refusal.empty()) {
        status.state = AlarmState::failed;
        status.reason = refusal;
    }
    return status;
}

void tellHome(AlarmReport& report) {
    if (report.home.state == HomeState::notInCatalogue) {
        report.trouble = AlarmTrouble::unknownHome;
    } else if (report.home.state == HomeState::unreadableCatalogue) {
        report.trouble = AlarmTrouble::unreadableCatalogue;
    }
    report.reason = report.home.reason;
}

/// Events of this database that no alarm has would ring all the same, whatever home city there is.
void tellCalendar(const Scene& scene, AlarmReport& report) {
    std::string error;
    const auto known = eventsOfActiveAlarms(scene.rows);
    const auto own = scene.store.ownIdentifiers(&error);
    const bool isLeft = std::ranges::any_of(own, [&](const std::string& identifier) {
        return std::ranges::find(known, identifier) == known.end();
    });
    if (!error.empty()) {
        report.trouble = AlarmTrouble::unreadableCalendar;
        report.reason = error;
    } else if (isLeft) {
        report.trouble = AlarmTrouble::leftovers;
        report.reason = tr("the calendar holds an event that belongs to no alarm that is on");
    } else if (!scene.store.isPublished(&error)) {
        report.trouble = AlarmTrouble::unpublished;
        report.reason = error;
    }
}

AlarmReport unreadable(const StoreResult& result) {
    AlarmReport report;
    report.trouble = result.state == StoreState::busy ? AlarmTrouble::busy : AlarmTrouble::unreadableRows;
    report.reason = result.reason;
    std::int32_t prayerId = kFirstAlarmPrayerId;
    for (AlarmStatus& alarm : report.alarms) {
        alarm.prayer = almanac::prayerOfId(prayerId++).value_or(almanac::Prayer::fajr);
        alarm.reason = result.reason;
    }
    return report;
}

AlarmReport tell(const Scene& scene, const Refusals& refusals) {
    if (!scene.rows.result.isDone()) {
        return unreadable(scene.rows.result);
    }
    AlarmReport report;
    report.home = scene.home;
    if (const auto until = instantOf(scene.rows.pausedUntil);
        until && *until > scene.now && *until <= scene.now + kLongestSilence) {
        report.pausedUntil = until;
    }
    for (std::size_t index = 0; index < kAlarms; ++index) {
        report.alarms[index] = statusOf(scene, scene.rows.alarms[index], refusals[index]);
    }
    tellHome(report);
    tellCalendar(scene, report);
    return report;
}

} // namespace

AlarmReport PrayerAlarms::report() const {
    const UserLock lock(dbFuncs_.userDBPath(), LockKind::shared);
    return tell(lookAround(glbFuncs_, dbFuncs_), {});
}

AlarmReport PrayerAlarms::reconcile(std::optional<std::int32_t> edited, Soonest soonest) {
    const UserLock lock(dbFuncs_.userDBPath(), LockKind::exclusive);
    if (!lock.isHeld()) {
        return unreadable(
            {lock.state() == LockState::busy ? StoreState::busy : StoreState::failed, lock.reason()});
    }
    Refusals refusals;
    const Scene scene = lookAround(glbFuncs_, dbFuncs_);
    if (scene.rows.result.isDone()) {
        for (std::size_t index = 0; index < kAlarms; ++index) {
            const AlarmRow& row = scene.rows.alarms[index];
            refusals[index] = settle(scene, glbFuncs_, dbFuncs_, row,
                                     row.prayerId() == edited ? std::optional(soonest) : std::nullopt);
            if (!refusals[index].empty()) {
                dbFuncs_.logTrouble("reconcile", refusals[index]);
            }
        }
        sweep(scene, dbFuncs_);
    }
    // Once, at the end: what another program reads in between would ring.
    if (std::string error; !scene.store.publish(&error)) {
        dbFuncs_.logTrouble("publish", error);
    }
    return tell(lookAround(glbFuncs_, dbFuncs_), refusals);
}

} // namespace zorel
