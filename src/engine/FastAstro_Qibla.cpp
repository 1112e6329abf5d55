// SPDX-License-Identifier: Apache-2.0
// Direction of the Kaaba on the sphere.
#include "engine/FastAstro.h"
#include "engine/Single.h"

#include <bit>
#include <cmath>
#include <cstdint>

namespace zorel {

QiblaRecord FastAstro::KibleAcisi(double latitude, double longitude) const {
    constexpr double kKaabaLongitude = 39.81999969482422;
    constexpr double kAntiLongitude = -140.1699981689453;
    constexpr double kTanKaabaLatitude = 0.39249985828970657;
    const double dL = (kKaabaLongitude - longitude) * kRadiansPerDegree;
    const double p = latitude * kRadiansPerDegree;
    const double A = std::atan(std::sin(dL) / (std::cos(dL) * std::sin(p) - std::cos(p) * kTanKaabaLatitude));
    QiblaRecord result;
    result.q0 = std::atan(1.0 / (std::sin(p) * std::tan(A < 0.0 ? kPi - A : A)));
    double D = A * kDegreesPerRadian;
    if (longitude < kKaabaLongitude && longitude > kAntiLongitude && D > 0.0) {
        D += 180.0;
    }
    if ((longitude > kKaabaLongitude || longitude < kAntiLongitude) && D < 0.0) {
        D -= 180.0;
    }
    result.q1 = D;
    return result;
}

QiblaRecord FastAstro::qiblaOfPlace() {
    const auto isSame = [](double a, double b) {
        return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
    };
    const bool isKnown =
        isSame(knownQibla.latitude, iPlace.latitude) && isSame(knownQibla.longitude, iPlace.longitude);
    if (!sunCache.enabled || !isKnown) {
        knownQibla = {iPlace.latitude, iPlace.longitude, KibleAcisi(iPlace.latitude, iPlace.longitude)};
    }
    return knownQibla.qibla;
}

} // namespace zorel
