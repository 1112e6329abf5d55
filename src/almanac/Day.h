// SPDX-License-Identifier: Apache-2.0
/// @file
/// What a day of a place is told as.
#pragma once

#include "almanac/DayTime.h"
#include "almanac/PlaceClock.h"

#include "engine/Api.h"

#include <array>
#include <optional>

namespace zorel::almanac {

struct Day {
    Date date{};
    std::chrono::seconds offset{0}; ///< of noon: the one that the day was computed with
    ClockSource clockSource = ClockSource::fixed;
    ClockNotice clockNotice = ClockNotice::none;
    std::array<DayTime, kPrayers> times{};
    /// The told times as the engine's record: `times` are the hours above (-1 where there is none), by the
    /// clock in force at each, with the flags that are told. The unused position is 0. The qibla time is the
    /// engine's own. `ezani` is not computed (see ezaniHours).
    PrayerTimes record;

    [[nodiscard]] const DayTime& operator[](Prayer prayer) const {
        return times[static_cast<std::size_t>(prayer)];
    }
    /// The latitude that the times were computed at, when the Sun does not rise or set at the place's own.
    [[nodiscard]] ZOREL_API std::optional<double> loweredLatitude() const;
    /// Every correction that a time of the day carries.
    [[nodiscard]] ZOREL_API Corrections corrections() const;
};

/// The sunset-based clock [h], by Prayer: the hours that have passed since the sunset prayer, which is 12, as
/// on a dial (above 12 up to 13 in the hour after it, below 0 for times of the eve); the engine's own, which
/// drops the seconds. Nothing for times that do not exist, and for all of a day without a sunset prayer.
[[nodiscard]] ZOREL_API std::array<std::optional<double>, kPrayers> ezaniHours(const Day& day);

/// The next of the six times after an instant, and the latest one at or before it.
struct NextPrayer {
    std::optional<DayTime> next;     ///< nothing when there is none within two days
    std::optional<DayTime> previous; ///< nothing when there was none within two days
};

} // namespace zorel::almanac
