// SPDX-License-Identifier: Apache-2.0
/// @file
/// What an engine remembers of the Sun, so that nothing is computed twice: positions at an instant do not
/// depend on the place, neighbouring hours of the rise and set search share two of their three instants, and
/// day d + 1 of today is day d of tomorrow. Bounded; entries are keyed by the exact Julian day, so results do
/// not change.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace zorel {

/// Sine of 50 arc minutes: the Sun rises and sets at an altitude of -50'.
inline constexpr double kSinRiseDepth = 0.014543315834289784;
inline constexpr double kNeverEqual = std::numeric_limits<double>::quiet_NaN();

/// Fast position at an instant, and the sine of the altitude at one place.
struct HourSun {
    double julianDay = kNeverEqual;
    double declination = 0.0;       ///< [deg]
    double rightAscension = 0.0;    ///< [h]
    double eclipticLongitude = 0.0; ///< [deg]
    double greenwichSidereal = 0.0; ///< mean [h], not reduced
    double sinDeclination = 0.0;
    double cosDeclination = 0.0;
    double latitude = kNeverEqual;  ///< of the place that sinAltitude is for
    double longitude = kNeverEqual; ///< of the same
    double sinAltitude = 0.0;
};

/// Accurate position at an instant.
struct DaySun {
    double julianDay = kNeverEqual;
    double distance = 0.0;       ///< [au]
    double declination = 0.0;    ///< [deg]
    double rightAscension = 0.0; ///< [h]
    double equationOfTime = 0.0; ///< [min]
};

/// A local day on which the Sun rises and sets, and every field that the search for it leaves.
struct RiseSetDay {
    std::int32_t day = 0;
    std::int32_t month = 0;
    std::int32_t year = 0;
    std::int32_t zone = 0;
    double latitude = kNeverEqual;
    double longitude = kNeverEqual;
    double rise = 0.0;
    double set = 0.0;
    double declination = 0.0;
    double rightAscension = 0.0;
    double eclipticLongitude = 0.0;
    std::array<double, 4> quadratic{}; ///< YE, Zero1, Zero2, DX
};

struct SunCache {
    bool enabled = true;
    std::array<HourSun, 64> hours{};
    std::array<DaySun, 64> days{};
    std::array<RiseSetDay, 4> events{};
    std::size_t nextEvent = 0;
    DaySun nearby{};               ///< the position used last, for rough bounds
    double latitude = kNeverEqual; ///< of the two below
    double sinLatitude = 0.0;
    double cosLatitude = 0.0;
};

} // namespace zorel
