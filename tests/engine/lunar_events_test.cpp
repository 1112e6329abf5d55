// SPDX-License-Identifier: Apache-2.0
// Rise, set, transit and phases of the Moon, and the records that carry them.
#include "engine/FastAstro.h"
#include "engine/MoonDayScan.h"
#include "tests/engine/Places.h"
#include "tests/engine/Steps.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>

namespace zorel {
namespace {

FastAstro engineIn(double latitude, double longitude, double timeZone) {
    FastAstro engine;
    engine.SetPlace(latitude, longitude, timeZone, 0, 0, 0, 0, 0, 0, 0);
    return engine;
}

/// The search as it is defined, without leaving any hour out.
void plainSearch(FastAstro& engine, double& event, const DateTimeRecord& date) {
    event = kNoLunarEvent;
    const int zone = static_cast<int>(engine.iPlace.timeZone);
    for (int hour = 1 - zone; hour < 24 - zone && event == kNoLunarEvent; ++hour) {
        engine.MoonRiseSet(date.day, date.month, date.year, hour);
    }
}

std::uint64_t bits(double x) {
    return std::bit_cast<std::uint64_t>(x);
}

void expectSameFields(const FastAstro& a, const FastAstro& b) {
    EXPECT_EQ(bits(a.MoonRise), bits(b.MoonRise));
    EXPECT_EQ(bits(a.MoonSet), bits(b.MoonSet));
    EXPECT_EQ(bits(a.MoonDec), bits(b.MoonDec));
    EXPECT_EQ(bits(a.MoonRA), bits(b.MoonRA));
    EXPECT_EQ(bits(a.MoonGHA), bits(b.MoonGHA));
    EXPECT_EQ(bits(a.L_Moon), bits(b.L_Moon));
    EXPECT_EQ(bits(a.B_Moon), bits(b.B_Moon));
    EXPECT_EQ(bits(a.YE), bits(b.YE));
}

void compareSearches(double latitude, double longitude, double timeZone, const DateTimeRecord& date) {
    FastAstro quick = engineIn(latitude, longitude, timeZone);
    FastAstro plain = quick;
    quick.MoonRiseTime(date.day, date.month, date.year);
    plainSearch(plain, plain.MoonRise, date);
    expectSameFields(quick, plain);
    quick.MoonSetTime(date.day, date.month, date.year);
    plainSearch(plain, plain.MoonSet, date);
    expectSameFields(quick, plain);
}

TEST(MoonSearch, LeavingHoursOutChangesNoBit) {
    testing::Random random(41);
    for (int i = 0; i < 1500 && !::testing::Test::HasFailure(); ++i) {
        const double longitude = random.between(-180.0, 180.0);
        const DateTimeRecord date{random.whole(1600, 2400), random.whole(1, 12), random.whole(1, 31)};
        compareSearches(random.between(-90.0, 90.0), longitude,
                        std::trunc(longitude / 15.0) + random.whole(-1, 1), date);
    }
}

TEST(MoonSearch, LeavingHoursOutChangesNoBitAtTheEdges) {
    for (const double latitude : {-90.0, -66.5, 0.0, 61.7, 89.999, 90.0}) {
        for (const std::int32_t year : {-4000, 0, 1582, 1583, 9999}) {
            for (std::int32_t day = 1; day <= 31; day += 3) {
                compareSearches(latitude, -179.9, 14.0, {year, 10, day});
            }
        }
    }
    compareSearches(40.0, 0.0, 30.0, {2026, 3, 1}); // beyond one day: nothing is left out
    compareSearches(std::nan(""), 0.0, 0.0, {2026, 3, 1});
}

TEST(MoonSearch, OneSearchObjectServesManyPlacesAndDays) {
    FastAstro engine;
    testing::Random random(5);
    for (int i = 0; i < 100; ++i) {
        const double latitude = random.between(-60.0, 60.0);
        const double longitude = random.between(-180.0, 180.0);
        const DateTimeRecord date{random.whole(2000, 2001), random.whole(1, 12), random.whole(1, 28)};
        engine.SetPlace(latitude, longitude, 0.0, 0, 0, 0, 0, 0, 0, 0);
        engine.MoonRiseTime(date.day, date.month, date.year);
        FastAstro fresh = engineIn(latitude, longitude, 0.0);
        fresh.MoonRiseTime(date.day, date.month, date.year);
        ASSERT_EQ(bits(engine.MoonRise), bits(fresh.MoonRise));
    }
}

TEST(MoonSearch, MostHoursAreLeftOut) {
    FastAstro engine = engineIn(41.0, 29.0, 3.0);
    MoonDayScan scan;
    int evaluated = 0;
    for (std::int32_t day = 1; day <= 28; ++day) {
        scan.prepare(engine, 2026, 6, day, -2);
        for (int i = 0; i < MoonDayScan::kHours; ++i) {
            evaluated += scan.mayHoldEvent(i) ? 1 : 0;
        }
    }
    EXPECT_LT(evaluated, 28 * 7);
    EXPECT_GE(evaluated, 28 * 2); // each event lies in one hour at least
}

TEST(MoonSearch, ADayWithoutRiseLeavesTheSentinel) {
    int without = 0;
    FastAstro engine = engineIn(41.0, 29.0, 3.0);
    for (std::int32_t day = 1; day <= 31; ++day) {
        engine.MoonRiseTime(day, 1, 2026);
        without += engine.MoonRise == kNoLunarEvent ? 1 : 0;
    }
    EXPECT_GE(without, 1);
    EXPECT_LE(without, 4);
}

TEST(MoonSearch, LocalTimeConversionShiftsEvenTheSentinel) {
    FastAstro engine = engineIn(41.0, 29.0, 3.0);
    DateTimeRecord date{2026, 1, 1};
    do {
        engine.MoonRiseTime(date.day, 1, 2026);
    } while (engine.MoonRise != kNoLunarEvent && ++date.day < 32);
    ASSERT_EQ(engine.MoonRise, kNoLunarEvent);
    MoonDirectionInfo info;
    engine.MoonInformationForDirection({2026, 1, date.day, 12, 0, 0}, info);
    EXPECT_EQ(info.rise, -1647.0);
    engine.MoonInformationForDirectionWithoutLocalTime({2026, 1, date.day, 12, 0, 0}, info);
    EXPECT_EQ(info.rise, kNoLunarEvent);
}

TEST(MoonSearch, AnEventLiesWithinAnHourOfItsHour) {
    testing::Random random(11);
    int found = 0;
    for (int i = 0; i < 400; ++i) {
        FastAstro engine = engineIn(random.between(-60.0, 60.0), random.between(-180.0, 180.0), 0.0);
        const std::int32_t hour = random.whole(-3, 26);
        engine.MoonRise = engine.MoonSet = kNoLunarEvent;
        engine.MoonRiseSet(15, 6, 2026, hour);
        const double normalised = hour < 0 ? hour + 24.0 : (hour >= 24 ? hour - 24.0 : hour);
        for (const double event : {engine.MoonRise, engine.MoonSet}) {
            if (event != kNoLunarEvent) {
                ++found;
                ASSERT_LE(std::fabs(event - normalised), 1.0);
            }
        }
    }
    EXPECT_GT(found, 20);
}

TEST(MoonSearch, TheFirstHourReachesBackBeforeLocalMidnight) {
    FastAstro engine = engineIn(41.0, 29.0, 3.0);
    double earliest = 100.0;
    for (std::int32_t day = 0; day < 400; ++day) {
        engine.MoonRiseTime(1 + day, 1, 2025);
        if (engine.MoonRise != kNoLunarEvent && engine.MoonRise > 21.0) {
            earliest = std::min(earliest, engine.MoonRise); // hours 22 and 23 of the UT day before
        }
    }
    EXPECT_LT(earliest, 22.0); // 21.x is before local midnight, which is 21 h of universal time
}

TEST(MoonSearch, ParabolasWithoutCurvatureOrCrossingHaveNoEvents) {
    FastAstro engine;
    EXPECT_EQ(engine.Quad(0.5, 0.5, 0.5), 0);
    EXPECT_TRUE(std::isnan(engine.YE));
    EXPECT_EQ(engine.Quad(0.2, 0.3, 0.28), 0);
    EXPECT_EQ(engine.Quad(-0.2, -0.3, -0.28), 0);
    EXPECT_EQ(engine.Quad(-0.2, 0.3, 0.1), 1);
    EXPECT_EQ(engine.Quad(-0.2, -0.2, 0.1), 2);
}

TEST(MoonSearch, SiderealTimesOfBothAltitudeSinesAgree) {
    FastAstro engine;
    engine.SetLatLon(41.0, 29.0);
    for (const double julianDay : testing::steps(2451545.0, 2460000.0, 333.3)) {
        EXPECT_NEAR(engine.SinElev2(julianDay, 41.0, -29.0, 10.0, 5.0),
                    engine.SinElev(julianDay, 41.0, -29.0, 10.0, 5.0), 1e-4);
        // The longitude argument has no part in it.
        EXPECT_EQ(engine.SinElev2(julianDay, 41.0, 77.0, 10.0, 5.0),
                  engine.SinElev2(julianDay, 41.0, -29.0, 10.0, 5.0));
    }
}

TEST(MoonTransit, IsTheSameHourAlways) {
    for (const double latitude : {-80.0, 0.0, 41.0}) {
        FastAstro engine = engineIn(latitude, 29.0, 3.0);
        EXPECT_DOUBLE_EQ(engine.MoonTransTime(15, 6, 2026), 25.0 + 1.0 / 60.0);
        MoonInfo moon;
        engine.MoonRiseSetTrans({2026, 6, 15}, moon);
        EXPECT_DOUBLE_EQ(moon.transit, 25.0 + 1.0 / 60.0);
        EXPECT_EQ(moon.rise, engine.MoonRise);
        EXPECT_EQ(moon.set, engine.MoonSet);
    }
}

TEST(MoonTransit, LeavesTheAltitudeOfTheLastMinute) {
    FastAstro engine = engineIn(41.0, 29.0, 3.0);
    engine.MoonTransTime(15, 6, 2026);
    const double left = engine.MoonAlt; // of 25.0166... hours, split by truncation
    EXPECT_EQ(left,
              engine.MoonTrueAltitude(engine.astroGlobalFuncs.CalculateJulianDay(2026, 6, 15, 1, 0, 59)));
}

TEST(MoonPhases, IlluminationFollowsTheElongation) {
    FastAstro engine;
    for (const double julianDay : testing::steps(2305447.5, 2597641.5, 311.1)) { // 1600 to 2400
        const double lit = engine.Phase((julianDay - 2451545.0) / 36525.0);
        const double elongation = engine.MoonElongation(julianDay);
        ASSERT_GE(lit, 0.0);
        ASSERT_LE(lit, 1.0);
        ASSERT_GE(elongation, 0.0);
        ASSERT_LE(elongation, 180.0 + 1e-5);
        ASSERT_NEAR(lit, (1.0 - std::cos(elongation * 0.0174532925)) / 2.0, 0.01) << julianDay;
    }
}

TEST(MoonPhases, DegreesAreReducedThroughSinglePrecision) {
    const FastAstro engine;
    EXPECT_EQ(engine.ToDeg(-30.0), 330.0);
    EXPECT_EQ(engine.ToDeg(725.0), 5.0);
    EXPECT_EQ(engine.ToDeg(359.9), 359.9);
    EXPECT_EQ(engine.ToDeg(0.0), 0.0);
}

constexpr double kEpochFraction = 0.09765; // [day] what the engine's epoch leaves out

// Meeus, examples 47.a and 47.b, less the fraction of the epoch.
TEST(MoonPhases, NewMoonOfFebruary1977AndLastQuarterOfJanuary2044) {
    const FastAstro engine;
    EXPECT_NEAR(engine.MoonPhaze(1977.13, 0), 2443192.65118 - kEpochFraction, 1e-3);
    EXPECT_NEAR(engine.MoonPhaze(2044.04, 3), 2467636.49186 - kEpochFraction, 1e-3);
}

TEST(MoonPhases, FullMoonOfJanuary2000) {
    EXPECT_NEAR(FastAstro{}.MoonPhaze(2000.0, 1), 2451564.6955 - kEpochFraction, 1e-3); // 21 January, 4:40 UT
}

TEST(MoonPhases, PhasesFollowEachOther) {
    const FastAstro engine;
    for (const double year : testing::steps(1600.02, 2400.0, 0.731)) {
        const double newMoon = engine.MoonPhaze(year, 0);
        ASSERT_NEAR(engine.MoonPhaze(year, 2) - newMoon, 7.4, 1.1) << year;
        ASSERT_NEAR(engine.MoonPhaze(year, 1) - newMoon, 14.77, 1.1) << year;
        ASSERT_NEAR(engine.MoonPhaze(year, 3) - newMoon, 22.1, 1.1) << year;
    }
}

TEST(MoonPhases, UnknownCodesAreTheMeanNewMoon) {
    const FastAstro engine;
    EXPECT_EQ(engine.MoonPhaze(2026.5, 4), engine.MoonPhaze(2026.5, -1));
    EXPECT_NEAR(engine.MoonPhaze(2026.5, 4), engine.MoonPhaze(2026.5, 0), 0.7);
    EXPECT_NE(engine.MoonPhaze(2026.5, 4), engine.MoonPhaze(2026.5, 0));
}

TEST(MoonPhases, BeforeTheEpochTheNearestLunationIsTaken) {
    const FastAstro engine;
    // A tenth of a lunation before k = -3, and six tenths before it.
    const double lunation = 1.0 / 12.3685;
    EXPECT_EQ(engine.MoonPhaze(2000.0 - 3.1 * lunation, 0), engine.MoonPhaze(2000.0 - 3.4 * lunation, 0));
    EXPECT_LT(engine.MoonPhaze(2000.0 - 3.6 * lunation, 0),
              engine.MoonPhaze(2000.0 - 3.4 * lunation, 0) - 29.0);
}

TEST(MoonRecord, AgreesWithItsParts) {
    FastAstro engine;
    const MoonInfo moon = engine.MoonInformation({2026, 6, 15, 18, 30, 0}, 41.0082, 28.9784);
    EXPECT_EQ(engine.Lat, 41.0082);
    const double julianDay = engine.astroGlobalFuncs.CalculateJulianDay(2026, 6, 15, 18, 30, 0);
    EXPECT_EQ(moon.geocentricAltitude, engine.MoonTrueAltitude(julianDay));
    EXPECT_EQ(moon.elongation, engine.MoonElongation(julianDay));
    EXPECT_NEAR(moon.horizontalParallax, 0.95, 0.1);
    EXPECT_NEAR(moon.semiDiameter / moon.horizontalParallax, 0.2725, 0.001);
    EXPECT_EQ(moon.illuminated, std::round(moon.illuminated));
    EXPECT_NEAR(moon.illuminated, engine.Phase((julianDay - 2451545.0) / 36525.0) * 100.0, 0.5);
    EXPECT_TRUE(moon.waxing); // new moon on the 15th, a little earlier
    EXPECT_GE(moon.siderealTime, 0.0);
    EXPECT_LT(moon.siderealTime, 24.0);
}

TEST(MoonRecord, WaxesFromNewToFull) {
    FastAstro engine;
    EXPECT_TRUE(engine.MoonInformation({2026, 6, 22, 0, 0, 0}, 41.0, 29.0).waxing);
    EXPECT_FALSE(engine.MoonInformation({2026, 7, 7, 0, 0, 0}, 41.0, 29.0).waxing);
}

TEST(MoonRecord, KeepsTheEventsOfAnEarlierSearch) {
    FastAstro engine = engineIn(41.0, 29.0, 3.0);
    engine.MoonRiseSetTrans({2026, 6, 20}, engine.Moon);
    const double rise = engine.Moon.rise;
    EXPECT_EQ(engine.MoonInformation({2026, 6, 20, 12, 0, 0}, 41.0, 29.0).rise, rise);
}

TEST(MoonRecord, DirectionLeavesTheCallersFields) {
    FastAstro engine = engineIn(41.0, 29.0, 3.0);
    MoonDirectionInfo info;
    info.untouched = {1.0, 2.0, 3.0, 4.0};
    engine.MoonInformationForDirection({2026, 6, 20, 12, 0, 0}, info);
    EXPECT_EQ(info.untouched, (std::array<double, 4>{1.0, 2.0, 3.0, 4.0}));
    EXPECT_GT(info.elongation, 0.0);
    MoonDirectionInfo raw;
    engine.MoonInformationForDirectionWithoutLocalTime({2026, 6, 20, 12, 0, 0}, raw);
    EXPECT_DOUBLE_EQ(info.rise, raw.rise + 3.0);
    EXPECT_DOUBLE_EQ(info.set, raw.set + 3.0);
    EXPECT_EQ(info.azimuth, raw.azimuth);
}

TEST(MoonRecord, CrescentRecordCopiesTheDistanceTheEngineHolds) {
    FastAstro engine = engineIn(41.0, 29.0, 3.0);
    engine.MoonDist = 123.0;
    MoonCrescentInfo info;
    info.untouched = {7.0, 8.0};
    engine.MoonInformationforCrescent({2026, 6, 20, 12, 0, 0}, engine.iPlace, info);
    EXPECT_EQ(engine.Moon.distance, 123.0);
    EXPECT_EQ(info.untouched, (std::array<double, 2>{7.0, 8.0}));
    EXPECT_EQ(info.apparentAltitude, engine.MoonAppAltitude({2026, 6, 20, 12, 0, 0}));
    EXPECT_GE(engine.SRT, 0.0);
}

} // namespace
} // namespace zorel
