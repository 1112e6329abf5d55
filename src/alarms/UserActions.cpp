// SPDX-License-Identifier: Apache-2.0
#include "alarms/UserActions.h"

#include "alarms/NextRings.h"
#include "platform/foundation/Clock.h"
#include "platform/foundation/NumberText.h"
#include "store/DatabaseFunctions.h"
#include "store/UserStatements.h"
#include "words/Tr.h"

#include <algorithm>
#include <utility>

namespace zorel {
namespace {

bool isListed(const UserRows& rows, std::int32_t cityId) {
    return std::ranges::any_of(
        rows.cities, [cityId](const UserCity& city) { return integerValue(city.cityId) == cityId; });
}

const AlarmRow& rowOf(const UserRows& rows, std::int32_t prayerId) {
    return rows.alarms.at(static_cast<std::size_t>(prayerId - kFirstAlarmPrayerId));
}

void switchEveryRowOff(const UserRows& rows, std::vector<std::string>& statements) {
    for (const AlarmRow& row : rows.alarms) {
        if (row.active) {
            statements.push_back(statements::setActive(row.timeId, false));
        }
    }
}

/// The rows that stay when a city goes.
std::vector<UserCity> others(const UserRows& rows, std::int32_t cityId) {
    std::vector<UserCity> rest = rows.cities;
    std::erase_if(rest, [cityId](const UserCity& city) { return integerValue(city.cityId) == cityId; });
    return rest;
}

bool isHome(const UserRows& rows, std::int32_t cityId) {
    const auto position = homePosition(rows.cities);
    return position && integerValue(rows.cities[*position].cityId) == cityId;
}

ActionResult failed(const StoreResult& result) {
    const bool busy = result.state == StoreState::busy;
    return {busy ? ActionState::busy : ActionState::unstorable, result.reason, std::nullopt};
}

std::string complaintOf(const AlarmReport& report, std::optional<std::int32_t> prayerId) {
    const std::string ofAlarm = prayerId ? report.of(*prayerId).reason : std::string();
    return ofAlarm.empty() ? report.complaint() : ofAlarm;
}

/// No event of ours is in the calendar, or in what is made of it, without belonging to an alarm.
bool isSwept(const AlarmReport& report) {
    return report.trouble != AlarmTrouble::leftovers && report.trouble != AlarmTrouble::unpublished &&
           report.trouble != AlarmTrouble::unreadableCalendar && report.trouble != AlarmTrouble::busy &&
           report.trouble != AlarmTrouble::unreadableRows;
}

bool isOff(const AlarmStatus& alarm) {
    return alarm.state == AlarmState::off;
}

/// Prayers return to their times within the day, up to the minutes that they drift and the hour that a clock
/// change moves them.
constexpr std::chrono::hours kHalfDay{12};

} // namespace

bool isStorableRingtone(const std::string& name) {
    return name.find('\'') == std::string::npos;
}

void UserActions::Plan::concern(std::int32_t id, Soonest rings) {
    movesAlarms = true;
    prayerId = id;
    soonest = rings;
}

bool UserActions::isAsAsked(const AlarmReport& report, const Plan& plan) {
    if (plan.aim == Aim::silence) {
        return isSwept(report) && std::ranges::all_of(report.alarms, isOff);
    }
    if (!plan.prayerId) {
        return report.isGood();
    }
    const AlarmStatus& alarm = report.of(*plan.prayerId);
    if (!alarm.info.active) {
        return isOff(alarm) && isSwept(report);
    }
    return report.home.place && report.trouble != AlarmTrouble::unpublished &&
           (alarm.state == AlarmState::rings || alarm.state == AlarmState::noSuchTime);
}

ActionResult UserActions::perform(const Planner& planner) {
    const UserLock lock(dbFuncs_.userDBPath(), LockKind::exclusive);
    if (!lock.isHeld()) {
        const bool busy = lock.state() == LockState::busy;
        return {busy ? ActionState::busy : ActionState::unstorable, lock.reason(), std::nullopt};
    }
    const UserRows before = storedUserRows(dbFuncs_.userDBPath());
    if (!before.result.isDone()) {
        return failed(before.result);
    }
    const Plan plan = planner(before);
    if (plan.state != ActionState::done) {
        return {plan.state, plan.reason, std::nullopt};
    }
    if (!plan.statements.empty()) {
        const StoreResult changed = changeUserRows(dbFuncs_.userDBPath(), plan.statements);
        if (!changed.isDone()) {
            dbFuncs_.logTrouble("action", changed.reason);
            return failed(changed);
        }
    }
    return plan.movesAlarms ? follow(plan, before) : ActionResult{};
}

ActionResult UserActions::follow(const Plan& plan, const UserRows& before) {
    AlarmReport report = PrayerAlarms(glbFuncs_, dbFuncs_).reconcile(plan.prayerId, plan.soonest);
    if (isAsAsked(report, plan)) {
        return {ActionState::done, {}, std::move(report)};
    }
    const std::string reason = complaintOf(report, plan.prayerId);
    if (plan.statements.empty()) {
        return {ActionState::refused, reason, std::move(report)};
    }
    return putBack(before, reason);
}

/// Should the rows refuse to go back too, they hold what was asked for.
ActionResult UserActions::putBack(const UserRows& before, const std::string& reason) {
    const UserRows now = storedUserRows(dbFuncs_.userDBPath());
    const StoreResult restored = now.result.isDone()
                                     ? changeUserRows(dbFuncs_.userDBPath(), statementsToRestore(before, now))
                                     : now.result;
    if (!restored.isDone()) {
        dbFuncs_.logTrouble("putBack", restored.reason);
    }
    return {restored.isDone() ? ActionState::refused : ActionState::unfinished, reason,
            PrayerAlarms(glbFuncs_, dbFuncs_).reconcile()};
}

ActionResult UserActions::addCity(std::int32_t cityId) {
    return perform([cityId](const UserRows& rows) {
        Plan plan;
        if (isListed(rows, cityId)) {
            plan.state = ActionState::alreadyListed;
            plan.reason = tr("the city is in the list already");
            return plan;
        }
        plan.movesAlarms = rows.cities.empty();
        if (plan.movesAlarms) {
            switchEveryRowOff(rows, plan.statements);
        }
        plan.statements.push_back(statements::addCity(cityId, rows.cities.empty()));
        return plan;
    });
}

ActionResult UserActions::makeHome(std::int32_t cityId) {
    return perform([cityId](const UserRows& rows) {
        Plan plan;
        if (!isListed(rows, cityId)) {
            plan.state = ActionState::notListed;
            plan.reason = tr("the city is not in the list");
            return plan;
        }
        plan.movesAlarms = true;
        const bool isMarked = isMarkedAsHome(rows.cities[*homePosition(rows.cities)]);
        if (!isHome(rows, cityId) || !isMarked) {
            plan.statements = {statements::unmarkHome(), statements::markAsHome(cityId)};
        }
        return plan;
    });
}

ActionResult UserActions::removeCity(std::int32_t cityId) {
    return perform([cityId](const UserRows& rows) {
        Plan plan;
        if (!isListed(rows, cityId)) {
            return plan;
        }
        plan.statements.push_back(statements::removeCity(cityId));
        plan.movesAlarms = isHome(rows, cityId);
        const auto rest = others(rows, cityId);
        if (plan.movesAlarms && rest.empty()) {
            switchEveryRowOff(rows, plan.statements);
        } else if (plan.movesAlarms) {
            plan.statements.push_back(statements::unmarkHome());
            plan.statements.push_back(statements::markAsHome(integerValue(rest.front().cityId)));
        }
        return plan;
    });
}

ActionResult UserActions::switchOn(std::int32_t prayerId, const std::function<void(AlarmInfo&)>& choose) {
    return perform([&](const UserRows& rows) {
        Plan plan;
        const AlarmRow& row = rowOf(rows, prayerId);
        AlarmInfo chosen = row.info();
        choose(chosen);
        if (rows.cities.empty()) {
            plan.state = ActionState::noHome;
            plan.reason = tr("there is no home city whose times an alarm could follow");
        } else if (!isStorableRingtone(chosen.melodyName)) {
            plan.state = ActionState::badName;
            plan.reason = tr("a ringtone's name must not hold an apostrophe");
        }
        plan.statements = {statements::defineAlarm(row.timeId, chosen, row.prayerTime.value_or(0.0))};
        plan.concern(prayerId, Soonest::afterMargin);
        return plan;
    });
}

ActionResult UserActions::switchOff(std::int32_t prayerId) {
    return perform([prayerId](const UserRows& rows) {
        Plan plan;
        plan.statements = statements::setSilence(prayerId, std::nullopt);
        plan.statements.push_back(statements::setActive(rowOf(rows, prayerId).timeId, false));
        plan.concern(prayerId, Soonest::afterMargin);
        return plan;
    });
}

ActionResult UserActions::switchAllOn(const std::function<void(AlarmInfo&)>& choose) {
    return perform([&](const UserRows& rows) {
        Plan plan;
        plan.movesAlarms = true;
        if (rows.cities.empty()) {
            plan.state = ActionState::noHome;
            plan.reason = tr("there is no home city whose times an alarm could follow");
        }
        for (const AlarmRow& row : rows.alarms) {
            if (row.active) {
                continue;
            }
            AlarmInfo chosen = row.info();
            choose(chosen);
            if (plan.state == ActionState::done && !isStorableRingtone(chosen.melodyName)) {
                plan.state = ActionState::badName;
                plan.reason = tr("a ringtone's name must not hold an apostrophe");
            }
            plan.statements.push_back(
                statements::defineAlarm(row.timeId, chosen, row.prayerTime.value_or(0.0)));
        }
        return plan;
    });
}

ActionResult UserActions::switchAllOff() {
    return perform([](const UserRows& rows) {
        Plan plan;
        plan.movesAlarms = true;
        switchEveryRowOff(rows, plan.statements);
        return plan;
    });
}

ActionResult UserActions::setOffset(std::int32_t prayerId, std::int32_t minutes) {
    const UserLock lock(dbFuncs_.userDBPath(), LockKind::exclusive);
    const ActionResult stored = changeStored(prayerId, {});
    return stored.isDone() ? switchOn(prayerId, [minutes](AlarmInfo& alarm) { alarm.timeOffset = minutes; })
                           : stored;
}

ActionResult UserActions::setRingtone(std::int32_t prayerId, const std::string& name) {
    if (!isStorableRingtone(name)) {
        return {ActionState::badName, tr("a ringtone's name must not hold an apostrophe"), std::nullopt};
    }
    return changeStored(prayerId, statements::setMelodyName(prayerId - kTimeIdOffset, name));
}

ActionResult UserActions::setDuration(std::int32_t prayerId, std::int32_t duration) {
    return changeStored(prayerId, statements::setMelodyTime(prayerId - kTimeIdOffset, duration));
}

/// What is stored of an alarm that is on; its event does not know of it.
ActionResult UserActions::changeStored(std::int32_t prayerId, const std::string& statement) {
    return perform([&](const UserRows& rows) {
        Plan plan;
        requireOn(rows, prayerId, plan);
        if (!statement.empty()) {
            plan.statements = {statement};
        }
        return plan;
    });
}

void UserActions::requireOn(const UserRows& rows, std::int32_t prayerId, Plan& plan) {
    if (rows.cities.empty()) {
        plan.state = ActionState::noHome;
        plan.reason = tr("there is no home city whose times an alarm could follow");
    } else if (!rowOf(rows, prayerId).active) {
        plan.state = ActionState::alarmIsOff;
        plan.reason = tr("an alarm that is off keeps no changes");
    }
}

/// What lies half a day behind the time that is left out is the time after it, whatever becomes of the alarm.
/// The next ring is the one that its event stands at: an alarm that was changed within the margin of its time
/// waits for the time after.
void UserActions::planSkip(const UserRows& rows, std::int32_t prayerId, Plan& plan) const {
    const AlarmReport report = PrayerAlarms(glbFuncs_, dbFuncs_).report();
    const AlarmStatus& alarm = report.of(prayerId);
    if (!report.home.place) {
        plan.state = ActionState::refused;
        plan.reason = report.home.reason;
        return;
    }
    const AlarmRow& row = rowOf(rows, prayerId);
    const auto next = AlarmDays(*report.home.place, std::chrono::floor<std::chrono::seconds>(now()))
                          .nextRings(alarm.prayer, row.minute, instantOf(rows.pausedUntil))
                          .next;
    if (!next) {
        plan.state = ActionState::noNextTime;
        plan.reason = tr("its prayer has no time within the next two days");
        return;
    }
    if (const auto until = instantOf(row.silentUntil); until && *next < *until) {
        return; // it is left out already
    }
    const almanac::Instant left = alarm.state == AlarmState::rings ? std::max(*next, *alarm.ringsAt) : *next;
    plan.statements = statements::setSilence(prayerId, (left + kHalfDay).time_since_epoch().count());
}

ActionResult UserActions::skipNext(std::int32_t prayerId) {
    return perform([&](const UserRows& rows) {
        Plan plan;
        plan.concern(prayerId, Soonest::next);
        requireOn(rows, prayerId, plan);
        if (plan.state == ActionState::done) {
            planSkip(rows, prayerId, plan);
        }
        return plan;
    });
}

ActionResult UserActions::undoSkip(std::int32_t prayerId) {
    return perform([&](const UserRows& rows) {
        Plan plan;
        plan.concern(prayerId, Soonest::next);
        requireOn(rows, prayerId, plan);
        plan.statements = statements::setSilence(prayerId, std::nullopt);
        return plan;
    });
}

ActionResult UserActions::pauseUntil(std::optional<almanac::Instant> until) {
    return perform([&](const UserRows& rows) {
        Plan plan;
        plan.movesAlarms = true;
        if (rows.cities.empty()) {
            plan.state = ActionState::noHome;
            plan.reason = tr("there is no home city whose times an alarm could follow");
        }
        plan.statements =
            statements::setSilence(statements::kPauseSetting,
                                   until ? std::optional(until->time_since_epoch().count()) : std::nullopt);
        return plan;
    });
}

ActionResult UserActions::clear() {
    return perform([](const UserRows& rows) {
        Plan plan;
        plan.movesAlarms = true;
        plan.aim = Aim::silence;
        switchEveryRowOff(rows, plan.statements);
        return plan;
    });
}

ActionResult UserActions::replaceAll(const UserRows& wanted) {
    return perform([&](const UserRows& rows) {
        UserRows after = rows;
        after.cities = wanted.cities;
        after.pausedUntil = wanted.pausedUntil;
        for (std::size_t index = 0; index < kAlarms; ++index) {
            const AlarmRow& row = wanted.alarms[index];
            AlarmRow& place = after.alarms[index];
            place.minute = row.minute;
            place.active = row.active;
            place.melodyTime = row.melodyTime;
            place.melodyName = row.melodyName;
            place.silentUntil.reset();
        }
        Plan plan;
        plan.movesAlarms = true;
        plan.statements = statementsToRestore(after, rows);
        return plan;
    });
}

ActionResult UserActions::refresh() {
    return perform([](const UserRows& /*rows*/) {
        Plan plan;
        plan.movesAlarms = true;
        return plan;
    });
}

} // namespace zorel
