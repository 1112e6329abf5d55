// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/FastAstro.h"

#include <cstdint>

namespace zorel::testing {

/// A place with its zone and rule, and a date.
struct PlaceDay {
    double latitude = 0.0;
    double longitude = 0.0;
    double timeZone = 0.0;
    std::int32_t year = 2024;
    std::int32_t month = 1;
    std::int32_t day = 1;
    bool europeanRule = false; ///< last Sunday of March to last Sunday of October
    bool elevation = false;
};

/// Numbers that are the same on every machine.
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}
    double between(double low, double high) {
        state_ = state_ * 6364136223846793005U + 1442695040888963407U;
        return low + (high - low) * static_cast<double>(state_ >> 11U) / 9007199254740992.0;
    }
    std::int32_t whole(std::int32_t low, std::int32_t high) {
        return low + static_cast<std::int32_t>(between(0.0, high - low + 1.0));
    }

private:
    std::uint64_t state_;
};

inline void setUp(FastAstro& engine, const PlaceDay& p) {
    engine.SetCurrentDate(p.day, p.month, p.year);
    engine.SetPlace(p.latitude, p.longitude, p.timeZone, p.europeanRule ? 1 : 0, 2, 35, 9, 35, 1,
                    p.elevation ? 1 : 0);
}

inline PrayerTimes timesOf(const PlaceDay& p) {
    FastAstro engine;
    setUp(engine, p);
    return engine.CalculatePrayTimes().today;
}

/// A place anywhere, its zone near its longitude, a day between 1600 and 2400.
inline PlaceDay anyPlaceDay(Random& random, double northernmost = 90.0) {
    PlaceDay p;
    p.latitude = random.between(-northernmost, northernmost);
    p.longitude = random.between(-180.0, 180.0);
    p.timeZone = random.whole(-1, 1) + static_cast<double>(static_cast<int>(p.longitude / 15.0));
    p.year = random.whole(1600, 2400);
    p.month = random.whole(1, 12);
    p.day = random.whole(1, 28);
    p.europeanRule = random.whole(0, 1) == 1;
    p.elevation = random.whole(0, 1) == 1;
    return p;
}

} // namespace zorel::testing
