// SPDX-License-Identifier: Apache-2.0
/// @file
/// One time of a day: whether it exists, its instant, what is shown, and why it is what it is. All of it
/// comes from one computation.
#pragma once

#include "almanac/Corrections.h"
#include "almanac/Prayer.h"
#include "almanac/Time.h"

#include "engine/Api.h"
#include "engine/ExplainPrayTime.h"

#include <cstdint>
#include <optional>

namespace zorel::almanac {

/// Why there is no such time on a day.
enum class Absence : std::uint8_t {
    none,             ///< it exists
    neverReached,     ///< the Sun does not do what the rule asks for, nor did it within a year before
    nightWithoutEnds, ///< a part of a night without a sunset prayer or a dawn
    outOfOrder,       ///< see Correction::outOfOrder
    noBearing,        ///< at the Kaaba itself
    outOfRange,       ///< the place or the date cannot be computed with
};

/// Why a time is what it is, in the terms of the rule that decides it.
struct Explanation {
    PrayTimeRule rule = PrayTimeRule::none;
    double targetAltitude = 0.0; ///< of the Sun's centre, geometric [deg]; for a shadow, of the last round
    int shadowFactor = 0;        ///< staffs; 0 when the rule is another
    bool morning = false;        ///< before the Sun's transit
    double partOfNight = 0.0;    ///< the part added to `nightFrom`; below zero: taken off
    Prayer nightFrom = Prayer::maghrib;
    double temkin = 0.0;   ///< precaution [h], with its sign
    double addition = 0.0; ///< fixed addition [h], with its sign
    int rounds = 0;        ///< of the engine's iteration; 0 when the time comes otherwise
    Date date{};           ///< civil date whose Sun the time is taken from
    int daysBack = 0;      ///< from the day told to that one
    double latitude = 0.0; ///< at which it was computed [deg]
    bool latitudeLowered = false;
    double engineHours = kNoSolarEvent; ///< the engine's own result for the day and its offset [h]
    Corrections corrections;            ///< where the told time departs from it; none: equal to the bit
};

struct DayTime {
    Prayer prayer = Prayer::fajr;
    Absence absence = Absence::outOfRange;
    /// Hours after 0:00 of the day by the offset of its noon; may lie outside 0 to 24; -1 when there is none.
    double hours = kNoSolarEvent;
    ExactInstant exact{};          ///< of `hours`
    Instant shown{};               ///< `exact` rounded to the safe minute: what is shown and rings
    LocalTime local;               ///< of `shown`
    std::chrono::seconds offset{}; ///< in force at `exact`
    Explanation why;

    [[nodiscard]] bool exists() const { return absence == Absence::none; }
    /// The earlier day whose time it is; nothing when it is the day's own.
    [[nodiscard]] std::optional<Date> takenFrom() const {
        return exists() && why.daysBack > 0 ? std::optional(why.date) : std::nullopt;
    }
    /// The instant rounded to the safe side: `shown`, or to the second.
    [[nodiscard]] ZOREL_API Instant rounded(Precision precision) const;
};

} // namespace zorel::almanac
