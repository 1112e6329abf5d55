// SPDX-License-Identifier: Apache-2.0
/// @file
/// Makes the calendar say what the alarms of the user database say.
#pragma once

#include "alarms/AlarmReport.h"

#include <cstdint>
#include <optional>

namespace zorel {

/// How soon an alarm that a person has just changed may ring.
enum class Soonest : std::uint8_t {
    afterMargin, ///< not within kMarginAfterEdit
    next,
};

class DatabaseFunctions;
class GlobalFuncs;

/// What should ring (the rows of the user database and the almanac of the home city) against what does (the
/// events of the calendar).
///
/// An alarm that is on has one event, at the home city's next time: the shown minute of the day on which it
/// will ring, plus the alarm's offset, as an instant, whatever clock the machine has. An alarm that is off
/// has none. An event that is right stays untouched.
///
/// Nothing is thrown but for want of memory. What cannot be read is never taken for absent: while the rows,
/// the catalogue or an event cannot be read, the alarms concerned are left as they are and the report says
/// so.
class PrayerAlarms {
public:
    PrayerAlarms(const GlobalFuncs& glbFuncs, DatabaseFunctions& dbFuncs)
        : glbFuncs_(glbFuncs), dbFuncs_(dbFuncs) {}

    /// What the alarms do now. Changes nothing; waits for the user's lock (shared).
    [[nodiscard]] AlarmReport report() const;

    /// Places, moves and removes events until they fit, sweeps this database's events that no alarm has, and
    /// reports what the alarms then do. Doing it again changes nothing. Under the user's lock.
    /// @param edited prayer id of an alarm that a person has just changed: it stands nowhere but at its
    /// soonest time, while others may have been placed beyond kMarginAfterEdit and stay there.
    AlarmReport reconcile(std::optional<std::int32_t> edited = std::nullopt,
                          Soonest soonest = Soonest::afterMargin);

private:
    const GlobalFuncs& glbFuncs_;
    DatabaseFunctions& dbFuncs_;
};

} // namespace zorel
