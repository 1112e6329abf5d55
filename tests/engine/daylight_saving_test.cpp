// SPDX-License-Identifier: Apache-2.0
#include "engine/AstroGlobalFuncs.h"

#include <gtest/gtest.h>
#include <limits>

namespace zorel {
namespace {

constexpr std::int32_t kNone = -1;

/// A rule with months counted from 0; asks about one date.
struct Rule {
    std::int32_t startDay;
    std::int32_t startMonth;
    std::int32_t stopDay;
    std::int32_t stopMonth;
    std::int32_t startOut = 0;
    std::int32_t stopOut = 0;

    bool on(std::int32_t year, std::int32_t month, std::int32_t day) {
        return AstroGlobalFuncs().IsDSTDay(startDay, startMonth, stopDay, stopMonth, year, month, day,
                                           startOut, stopOut);
    }
};

constexpr std::int32_t weekday(int day, int occurrence) {
    return 31 + day * 5 + occurrence;
}
constexpr std::int32_t kLastSunday = weekday(0, 4);

TEST(DaylightSaving, LastSundayOfMarchToLastSundayOfOctober) {
    Rule rule{kLastSunday, 2, kLastSunday, 9};
    EXPECT_EQ(kLastSunday, 35);
    EXPECT_FALSE(rule.on(2023, 3, 25));
    EXPECT_TRUE(rule.on(2023, 3, 26)) << "the start day is daylight saving";
    EXPECT_EQ(rule.startOut, 26);
    EXPECT_EQ(rule.stopOut, 29);
    EXPECT_TRUE(rule.on(2023, 7, 1));
    EXPECT_TRUE(rule.on(2023, 10, 28));
    EXPECT_FALSE(rule.on(2023, 10, 29)) << "the stop day is not";
    EXPECT_FALSE(rule.on(2023, 1, 1));
    EXPECT_FALSE(rule.on(2023, 12, 31));
}

TEST(DaylightSaving, EveryOccurrenceOfEveryWeekday) {
    const AstroGlobalFuncs calendar;
    for (int day = 0; day <= 6; ++day) {
        for (int occurrence = 0; occurrence <= 4; ++occurrence) {
            Rule rule{weekday(day, occurrence), 3, kLastSunday, 9};
            rule.on(2024, 6, 1);
            ASSERT_EQ(calendar.DayOfWeek(2024, 4, rule.startOut), day);
            ASSERT_EQ((rule.startOut - 1) / 7, occurrence == 4 ? (rule.startOut > 28 ? 4 : 3) : occurrence);
            if (occurrence == 4) {
                ASSERT_GT(rule.startOut + 7, 30) << "the last of April";
            }
        }
    }
}

TEST(DaylightSaving, SouthernRuleOverTheNewYear) {
    // First Sunday of October to first Sunday of April: the early months count as started.
    Rule rule{weekday(0, 0), 9, weekday(0, 0), 3};
    EXPECT_TRUE(rule.on(2024, 1, 15));
    EXPECT_TRUE(rule.on(2024, 4, 6));
    EXPECT_FALSE(rule.on(2024, 4, 7));
    EXPECT_FALSE(rule.on(2024, 7, 1));
    EXPECT_TRUE(rule.on(2024, 11, 1));
    EXPECT_TRUE(rule.on(2024, 12, 31));
    // In its start month such a rule never runs.
    EXPECT_FALSE(rule.on(2024, 10, 5));
    EXPECT_FALSE(rule.on(2024, 10, 20));
}

TEST(DaylightSaving, FixedDays) {
    Rule rule{9, 3, 19, 8}; // 10 April to 20 September
    EXPECT_FALSE(rule.on(2024, 4, 9));
    EXPECT_TRUE(rule.on(2024, 4, 10));
    EXPECT_TRUE(rule.on(2024, 9, 19));
    EXPECT_FALSE(rule.on(2024, 9, 20));
    EXPECT_FALSE(rule.on(2024, 10, 1));
    EXPECT_EQ(rule.startOut, kNone);
    EXPECT_EQ(rule.stopOut, kNone);
}

TEST(DaylightSaving, FixedDaysDoNotWrapOverTheNewYear) {
    Rule rule{0, 9, 0, 3}; // 1 October to 1 April
    for (std::int32_t month = 1; month <= 12; ++month) {
        EXPECT_FALSE(rule.on(2024, month, 15)) << month;
    }
}

TEST(DaylightSaving, DatesThatDoNotExist) {
    Rule always{0, 0, 30, 11};
    EXPECT_TRUE(always.on(2023, 2, 28));
    EXPECT_FALSE(always.on(2023, 2, 30));
    EXPECT_FALSE(always.on(2023, 13, 1));
    EXPECT_FALSE(always.on(2023, 0, 1));
    EXPECT_FALSE(always.on(1582, 10, 10)) << "not a day of either calendar";
}

TEST(DaylightSaving, RuleDaysThatDoNotExist) {
    Rule start{30, 1, 19, 8}; // 31 February
    EXPECT_FALSE(start.on(2023, 5, 1));
    Rule stop{0, 2, 30, 1};
    EXPECT_FALSE(stop.on(2023, 2, 1));
}

TEST(DaylightSaving, CodesWithoutAWeekdayEnd) {
    Rule start{66, 2, kLastSunday, 9};
    EXPECT_FALSE(start.on(2023, 7, 1));
    EXPECT_EQ(start.startOut, kNone);
    EXPECT_EQ(start.stopOut, 29);
    Rule stop{kLastSunday, 2, 1000, 9};
    EXPECT_FALSE(stop.on(2023, 7, 1));
    EXPECT_EQ(stop.stopOut, kNone);
}

TEST(DaylightSaving, AnyNumbersEnd) {
    using Limits = std::numeric_limits<std::int32_t>;
    for (const std::int32_t a : {Limits::min(), -1, 0, 31, 65, 66, Limits::max()}) {
        for (const std::int32_t b : {Limits::min(), -1, 0, 11, 12, Limits::max()}) {
            Rule rule{a, b, a, b};
            (void)rule.on(2023, 7, 1);
            (void)rule.on(a, b, a);
        }
    }
}

} // namespace
} // namespace zorel
