// SPDX-License-Identifier: Apache-2.0
// Prayer times of a day: this engine (sixteen times with all that the computation leaves, and the sixteen
// times alone) beside libitl (six times, full series of the Earth), over the same places and dates.
#include "bench/PlaceDays.h"

#include "engine/FastAstro.h"

#include <benchmark/benchmark.h>
#include <string>
#include <vector>

namespace {

template <class Compute>
void eachDay(benchmark::State& state, const std::vector<PlaceDay>& days, const Compute& compute) {
    zorel::FastAstro engine;
    std::size_t i = 0;
    for (auto _ : state) {
        const PlaceDay& p = days[i];
        i = i + 1 < days.size() ? i + 1 : 0;
        engine.SetCurrentDate(p.day, p.month, p.year);
        engine.SetPlace(p.latitude, p.longitude, p.timeZone, 0, 0, 0, 0, 0, 0, 0);
        compute(engine);
    }
}

void everything(benchmark::State& state, const std::vector<PlaceDay>& days) {
    eachDay(state, days,
            [](zorel::FastAstro& engine) { benchmark::DoNotOptimize(engine.CalculatePrayTimes()); });
}

void timesOnly(benchmark::State& state, const std::vector<PlaceDay>& days) {
    eachDay(state, days,
            [](zorel::FastAstro& engine) { benchmark::DoNotOptimize(&engine.CalculatePrayTimesOnly()); });
}

[[maybe_unused]] const int registered = [] {
    const auto add = [](const std::string& group, const std::vector<PlaceDay>& days) {
        const auto addOne = [&](const char* who, auto run) {
            benchmark::RegisterBenchmark((group + who).c_str(),
                                         [run, days](benchmark::State& state) { run(state, days); });
        };
        addOne("/zorel", everything);
        addOne("/zorel_times_only", timesOnly);
        addOne("/libitl", itlTimes);
    };
    add("random_days", randomDays());
    add("consecutive_days", consecutiveDays());
    add("many_places_one_day", placesOfOneDay());
    return 0;
}();

} // namespace
