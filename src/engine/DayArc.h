// SPDX-License-Identifier: Apache-2.0
/// @file
/// The Sun's way over the sky in a day with its declination held: enough to tell, without a search, that it
/// rises and sets.
#pragma once

#include "engine/Records.h"

namespace zorel {

/// The sine of the altitude above that of the rise is base + swing * cos(hour angle).
struct DayArc {
    /// @param latitude, declination [rad].
    DayArc(double latitude, double declination);

    double base;
    double swing;
};

/// Where and by which clock a day is counted.
struct DayArcPlace {
    double latitude = 0.0;  ///< [deg]
    double longitude = 0.0; ///< [deg]
    double timeZone = 0.0;  ///< [h]; its whole hours count
};

/// Whether the hourly search (FastAstro::SunRiseSet) surely finds a rise and a set on the local day before a
/// date. It looks at a whole day, from midnight to midnight by the whole hours of the zone. Both are there
/// when the Sun comes well above the horizon, goes well below it, and is far from it at the ends of the day,
/// so that neither event can slip out at a seam: one cosine of the arc.
///
/// Well means 0.05 in the sine. The arc is within 0.015 of the true sine (its Sun is at most 1.6 days away:
/// 0.65 degree of declination, 0.2 degree of hour angle), the series of the search are within 0.001 of those
/// of the date, and between full hours the curve bends by less than 0.009.
/// @param julianDay midnight of the date. @param sun of the date. @return false when that is not sure, and
/// always outside the Gregorian calendar and from the year 3000 on, for a place beyond the map, for a clock
/// more than 15 h away from Greenwich.
[[nodiscard]] bool surelyRoseAndSetDayBefore(double julianDay, const SunInfoForPray& sun,
                                             const DayArcPlace& place);

} // namespace zorel
