// SPDX-License-Identifier: Apache-2.0
// The Moon: this engine beside ERFA (position) and libnova (rise and set), over the same instants and places;
// the observed Hijri dates of a year, magnetic declination and the events of a local day on their own.
#include "engine/FastAstro.h"
#include "engine/MagneticVariation.h"
#include "engine/MoonDay.h"

#include <benchmark/benchmark.h>
#include <cstddef>
#include <cstdint>
#include <erfa.h>
#include <libnova/lunar.h>
#include <vector>

namespace {

class Random {
public:
    double between(double low, double high) {
        state_ = state_ * 6364136223846793005U + 1442695040888963407U;
        return low + (high - low) * static_cast<double>(state_ >> 11U) / 9007199254740992.0;
    }

private:
    std::uint64_t state_ = 1969;
};

struct PlaceDate {
    double latitude;
    double longitude;
    double timeZone;
    double julianDay; // at 0 h of universal time
    zorel::DateTimeRecord date;
};

const std::vector<PlaceDate>& placeDates() {
    static const std::vector<PlaceDate> places = [] {
        Random random;
        const zorel::AstroGlobalFuncs calendar;
        std::vector<PlaceDate> result;
        for (int i = 0; i < 1000; ++i) {
            PlaceDate p{random.between(-60.0, 60.0), random.between(-180.0, 180.0), 0.0, 0.0, {}};
            p.timeZone = static_cast<double>(static_cast<int>(p.longitude / 15.0));
            calendar.JulianToCalendar(random.between(2447893.0, 2473460.0), p.date, 1); // 1990 to 2060
            p.julianDay = calendar.CalculateJulianDay(p.date.year, p.date.month, p.date.day, 0, 0, 0);
            result.push_back(p);
        }
        return result;
    }();
    return places;
}

/// Runs `work` on one place and date after the other.
template <typename Work> void cycle(benchmark::State& state, Work work) {
    std::size_t i = 0;
    for (auto _ : state) {
        work(placeDates()[i]);
        i = (i + 1) % placeDates().size();
    }
}

void positionZorel(benchmark::State& state) {
    const zorel::MoonCompute moon;
    cycle(state, [&moon](const PlaceDate& p) {
        double declination = 0.0;
        double rightAscension = 0.0;
        double distance = 0.0;
        moon.Moon_Coordinate(p.julianDay, declination, rightAscension, distance);
        benchmark::DoNotOptimize(declination + rightAscension + distance);
    });
}

void positionMoon98(benchmark::State& state) {
    cycle(state, [](const PlaceDate& p) {
        double pv[2][3];
        eraMoon98(p.julianDay, 0.0, pv);
        benchmark::DoNotOptimize(pv);
    });
}

void positionMoon98Nut80(benchmark::State& state) {
    cycle(state, [](const PlaceDate& p) {
        double pv[2][3];
        double psi = 0.0;
        double epsilon = 0.0;
        eraMoon98(p.julianDay, 0.0, pv);
        eraNut80(p.julianDay, 0.0, &psi, &epsilon);
        benchmark::DoNotOptimize(pv);
        benchmark::DoNotOptimize(psi + epsilon);
    });
}

void positionMoon98Nut00b(benchmark::State& state) {
    cycle(state, [](const PlaceDate& p) {
        double pv[2][3];
        double psi = 0.0;
        double epsilon = 0.0;
        eraMoon98(p.julianDay, 0.0, pv);
        eraNut00b(p.julianDay, 0.0, &psi, &epsilon);
        benchmark::DoNotOptimize(pv);
        benchmark::DoNotOptimize(psi + epsilon);
    });
}

void riseSetZorel(benchmark::State& state) {
    zorel::FastAstro engine;
    cycle(state, [&engine](const PlaceDate& p) {
        engine.SetPlace(p.latitude, p.longitude, p.timeZone, 0, 0, 0, 0, 0, 0, 0);
        engine.MoonRiseTime(p.date.day, p.date.month, p.date.year);
        engine.MoonSetTime(p.date.day, p.date.month, p.date.year);
        benchmark::DoNotOptimize(engine.MoonRise + engine.MoonSet);
    });
}

void riseSetLibnova(benchmark::State& state) {
    cycle(state, [](const PlaceDate& p) {
        ln_lnlat_posn observer{p.longitude, p.latitude};
        ln_rst_time times{};
        ln_get_lunar_rst(p.julianDay, &observer, &times);
        benchmark::DoNotOptimize(times);
    });
}

void shortPosition(benchmark::State& state) {
    zorel::FastAstro engine;
    cycle(state, [&engine](const PlaceDate& p) {
        engine.MoonDecRA(p.julianDay);
        benchmark::DoNotOptimize(engine.MoonDec + engine.MoonRA);
    });
}

void localDay(benchmark::State& state) {
    cycle(state, [](const PlaceDate& p) {
        benchmark::DoNotOptimize(zorel::MoonEventsOfDay({p.latitude, p.longitude, p.timeZone}, p.date));
    });
}

/// The observed Hijri dates of every day of 2026, one after the other.
void hijriYear(benchmark::State& state) {
    const zorel::AstroGlobalFuncs calendar;
    const double first = calendar.CalculateJulianDay(2026, 1, 1, 0, 0, 0);
    for (auto _ : state) {
        zorel::FastAstro engine;
        engine.SetPlace(41.0082, 28.9784, 3.0, 0, 0, 0, 0, 0, 0, 0);
        for (int day = 0; day < 365; ++day) {
            zorel::DateTimeRecord date;
            calendar.JulianToCalendar(first + day, date, 1);
            zorel::HijriDate hijri;
            engine.RealGregJulToHicri(date.day, date.month, date.year, hijri);
            benchmark::DoNotOptimize(hijri);
        }
    }
}

void declination(benchmark::State& state) {
    zorel::MagneticVariation field;
    cycle(state, [&field](const PlaceDate& p) {
        benchmark::DoNotOptimize(
            field.getMagneticVariation(p.date.day, p.date.month, p.date.year, p.latitude, p.longitude, 0.0));
    });
}

} // namespace

BENCHMARK(positionZorel)->Name("moon_position/zorel");
BENCHMARK(positionMoon98)->Name("moon_position/moon98");
BENCHMARK(positionMoon98Nut80)->Name("moon_position/moon98_nut80");
BENCHMARK(positionMoon98Nut00b)->Name("moon_position/moon98_nut00b");
BENCHMARK(riseSetZorel)->Name("moon_rise_set/zorel");
BENCHMARK(riseSetLibnova)->Name("moon_rise_set/libnova");
BENCHMARK(shortPosition)->Name("moon_short_position/zorel");
BENCHMARK(localDay)->Name("moon_local_day/zorel");
BENCHMARK(hijriYear)->Name("hijri_year/zorel")->Unit(benchmark::kMillisecond);
BENCHMARK(declination)->Name("magnetic_declination/zorel");
