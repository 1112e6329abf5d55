// SPDX-License-Identifier: Apache-2.0
#include "engine/PrayerIteration.h"

#include "engine/Single.h"

#include <cmath>

namespace zorel {

namespace {

constexpr int kMostRounds = 10;
constexpr double kOneSecond = 0.00027777778450399637; // [h]
constexpr double kLargestCosine = 0.9990000128746033;

/// Whether an altitude code stands for a shadow as long as 1 or 2 staffs, beyond the shadow of noon.
constexpr bool isShadowRule(std::int32_t altitude) {
    return altitude == 1 || altitude == 2;
}

} // namespace

IterationLatitude::IterationLatitude(double latitude)
    : degrees(latitude), sine(sinSingle(latitude * kRadiansPerDegree)),
      cosine(cosSingle(latitude * kRadiansPerDegree)) {}

double altitudeOf(std::int32_t degrees) {
    return single(degrees * kRadiansPerDegree);
}

double shadowOfNoon(double latitude, double declination) {
    double zenithDistance = latitude - declination;
    if (zenithDistance < 0.0) {
        zenithDistance = 90.0 - (zenithDistance + 90.0);
    }
    return std::tan(zenithDistance * kRadiansPerDegree);
}

double shadowAltitude(std::int32_t staffs, double noonShadow) {
    return kHalfPi - std::atan(staffs + noonShadow);
}

bool settleRound(IterationResult& result, double time, double cosine) {
    result.converged = std::fabs(time - result.time) <= kOneSecond;
    result.time = time;
    if (std::isnan(time)) {
        return true;
    }
    if (!result.converged) {
        result.answer = result.rounds == kMostRounds;
        return result.answer;
    }
    if (result.time < 0.0) {
        result.time += 1.0; // one hour, not a day
    }
    result.answer = cosine >= -kLargestCosine && cosine <= kLargestCosine;
    return true;
}

IterationResult iteratePrayerTime(const IterationInput& input, const SunInfoForPray& info) {
    IterationResult result;
    result.altitude = altitudeOf(input.altitude);
    double sinAltitude = std::sin(result.altitude);
    for (bool settled = false; !settled;) {
        ++result.rounds;
        const double declination =
            interpolateDay(info.declinationToday(), info.declinationTomorrow(), result.time);
        if (isShadowRule(input.altitude)) {
            result.altitude =
                shadowAltitude(input.altitude, shadowOfNoon(input.latitude.degrees, declination));
            sinAltitude = std::sin(result.altitude);
        }
        const SineCosine sun = sineCosineSingle(declination * kRadiansPerDegree);
        const double cosine =
            (sinAltitude - input.latitude.sine * sun.sine) / (input.latitude.cosine * sun.cosine);
        const double T = 12.0 + input.direction * (std::acos(cosine) / kRadiansPerDegree) / 15.0;
        const double equation = interpolateDay(info.equationOfTimeToday(), info.equationOfTimeTomorrow(), T);
        const double time = T - equation + input.longitudeTerm + input.temkin + input.timeZone;
        settled = settleRound(result, time, cosine);
    }
    return result;
}

} // namespace zorel
