// SPDX-License-Identifier: Apache-2.0
#include "engine/FastAstro.h"
#include "tests/engine/Places.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace zorel {
namespace {

PrayerTimes withSunset(double sunset) {
    PrayerTimes t;
    t.times.fill(12.0);
    t.times[PrayerTimes::sunset] = sunset;
    return t;
}

TEST(SunsetClock, SunsetIsTwelve) {
    PrayerTimes t = withSunset(18.3217);
    FastAstro().CalculateAllEzaniTimes(t);
    EXPECT_EQ(t.ezani[PrayerTimes::sunset], 12.0);
    EXPECT_EQ(FastAstro().CalculateEzaniTimes(18.3217, t), 12.0);
}

TEST(SunsetClock, DawnAndNoonBeforeASunsetAtSix) {
    const PrayerTimes t = withSunset(18.0);
    EXPECT_NEAR(FastAstro().CalculateEzaniTimes(4.5, t), 10.5, 1e-9);
    EXPECT_NEAR(FastAstro().CalculateEzaniTimes(12.0 + 5.0 / 60.0, t), 6.0 + 5.0 / 60.0, 1e-6);
}

TEST(SunsetClock, TheHourAfterSunsetReadsAboveTwelve) {
    const PrayerTimes t = withSunset(18.0);
    EXPECT_NEAR(FastAstro().CalculateEzaniTimes(18.75, t), 12.75, 1e-6);
    EXPECT_NEAR(FastAstro().CalculateEzaniTimes(19.0, t), 13.0, 1e-6);
    EXPECT_NEAR(FastAstro().CalculateEzaniTimes(19.25, t), 1.25, 1e-6);
}

TEST(SunsetClock, SecondsAreDropped) {
    EXPECT_NEAR(FastAstro().TimeToHourDeg(5.5 + 59.0 / 3600.0), 5.5, 1e-6);
    const PrayerTimes t = withSunset(18.0 + 30.0 / 3600.0);
    EXPECT_NEAR(FastAstro().CalculateEzaniTimes(4.5 + 30.0 / 3600.0, t), 10.5, 1e-6);
}

TEST(SunsetClock, OnlyAMissingDawnIsLeftOut) {
    PrayerTimes t = withSunset(18.0);
    t.times[PrayerTimes::dawn] = -1.0;
    t.times[PrayerTimes::nightfall] = -1.0;
    t.ezani.fill(7.0);
    FastAstro().CalculateAllEzaniTimes(t);
    EXPECT_EQ(t.ezani[PrayerTimes::dawn], 7.0);
    EXPECT_EQ(t.ezani[PrayerTimes::nightfall], 5.0) << "the number -1 is converted";
    EXPECT_EQ(t.ezani[PrayerTimes::unused], 7.0);
}

TEST(SunsetClock, EveryTimeOfADayLiesOnTheDial) {
    testing::Random random(7);
    for (int i = 0; i < 300; ++i) {
        PrayerTimes t = testing::timesOf(testing::anyPlaceDay(random, 60.0));
        FastAstro().CalculateAllEzaniTimes(t);
        for (const int index : {0, 1, 2, 3, 5, 6, 8, 10, 14, 15}) {
            ASSERT_LE(t.ezani[static_cast<std::size_t>(index)], 13.0);
            ASSERT_GT(t.ezani[static_cast<std::size_t>(index)], -12.0);
        }
    }
}

TEST(SunsetClock, AnyNumberEnds) {
    for (const double x : {std::nan(""), std::numeric_limits<double>::infinity(), -1e300, 1e300, 3e9}) {
        (void)FastAstro().CalculateEzaniTimes(x, withSunset(18.0));
        const double dial = FastAstro().CalculateEzaniTimes(12.0, withSunset(x));
        EXPECT_TRUE(dial <= 13.0);
    }
}

} // namespace
} // namespace zorel
