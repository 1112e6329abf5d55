// SPDX-License-Identifier: Apache-2.0
/// @file
/// The places and dates over which prayer times are measured, and the peer that all of them are measured
/// beside.
#pragma once

#include <benchmark/benchmark.h>
#include <cstdint>
#include <vector>

struct PlaceDay {
    double latitude;
    double longitude;
    double timeZone;
    std::int32_t year;
    std::int32_t month;
    std::int32_t day;
};

/// 1000 places up to 60 degrees, 1990 to 2060.
std::vector<PlaceDay> randomDays();
/// Every day of three years in Istanbul.
std::vector<PlaceDay> consecutiveDays();
/// 20000 places on one day.
std::vector<PlaceDay> placesOfOneDay();

/// libitl's six times, full series of the Earth.
void itlTimes(benchmark::State& state, const std::vector<PlaceDay>& days);
