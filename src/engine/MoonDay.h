// SPDX-License-Identifier: Apache-2.0
/// @file
/// What a person wants to know of the Moon and the Sun on a civil day: when they rise, culminate and set by
/// the clock of the place, and when the next phases of the Moon are.
///
/// The engine's own search counts hours from 0 h of universal time and may name an event of the neighbouring
/// day. Here every hour lies in [0, 24) of the local day asked for, or there is none that day.
#pragma once

#include "engine/Api.h"
#include "engine/Records.h"

#include <optional>
#include <vector>

namespace zorel {

/// A place and the clock it keeps.
struct Observer {
    double latitude = 0.0;  ///< [deg] north positive, -90 to 90
    double longitude = 0.0; ///< [deg] east positive
    double utcOffset = 0.0; ///< [h] east of Greenwich, fractions and daylight saving included; within 23 h
};

/// Events of one local civil day [hours of the local clock, 0 to 24]; nothing when there is none that day.
struct DayEvents {
    std::optional<double> rise;
    std::optional<double> transit; ///< upper culmination
    std::optional<double> set;
};

/// Rise, transit and set of the Moon on the local date (year, month, day of `date`).
///
/// Upper limb with standard refraction: the engine's parabola through three hours, over altitudes of the full
/// theory with the parallax of the day. Accuracy, 1750 to 2050: within 42 s of the tables of the U.S. Naval
/// Observatory (printed to the minute) up to 61 degrees of latitude, within 2.5 min from 80 degrees on; at a
/// pole, where an event grazes the horizon, within 15 min or missed. Where a day has two of a kind, which
/// happens there, the first is given. Nothing at all for an observer that is not finite or out of range.
[[nodiscard]] ZOREL_API DayEvents MoonEventsOfDay(const Observer& observer, const DateTimeRecord& date);

/// Rise, transit and set of the Sun on the local date; upper limb with standard refraction (altitude -50').
/// Accuracy: as for the Moon.
[[nodiscard]] ZOREL_API DayEvents SunEventsOfDay(const Observer& observer, const DateTimeRecord& date);

/// The same within a span of universal time, which a day of 23 or 25 hours is: the first event of each kind,
/// [h] after its beginning; its end lies outside.
/// @param latitude, longitude [deg]. @param julianDay of universal time, the beginning. @param hours of the
/// span, 0 to 49.
[[nodiscard]] ZOREL_API DayEvents MoonEventsOfSpan(double latitude, double longitude, double julianDay,
                                                   double hours);
[[nodiscard]] ZOREL_API DayEvents SunEventsOfSpan(double latitude, double longitude, double julianDay,
                                                  double hours);

/// A principal phase of the Moon.
struct PrincipalPhase {
    /// The engine's codes.
    enum Kind : int { newMoon = 0, fullMoon = 1, firstQuarter = 2, lastQuarter = 3 };

    Kind kind = newMoon;
    double julianDay = 0.0; ///< of universal time
};

/// The next `count` (at most 1000) principal phases at or after a Julian day of universal time, in order.
///
/// The engine's phases are 0.09765 day early and in uniform time; here both are put right (delta-T is 69 s
/// now). Accuracy: within 2 min of the tables of the U.S. Naval Observatory (printed to the minute) from 1910
/// to 2060, within 3.4 min from 1800 to 2100. Nothing beyond 10000 years from J2000.
[[nodiscard]] ZOREL_API std::vector<PrincipalPhase> NextPhases(double julianDay, int count);

} // namespace zorel
