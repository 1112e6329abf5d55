// SPDX-License-Identifier: Apache-2.0
// The edges of the engine's small parts: exact turns, the calendar change, numbers out of range, place after
// place.
#include "engine/Angles.h"
#include "engine/FastAstro.h"
#include "engine/MagneticVariation.h"
#include "engine/MoonDay.h"
#include "engine/Single.h"
#include "engine/Turns.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace zorel {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(Angles, AClosedTurnKeepsItsEnd) {
    EXPECT_EQ(intoClosedTurn(0.0), 0.0);
    EXPECT_EQ(intoClosedTurn(-360.0), 0.0);
    EXPECT_EQ(intoClosedTurn(360.0), 360.0);
    EXPECT_EQ(intoClosedTurn(720.0), 360.0);
    EXPECT_EQ(intoClosedTurn(361.5), 1.5);
    EXPECT_EQ(intoClosedTurn(-0.5), 359.5);
}

TEST(Angles, WholeNegativeTurnsBecomeZero) {
    EXPECT_EQ(addWhileNegative(-48.0, 24.0), 0.0);
    EXPECT_EQ(addWhileNegative(-1.0, 24.0), 23.0);
    EXPECT_EQ(addWhileNegative(-49.5, 24.0), 22.5);
    EXPECT_EQ(addWhileNegative(25.0, 24.0), 25.0);
}

TEST(SinglePrecision, HugeArgumentsGoToTheLibrary) {
    for (const double x : {2.9e6, -2.9e6, 3.1e6, -3.1e6, 1e30}) {
        const double rounded = single(x);
        EXPECT_EQ(sinSingle(x), single(std::sin(rounded))) << x;
        EXPECT_EQ(cosSingle(x), single(std::cos(rounded))) << x;
    }
    EXPECT_TRUE(std::isnan(sinSingle(kInfinity)));
    EXPECT_TRUE(std::isnan(cosSingle(kNan)));
}

/// The day numbers of both calendars meet between 4 October (Julian) and 15 October 1582 (Gregorian).
TEST(HijriEdges, DaysRunOnOverTheCalendarChange) {
    const AstroGlobalFuncs calendar;
    const HijriDate before = calendar.GregJulToHicri(4, 10, 1582);
    const HijriDate after = calendar.GregJulToHicri(15, 10, 1582);
    EXPECT_EQ(after.year, before.year);
    EXPECT_EQ(after.month, before.month);
    EXPECT_EQ(after.day, before.day + 1);
    EXPECT_EQ(calendar.GregJulToHicri(31, 12, 1582).year, 990);
    EXPECT_EQ(calendar.GregJulToHicri(1, 9, 1582).year, 990);
}

TEST(MagneticEdges, NegativeMinutesOutweighPositiveSeconds) {
    const MagneticVariation field;
    EXPECT_NEAR(field.DegreesToDecimal(0, -30, 36), -0.51, 1e-6);
    EXPECT_NEAR(field.DegreesToDecimal(0, 30, -36), 0.51, 1e-6);
    EXPECT_NEAR(field.DegreesToDecimal(0, 0, 36), 0.01, 1e-6);
}

bool hasEvents(const Observer& observer, const DateTimeRecord& date) {
    const DayEvents sun = SunEventsOfDay(observer, date);
    return sun.rise.has_value() || sun.transit.has_value() || sun.set.has_value();
}

TEST(DayEventsEdges, DatesAndClocksOutOfRangeHaveNone) {
    const Observer here{41.0, 29.0, 3.0};
    const DateTimeRecord day = DateRecordMake(21, 6, 2026, 0, 0, 0);
    ASSERT_TRUE(hasEvents(here, day));
    EXPECT_FALSE(hasEvents({90.5, 29.0, 3.0}, day));
    EXPECT_FALSE(hasEvents({41.0, 361.0, 3.0}, day));
    EXPECT_FALSE(hasEvents({41.0, 29.0, 23.5}, day));
    EXPECT_FALSE(hasEvents({41.0, 29.0, -23.5}, day));
    for (const auto& [d, m, y] :
         {std::array{21, 6, 10001}, std::array{21, 6, -10001}, std::array{21, 0, 2026},
          std::array{21, 13, 2026}, std::array{0, 6, 2026}, std::array{32, 6, 2026}}) {
        EXPECT_FALSE(hasEvents(here, DateRecordMake(d, m, y, 0, 0, 0))) << d << "." << m << "." << y;
    }
}

/// What is remembered of a place and a day is not told for another one.
TEST(SunEdges, ADifferenceInAnyPartIsANewQuestion) {
    struct Question {
        double latitude, longitude;
        std::int32_t day, month, year;
    };
    FastAstro warm;
    warm.SetLatLon(41.0, 29.0);
    warm.SunRiseSet(20, 3, 2026);
    for (const Question& q : {Question{42.0, 29.0, 20, 3, 2026}, Question{41.0, 30.0, 20, 3, 2026},
                              Question{41.0, 29.0, 21, 3, 2026}, Question{41.0, 29.0, 20, 4, 2026},
                              Question{41.0, 29.0, 20, 3, 2025}, Question{41.0, 29.0, 20, 3, 2026}}) {
        FastAstro cold;
        for (FastAstro* engine : {&warm, &cold}) {
            engine->SetLatLon(q.latitude, q.longitude);
            engine->SunRiseSet(q.day, q.month, q.year);
        }
        EXPECT_EQ(warm.UTRise, cold.UTRise) << q.day << "." << q.month << "." << q.year;
        EXPECT_EQ(warm.UTSet, cold.UTSet) << q.day << "." << q.month << "." << q.year;
    }
}

struct MoonQuestion {
    double latitude;
    double zone;
    std::int32_t year;
    std::int32_t month;
    std::int32_t day;
};

void askMoon(FastAstro& engine, const MoonQuestion& q) {
    engine.SetPlace(q.latitude, 29.0, q.zone, 0, 0, 0, 0, 0, 0, 0);
    engine.MoonRiseTime(q.day, q.month, q.year);
    engine.MoonSetTime(q.day, q.month, q.year);
}

TEST(MoonEdges, ADifferenceInAnyPartIsANewQuestion) {
    FastAstro warm;
    const MoonQuestion first{41.0, 3.0, 2026, 3, 20};
    for (const MoonQuestion& q :
         {MoonQuestion{42.0, 3.0, 2026, 3, 20}, MoonQuestion{41.0, 5.0, 2026, 3, 20},
          MoonQuestion{41.0, 3.0, 2025, 3, 20}, MoonQuestion{41.0, 3.0, 2026, 4, 20}, first}) {
        askMoon(warm, first);
        askMoon(warm, q);
        FastAstro cold;
        askMoon(cold, q);
        EXPECT_EQ(warm.MoonRise, cold.MoonRise) << q.latitude << " " << q.zone << " " << q.year;
        EXPECT_EQ(warm.MoonSet, cold.MoonSet) << q.latitude << " " << q.zone << " " << q.year;
    }
}

/// The same hours asked for as another day: a zone 24 h further west is the next day. Beyond 24 h from
/// Greenwich and in the year of the calendar change the search takes its plain way.
TEST(MoonEdges, AZoneADayFurtherWestIsTheNextDay) {
    for (const MoonQuestion& q : {MoonQuestion{41.0, -6.0, 2026, 3, 20}, MoonQuestion{41.0, 3.0, 1582, 9, 20},
                                  MoonQuestion{41.0, 3.0, 1582, 10, 25}}) {
        FastAstro near;
        FastAstro far;
        MoonQuestion dayBefore = q;
        dayBefore.day -= 1;
        dayBefore.zone -= 24.0;
        askMoon(near, q);
        askMoon(far, dayBefore);
        ASSERT_NE(near.MoonRise, kNoLunarEvent);
        EXPECT_NEAR(std::remainder(far.MoonRise - near.MoonRise, 24.0), 0.0, 1e-5) << q.year;
        EXPECT_NEAR(std::remainder(far.MoonSet - near.MoonSet, 24.0), 0.0, 1e-5) << q.year;
    }
}

/// Where the midnight sun begins, one day has a sunrise and no sunset: both stay in universal time, and there
/// is no sunset at which the Moon could stand anywhere.
TEST(WidgetEdges, ADayWithSunriseAloneHasNoAltitudeAtSunset) {
    int found = 0;
    for (int step = 0; step < 24; ++step) {
        const double latitude = 66.0 + step * 0.25;
        for (std::int32_t day = 1; day <= 62; ++day) {
            FastAstro engine;
            engine.SetPlace(latitude, 25.0, 2.0, 0, 0, 0, 0, 0, 0, 0);
            engine.SetCurrentDate(day, 5, 2026);
            const WidgetAstroInfo info = engine.getSomeInfoForZorelWidget();
            if (engine.UTRise != kNoSolarEvent && engine.UTSet == kNoSolarEvent) {
                ++found;
                EXPECT_EQ(info.moonAltitudeAtSunset, kNoLunarEvent);
                EXPECT_EQ(info.sunrise, engine.UTRise);
                EXPECT_EQ(info.sunset, kNoSolarEvent);
            }
        }
    }
    EXPECT_GT(found, 0);
}

} // namespace
} // namespace zorel
