// SPDX-License-Identifier: Apache-2.0
#include "engine/DayArc.h"

#include "engine/Single.h"
#include "engine/SunCache.h"

#include <cmath>

namespace zorel {

namespace {

constexpr double kMargin = 0.05;

/// Where the calendar has no seam and the series are close to the truth. False for what is not a number.
bool isModelled(double julianDay, const DayArcPlace& place) {
    constexpr double kFirstDay = 2299170.5; // soon after the change of the calendar
    constexpr double kLastDay = 2816787.5;  // of the year 2999
    constexpr double kFarthestClock = 15.0; // [h]
    return julianDay > kFirstDay && julianDay < kLastDay && std::fabs(place.latitude) <= 90.0 &&
           std::fabs(place.longitude) <= 180.0 && std::fabs(place.timeZone) <= kFarthestClock;
}

} // namespace

DayArc::DayArc(double latitude, double declination)
    : base(std::sin(latitude) * std::sin(declination) + kSinRiseDepth),
      swing(std::cos(latitude) * std::cos(declination)) {}

bool surelyRoseAndSetDayBefore(double julianDay, const SunInfoForPray& sun, const DayArcPlace& place) {
    constexpr double kLargestEquation = 0.5; // [h]
    if (!isModelled(julianDay, place) || !(std::fabs(sun.equationOfTimeToday()) < kLargestEquation)) {
        return false;
    }
    const DayArc arc(place.latitude * kRadiansPerDegree, sun.declinationToday() * kRadiansPerDegree);
    if (arc.base + arc.swing < kMargin || arc.base - arc.swing > -kMargin) {
        return false;
    }
    // At midnight by the clock, 12 h before or after noon.
    const double hourAngle =
        (12.0 - std::trunc(place.timeZone) + sun.equationOfTimeToday()) * 15.0 + place.longitude;
    return std::fabs(arc.base + arc.swing * std::cos(hourAngle * kRadiansPerDegree)) > kMargin;
}

} // namespace zorel
