// SPDX-License-Identifier: Apache-2.0
// Dates, instants and local times: arithmetic, and the way to texts and back.
#include "almanac/Time.h"

#include <gtest/gtest.h>

#include <random>

namespace zorel::almanac {
namespace {

using namespace std::chrono_literals;
using std::chrono::sys_days;

const Date kToday = 2026y / 11 / 21;
const Date kFirst = 1583y / 1 / 1;
const Date kLast = 9998y / 12 / 31;

TEST(AlmanacDates, EveryWayToNameADay) {
    EXPECT_EQ(parseDate("2026-02-28", kToday), 2026y / 2 / 28);
    EXPECT_EQ(parseDate("today", kToday), kToday);
    EXPECT_EQ(parseDate("tomorrow", kToday), 2026y / 11 / 22);
    EXPECT_EQ(parseDate("yesterday", kToday), 2026y / 11 / 20);
    EXPECT_EQ(parseDate("+10", kToday), 2026y / 12 / 1);
    EXPECT_EQ(parseDate("-21", kToday), 2026y / 10 / 31);
    EXPECT_EQ(parseDate("+0", kToday), kToday);
    EXPECT_EQ(parseDate("1583-01-01", kToday), kFirst);
    EXPECT_EQ(parseDate("9998-12-31", kToday), kLast);
    EXPECT_EQ(parseDate("2024-02-29", kToday), 2024y / 2 / 29);
}

TEST(AlmanacDates, WhatIsNoDay) {
    for (const char* text :
         {"",           "2026-02-29",  "2026-13-01", "2026-00-10",  "2026-1-1", "1582-12-31",
          "9999-01-01", "26-01-01",    "2026/01/01", "2026-01-01 ", "+",        "-",
          "+x",         "+999999999",  "-400000",    "+146401",     "now",      "Today",
          "++1",        "2026-01-011", "2026-01",    "02026-01-01"}) {
        EXPECT_FALSE(parseDate(text, kToday)) << text;
    }
    EXPECT_FALSE(parseDate("tomorrow", kLast));
    EXPECT_FALSE(parseDate("yesterday", kFirst));
    EXPECT_FALSE(parseDate("-1", kFirst));
}

TEST(AlmanacDates, RangeIsThatOfTheCalendar) {
    EXPECT_TRUE(isInRange(kFirst) && isInRange(kLast));
    EXPECT_FALSE(isInRange(addDays(kFirst, -1)) || isInRange(addDays(kLast, 1)));
    EXPECT_FALSE(isInRange(2026y / 2 / 29) || isInRange(Date{}));
}

TEST(AlmanacDates, StepsAcrossMonthsAndYears) {
    EXPECT_EQ(addDays(2026y / 12 / 31, 1), 2027y / 1 / 1);
    EXPECT_EQ(addDays(2028y / 3 / 1, -1), 2028y / 2 / 29);
    EXPECT_EQ(daysBetween(2026y / 1 / 1, 2027y / 1 / 1), 365);
    EXPECT_EQ(daysBetween(2027y / 1 / 1, 2026y / 1 / 1), -365);
    EXPECT_EQ(daysBetween(kFirst, kLast), 3073880);
}

TEST(AlmanacDates, EveryDayComesBackFromItsTextAndRecord) {
    for (Date date = kFirst; date <= kLast; date = addDays(date, 17)) {
        ASSERT_EQ(parseDate(isoDate(date), kToday), date) << isoDate(date);
        ASSERT_EQ(dateOf(engineDate(date)), date) << isoDate(date);
    }
}

TEST(AlmanacInstants, EngineRecordHoldsUniversalTime) {
    const DateTimeRecord at = engineInstant(sys_days(kToday) + 15h + 4min + 5s);
    EXPECT_EQ(at.year, 2026);
    EXPECT_EQ(at.month, 11);
    EXPECT_EQ(at.day, 21);
    EXPECT_EQ(at.hour, 15);
    EXPECT_EQ(at.minute, 4);
    EXPECT_EQ(at.second, 5);
    EXPECT_EQ(engineInstant(sys_days(1969y / 12 / 31) + 86399s).hour, 23);
}

TEST(AlmanacInstants, JulianDays) {
    EXPECT_EQ(julianDayOf(Instant{}), 2440587.5);
    EXPECT_EQ(julianDayOf(sys_days(2000y / 1 / 1) + 12h), 2451545.0);
    EXPECT_EQ(instantOfJulianDay(2451545.0), sys_days(2000y / 1 / 1) + 12h);
    EXPECT_EQ(instantOfJulianDay(2451545.0 + 0.5 / 86400.0), sys_days(2000y / 1 / 1) + 12h + 500ms);
    EXPECT_EQ(instantOfJulianDay(2440587.5 - 1.0 / 86400.0), Instant(-1s));
}

TEST(AlmanacInstants, WholeSecondsComeBackFromTheirJulianDay) {
    std::mt19937_64 random(1);
    std::uniform_int_distribution<std::int64_t> count(sys_days(kFirst).time_since_epoch() / 1s,
                                                      sys_days(kLast).time_since_epoch() / 1s);
    for (int i = 0; i < 20000; ++i) {
        const Instant instant{std::chrono::seconds(count(random))};
        ASSERT_EQ(instantOfJulianDay(julianDayOf(instant)), instant) << instant.time_since_epoch().count();
    }
}

TEST(AlmanacMoments, DateTimeAndOffset) {
    const auto full = parseMoment("2026-11-21T15:04:05+03:00");
    ASSERT_TRUE(full);
    EXPECT_EQ(full->date, kToday);
    EXPECT_EQ(full->timeOfDay, 15h + 4min + 5s);
    EXPECT_EQ(full->offset, 3h);
    EXPECT_EQ(parseMoment("2026-11-21 15:04Z")->offset, 0h);
    EXPECT_EQ(parseMoment("15:04-0330")->offset, -(3h + 30min));
    EXPECT_EQ(parseMoment("2026-11-21T15:04+05")->offset, 5h);
    EXPECT_EQ(parseMoment("12:00+14")->offset, 14h);
    EXPECT_FALSE(parseMoment("00:00")->date);
    EXPECT_FALSE(parseMoment("23:59:59")->offset);
}

TEST(AlmanacMoments, WhatIsNoMoment) {
    for (const char* text : {"",
                             "24:00",
                             "12:60",
                             "12:00:60",
                             "1:00",
                             "2026-11-21",
                             "2026-11-21T",
                             "12:00+15",
                             "12:00+14:30",
                             "12:00+03:60",
                             "12:00Zx",
                             "12:00 +03",
                             "12:00:",
                             "2026-11-31T10:00",
                             "12:00+",
                             "12:00+3",
                             "12:00+03:",
                             "12:00Z ",
                             "12",
                             "2026-11-21T24:00"}) {
        EXPECT_FALSE(parseMoment(text)) << text;
    }
}

TEST(AlmanacTexts, LocalTimes) {
    EXPECT_EQ(isoDateTime({kToday, 6h + 5min, 3h}), "2026-11-21T06:05:00+03:00");
    EXPECT_EQ(isoDateTime({kFirst, 86399s, 0s}), "1583-01-01T23:59:59+00:00");
    EXPECT_EQ(isoDate(2026y / 1 / 2), "2026-01-02");
}

TEST(AlmanacTexts, Offsets) {
    EXPECT_EQ(isoOffset(0s), "+00:00");
    EXPECT_EQ(isoOffset(-(3h + 30min)), "-03:30");
    EXPECT_EQ(isoOffset(1h + 56min + 56s), "+01:56:56");
    EXPECT_EQ(isoOffset(-1s), "-00:00:01");
    EXPECT_EQ(isoOffset(14h), "+14:00");
}

TEST(AlmanacTexts, TimesOfDay) {
    EXPECT_EQ(clockText(6h + 32min + 7s, Precision::minutes), "06:32");
    EXPECT_EQ(clockText(6h + 32min + 7s, Precision::seconds), "06:32:07");
    EXPECT_EQ(clockText(0s, Precision::seconds), "00:00:00");
}

TEST(AlmanacTexts, MomentComesBackFromItsText) {
    std::mt19937 random(1);
    std::uniform_int_distribution<int> second(0, 86399);
    std::uniform_int_distribution<int> quarter(-56, 56);
    for (int i = 0; i < 5000; ++i) {
        const LocalTime time{addDays(kToday, i), std::chrono::seconds(second(random)),
                             quarter(random) * 15min};
        const auto moment = parseMoment(isoDateTime(time));
        ASSERT_TRUE(moment) << isoDateTime(time);
        EXPECT_EQ((LocalTime{moment->date.value(), moment->timeOfDay, moment->offset.value()}), time);
    }
}

} // namespace
} // namespace zorel::almanac
