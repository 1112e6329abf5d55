// SPDX-License-Identifier: Apache-2.0
// The times alone are those of the whole computation, to the last bit, and what they save is sure.
#include "engine/DayArc.h"
#include "engine/FastAstro.h"
#include "tests/engine/Places.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace zorel {
namespace {

using testing::anyPlaceDay;
using testing::PlaceDay;
using testing::Random;
using testing::setUp;

std::string text(const PlaceDay& p) {
    return std::to_string(p.latitude) + " " + std::to_string(p.longitude) + " zone " +
           std::to_string(p.timeZone) + " " + std::to_string(p.year) + "-" + std::to_string(p.month) + "-" +
           std::to_string(p.day);
}

/// The times and flags, as bits.
std::vector<std::uint64_t> bitsOf(const PrayerTimes& times) {
    std::vector<std::uint64_t> bits;
    for (const double value : times.times) {
        bits.push_back(std::bit_cast<std::uint64_t>(value));
    }
    bits.push_back(std::bit_cast<std::uint64_t>(times.priorLatitude));
    for (const bool flag : {times.latitudeLowered, times.dawnFromOtherDay, times.nightfallFromOtherDay,
                            times.secondNightfallFromOtherDay}) {
        bits.push_back(flag ? 1 : 0);
    }
    return bits;
}

class TimesOnly : public ::testing::Test {
protected:
    void expectSame(const PlaceDay& p) {
        setUp(engine_, p);
        engine_.iPlace.today = {};
        const std::vector<std::uint64_t> only = bitsOf(engine_.CalculatePrayTimesOnly());
        setUp(whole_, p);
        whole_.iPlace.today = {};
        ASSERT_EQ(only, bitsOf(whole_.CalculatePrayTimes().today)) << text(p);
    }
    FastAstro engine_;
    FastAstro whole_;
};

TEST_F(TimesOnly, RandomPlacesAndDaysHaveTheSameBits) {
    Random random(21);
    for (int i = 0; i < 5000; ++i) {
        expectSame(anyPlaceDay(random, 62.0));
    }
}

TEST_F(TimesOnly, HighLatitudesHaveTheSameBits) {
    Random random(22);
    for (int i = 0; i < 400; ++i) {
        PlaceDay p = anyPlaceDay(random);
        p.latitude = std::copysign(random.between(45.0, 90.0), p.latitude);
        expectSame(p);
    }
}

TEST_F(TimesOnly, ConsecutiveDaysHaveTheSameBits) {
    for (const double latitude : {-33.4, 0.0, 21.42, 41.0, 55.75, 64.15}) {
        PlaceDay p{.latitude = latitude, .longitude = 28.97, .timeZone = 3.0, .year = 2027};
        for (p.month = 1; p.month <= 12; ++p.month) {
            for (p.day = 1; p.day <= 28; ++p.day) {
                expectSame(p);
            }
        }
    }
}

TEST_F(TimesOnly, ClocksOfAnyHourHaveTheSameBits) {
    Random random(23);
    for (int i = 0; i < 5000; ++i) {
        PlaceDay p = anyPlaceDay(random, 66.0);
        p.timeZone = random.whole(-16, 16) + (i % 3 == 0 ? 0.75 : 0.0);
        expectSame(p);
    }
}

TEST_F(TimesOnly, PlacesThatAreNoneHaveTheSameBits) {
    for (const double nowhere : {91.0, -400.0, 1e300, std::numeric_limits<double>::infinity(),
                                 std::numeric_limits<double>::quiet_NaN()}) {
        expectSame({.latitude = nowhere, .longitude = 28.97, .timeZone = 3.0});
        expectSame({.latitude = 41.0, .longitude = nowhere, .timeZone = 3.0});
        expectSame({.latitude = 41.0, .longitude = 28.97, .timeZone = nowhere});
    }
    expectSame({.latitude = 41.0, .timeZone = 3.0, .year = 2147483647});
    expectSame({.latitude = 41.0, .year = -2147483647, .month = 2147483647, .day = -2147483647});
}

TEST_F(TimesOnly, WithoutMemoryTheyAreTheSame) {
    engine_.RememberSun(false);
    Random random(24);
    for (int i = 0; i < 200; ++i) {
        expectSame(anyPlaceDay(random, 58.0));
    }
}

TEST_F(TimesOnly, LeavesTheSunsetClockAndTheUnusedPosition) {
    setUp(engine_, {.latitude = 41.0, .longitude = 28.97, .timeZone = 3.0});
    engine_.iPlace.today.ezani.fill(7.0);
    engine_.iPlace.today.times[PrayerTimes::unused] = 5.0;
    const PrayerTimes& times = engine_.CalculatePrayTimesOnly();
    EXPECT_EQ(&times, &engine_.iPlace.today);
    EXPECT_EQ(times.times[PrayerTimes::unused], 5.0);
    for (const double hours : times.ezani) {
        EXPECT_EQ(hours, 7.0);
    }
    EXPECT_EQ(engine_.iPlace.qibla.q1, FastAstro().KibleAcisi(41.0, 28.97).q1);
}

TEST(SunPositions, AreThoseOfTheWholeInformation) {
    Random random(25);
    for (int i = 0; i < 200; ++i) {
        FastAstro engine;
        const PlaceDay p = anyPlaceDay(random);
        setUp(engine, p);
        engine.SunInfo.field.fill(99.0);
        const SunInfoForPray positions = engine.SunPositionsForPray(p.day, p.month, p.year);
        const SunInfoForPray whole = engine.SunInformationForPray(p.day, p.month, p.year);
        for (const std::size_t at : {0U, 2U, 3U, 5U}) {
            ASSERT_EQ(positions.field[at], whole.field[at]) << text(p);
        }
        for (const std::size_t at : {1U, 4U, 6U, 7U, 8U, 9U}) {
            ASSERT_EQ(positions.field[at], 99.0);
        }
    }
}

/// Whether rise and set of the day before are claimed.
bool isSure(FastAstro& engine, const PlaceDay& p) {
    const double midnight = engine.astroGlobalFuncs.CalculateJulianDay(p.year, p.month, p.day, 0, 0, 0);
    return surelyRoseAndSetDayBefore(midnight, engine.SunPositionsForPray(p.day, p.month, p.year),
                                     {p.latitude, p.longitude, p.timeZone});
}

/// Whether the plain search finds both.
bool isFound(FastAstro& engine, const PlaceDay& p) {
    engine.SetLatLon(p.latitude, p.longitude);
    engine.iPlace.timeZone = p.timeZone;
    const SunInfoForPray info = engine.SunInformationForPray(p.day, p.month, p.year);
    return info.sunriseYesterday() != kNoSolarEvent && info.sunsetYesterday() != kNoSolarEvent;
}

TEST(DayArc, ClaimsOnlyWhatTheSearchFinds) {
    Random random(26);
    FastAstro engine;
    int sure = 0;
    int missing = 0;
    for (int i = 0; i < 40000; ++i) {
        PlaceDay p = anyPlaceDay(random, i % 2 == 0 ? 70.0 : 90.0);
        p.timeZone = random.whole(-15, 15) + random.between(-0.9, 0.9);
        const bool found = isFound(engine, p);
        if (isSure(engine, p)) {
            ASSERT_TRUE(found) << text(p);
            ++sure;
        }
        missing += found ? 0 : 1;
    }
    EXPECT_GT(sure, 20000);
    EXPECT_GT(missing, 2000) << "the search must have something to miss";
}

TEST(DayArc, IsSureOfNearlyAllOrdinaryDays) {
    Random random(27);
    FastAstro engine;
    int sure = 0;
    for (int i = 0; i < 1000; ++i) {
        sure += isSure(engine, anyPlaceDay(random, 50.0)) ? 1 : 0;
    }
    EXPECT_GT(sure, 990);
}

/// At the equator the Sun rises at 6 h of mean time: by a clock six hours behind, at midnight.
TEST(DayArc, IsNotSureWhereMidnightIsAtTheHorizon) {
    FastAstro engine;
    PlaceDay p{.year = 2027, .month = 3, .day = 21};
    EXPECT_TRUE(isSure(engine, p));
    p.timeZone = -6.0;
    EXPECT_FALSE(isSure(engine, p));
    p.timeZone = 6.0;
    EXPECT_FALSE(isSure(engine, p));
    p.timeZone = 7.0;
    EXPECT_TRUE(isSure(engine, p));
}

TEST(DayArc, IsNotSureOfPolarDaysAndNights) {
    FastAstro engine;
    EXPECT_FALSE(isSure(engine, {.latitude = 70.0, .year = 2027, .month = 6, .day = 21}));
    EXPECT_FALSE(isSure(engine, {.latitude = 70.0, .year = 2027, .month = 12, .day = 21}));
    EXPECT_TRUE(isSure(engine, {.latitude = 70.0, .year = 2027, .month = 3, .day = 21}));
}

TEST(DayArc, IsNeverSureOutsideItsReach) {
    FastAstro engine;
    const PlaceDay istanbul{.latitude = 41.0, .longitude = 28.97, .timeZone = 3.0};
    EXPECT_TRUE(isSure(engine, istanbul));
    const auto with = [&](auto change) {
        PlaceDay p = istanbul;
        change(p);
        return isSure(engine, p);
    };
    constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
    for (const double value : {95.0, -95.0, kNoNumber}) {
        EXPECT_FALSE(with([&](PlaceDay& p) { p.latitude = value; })) << value;
    }
    for (const double value : {181.0, -181.0, kNoNumber}) {
        EXPECT_FALSE(with([&](PlaceDay& p) { p.longitude = value; })) << value;
    }
    for (const double value : {16.0, -16.0, kNoNumber}) {
        EXPECT_FALSE(with([&](PlaceDay& p) { p.timeZone = value; })) << value;
    }
    for (const std::int32_t year : {-44, 1066, 1582, 3000, 9000}) {
        EXPECT_FALSE(with([&](PlaceDay& p) { p.year = year; })) << year;
    }
}

} // namespace
} // namespace zorel
