// SPDX-License-Identifier: Apache-2.0
// The widget summary and the details of the Sun.
#include "engine/FastAstro.h"
#include "tests/engine/Places.h"

#include <cmath>
#include <gtest/gtest.h>

namespace zorel {
namespace {

FastAstro engineOn(const DateTimeRecord& date, double latitude, double longitude, double timeZone) {
    FastAstro engine;
    engine.SetCurrentDateTime(date);
    engine.SetPlace(latitude, longitude, timeZone, 0, 0, 0, 0, 0, 0, 0);
    return engine;
}

TEST(Widget, GivesLocalHours) {
    const WidgetAstroInfo info =
        engineOn({2026, 11, 20, 12, 0, 0}, 41.0082, 28.9784, 3.0).getSomeInfoForZorelWidget();
    EXPECT_NEAR(info.sunrise, 7.9, 0.1);
    EXPECT_NEAR(info.sunset, 17.67, 0.1);
    EXPECT_GE(info.moonrise, 0.0);
    EXPECT_GT(info.moonAltitudeAtSunset, 0.0); // waxing gibbous, up at sunset
}

TEST(Widget, PolarDayAndNightCarryTheSentinels) {
    for (const std::int32_t month : {6, 12}) {
        const WidgetAstroInfo info = engineOn({2026, month, 21}, 75.0, 20.0, 1.0).getSomeInfoForZorelWidget();
        EXPECT_EQ(info.sunrise, -1.0);
        EXPECT_EQ(info.sunset, -1.0);
        EXPECT_EQ(info.moonAltitudeAtSunset, -1650.0);
    }
}

TEST(Widget, ADayWithoutMoonriseStaysBelowZero) {
    int absent = 0;
    for (std::int32_t day = 1; day <= 31; ++day) {
        const WidgetAstroInfo info = engineOn({2026, 1, day}, 41.0, 29.0, 3.0).getSomeInfoForZorelWidget();
        if (info.moonrise < 0.0) {
            ++absent;
            EXPECT_EQ(info.moonrise, -1650.0 + 3.0 + 24.0);
        }
    }
    EXPECT_GE(absent, 1);
}

// East of Greenwich the search names the sunrise by an hour of the day before; adding the zone passes 24.
TEST(Widget, HoursPastMidnightAreWrappedOnce) {
    FastAstro engine = engineOn({2026, 6, 21}, 41.0, 105.0, 7.0);
    const WidgetAstroInfo info = engine.getSomeInfoForZorelWidget();
    ASSERT_GT(engine.UTRise + 7.0, 24.0);
    EXPECT_DOUBLE_EQ(info.sunrise, engine.UTRise + 7.0 - 24.0);
    EXPECT_NEAR(info.sunrise, 4.5, 0.2);
}

// A sunset late in universal time is early in the next day of a clock three hours ahead: 23.6 h and 3 h
// give 2.6.
TEST(Widget, SunsetOfALateUniversalHourIsEarlyInTheDay) {
    const WidgetAstroInfo info = engineOn({2026, 6, 21}, 41.0, -60.0, 3.0).getSomeInfoForZorelWidget();
    EXPECT_NEAR(info.sunset, 2.59, 0.05);
}

TEST(Widget, KeepsTheFractionOfTheZone) {
    const DateTimeRecord date{2026, 3, 20};
    FastAstro engine = engineOn(date, 27.7, 85.3, 5.75);
    engine.SunRiseSet(20, 3, 2026);
    const double expected = engine.UTRise + 5.75;
    EXPECT_DOUBLE_EQ(engineOn(date, 27.7, 85.3, 5.75).getSomeInfoForZorelWidget().sunrise,
                     expected >= 24.0 ? expected - 24.0 : expected);
}

TEST(Widget, TheMoonsAltitudeIsThatOfTheSunsetsSecond) {
    FastAstro engine = engineOn({2026, 11, 20, 5, 6, 7}, 41.0, 29.0, 3.0);
    const double altitude = engine.getSomeInfoForZorelWidget().moonAltitudeAtSunset;
    const double set = engine.UTSet;
    const auto hour = static_cast<std::int32_t>(set);
    const auto minute = static_cast<std::int32_t>((set - hour) * 60.0);
    const auto second = static_cast<std::int32_t>(((set - hour) * 60.0 - minute) * 60.0);
    EXPECT_EQ(altitude, engine.MoonAppAltitude({2026, 11, 20, hour, minute, second}));
}

TEST(Widget, EveryPlaceAndDayGivesNumbersInRange) {
    testing::Random random(77);
    for (int i = 0; i < 400; ++i) {
        const testing::PlaceDay p = testing::anyPlaceDay(random);
        FastAstro engine;
        testing::setUp(engine, p);
        const WidgetAstroInfo info = engine.getSomeInfoForZorelWidget();
        for (const double hour : {info.sunrise, info.sunset}) {
            ASSERT_TRUE(hour == -1.0 || (hour >= 0.0 && hour < 24.0)) << hour;
        }
        ASSERT_TRUE(info.moonAltitudeAtSunset == -1650.0 || std::fabs(info.moonAltitudeAtSunset) <= 91.0);
        ASSERT_TRUE(info.moonrise < 0.0 || info.moonrise < 49.0);
    }
}

TEST(SunRecord, AgreesWithItsParts) {
    FastAstro engine = engineOn({2026, 6, 21, 12, 30, 15}, 41.0082, 28.9784, 3.0);
    const SunDetails sun = engine.SunInformation({2026, 6, 21, 12, 30, 15}, 41.0082, 28.9784);
    EXPECT_NEAR(sun.declination, 23.44, 0.01);
    EXPECT_NEAR(sun.rightAscension, 6.0, 0.05);
    EXPECT_NEAR(sun.distance, 1.0163, 0.0005);
    EXPECT_NEAR(sun.diameter, 31.47, 0.03);
    EXPECT_NEAR(sun.equationOfTime, -1.9, 0.2);
    EXPECT_NEAR(sun.transit, 12.0 - sun.equationOfTime / 60.0 - 28.9784 / 15.0, 1e-12);
    EXPECT_NEAR(sun.shadowRatio, 1.0 / std::tan(sun.altitude * 0.0174532925), 1e-4);
    EXPECT_GE(sun.siderealTime, 0.0);
    EXPECT_LT(sun.siderealTime, 24.0);
    EXPECT_EQ(engine.Sun.declination, sun.declination);
    EXPECT_GT(sun.azimuth, 180.0); // 12:30 of universal time is afternoon at the place
}

TEST(SunRecord, RiseAndSetAreLocalInOneRecordAndUniversalInTheOther) {
    const DateTimeRecord record{2026, 3, 20, 9, 0, 0};
    FastAstro engine = engineOn(record, 41.0, 29.0, 3.0);
    SunDirectionInfo direction;
    SunCrescentInfo crescent;
    engine.SunInformationForDirection(record, direction);
    engine.SunInformationForCrescent(record, crescent);
    EXPECT_DOUBLE_EQ(direction.rise, crescent.rise + 3.0);
    EXPECT_DOUBLE_EQ(direction.set, crescent.set + 3.0);
    EXPECT_EQ(crescent.rise, engine.UTRise);
    const SunDetails sun = engine.SunInformation(record, 41.0, 29.0);
    EXPECT_EQ(direction.azimuth, sun.azimuth);
    EXPECT_EQ(direction.altitude, sun.altitude);
}

TEST(SunRecord, PolarDaysKeepTheSentinel) {
    const DateTimeRecord record{2026, 6, 21, 9, 0, 0};
    FastAstro engine = engineOn(record, 75.0, 20.0, 1.0);
    SunDirectionInfo direction;
    engine.SunInformationForDirection(record, direction);
    EXPECT_EQ(direction.rise, -1.0);
    EXPECT_EQ(direction.set, -1.0);
}

// Near sunset the shadow grows without bound.
TEST(SunRecord, ShadowsAreLongAtSunset) {
    FastAstro engine = engineOn({2026, 3, 20}, 41.0, 29.0, 0.0);
    double longest = 0.0;
    for (std::int32_t minute = 0; minute < 60; ++minute) {
        const SunDetails sun = engine.SunInformation({2026, 3, 20, 16, minute, 0}, 41.0, 29.0);
        longest = std::max(longest, std::fabs(sun.shadowRatio));
    }
    EXPECT_GT(longest, 200.0);
}

} // namespace
} // namespace zorel
