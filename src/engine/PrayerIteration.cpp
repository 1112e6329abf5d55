// SPDX-License-Identifier: Apache-2.0
#include "engine/PrayerIteration.h"

#include "engine/Single.h"

#include <cmath>

namespace zorel {

namespace {

constexpr int kMostRounds = 10;
constexpr double kOneSecond = 0.00027777778450399637; // [h]
constexpr double kLargestCosine = 0.9990000128746033;

/// Altitude at which a staff throws `factor` of its length beyond its shadow of noon [rad].
double shadowAltitude(std::int32_t factor, double latitude, double declination) {
    double zenithDistance = latitude - declination;
    if (zenithDistance < 0.0) {
        zenithDistance = 90.0 - (zenithDistance + 90.0);
    }
    return kHalfPi - std::atan(factor + std::tan(zenithDistance * kRadiansPerDegree));
}

} // namespace

IterationLatitude::IterationLatitude(double latitude)
    : degrees(latitude), sine(sinSingle(latitude * kRadiansPerDegree)),
      cosine(cosSingle(latitude * kRadiansPerDegree)) {}

IterationResult iteratePrayerTime(const IterationInput& input, const SunInfoForPray& info) {
    IterationResult result;
    result.altitude = single(input.altitude * kRadiansPerDegree);
    double sinAltitude = std::sin(result.altitude);
    double cosine = 0.0;
    for (double previous = result.time; result.rounds < kMostRounds && !result.converged; previous = result.time) {
        ++result.rounds;
        const double declination = interpolateDay(info.declinationToday(), info.declinationTomorrow(), previous);
        if (isShadowRule(input.altitude)) {
            result.altitude = shadowAltitude(input.altitude, input.latitude.degrees, declination);
            sinAltitude = std::sin(result.altitude);
        }
        const SineCosine sun = sineCosineSingle(declination * kRadiansPerDegree);
        cosine = (sinAltitude - input.latitude.sine * sun.sine) / (input.latitude.cosine * sun.cosine);
        const double T = 12.0 + input.direction * (std::acos(cosine) / kRadiansPerDegree) / 15.0;
        const double equation = interpolateDay(info.equationOfTimeToday(), info.equationOfTimeTomorrow(), T);
        result.time = T - equation + input.longitudeTerm + input.temkin + input.timeZone;
        if (std::isnan(result.time)) {
            return result;
        }
        result.converged = !(std::fabs(result.time - previous) > kOneSecond);
    }
    if (!result.converged) {
        result.answer = true;
        return result;
    }
    if (result.time < 0.0) {
        result.time += 1.0; // one hour, not a day
    }
    result.answer = cosine >= -kLargestCosine && cosine <= kLargestCosine;
    return result;
}

} // namespace zorel
