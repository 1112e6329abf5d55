// SPDX-License-Identifier: Apache-2.0
/// @file
/// What is unusual about a day's times, in words: high latitudes, times taken from another day.
#pragma once

#include "Day.h"

#include <optional>
#include <string>
#include <vector>

namespace zorel::cli {

struct DayFlags {
    std::optional<double> loweredLatitude; ///< [deg] the latitude that the times were computed at
    std::optional<Date> dawnFrom;          ///< the earlier day that the time was taken from
    std::optional<Date> nightfallFrom;
    std::optional<Date> secondNightfallFrom;
    std::optional<Date> fiveDegreesFrom; ///< of both 5 degree times, which follow the second nightfall

    [[nodiscard]] bool any() const {
        return loweredLatitude || dawnFrom || nightfallFrom || secondNightfallFrom;
    }
};

/// The flags of a day that the computer has computed for the place.
[[nodiscard]] DayFlags flagsOf(DayComputer& computer, const Place& place, const Day& day);

} // namespace zorel::cli
