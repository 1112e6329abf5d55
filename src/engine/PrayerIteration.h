// SPDX-License-Identifier: Apache-2.0
/// @file
/// The time at which the Sun stands at an altitude or throws a shadow of a length, found by iteration.
#pragma once

#include "engine/Records.h"

#include <cmath>
#include <cstdint>

namespace zorel {

/// A latitude with the functions of it that every round needs.
struct IterationLatitude {
    IterationLatitude() = default; ///< of the equator
    explicit IterationLatitude(double latitude);

    double degrees = 0.0;
    double sine = 0.0;   ///< in single precision
    double cosine = 1.0; ///< in single precision
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
/// takes it: the absolute change is subtracted when the value falls. Without a branch, for loops in vectors.
[[nodiscard]] inline double interpolateDay(double today, double tomorrow, double hour) {
    return today + std::copysign((today - tomorrow) * hour / 24.0, tomorrow - today);
}

/// A whole altitude, in single precision [rad].
[[nodiscard]] double altitudeOf(std::int32_t degrees);
/// The shadow of a staff of length 1 when the Sun is highest.
[[nodiscard]] double shadowOfNoon(double latitude, double declination);
/// Altitude at which a staff throws so many of its lengths beyond its shadow of noon [rad].
[[nodiscard]] double shadowAltitude(std::int32_t staffs, double noonShadow);

/// Ends a round. @param result in, out: its rounds are counted already. @param time that the round found.
/// @param cosine of the hour angle. @return whether the iteration is over: two rounds agree, ten rounds were
/// made, or the time is not a number (then the answer is false).
bool settleRound(IterationResult& result, double time, double cosine);

/// One event's iteration.
[[nodiscard]] IterationResult iteratePrayerTime(const IterationInput& input, const SunInfoForPray& info);

} // namespace zorel
