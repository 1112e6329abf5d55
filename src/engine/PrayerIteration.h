// SPDX-License-Identifier: Apache-2.0
/// @file
/// The time at which the Sun stands at an altitude or throws a shadow of a length, found by iteration.
#pragma once

#include "engine/Records.h"

#include <cmath>
#include <cstdint>
#include <span>

namespace zorel {

/// A latitude with the functions of it that every round needs.
struct IterationLatitude {
    IterationLatitude() : IterationLatitude(0.0) {}
    explicit IterationLatitude(double latitude);

    double degrees;
    double sine;   ///< in single precision
    double cosine; ///< in single precision
};

/// What is asked of the iteration.
struct IterationInput {
    IterationLatitude latitude;
    double longitudeTerm = 0.0; ///< minus the longitude, as time [h]
    double temkin = 0.0;        ///< signed [h]
    double timeZone = 0.0;      ///< [h]
    std::int32_t altitude = 0;  ///< [deg]; 1 and 2 are the shadow rules
    std::int32_t direction = 1; ///< -1 morning, +1 afternoon
};

struct IterationResult {
    double time = 12.0;     ///< [h] local; may be not-a-number
    bool answer = false;    ///< the event occurs
    bool converged = false; ///< two rounds agreed within a second
    int rounds = 0;
    double altitude = 0.0; ///< target of the last round [rad]
};

/// The value at a local hour between the day's and the next day's, with the sign of the change as the engine
/// takes it: the absolute change is subtracted when the value falls.
[[nodiscard]] inline double interpolateDay(double today, double tomorrow, double hour) {
    const double change = std::fabs((today - tomorrow) * hour / 24.0);
    return tomorrow < today ? today - change : today + change;
}

/// One event's iteration: at most ten rounds; not-a-number ends it at once with the answer false.
class PrayerIteration {
public:
    PrayerIteration(const IterationInput& input, const SunInfoForPray& info);
    [[nodiscard]] bool active() const { return active_; }
    void round();
    [[nodiscard]] const IterationResult& result() const { return result_; }

private:
    void finish();

    IterationInput input_;
    double declinationToday_;
    double declinationTomorrow_;
    double equationToday_;
    double equationTomorrow_;
    double sinAltitude_;
    double cosine_ = 0.0; // of the hour angle
    bool active_ = true;
    IterationResult result_;
};

[[nodiscard]] IterationResult iteratePrayerTime(const IterationInput& input, const SunInfoForPray& info);

/// Runs iterations round by round side by side: each is a long chain of dependent operations, and a processor
/// works on several chains at once.
void iterateTogether(std::span<PrayerIteration> iterations);

} // namespace zorel
