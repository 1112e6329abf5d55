// SPDX-License-Identifier: Apache-2.0
// Prayer times of a day: this engine (sixteen times with their searches) beside libitl (six times, full
// series of the Earth), over the same places and dates.
#include "bench/PlaceDays.h"

#include "engine/FastAstro.h"

#include <benchmark/benchmark.h>
#include <vector>

namespace {

void ours(benchmark::State& state, const std::vector<PlaceDay>& days) {
    zorel::FastAstro engine;
    std::size_t i = 0;
    for (auto _ : state) {
        const PlaceDay& p = days[i];
        i = i + 1 < days.size() ? i + 1 : 0;
        engine.SetCurrentDate(p.day, p.month, p.year);
        engine.SetPlace(p.latitude, p.longitude, p.timeZone, 0, 0, 0, 0, 0, 0, 0);
        benchmark::DoNotOptimize(engine.CalculatePrayTimes());
    }
}

[[maybe_unused]] const int registered = [] {
    const auto add = [](const char* name, auto run, const std::vector<PlaceDay>& days) {
        benchmark::RegisterBenchmark(name, [run, days](benchmark::State& state) { run(state, days); });
    };
    add("random_days/zorel", ours, randomDays());
    add("random_days/libitl", itlTimes, randomDays());
    add("consecutive_days/zorel", ours, consecutiveDays());
    add("consecutive_days/libitl", itlTimes, consecutiveDays());
    add("many_places_one_day/zorel", ours, placesOfOneDay());
    add("many_places_one_day/libitl", itlTimes, placesOfOneDay());
    return 0;
}();

} // namespace
