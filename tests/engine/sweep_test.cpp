// SPDX-License-Identifier: Apache-2.0
// What holds for every place and day: the order of the times, no sudden change from day to day, no number
// missing.
#include "engine/FastAstro.h"
#include "tests/engine/Places.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace zorel {
namespace {

using testing::PlaceDay;
using testing::setUp;

void expectOrder(const PrayerTimes& t, const PlaceDay& p) {
    const auto at = [&t](int index) { return t.times[static_cast<std::size_t>(index)]; };
    const int order[] = {PrayerTimes::dawn,   PrayerTimes::sunrise,   PrayerTimes::transitMinusTemkin,
                         PrayerTimes::noon,   PrayerTimes::afternoon, PrayerTimes::secondAfternoon,
                         PrayerTimes::sunset, PrayerTimes::nightfall};
    for (std::size_t i = 0; i + 1 < std::size(order); ++i) {
        ASSERT_LT(at(order[i]), at(order[i + 1]))
            << order[i] << " before " << order[i + 1] << " at " << p.latitude << ' ' << p.longitude << ' '
            << p.year << '-' << p.month << '-' << p.day;
    }
}

/// Local noon at 12: no event of the day crosses midnight.
PlaceDay solarPlaceDay(testing::Random& random, double northernmost) {
    PlaceDay p = testing::anyPlaceDay(random, northernmost);
    p.timeZone = p.longitude / 15.0;
    p.europeanRule = false;
    return p;
}

TEST(Sweep, TimesAreInOrderBelowFortyFiveDegrees) {
    testing::Random random(21);
    for (int i = 0; i < 6000; ++i) {
        const PlaceDay p = solarPlaceDay(random, 45.0);
        expectOrder(testing::timesOf(p), p);
    }
}

TEST(Sweep, EveryTimeIsANumberOfADayOrMissing) {
    testing::Random random(22);
    for (int i = 0; i < 4000; ++i) {
        const PlaceDay p = testing::anyPlaceDay(random);
        const PrayerTimes t = testing::timesOf(p);
        for (const double time : t.times) {
            ASSERT_TRUE(std::isfinite(time));
            ASSERT_TRUE(time > -24.0 && time < 48.0) << time << " at " << p.latitude;
        }
    }
}

TEST(Sweep, DayToDayContinuityBelowSixtyDegrees) {
    const AstroGlobalFuncs calendar;
    for (const double latitude : {-59.5, -45.0, -21.0, 0.0, 21.0, 45.0, 59.5}) {
        for (const std::int32_t year : {1600, 1823, 2024, 2399}) {
            PrayerTimes previous;
            for (int day = 0; day <= 366; ++day) {
                DateTimeRecord date;
                calendar.JulianToCalendar(calendar.CalculateJulianDay(year, 1, 1 + day, 0, 0, 0), date, 1);
                const PrayerTimes t = testing::timesOf(
                    {.latitude = latitude, .year = date.year, .month = date.month, .day = date.day});
                for (const int index : {1, 2, 3, 4, 6, 10}) {
                    const auto i = static_cast<std::size_t>(index);
                    ASSERT_TRUE(day == 0 || std::fabs(t.times[i] - previous.times[i]) < 0.1)
                        << index << " at " << latitude << " on " << date.year << '-' << date.month << '-'
                        << date.day;
                }
                previous = t;
            }
        }
    }
}

TEST(Sweep, TimesDoNotDependOnTheCalendarOfTheCaller) {
    const PrayerTimes a = testing::timesOf({.latitude = 41.0, .year = 2024, .month = 3, .day = 1});
    const PrayerTimes b = testing::timesOf({.latitude = 41.0, .year = 2024, .month = 2, .day = 30});
    EXPECT_EQ(a.times, b.times);
}

TEST(Sweep, AnyInputGivesNumbers) {
    const double infinity = std::numeric_limits<double>::infinity();
    const double odd[] = {std::nan(""), infinity, -infinity, 1e300, -1e18, 400.0,
                          200.0,        90.0,     -90.0,     0.0,   -0.0};
    const std::int32_t years[] = {-2147483647 - 1, -4000, 0, 1582, 9999, 2147483647};
    for (const double x : odd) {
        for (const std::int32_t year : years) {
            for (const PlaceDay& p :
                 {PlaceDay{.latitude = x, .year = year}, PlaceDay{.longitude = x, .year = year},
                  PlaceDay{.latitude = 41.0, .timeZone = x, .year = year}}) {
                FastAstro engine;
                setUp(engine, p);
                PrayerTimes t = engine.CalculatePrayTimes().today;
                engine.CalculateNextPrayTimes();
                engine.CalculateAllEzaniTimes(t);
                for (const double time : t.times) {
                    ASSERT_TRUE(std::isfinite(time)) << x << ' ' << year;
                }
            }
        }
    }
}

TEST(Sweep, AnyRuleAndDateEnds) {
    for (const std::int32_t a : {-2147483647 - 1, -1, 0, 12, 31, 66, 2147483647}) {
        FastAstro engine;
        engine.SetCurrentDate(a, a, a);
        engine.SetPlace(41.0, 29.0, 3.0, 1, a, a, a, a, a, a);
        const PrayerTimes t = engine.CalculatePrayTimes().today;
        EXPECT_TRUE(std::isfinite(t.times[0]));
    }
}

TEST(Sweep, OffsetsMoveTheTimesByTheirHours) {
    const PrayerTimes zero = testing::timesOf({.latitude = 30.0, .year = 2024, .month = 5, .day = 5});
    for (int zone = -12; zone <= 14; ++zone) {
        const PrayerTimes t = testing::timesOf(
            {.latitude = 30.0, .timeZone = static_cast<double>(zone), .year = 2024, .month = 5, .day = 5});
        EXPECT_NEAR(t.times[2], zero.times[2] + zone, 1e-9);
        EXPECT_NEAR(t.times[12], zero.times[12], 1e-9) << "the qibla time has no zone";
    }
}

} // namespace
} // namespace zorel
