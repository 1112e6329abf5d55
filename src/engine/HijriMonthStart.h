// SPDX-License-Identifier: Apache-2.0
/// @file
/// The beginning of a Hijri month as the crescent criterion finds it.
#pragma once

namespace zorel {

/// One new moon and what follows from it. All times are Julian days of universal time.
struct HijriMonthStart {
    double newMoon = 0.0;
    double crescentMidnight = 0.0;       ///< 0 h of the day on which the elongation reaches the criterion
    double start = 0.0;                  ///< 0 h of the first day of the month
    bool crescentOnDayOfNewMoon = false; ///< the month then starts the day after

    friend bool operator==(const HijriMonthStart&, const HijriMonthStart&) = default;
};

} // namespace zorel
