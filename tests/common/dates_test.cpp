// SPDX-License-Identifier: Apache-2.0
#include "common/GlobalFuncs.h"
#include "platform/foundation/Clock.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace zorel {
namespace {

class Dates : public testing::Test {
protected:
    test::TemporaryLocations locations_;
    GlobalFuncs functions_;
};

TEST_F(Dates, JulianDaysCountFromNoon) {
    EXPECT_NEAR(functions_.CalculateJulianDay(2000, 1, 1, 0, 0, 0), 2451544.5, 1e-8);
    EXPECT_NEAR(functions_.CalculateJulianDay(1582, 10, 15, 0, 0, 0) -
                    functions_.CalculateJulianDay(1582, 10, 4, 0, 0, 0),
                1.0, 1e-9);
}

TEST_F(Dates, JulianDayOfARecordIsThatOfItsFields) {
    const DateTimeRecord record = DateRecordMake(17, 8, 2023, 13, 45, 59);
    EXPECT_EQ(functions_.GregorianDateToJulian(record),
              functions_.CalculateJulianDay(2023, 8, 17, 13, 45, 59));
}

TEST_F(Dates, ComeBackFromTheirJulianDay) {
    EXPECT_EQ(functions_.JulianToGregorian(2451545.0), DateRecordMake(1, 1, 2000, 12, 0, 0));
    for (std::int32_t day = 1; day <= 31; ++day) {
        const DateTimeRecord record = DateRecordMake(day, 7, 2024, 6, 30, 15);
        EXPECT_EQ(functions_.JulianToGregorian(functions_.GregorianDateToJulian(record)), record) << day;
    }
}

TEST_F(Dates, DayWithinATrifleOfTheNextIsTheNext) {
    const double midnight = 2460310.5; // 2024-01-01 0:00
    EXPECT_EQ(functions_.JulianToGregorian(midnight - 0.000005).day, 32);
    EXPECT_EQ(functions_.JulianToGregorian(midnight - 0.00002).day, 31);
    DateTimeRecord engine;
    AstroGlobalFuncs().JulianToCalendar(midnight - 0.000005, engine, 1);
    EXPECT_EQ(engine.day, 31);
}

TEST_F(Dates, WeekdaysCountFromSunday) {
    EXPECT_EQ(functions_.DayOfWeek(2000, 1, 1), 6);
    EXPECT_EQ(functions_.DayOfWeek(2024, 2, 29), 4);
    EXPECT_EQ(functions_.DayOfWeek(2023, 1, 1), 0);
}

TEST_F(Dates, DaylightSavingFollowsTheRuleOfTheCity) {
    constexpr std::int32_t lastSunday = 35;
    std::int32_t start = 0;
    std::int32_t stop = 0;
    const auto isSaving = [&](std::int32_t month, std::int32_t day) {
        return functions_.IsDSTDay(lastSunday, 2, lastSunday, 9, 2024, month, day, start, stop);
    };
    EXPECT_FALSE(isSaving(3, 30));
    EXPECT_TRUE(isSaving(3, 31));
    EXPECT_TRUE(isSaving(10, 26));
    EXPECT_FALSE(isSaving(10, 27));
    EXPECT_EQ(start, 31);
    EXPECT_EQ(stop, 27);
    EXPECT_FALSE(isSaving(2, 30));
}

TEST_F(Dates, PresentIsLocalAndHasItsFraction) {
    const TimeZoneOverride zone("Asia/Kolkata");
    const std::chrono::sys_days midnight(std::chrono::year(2024) / 2 / 29);
    const ClockOverride clock(midnight + std::chrono::hours(20) + std::chrono::milliseconds(500));
    const DateTimeRecord expected{2024, 3, 1, 1, 30, 0, 0.5};
    EXPECT_EQ(functions_.GetCurrentDateTime(), expected);
    DateTimeRecord filled;
    functions_.GetCurrentDateTime(filled);
    EXPECT_EQ(filled, expected);
}

} // namespace
} // namespace zorel
