// SPDX-License-Identifier: Apache-2.0
// The whole told day (sixteen times with corrections, explanation, rounding and clock) beside libitl's six
// times, over the same places and dates.
#include "almanac/Almanac.h"
#include "bench/PlaceDays.h"

#include <benchmark/benchmark.h>
#include <vector>

namespace {

using zorel::almanac::Almanac;
using zorel::almanac::Date;
using zorel::almanac::Memory;
using zorel::almanac::Place;
using zorel::almanac::PlaceClock;

struct ToldDay {
    Almanac almanac;
    Date date;
};

Place placeOf(const PlaceDay& day, PlaceClock clock) {
    Place place;
    place.latitude = day.latitude;
    place.longitude = day.longitude;
    place.clock = std::move(clock);
    return place;
}

std::vector<ToldDay> toldDays(const std::vector<PlaceDay>& days, const char* zone) {
    std::vector<ToldDay> told;
    for (const PlaceDay& day : days) {
        const std::chrono::seconds offset(static_cast<int>(day.timeZone * 3600.0));
        PlaceClock clock = zone == nullptr ? PlaceClock::fixed(offset) : PlaceClock::ofZone(zone).value();
        told.push_back(
            {Almanac(placeOf(day, std::move(clock))),
             Date{std::chrono::year(day.year), std::chrono::month(static_cast<unsigned>(day.month)),
                  std::chrono::day(static_cast<unsigned>(day.day))}});
    }
    return told;
}

void ours(benchmark::State& state, const std::vector<ToldDay>& days) {
    Memory memory;
    std::size_t i = 0;
    for (auto _ : state) {
        const ToldDay& day = days[i];
        i = i + 1 < days.size() ? i + 1 : 0;
        benchmark::DoNotOptimize(day.almanac.day(day.date, memory));
    }
}

[[maybe_unused]] const int registered = [] {
    const auto add = [](const char* name, auto run, auto days) {
        benchmark::RegisterBenchmark(name, [run, days](benchmark::State& state) { run(state, days); });
    };
    add("day_told_random/zorel", ours, toldDays(randomDays(), nullptr));
    add("day_told_random/libitl", itlTimes, randomDays());
    add("day_told_consecutive/zorel", ours, toldDays(consecutiveDays(), "Europe/Istanbul"));
    add("day_told_consecutive/libitl", itlTimes, consecutiveDays());
    return 0;
}();

} // namespace
