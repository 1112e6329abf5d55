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

PrayerIteration::PrayerIteration(const IterationInput& input, const SunInfoForPray& info)
    : input_(input), declinationToday_(info.declinationToday()),
      declinationTomorrow_(info.declinationTomorrow()), equationToday_(info.equationOfTimeToday()),
      equationTomorrow_(info.equationOfTimeTomorrow()) {
    result_.altitude = single(input.altitude * kRadiansPerDegree);
    sinAltitude_ = std::sin(result_.altitude);
}

void PrayerIteration::round() {
    const double previous = result_.time;
    ++result_.rounds;
    const double declination = interpolateDay(declinationToday_, declinationTomorrow_, previous);
    if (isShadowRule(input_.altitude)) {
        result_.altitude = shadowAltitude(input_.altitude, input_.latitude.degrees, declination);
        sinAltitude_ = std::sin(result_.altitude);
    }
    const SineCosine sun = sineCosineSingle(declination * kRadiansPerDegree);
    cosine_ = (sinAltitude_ - input_.latitude.sine * sun.sine) / (input_.latitude.cosine * sun.cosine);
    const double T = 12.0 + input_.direction * (std::acos(cosine_) / kRadiansPerDegree) / 15.0;
    const double equation = interpolateDay(equationToday_, equationTomorrow_, T);
    result_.time = T - equation + input_.longitudeTerm + input_.temkin + input_.timeZone;
    result_.converged = std::fabs(result_.time - previous) <= kOneSecond;
    if (result_.converged || result_.rounds == kMostRounds || std::isnan(result_.time)) {
        finish();
    }
}

void PrayerIteration::finish() {
    active_ = false;
    if (std::isnan(result_.time)) {
        return;
    }
    if (!result_.converged) {
        result_.answer = true;
        return;
    }
    if (result_.time < 0.0) {
        result_.time += 1.0; // one hour, not a day
    }
    result_.answer = cosine_ >= -kLargestCosine && cosine_ <= kLargestCosine;
}

IterationResult iteratePrayerTime(const IterationInput& input, const SunInfoForPray& info) {
    PrayerIteration iteration(input, info);
    while (iteration.active()) {
        iteration.round();
    }
    return iteration.result();
}

void iterateTogether(std::span<PrayerIteration> iterations) {
    for (int round = 0; round < kMostRounds; ++round) {
        for (PrayerIteration& iteration : iterations) {
            if (iteration.active()) {
                iteration.round();
            }
        }
    }
}

} // namespace zorel
