// SPDX-License-Identifier: Apache-2.0
#include "almanac/Qibla.h"

#include "almanac/Degrees.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zorel::almanac {

namespace {

constexpr double kEarthRadius = 6371.0088; // mean [km]
constexpr double kSameSpot = 0.02;         // [km]

double sinDegrees(double x) {
    return std::sin(x * kRadian);
}

double cosDegrees(double x) {
    return std::cos(x * kRadian);
}

/// Square of the sine of half an angle [deg].
double haversine(double x) {
    const double sine = sinDegrees(x / 2.0);
    return sine * sine;
}

} // namespace

double qiblaDistance(double latitude, double longitude) {
    const double h = haversine(kKaabaLatitude - latitude) + cosDegrees(latitude) *
                                                                cosDegrees(kKaabaLatitude) *
                                                                haversine(kKaabaLongitude - longitude);
    return 2.0 * kEarthRadius * std::asin(std::sqrt(std::clamp(h, 0.0, 1.0)));
}

std::optional<double> qiblaBearing(double latitude, double longitude) {
    const double distance = qiblaDistance(latitude, longitude);
    const double toAntipode = std::numbers::pi * kEarthRadius - distance;
    if (!(std::fabs(latitude) <= 90.0) || !(distance > kSameSpot) || !(toAntipode > kSameSpot)) {
        return std::nullopt;
    }
    const double toKaaba = kKaabaLongitude - longitude;
    const double east = sinDegrees(toKaaba) * cosDegrees(kKaabaLatitude);
    const double north = cosDegrees(latitude) * sinDegrees(kKaabaLatitude) -
                         sinDegrees(latitude) * cosDegrees(kKaabaLatitude) * cosDegrees(toKaaba);
    return bearingOf(std::atan2(east, north) / kRadian);
}

} // namespace zorel::almanac
