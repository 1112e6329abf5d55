// SPDX-License-Identifier: Apache-2.0
/// @file
/// What the six alarms do: the one source of all that programs say about them.
#pragma once

#include "alarms/HomePlace.h"
#include "almanac/Prayer.h"
#include "almanac/Time.h"
#include "store/AlarmRecords.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace zorel {

enum class AlarmState : std::uint8_t {
    off,
    rings,      ///< its event lies ahead
    passed,     ///< it is on, but its event lies behind: it rings again only when it is moved
    noSuchTime, ///< it is on, and its prayer has no time within the next two days: no event
    failed,     ///< it is on and will not ring, or it is off and may ring; the reason says why
};

/// One alarm.
struct AlarmStatus {
    almanac::Prayer prayer = almanac::Prayer::fajr;
    AlarmState state = AlarmState::failed;
    AlarmInfo info;                          ///< as it is stored
    std::string eventId;                     ///< of its event in the calendar; empty: none
    std::optional<almanac::Instant> ringsAt; ///< start of its event, read from the event itself
    /// When it should ring: the home city's next time with the offset. Nothing when it is off, when there is
    /// no such time and when the home city's times cannot be told.
    std::optional<almanac::Instant> due;
    /// When it would ring next, had the person not left that out.
    std::optional<almanac::Instant> skipped;
    std::string reason; ///< of `failed`, for people

    [[nodiscard]] std::int32_t prayerId() const { return almanac::identityOf(prayer).id; }
    /// Whether its next time is passed over, because that lay within five minutes of the person's edit.
    [[nodiscard]] bool skipsNext() const;
};

/// What stands between the rows and the calendar as a whole.
enum class AlarmTrouble : std::uint8_t {
    none,
    busy,                ///< another program is working on the rows
    unreadableRows,      ///< the user database cannot be read
    unreadableCatalogue, ///< no alarm was touched
    unknownHome,         ///< the catalogue does not have the home city; no alarm was touched
    unreadableCalendar,
    unpublished, ///< a calendar program that rings in our place does not know what the calendar says
    leftovers,   ///< the calendar holds events of alarms that are off, and does not let them go
};

struct AlarmReport {
    AlarmTrouble trouble = AlarmTrouble::none;
    std::string reason; ///< of the trouble, for people
    HomePlace home;
    std::optional<almanac::Instant> pausedUntil; ///< no alarm rings before; nothing: there is no pause
    std::array<AlarmStatus, 6> alarms;           ///< in the order of a day

    /// @param prayerId 200 to 205.
    [[nodiscard]] const AlarmStatus& of(std::int32_t prayerId) const;
    /// Whether every alarm that is on will ring or has no time, and no other rings.
    [[nodiscard]] bool isGood() const;
    /// The first thing that is wrong, for people; empty when isGood().
    [[nodiscard]] std::string complaint() const;
};

} // namespace zorel
