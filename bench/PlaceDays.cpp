// SPDX-License-Identifier: Apache-2.0
#include "bench/PlaceDays.h"

#include "engine/FastAstro.h"

#include <itl/prayer.h>

namespace {

class Random {
public:
    double between(double low, double high) {
        state_ = state_ * 6364136223846793005U + 1442695040888963407U;
        return low + (high - low) * static_cast<double>(state_ >> 11U) / 9007199254740992.0;
    }
    std::int32_t whole(std::int32_t low, std::int32_t high) {
        return low + static_cast<std::int32_t>(between(0.0, high - low + 1.0));
    }

private:
    std::uint64_t state_ = 2024;
};

PlaceDay anyPlaceDay(Random& random) {
    const double longitude = random.between(-180.0, 180.0);
    return {random.between(-60.0, 60.0),
            longitude,
            static_cast<double>(static_cast<int>(longitude / 15.0)),
            random.whole(1990, 2060),
            random.whole(1, 12),
            random.whole(1, 28)};
}

} // namespace

std::vector<PlaceDay> randomDays() {
    Random random;
    std::vector<PlaceDay> days;
    for (int i = 0; i < 1000; ++i) {
        days.push_back(anyPlaceDay(random));
    }
    return days;
}

std::vector<PlaceDay> consecutiveDays() {
    const zorel::AstroGlobalFuncs calendar;
    const double first = calendar.CalculateJulianDay(2023, 1, 1, 0, 0, 0);
    std::vector<PlaceDay> days;
    for (int i = 0; i < 1096; ++i) {
        zorel::DateTimeRecord date;
        calendar.JulianToCalendar(first + i, date, 1);
        days.push_back({41.0082, 28.9784, 3.0, date.year, date.month, date.day});
    }
    return days;
}

std::vector<PlaceDay> placesOfOneDay() {
    Random random;
    std::vector<PlaceDay> days;
    for (int i = 0; i < 20000; ++i) {
        PlaceDay p = anyPlaceDay(random);
        p.year = 2025;
        p.month = 4;
        p.day = 17;
        days.push_back(p);
    }
    return days;
}

void itlTimes(benchmark::State& state, const std::vector<PlaceDay>& days) {
    Method method;
    getMethod(5, &method);
    method.round = 0;
    std::size_t i = 0;
    for (auto _ : state) {
        const PlaceDay& p = days[i];
        i = i + 1 < days.size() ? i + 1 : 0;
        const Location location{p.longitude, p.latitude, p.timeZone, 0, 0.0, 1010.0, 10.0};
        const Date date{p.day, p.month, p.year};
        Prayer prayers[6];
        getPrayerTimes(&location, &method, &date, prayers);
        benchmark::DoNotOptimize(prayers);
    }
}
