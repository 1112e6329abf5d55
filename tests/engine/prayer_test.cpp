// SPDX-License-Identifier: Apache-2.0
#include "engine/FastAstro.h"
#include "engine/NightSearch.h"
#include "engine/Temkin.h"
#include "tests/engine/Places.h"

#include <cmath>
#include <gtest/gtest.h>

namespace zorel {
namespace {

using testing::PlaceDay;
using testing::setUp;
using testing::timesOf;

const PlaceDay kIstanbul{
    .latitude = 41.0082, .longitude = 28.9784, .timeZone = 3.0, .year = 2024, .month = 4, .day = 17};

TEST(Temkin, ConstantFromSixtyDegrees) {
    EXPECT_EQ(temkinHours(60.7, true), 0.40555556615193683);
    EXPECT_EQ(temkinHours(-75.0, true), 0.40555556615193683);
    EXPECT_EQ(temkinHours(60.0, false), 0.3388888994852702);
}

TEST(Temkin, RowsAndTheirInterpolation) {
    EXPECT_NEAR(temkinHours(0.0, true) * 3600.0, 452.0, 1e-3);
    EXPECT_NEAR(temkinHours(47.0, true) * 3600.0, 744.0, 1e-3);
    EXPECT_NEAR(temkinHours(46.5, true) * 3600.0, 743.0, 1e-3);
    EXPECT_NEAR(temkinHours(41.25, false) * 3600.0, 551.0 + 0.25 * 13.0, 1e-3);
    EXPECT_NEAR(temkinHours(59.999, false) * 3600.0, 1220.0, 0.2);
}

TEST(Temkin, TheSouthTakesTheRowOfTheNorth) {
    for (int step = 0; step < 190; ++step) {
        const double latitude = 0.37 * step;
        EXPECT_EQ(temkinHours(-latitude, true), temkinHours(latitude, true));
    }
}

TEST(PrayerTimes, AgainstAlmanacTimesOfIstanbul) {
    const PrayerTimes t = timesOf(kIstanbul);
    // Almanac: transit 13:03:50, sunrise 06:21, sunset 19:47 (true horizon); moved apart by the temkin.
    const double temkin = temkinHours(41.0082, false);
    EXPECT_NEAR(t.times[PrayerTimes::noon] - temkin, 13.064, 0.01);
    EXPECT_NEAR(t.times[PrayerTimes::noon] - t.times[PrayerTimes::transitMinusTemkin], 2.0 * temkin, 1e-9);
    EXPECT_LT(t.times[PrayerTimes::sunrise], 6.35);
    EXPECT_GT(t.times[PrayerTimes::sunset], 19.78);
    EXPECT_FALSE(t.latitudeLowered || t.dawnFromOtherDay || t.nightfallFromOtherDay);
}

TEST(PrayerTimes, PartsOfTheNight) {
    const PrayerTimes t = timesOf(kIstanbul);
    const double night = 24.0 - (t.times[PrayerTimes::sunset] - t.times[PrayerTimes::dawn]);
    EXPECT_DOUBLE_EQ(t.times[PrayerTimes::lastSixthOfNight], t.times[PrayerTimes::dawn] - night / 6.0);
    EXPECT_DOUBLE_EQ(t.times[PrayerTimes::middleOfNight], t.times[PrayerTimes::sunset] + night / 2.0);
    EXPECT_DOUBLE_EQ(t.times[PrayerTimes::firstThirdOfNight], t.times[PrayerTimes::sunset] + night / 3.0);
}

TEST(PrayerTimes, DaylightSavingAddsOneHourWhateverTheShift) {
    PlaceDay winter = kIstanbul;
    PlaceDay summer = kIstanbul;
    summer.europeanRule = true;
    EXPECT_NEAR(timesOf(summer).times[2], timesOf(winter).times[2] + 1.0, 1e-9);
    FastAstro engine;
    engine.SetCurrentDate(17, 4, 2024);
    engine.SetPlace(41.0, 29.0, 2.0, 1, 2, 35, 9, 35, 2, 0);
    EXPECT_TRUE(engine.iPlace.dstActive);
    EXPECT_EQ(engine.iPlace.timeZone, 3.0);
    EXPECT_EQ(engine.iPlace.dstShift, 2.0);
    engine.SetPlace(41.0, 29.0, 2.0, 0, 2, 35, 9, 35, 2, 1);
    EXPECT_FALSE(engine.iPlace.dstActive || engine.iPlace.dstInUse);
    EXPECT_EQ(engine.iPlace.startDay, 0);
    EXPECT_EQ(engine.iPlace.dstShift, 0.0);
    EXPECT_TRUE(engine.iPlace.elevation);
}

TEST(PrayerTimes, MidsummerBeyondThePolarCircleLowersTheLatitude) {
    for (const double latitude : {67.0, 70.0, 78.2, 89.0}) {
        FastAstro engine;
        setUp(
            engine,
            {.latitude = latitude, .longitude = 25.0, .timeZone = 2.0, .year = 2024, .month = 6, .day = 21});
        const PrayerTimes t = engine.CalculatePrayTimes().today;
        EXPECT_TRUE(t.latitudeLowered);
        EXPECT_LE(t.priorLatitude, latitude);
        EXPECT_GE(t.priorLatitude, 66.0);
        EXPECT_NEAR(std::remainder(t.priorLatitude - latitude, 1.0), 0.0, 1e-9);
        EXPECT_EQ(t.times[PrayerTimes::qiblaTime], -1.0);
        EXPECT_EQ(engine.Lat, latitude) << "restored";
        EXPECT_GT(t.times[PrayerTimes::sunset], t.times[PrayerTimes::sunrise]);
    }
}

TEST(PrayerTimes, TheFarSouthStopsAtThePole) {
    const PrayerTimes t = timesOf(
        {.latitude = -78.0, .longitude = 166.7, .timeZone = 12.0, .year = 2024, .month = 12, .day = 21});
    EXPECT_TRUE(t.latitudeLowered);
    EXPECT_EQ(t.priorLatitude, -89.0);
    EXPECT_EQ(t.times[PrayerTimes::sunrise], -1.0);
    EXPECT_EQ(t.times[PrayerTimes::dawn], -1.0);
    EXPECT_EQ(t.times[PrayerTimes::nightfall], -1.0);
    EXPECT_EQ(t.times[PrayerTimes::secondNightfall], -1.0);
}

TEST(PrayerTimes, SummerDawnAtFiftyFiveDegreesIsOfTheLatestDayThatHasOne) {
    PlaceDay p{.latitude = 55.0, .longitude = 12.0, .timeZone = 1.0, .year = 2024, .month = 6, .day = 21};
    const PrayerTimes t = timesOf(p);
    EXPECT_TRUE(t.dawnFromOtherDay);
    EXPECT_TRUE(t.nightfallFromOtherDay);
    EXPECT_FALSE(t.latitudeLowered);
    // Walk back until a day has its own dawn: it is the same time.
    PrayerTimes earlier = t;
    const AstroGlobalFuncs calendar;
    for (int back = 1; earlier.dawnFromOtherDay && back < 100; ++back) {
        DateTimeRecord date;
        calendar.JulianToCalendar(calendar.CalculateJulianDay(2024, 6, 21, 0, 0, 0) - back, date, 1);
        p.month = date.month;
        p.day = date.day;
        earlier = timesOf(p);
    }
    EXPECT_FALSE(earlier.dawnFromOtherDay);
    EXPECT_EQ(t.times[PrayerTimes::dawn], earlier.times[PrayerTimes::dawn]);
    EXPECT_EQ(p.month, 5) << "sunk below 19 degrees for the last time in early May";
}

TEST(PrayerTimes, NextDayRollsOverMonthAndYear) {
    FastAstro engine;
    PlaceDay p = kIstanbul;
    p.month = 12;
    p.day = 31;
    setUp(engine, p);
    engine.CalculateNextPrayTimes();
    FastAstro newYear;
    setUp(newYear, {.latitude = p.latitude, .longitude = p.longitude, .timeZone = 3.0, .year = 2025});
    const PrayerTimes expected = newYear.CalculatePrayTimes().today;
    EXPECT_EQ(engine.iPlace.tomorrow.times, expected.times);
    EXPECT_EQ(engine.iPlace.today.times, PrayerTimes{}.times) << "today is not touched";
}

TEST(PrayerTimes, NextDayKeepsTodaysZone) {
    FastAstro engine;
    engine.SetCurrentDate(26, 10, 2024); // the eve of the clock change
    engine.SetPlace(41.0, 29.0, 2.0, 1, 2, 35, 9, 35, 1, 0);
    engine.CalculatePrayTimes();
    engine.CalculateNextPrayTimes();
    EXPECT_NEAR(engine.iPlace.tomorrow.times[2], engine.iPlace.today.times[2], 0.01);
}

TEST(PrayerTimes, UnwrittenFieldsKeepWhatTheyHeld) {
    FastAstro engine;
    setUp(engine, kIstanbul);
    engine.iPlace.today.times[PrayerTimes::unused] = 7.5;
    engine.iPlace.today.dawnFromOtherDay = true;
    engine.iPlace.today.latitudeLowered = true;
    engine.iPlace.today.priorLatitude = 12.0;
    const PrayerTimes t = engine.CalculatePrayTimes().today;
    EXPECT_EQ(t.times[PrayerTimes::unused], 7.5);
    EXPECT_TRUE(t.dawnFromOtherDay);
    EXPECT_FALSE(t.latitudeLowered) << "cleared at each computation";
    EXPECT_EQ(t.priorLatitude, 12.0);
}

TEST(Iteration, AResultBelowZeroGainsOneHour) {
    SunInfoForPray info;
    info.field[0] = info.field[2] = 10.0;
    const FastAstro engine;
    double time = 0.0;
    ASSERT_TRUE(engine.Iterasyon(40.0, 0.0, 0.0, 0.0, time, 0, -1, info));
    const double sunrise = time;
    ASSERT_TRUE(engine.Iterasyon(40.0, 0.0, 0.0, -sunrise - 0.25, time, 0, -1, info));
    EXPECT_NEAR(time, 0.75, 1e-6);
}

TEST(Iteration, AnEventThatDoesNotOccurIsNotANumberAndFalse) {
    SunInfoForPray info;
    info.field[0] = info.field[2] = 23.4;
    double time = 0.0;
    EXPECT_FALSE(FastAstro().Iterasyon(55.0, 0.0, 0.0, 0.0, time, -19, -1, info));
    EXPECT_TRUE(std::isnan(time));
}

TEST(Iteration, ShadowRulesAreBoundToTheNoonShadow) {
    SunInfoForPray info;
    info.field[0] = info.field[2] = 0.0;
    double time = 0.0;
    ASSERT_TRUE(FastAstro().Iterasyon(45.0, 0.0, 0.0, 0.0, time, 1, 1, info));
    // Noon shadow tan 45 = 1, so the shadow is 2 staffs: the altitude whose cotangent is 2.
    const double altitude = std::atan(0.5);
    const double hourAngle = std::acos(std::sin(altitude) / std::cos(M_PI / 4.0)) * 12.0 / M_PI;
    EXPECT_NEAR(time, 12.0 + hourAngle, 1e-5);
}

TEST(SunInformation, UnwrittenPositionsKeepWhatTheyHeld) {
    FastAstro engine;
    setUp(engine, kIstanbul);
    engine.SunInfo.field[1] = 5.0;
    engine.SunInfo.field[4] = 6.0;
    const SunInfoForPray info = engine.SunInformationForPray(17, 4, 2024);
    EXPECT_EQ(info.field[1], 5.0);
    EXPECT_EQ(info.field[4], 6.0);
    EXPECT_LT(info.declinationToday(), info.declinationTomorrow());
    EXPECT_GT(info.sunsetToday(), info.sunsetYesterday());
    EXPECT_LT(info.sunriseToday(), info.sunriseYesterday());
}

TEST(MinuteCorrection, RoundsAtThirtySecondsAndAddsOneSecond) {
    const FastAstro engine;
    double time = 5.375; // 5:22:30
    engine.MinuteCorrection(time);
    EXPECT_NEAR(time, 5.0 + 23.0 / 60.0 + 1.0 / 3600.0, 1e-6);
    time = 5.0 + 22.0 / 60.0 + 29.0 / 3600.0;
    engine.MinuteCorrection(time);
    EXPECT_NEAR(time, 5.0 + 22.0 / 60.0 + 1.0 / 3600.0, 1e-6);
    time = 23.0 + 59.0 / 60.0 + 45.0 / 3600.0;
    engine.MinuteCorrection(time);
    EXPECT_NEAR(time, 24.0 + 1.0 / 3600.0, 1e-6);
}

TEST(DaylightSavingShift, WrapsTheNightOnly) {
    PrayerTimes t;
    t.times.fill(12.0);
    t.times[2] = -1.0;
    t.times[4] = 23.5;
    t.times[13] = 3.0;
    t.times[14] = 23.5;
    t.times[15] = 22.0;
    t.ezani.fill(9.0);
    FastAstro().SetPrayTimesToDSTTimes(1.0, t);
    EXPECT_EQ(t.times[0], 13.0);
    EXPECT_EQ(t.times[2], -1.0);
    EXPECT_EQ(t.times[4], 24.5);
    EXPECT_EQ(t.times[13], 3.0);
    EXPECT_EQ(t.times[14], 0.5);
    EXPECT_EQ(t.times[15], 23.0);
    EXPECT_EQ(t.ezani[5], 9.0);
}

TEST(NightSearch, DeclinationIsCloseToTheEngines) {
    FastAstro engine;
    for (int step = 0; step < 7500; ++step) {
        const double day = 2086302.5 + 97.3 * step; // the years 1000 to 3000
        engine.SunDecRAAccurate(day);
        ASSERT_NEAR(roughDeclination(day), engine.SunDec, 0.06) << day;
    }
}

TEST(NightSearch, KnowsNothingOutsideItsYears) {
    EXPECT_EQ(daysSurelyWithout(1721425.5, 89.0, -19.0), 0);
    EXPECT_EQ(daysSurelyWithout(std::nan(""), 89.0, -19.0), 0);
    EXPECT_EQ(daysSurelyWithout(2460000.5, 120.0, -19.0), 0);
    EXPECT_GT(daysSurelyWithout(2460482.5, 60.0, -19.0), 10) << "midsummer 2024";
    EXPECT_EQ(daysSurelyWithout(2460482.5, 30.0, -19.0), 0);
}

} // namespace
} // namespace zorel
