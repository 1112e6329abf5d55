// SPDX-License-Identifier: Apache-2.0
/// @file
/// What a person does to his cities and alarms: each action is done as a whole or not at all.
#pragma once

#include "alarms/AlarmReport.h"
#include "alarms/PrayerAlarms.h"
#include "store/UserRows.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zorel {

class DatabaseFunctions;
class GlobalFuncs;

enum class ActionState : std::uint8_t {
    done,          ///< it is as it was asked for
    alreadyListed, ///< the city is in the list; nothing was changed
    notListed,     ///< the city is not in the list; nothing was changed
    noHome,        ///< there is no city whose times an alarm could follow; nothing was changed
    alarmIsOff,    ///< an alarm that is off keeps no changes; nothing was changed
    noNextTime,    ///< its prayer has no time that could be left out; nothing was changed
    badName,       ///< a ringtone's name holds an apostrophe; nothing was changed
    busy,          ///< another program was at work for longer than one waits; nothing was changed
    unstorable,    ///< the user database cannot be read or written; nothing was changed
    refused,       ///< the calendar or the catalogue stood against it; the rows were put back
    unfinished,    ///< the same, but the rows could not be put back: the next refresh completes it
};

struct ActionResult {
    ActionState state = ActionState::done;
    std::string reason;                ///< unless done, for people
    std::optional<AlarmReport> alarms; ///< of actions that concern the calendar: what the alarms do now

    [[nodiscard]] bool isDone() const { return state == ActionState::done; }
};

/// Whether a ringtone's name can be stored: it goes into a statement as it is, so that it may not hold an
/// apostrophe.
[[nodiscard]] bool isStorableRingtone(const std::string& name);

/// Each action runs under the user's lock, alone: the rows are changed in one transaction, then the calendar
/// is made to fit them (PrayerAlarms). Refuses the calendar, the rows are put back as they were and it is
/// made to fit those. The rows are the journal: a process that is killed has either not changed them, or the
/// next reconciliation completes what it began. `done` is answered only when the calendar was read again and
/// says what was asked for.
///
/// Nothing is thrown but for want of memory.
class UserActions {
public:
    UserActions(const GlobalFuncs& glbFuncs, DatabaseFunctions& dbFuncs)
        : glbFuncs_(glbFuncs), dbFuncs_(dbFuncs) {}

    // Cities. Ids of the catalogue.

    /// The first city becomes the home city; alarms that were on without a city are switched off.
    ActionResult addCity(std::int32_t cityId);
    /// The alarms follow.
    ActionResult makeHome(std::int32_t cityId);
    /// With every row that it has. After the home city the first of the others becomes the home city and the
    /// alarms follow it; without others they are switched off. A city that is not in the list is `done`.
    ActionResult removeCity(std::int32_t cityId);

    // Alarms. Prayer ids 200 to 205.

    /// Lets `choose` change what is stored of the alarm, switches it on and places its event, not within five
    /// minutes.
    ActionResult switchOn(std::int32_t prayerId, const std::function<void(AlarmInfo&)>& choose);
    ActionResult switchOff(std::int32_t prayerId);
    /// All six. Those that are on already stay as they are; `choose` completes what is stored of the others.
    ActionResult switchAllOn(const std::function<void(AlarmInfo&)>& choose);
    ActionResult switchAllOff();
    /// @param minutes from the prayer.
    ActionResult setOffset(std::int32_t prayerId, std::int32_t minutes);
    /// @param name path below the ringtone folder.
    ActionResult setRingtone(std::int32_t prayerId, const std::string& name);
    /// @param duration index of the ringing duration, 0 to 7.
    ActionResult setDuration(std::int32_t prayerId, std::int32_t duration);
    /// Leaves out what an alarm would ring next, once; whatever its offset and the home city become
    /// meanwhile. Doing it again changes nothing.
    ActionResult skipNext(std::int32_t prayerId);
    ActionResult undoSkip(std::int32_t prayerId);
    /// Leaves out what every alarm would ring before an instant; nothing: no longer.
    ActionResult pauseUntil(std::optional<almanac::Instant> until);
    /// Moves every alarm to where it should be; `refused` when one that is on does not ring then.
    ActionResult refresh();

    // All at once.

    /// Switches every alarm off and takes all events of this user database out of the calendar, whatever
    /// state the catalogue is in. What was chosen for the alarms stays.
    ActionResult clear();
    /// Puts other cities, choices and a pause in the place of all that are there.
    /// @param wanted its cities without repetition, one of them marked as home unless there are none; of its
    /// alarms what a person chooses. Alarms without a city must be off.
    ActionResult replaceAll(const UserRows& wanted);

private:
    /// What the calendar has to say for an action to be done.
    enum class Aim : std::uint8_t {
        rings,   ///< every alarm that is on, or the one that the action is about, is as it should be
        silence, ///< no event of ours is left
    };
    /// What an action is made of. Nothing is planned beyond a state that is not `done`.
    struct Plan {
        ActionState state = ActionState::done;
        std::string reason;
        std::vector<std::string> statements;
        bool movesAlarms = false; ///< the calendar has to follow
        Aim aim = Aim::rings;
        std::optional<std::int32_t> prayerId = std::nullopt; ///< of the one alarm
        Soonest soonest = Soonest::afterMargin;              ///< of it

        /// What it is about is one alarm.
        void concern(std::int32_t id, Soonest rings);
    };
    using Planner = std::function<Plan(const UserRows&)>;

    [[nodiscard]] static bool isAsAsked(const AlarmReport& report, const Plan& plan);
    /// Fails the plan of what concerns an alarm that is off or has no city.
    static void requireOn(const UserRows& rows, std::int32_t prayerId, Plan& plan);
    void planSkip(const UserRows& rows, std::int32_t prayerId, Plan& plan) const;
    ActionResult perform(const Planner& planner);
    ActionResult follow(const Plan& plan, const UserRows& before);
    ActionResult putBack(const UserRows& before, const std::string& reason);
    ActionResult changeStored(std::int32_t prayerId, const std::string& statement);

    const GlobalFuncs& glbFuncs_;
    DatabaseFunctions& dbFuncs_;
};

} // namespace zorel
