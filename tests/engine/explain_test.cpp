// SPDX-License-Identifier: Apache-2.0
#include "engine/FastAstro.h"
#include "engine/Temkin.h"
#include "tests/engine/Places.h"

#include <gtest/gtest.h>

namespace zorel {
namespace {

using testing::PlaceDay;
using testing::setUp;

const PlaceDay kIstanbul{
    .latitude = 41.0082, .longitude = 28.9784, .timeZone = 3.0, .year = 2024, .month = 4, .day = 17};
const PlaceDay kCopenhagen{
    .latitude = 55.7, .longitude = 12.6, .timeZone = 1.0, .year = 2024, .month = 6, .day = 21};

PrayTimeExplanation explain(const PlaceDay& p, int index) {
    FastAstro engine;
    setUp(engine, p);
    return engine.ExplainPrayTime(index);
}

TEST(Explain, GivesTheTimesThemselves) {
    testing::Random random(11);
    for (int i = 0; i < 40; ++i) {
        const PlaceDay p = testing::anyPlaceDay(random);
        FastAstro engine;
        setUp(engine, p);
        const PrayerTimes t = engine.CalculatePrayTimes().today;
        for (int index = 0; index < 16; ++index) {
            if (index == PrayerTimes::unused) {
                continue;
            }
            const PrayTimeExplanation why = engine.ExplainPrayTime(index);
            ASSERT_EQ(why.time, t.times[static_cast<std::size_t>(index)]) << index;
            ASSERT_EQ(why.occurs, why.time != -1.0);
            ASSERT_EQ(why.latitudeLowered, t.latitudeLowered);
        }
    }
}

TEST(Explain, AnAltitudeRule) {
    const PrayTimeExplanation why = explain(kIstanbul, PrayerTimes::sunrise);
    EXPECT_EQ(why.rule, PrayTimeRule::altitude);
    EXPECT_EQ(why.targetAltitude, 0.0);
    EXPECT_TRUE(why.morning);
    EXPECT_EQ(why.temkin, -temkinHours(kIstanbul.latitude, false));
    EXPECT_NEAR(why.addition * 3600.0, -50.0, 1e-3);
    EXPECT_GE(why.rounds, 2);
    EXPECT_TRUE(why.converged);
    EXPECT_EQ(why.daysBack, 0);
    EXPECT_EQ(why.date, (DateTimeRecord{2024, 4, 17, 0, 0, 0, 0.0}));
    EXPECT_EQ(why.latitude, kIstanbul.latitude);
    EXPECT_NEAR(explain(kIstanbul, PrayerTimes::sunset).addition * 60.0, 3.0, 1e-3);
    EXPECT_EQ(explain(kIstanbul, PrayerTimes::nightfall).targetAltitude, -17.0);
    EXPECT_EQ(explain(kIstanbul, PrayerTimes::afternoonFiveDegrees).temkin, 0.0);
}

TEST(Explain, AShadowRule) {
    const PrayTimeExplanation first = explain(kIstanbul, PrayerTimes::afternoon);
    const PrayTimeExplanation second = explain(kIstanbul, PrayerTimes::secondAfternoon);
    EXPECT_EQ(first.rule, PrayTimeRule::shadow);
    EXPECT_EQ(first.shadowFactor, 1);
    EXPECT_EQ(second.shadowFactor, 2);
    EXPECT_GT(first.targetAltitude, second.targetAltitude);
    EXPECT_GT(second.targetAltitude, 15.0);
    EXPECT_FALSE(first.morning);
}

TEST(Explain, TransitNightAndQibla) {
    const double temkin = temkinHours(kIstanbul.latitude, false);
    EXPECT_EQ(explain(kIstanbul, PrayerTimes::noon).rule, PrayTimeRule::transit);
    EXPECT_EQ(explain(kIstanbul, PrayerTimes::noon).temkin, temkin);
    EXPECT_EQ(explain(kIstanbul, PrayerTimes::transitMinusTemkin).temkin, -temkin);
    EXPECT_EQ(explain(kIstanbul, PrayerTimes::noon).rounds, 0);
    const PrayTimeExplanation night = explain(kIstanbul, PrayerTimes::lastSixthOfNight);
    EXPECT_EQ(night.rule, PrayTimeRule::partOfNight);
    EXPECT_NEAR(night.partOfNight, -1.0 / 6.0, 1e-12);
    EXPECT_EQ(night.nightFrom, PrayerTimes::dawn);
    EXPECT_EQ(explain(kIstanbul, PrayerTimes::middleOfNight).nightFrom, PrayerTimes::sunset);
    EXPECT_EQ(explain(kIstanbul, PrayerTimes::qiblaTime).rule, PrayTimeRule::qibla);
}

TEST(Explain, WhatIsNotATimeHasNoRule) {
    for (const int index : {-1, 13, 16, 1000}) {
        const PrayTimeExplanation why = explain(kIstanbul, index);
        EXPECT_EQ(why.rule, PrayTimeRule::none);
        EXPECT_FALSE(why.occurs);
    }
}

TEST(Explain, ATimeFromAnEarlierDaySaysWhichOne) {
    const PrayTimeExplanation dawn = explain(kCopenhagen, PrayerTimes::dawn);
    EXPECT_GT(dawn.daysBack, 30);
    const AstroGlobalFuncs calendar;
    EXPECT_EQ(calendar.CalculateJulianDay(2024, 6, 21, 0, 0, 0) - calendar.JulianDay(dawn.date),
              dawn.daysBack);
    const PrayTimeExplanation sunrise = explain(kCopenhagen, PrayerTimes::sunrise);
    EXPECT_EQ(sunrise.daysBack, 0) << "the searches do not move the other times";
    const PrayTimeExplanation second = explain(kCopenhagen, PrayerTimes::secondNightfall);
    EXPECT_EQ(explain(kCopenhagen, PrayerTimes::afternoonFiveDegrees).daysBack, second.daysBack)
        << "what follows the last search stays on its date";
}

TEST(Explain, ALoweredDayTellsTheLatitude) {
    const PlaceDay tromso{
        .latitude = 69.65, .longitude = 18.96, .timeZone = 1.0, .year = 2024, .month = 6, .day = 21};
    const PrayTimeExplanation why = explain(tromso, PrayerTimes::sunset);
    EXPECT_TRUE(why.latitudeLowered);
    EXPECT_LT(why.latitude, 67.0);
    EXPECT_NEAR(why.latitude, 69.65 - 4.0, 1.01);
}

TEST(Explain, DoesNotTouchTheEngine) {
    FastAstro engine;
    setUp(engine, kCopenhagen);
    const PlaceRecord before = engine.CalculatePrayTimes();
    const double declination = engine.SunDec;
    (void)engine.ExplainPrayTime(PrayerTimes::dawn);
    EXPECT_EQ(engine.iPlace.today, before.today);
    EXPECT_EQ(engine.SunDec, declination);
    EXPECT_EQ(engine.Lat, kCopenhagen.latitude);
}

TEST(Explain, AnotherDate) {
    FastAstro engine;
    setUp(engine, kIstanbul);
    engine.CalculateNextPrayTimes();
    const PrayTimeExplanation tomorrow =
        engine.ExplainPrayTime(PrayerTimes::dawn, {2024, 4, 18, 0, 0, 0, 0.0});
    EXPECT_EQ(tomorrow.time, engine.iPlace.tomorrow.times[PrayerTimes::dawn]);
    EXPECT_EQ(tomorrow.date.day, 18);
}

TEST(Explain, GivesAllTimesAndReasonsOfOneComputation) {
    testing::Random random(12);
    for (int i = 0; i < 40; ++i) {
        FastAstro engine;
        setUp(engine, testing::anyPlaceDay(random));
        const ExplainedPrayTimes all = engine.CalculateExplainedPrayTimes();
        EXPECT_EQ(all.times.times, engine.CalculatePrayTimes().today.times); // `ezani` may hold not-a-number
        for (int index = 0; index < 16; ++index) {
            const PrayTimeExplanation& why = all.explanations[static_cast<std::size_t>(index)];
            const PrayTimeExplanation alone = engine.ExplainPrayTime(index);
            ASSERT_EQ(why.time, alone.time) << index;
            ASSERT_EQ(why.rule, alone.rule);
            ASSERT_EQ(why.date, alone.date);
            ASSERT_EQ(why.daysBack, alone.daysBack);
            ASSERT_EQ(why.temkin, alone.temkin);
            ASSERT_EQ(why.rounds, alone.rounds);
        }
    }
}

TEST(Explain, CountsAllTimesFromMidnightOfTheCurrentDate) {
    FastAstro engine;
    setUp(engine, kCopenhagen);
    const PrayerTimes atMidnight = engine.CalculateExplainedPrayTimes().times;
    engine.iCurrentDate.hour = 13;
    engine.iCurrentDate.second = 5;
    EXPECT_EQ(engine.CalculateExplainedPrayTimes().times, atMidnight);
}

} // namespace
} // namespace zorel
