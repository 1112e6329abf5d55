// SPDX-License-Identifier: Apache-2.0
#include "engine/NightSearch.h"

#include <algorithm>
#include <cmath>

namespace zorel {

namespace {

constexpr double kRadian = 0.017453292519943295;

bool isSafe(double julianDay, double latitude) {
    return julianDay > 2086302.5 && julianDay < 2816787.5 && std::fabs(latitude) <= 90.0;
}

} // namespace

double roughDeclination(double julianDay) {
    // Astronomical Almanac, page C5: low-precision position of the Sun.
    const double days = julianDay - 2451545.0;
    const double anomaly = (357.528 + 0.9856003 * days) * kRadian;
    const double longitude =
        280.460 + 0.9856474 * days + 1.915 * std::sin(anomaly) + 0.020 * std::sin(2.0 * anomaly);
    const double obliquity = 23.439 - 0.0000004 * days;
    return std::asin(std::sin(obliquity * kRadian) * std::sin(longitude * kRadian)) / kRadian;
}

int daysSurelyWithout(double julianDay, double latitude, double altitude) {
    constexpr double kMargin = 0.15;       // error of the declination, and its half day of change [deg]
    constexpr double kFastestDrift = 0.41; // of the declination [deg per day]
    if (!isSafe(julianDay, latitude)) {
        return 0;
    }
    const double declination = roughDeclination(julianDay + 0.5);
    const double highest = 90.0 - std::fabs(latitude - declination);
    const double lowest = std::fabs(latitude + declination) - 90.0;
    const double beyond = std::max(altitude - highest, lowest - altitude);
    return beyond > kMargin ? 1 + static_cast<int>((beyond - kMargin) / kFastestDrift) : 0;
}

} // namespace zorel
