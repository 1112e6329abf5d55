// SPDX-License-Identifier: Apache-2.0
#include "engine/AstroGlobalFuncs.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace zorel {
namespace {

constexpr std::int32_t kHuge = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kTiny = std::numeric_limits<std::int32_t>::min();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

const AstroGlobalFuncs calendar;

double midnight(std::int32_t year, std::int32_t month, std::int32_t day) {
    return calendar.CalculateJulianDay(year, month, day, 0, 0, 0);
}

DateTimeRecord dateOf(double julianDay) {
    DateTimeRecord record;
    calendar.JulianToCalendar(julianDay, record, 1);
    return record;
}

DateTimeRecord hms(double hours) {
    DateTimeRecord record;
    calendar.ToHMS(hours, record.hour, record.minute, record.second);
    return record;
}

TEST(JulianDay, OfTheYear2000) {
    EXPECT_NEAR(midnight(2000, 1, 1), 2451544.5, 1e-9);
    EXPECT_NEAR(calendar.JulianDay({2000, 1, 1, 12, 0, 0, 0.0}), 2451545.0, 1e-9);
}

TEST(JulianDay, GregorianCalendarFollowsTheJulianByOneDay) {
    EXPECT_EQ(midnight(1582, 10, 15) - midnight(1582, 10, 4), 1.0);
    EXPECT_NEAR(midnight(1582, 10, 15), 2299160.5, 1e-9);
}

TEST(JulianDay, OfEventsInTheLiterature) {
    // Meeus, Astronomical Algorithms, ch. 7.
    EXPECT_NEAR(calendar.CalculateJulianDay(1957, 10, 4, 19, 26, 24), 2436116.31, 1e-6);
    EXPECT_NEAR(calendar.CalculateJulianDay(333, 1, 27, 12, 0, 0), 1842713.0, 1e-6);
    EXPECT_NEAR(midnight(1600, 1, 1), 2305447.5, 1e-6);
    EXPECT_NEAR(midnight(1987, 6, 19), 2446965.5, 1e-6);
    EXPECT_NEAR(midnight(837, 4, 10), 2026871.5, 1e-6);
}

TEST(JulianDay, DaysOutsideTheMonthCarryOver) {
    EXPECT_EQ(midnight(2024, 2, 30), midnight(2024, 3, 1));
    EXPECT_EQ(midnight(2024, 3, 0), midnight(2024, 2, 29));
    EXPECT_EQ(midnight(2023, 1, 400), midnight(2024, 2, 4));
}

TEST(JulianDay, ThereIsNoYearZero) {
    EXPECT_EQ(midnight(1, 1, 1) - midnight(-1, 12, 31), 1.0);
}

TEST(JulianToCalendar, NoonOf2000) {
    DateTimeRecord record;
    EXPECT_DOUBLE_EQ(calendar.JulianToCalendar(2451545.0, record, 1), 1.5);
    EXPECT_EQ(record, (DateTimeRecord{2000, 1, 1, 12, 0, 0, 0.0}));
}

TEST(JulianToCalendar, WritesOnlyWhenAsked) {
    DateTimeRecord record{7, 7, 7, 7, 7, 7, 0.5};
    EXPECT_DOUBLE_EQ(calendar.JulianToCalendar(2451545.0, record, 0), 1.5);
    EXPECT_EQ(record, (DateTimeRecord{7, 7, 7, 7, 7, 7, 0.5}));
}

TEST(JulianToCalendar, EveryDayOfSixteenCenturiesComesBack) {
    DateTimeRecord previous = dateOf(midnight(1400, 1, 1) - 1.0);
    const int days = static_cast<int>(midnight(3000, 1, 1) - midnight(1400, 1, 1));
    for (int day = 0; day < days; ++day) {
        const double julianDay = midnight(1400, 1, 1) + day;
        const DateTimeRecord date = dateOf(julianDay);
        ASSERT_NE(date, previous);
        ASSERT_EQ(midnight(date.year, date.month, date.day), julianDay) << date.year << '-' << date.month;
        previous = date;
    }
}

TEST(JulianToCalendar, EverySecondOfADayComesBack) {
    for (std::int32_t second = 0; second < 86400; second += 7) {
        const DateTimeRecord date{2024, 2, 29, second / 3600, second / 60 % 60, second % 60, 0.0};
        ASSERT_EQ(dateOf(calendar.JulianDay(date)), date);
    }
}

TEST(JulianToCalendar, YearsBeforeTheEraAreCountedUpward) {
    EXPECT_EQ(dateOf(1721425.5 - 400.0).year, 2);
}

TEST(JulianToGregorian, TakesTheNextDayWhenItIsNear) {
    EXPECT_EQ(calendar.JulianToGregorian(2451544.5).day, 1);
    EXPECT_EQ(calendar.JulianToGregorian(2451545.499995).day, 2);
    EXPECT_EQ(dateOf(2451545.499995).day, 1);
}

TEST(DayOfWeek, OfKnownDays) {
    EXPECT_EQ(calendar.DayOfWeek(2000, 1, 1), 6);
    EXPECT_EQ(calendar.DayOfWeek(1954, 6, 30), 3);
    EXPECT_EQ(calendar.DayOfWeek(1582, 10, 4), 4);
    EXPECT_EQ(calendar.DayOfWeek(1582, 10, 15), 5);
}

TEST(DayOfWeek, IsAWeekdayInEveryYear) {
    for (std::int32_t year = -9999; year <= 9999; year += 7) {
        const int weekday = calendar.DayOfWeek(year, 3, 1);
        ASSERT_TRUE(weekday >= 0 && weekday <= 6) << year;
    }
}

TEST(ToHMS, BringsHoursIntoADay) {
    EXPECT_EQ(hms(-1.5), (DateTimeRecord{0, 0, 0, 22, 30, 0, 0.0}));
    EXPECT_EQ(hms(24.0), (DateTimeRecord{}));
    EXPECT_EQ(hms(49.25), (DateTimeRecord{0, 0, 0, 1, 15, 0, 0.0}));
    EXPECT_EQ(hms(-1e-20), (DateTimeRecord{}));
    EXPECT_EQ(hms(13.5 + 59.0 / 3600.0).second, 58) << "truncated, not rounded";
}

TEST(Numbers, FracTruncates) {
    EXPECT_EQ(calendar.frac(2.25), 0.25);
    EXPECT_EQ(calendar.frac(-2.25), -0.25);
    EXPECT_EQ(calendar.frac(4.0), 0.0);
}

TEST(Numbers, RoundThroughSinglePrecision) {
    // 234.5 and what single precision makes of it rounds away from zero.
    EXPECT_DOUBLE_EQ(calendar.Round(2.345, 2), 2.35);
    EXPECT_DOUBLE_EQ(calendar.Round(-2.5, 0), -3.0);
    EXPECT_DOUBLE_EQ(calendar.Round(3.14159, 4), 3.1416);
}

TEST(Numbers, ArcTangentOverTheFullCircle) {
    EXPECT_EQ(calendar.ZArcTan2(0.0, 0.0), 0.0);
    EXPECT_EQ(calendar.ZArcTan2(0.0, 2.0), 1.5707963705062866);
    EXPECT_EQ(calendar.ZArcTan2(0.0, -2.0), 4.71238899230957);
    EXPECT_EQ(calendar.ZArcTan2(-1.0, 0.0), 3.1415927410125732);
    EXPECT_EQ(calendar.ZArcTan2(1.0, -0.0), 0.0);
    for (int degrees = 1; degrees < 360; degrees += 7) {
        const double radians = degrees * M_PI / 180.0;
        ASSERT_NEAR(calendar.ZArcTan2(std::cos(radians), std::sin(radians)), radians, 1e-6);
    }
}

TEST(Calendar, NoValueIsTooLargeOrNotANumber) {
    for (const double x : {kNan, kInfinity, -kInfinity, 1e300, -1e300, 1e18}) {
        DateTimeRecord record;
        calendar.JulianToCalendar(x, record, 1);
        (void)calendar.JulianToGregorian(x);
        (void)calendar.Round(x, 9);
        (void)calendar.Round(1.0, kHuge);
        (void)calendar.Round(1.0, kTiny);
        (void)calendar.ZArcTan2(x, x);
        EXPECT_GE(hms(x).hour, 0);
        EXPECT_LT(hms(x).hour, 24);
    }
    for (const std::int32_t y : {kHuge, kTiny}) {
        EXPECT_TRUE(std::isfinite(calendar.CalculateJulianDay(y, y, y, y, y, y)));
        EXPECT_GE(calendar.DayOfWeek(y, y, y), 0);
    }
}

TEST(Calendar, CurrentDateIsALocalDate) {
    const DateTimeRecord now = calendar.GetCurrentDateTime();
    EXPECT_GE(now.year, 2024);
    EXPECT_EQ(dateOf(midnight(now.year, now.month, now.day)).day, now.day);
    DateTimeRecord kept{};
    kept.fraction = 0.25;
    calendar.GetCurrentDateTime(kept);
    EXPECT_EQ(kept.fraction, 0.25);
    EXPECT_NEAR(calendar.JulianDay(kept), calendar.JulianDay(now), 1.0 / 1440.0);
}

} // namespace
} // namespace zorel
