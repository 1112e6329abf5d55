// SPDX-License-Identifier: Apache-2.0
#include "Digest.h"

#include "Hash.h"
#include "engine/FastAstro.h"

#include <cstddef>
#include <fmt/format.h>

namespace zorel::golden {

namespace {

void print(const char* name, const Hash& hash) {
    fmt::print("{:<20} {}\n", name, hash.text());
}

void digestPositions() {
    Hash fast;
    Hash accurate;
    FastAstro engine;
    for (int i = 0; i < 4000; ++i) {
        const double julianDay = 2305447.5 + 73.31 * i; // 1600 to 2400
        engine.SunDecRA(julianDay);
        fast.add(engine.SunDec);
        fast.add(engine.SunRA);
        engine.SunDecRAAccurate(julianDay);
        accurate.add(engine.SunDistance);
        accurate.add(engine.SunDec);
        accurate.add(engine.SunRA);
        accurate.add(engine.EquationOfTime(julianDay, engine.SunRA));
    }
    print("sun fast", fast);
    print("sun accurate", accurate);
}

void digestPrayerTimes() {
    Hash hash;
    for (int i = 0; i < 1500; ++i) {
        FastAstro engine;
        engine.SetCurrentDate(1 + i % 28, 1 + i % 12, 1600 + i % 801);
        engine.SetPlace(-90.0 + 180.0 * (i % 97) / 96.0, -180.0 + 360.0 * (i % 89) / 88.0, i % 27 - 12, 1, 2,
                        35, 9, 35, 1, i % 2);
        PrayerTimes times = engine.CalculatePrayTimes().today;
        engine.CalculateAllEzaniTimes(times);
        for (std::size_t k = 0; k < times.times.size(); ++k) {
            hash.add(times.times[k]);
            hash.add(times.ezani[k]);
        }
    }
    print("prayer times", hash);
}

} // namespace

void printDigest() {
    digestPositions();
    digestPrayerTimes();
}

} // namespace zorel::golden
