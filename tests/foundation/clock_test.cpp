// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/Clock.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <random>

namespace zorel {
namespace {

using std::chrono::sys_days;
using namespace std::chrono_literals;

constexpr const char* kZones[] = {"UTC",
                                  "Europe/Berlin",
                                  "America/New_York",
                                  "Australia/Sydney",
                                  "Africa/Cairo",
                                  "Asia/Kolkata",
                                  "Pacific/Kiritimati",
                                  "Pacific/Apia",
                                  "Asia/Kathmandu",
                                  "Australia/Lord_Howe",
                                  "Africa/Casablanca",
                                  "America/St_Johns",
                                  "<+14>-14",
                                  "<-12>12",
                                  nullptr};

std::string nameOf(const char* zone) {
    return zone != nullptr ? zone : "(TZ unset)";
}

Instant utc(int year, unsigned month, unsigned day, int hour = 0, int minute = 0, int second = 0) {
    return sys_days(std::chrono::year(year) / static_cast<int>(month) / static_cast<int>(day)) +
           std::chrono::hours(hour) + std::chrono::minutes(minute) + std::chrono::seconds(second);
}

std::string text(Instant instant) {
    return std::to_string(std::chrono::floor<std::chrono::seconds>(instant).time_since_epoch().count());
}

TEST(Clock, AnswersWithTheSystemsTime) {
    const Instant before = std::chrono::system_clock::now();
    const Instant instant = now();
    EXPECT_LE(before, instant);
    EXPECT_LE(instant, std::chrono::system_clock::now());
}

TEST(Clock, CanBeStoppedMovedAndNested) {
    const Instant noon = utc(2024, 6, 1, 12);
    {
        const ClockOverride stopped(noon);
        EXPECT_EQ(now(), noon);
        Instant moving = noon;
        {
            const ClockOverride moved([&moving] { return moving += 1s; });
            EXPECT_EQ(now(), noon + 1s);
            EXPECT_EQ(now(), noon + 2s);
        }
        EXPECT_EQ(now(), noon);
    }
    EXPECT_NE(now(), noon);
}

TEST(Clock, FollowsTheNewestOverrideInWhateverOrderTheyEnd) {
    const Instant noon = utc(2024, 6, 1, 12);
    auto first = std::make_unique<ClockOverride>(noon);
    const auto second = std::make_unique<ClockOverride>(noon + 1h);
    first.reset();
    EXPECT_EQ(now(), noon + 1h);
}

TEST(TimeZoneOverride, PutsTheEarlierZoneBack) {
    const TimeZoneOverride outer("Asia/Tokyo");
    {
        const TimeZoneOverride unset(nullptr);
        EXPECT_EQ(std::getenv("TZ"), nullptr);
        const TimeZoneOverride inner("America/New_York");
        EXPECT_EQ(utcOffsetSeconds(utc(2024, 1, 1)), -5 * 3600);
    }
    EXPECT_STREQ(std::getenv("TZ"), "Asia/Tokyo");
    EXPECT_EQ(utcOffsetSeconds(utc(2024, 1, 1)), 9 * 3600);
}

TEST(LocalDateTime, SplitsAnInstant) {
    const TimeZoneOverride zone("Asia/Kolkata");
    const LocalDateTime expected{2024, 3, 1, 0, 15, 30, 0.25};
    EXPECT_EQ(localDateTime(utc(2024, 2, 29, 18, 45, 30) + 250ms), expected);
}

TEST(LocalDateTime, CountsTheFractionForwardBefore1970Too) {
    const TimeZoneOverride zone("UTC");
    const LocalDateTime expected{1969, 12, 31, 23, 59, 59, 0.75};
    EXPECT_EQ(localDateTime(Instant(-250ms)), expected);
}

TEST(InstantFromLocal, IsTheInverseOfLocalDateTimeInEveryZone) {
    std::mt19937_64 random(7);
    std::uniform_int_distribution<std::int64_t> seconds(-2000000000, 4000000000);
    for (const char* zone : kZones) {
        const TimeZoneOverride override(zone);
        for (int i = 0; i < 500; ++i) {
            const LocalDateTime local = localDateTime(Instant(std::chrono::seconds(seconds(random))));
            const LocalDateTime again = localDateTime(instantFromLocal(local));
            EXPECT_EQ(again, local) << nameOf(zone);
        }
    }
}

TEST(InstantFromLocal, CarriesFieldsOutsideTheirRange) {
    for (const char* zone : {"UTC", "Europe/Berlin", "Pacific/Kiritimati"}) {
        const TimeZoneOverride override(zone);
        const Instant expected = instantFromLocal({2025, 1, 1, 0, 5, 0});
        EXPECT_EQ(instantFromLocal({2024, 12, 31, 24, 5, 0}), expected);
        EXPECT_EQ(instantFromLocal({2024, 13, 1, 0, 5, 0}), expected);
        EXPECT_EQ(instantFromLocal({2024, 12, 32, 0, 4, 60}), expected);
        EXPECT_EQ(instantFromLocal({2026, -11, 1, 0, 5, 0}), expected);
        EXPECT_EQ(instantFromLocal({2025, 1, 1, 1, -55, 0}), expected);
        EXPECT_EQ(instantFromLocal({2023, 2, 29, 0, 0, 0}), instantFromLocal({2023, 3, 1, 0, 0, 0}));
    }
}

/// One clock change: a wall time that it skips or repeats, and the instant meant.
struct Change {
    const char* zone;
    LocalDateTime wall;
    Instant instant;
};

TEST(InstantFromLocal, MovesASkippedTimeForwardByTheGap) {
    const Change changes[] = {{"Europe/Berlin", {2024, 3, 31, 2, 30, 0}, utc(2024, 3, 31, 1, 30)},
                              {"Europe/Berlin", {2024, 3, 31, 2, 0, 0}, utc(2024, 3, 31, 1, 0)},
                              {"Europe/Berlin", {2024, 3, 31, 2, 59, 59}, utc(2024, 3, 31, 1, 59, 59)},
                              {"America/New_York", {2024, 3, 10, 2, 30, 0}, utc(2024, 3, 10, 7, 30)},
                              {"Australia/Sydney", {2024, 10, 6, 2, 30, 0}, utc(2024, 10, 5, 16, 30)},
                              {"Africa/Cairo", {2024, 4, 26, 0, 30, 0}, utc(2024, 4, 25, 22, 30)},
                              {"Australia/Lord_Howe", {2024, 10, 6, 2, 15, 0}, utc(2024, 10, 5, 15, 45)},
                              {"Pacific/Apia", {2011, 12, 30, 12, 0, 0}, utc(2011, 12, 30, 22, 0)}};
    for (const Change& change : changes) {
        const TimeZoneOverride zone(change.zone);
        EXPECT_EQ(text(instantFromLocal(change.wall)), text(change.instant)) << change.zone;
    }
}

TEST(InstantFromLocal, TakesTheFirstOfARepeatedTime) {
    const Change changes[] = {{"Europe/Berlin", {2024, 10, 27, 2, 0, 0}, utc(2024, 10, 27, 0, 0)},
                              {"Europe/Berlin", {2024, 10, 27, 2, 30, 0}, utc(2024, 10, 27, 0, 30)},
                              {"Europe/Berlin", {2024, 10, 27, 3, 0, 0}, utc(2024, 10, 27, 2, 0)},
                              {"America/New_York", {2024, 11, 3, 1, 30, 0}, utc(2024, 11, 3, 5, 30)},
                              {"Australia/Sydney", {2024, 4, 7, 2, 30, 0}, utc(2024, 4, 6, 15, 30)},
                              {"Africa/Cairo", {2024, 10, 31, 23, 30, 0}, utc(2024, 10, 31, 20, 30)}};
    for (const Change& change : changes) {
        const TimeZoneOverride zone(change.zone);
        EXPECT_EQ(text(instantFromLocal(change.wall)), text(change.instant)) << change.zone;
    }
}

/// Every minute of the two days around each change of a year: a time that exists comes back as itself.
TEST(InstantFromLocal, HoldsAtEveryMinuteAroundTheChangesOfAYear) {
    for (const char* zone : {"Europe/Berlin", "America/New_York", "Australia/Sydney", "Africa/Cairo"}) {
        const TimeZoneOverride override(zone);
        for (int hour = 0; hour < 366 * 24; ++hour) {
            const Instant start = utc(2024, 1, 1) + std::chrono::hours(hour);
            if (utcOffsetSeconds(start) == utcOffsetSeconds(start + 1h)) {
                continue;
            }
            for (Instant instant = start - 24h; instant < start + 24h; instant += 1min) {
                const LocalDateTime local = localDateTime(instant);
                EXPECT_EQ(localDateTime(instantFromLocal(local)), local) << zone << ' ' << text(instant);
            }
        }
    }
}

TEST(InstantFromLocal, StaysWithinTheClocksRange) {
    constexpr std::int32_t largest = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t smallest = std::numeric_limits<std::int32_t>::min();
    EXPECT_GT(instantFromLocal({largest, largest, largest, largest, largest, largest}), utc(2200, 1, 1));
    EXPECT_LT(instantFromLocal({smallest, smallest, smallest, smallest, smallest, smallest}),
              utc(1700, 1, 1));
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(instantFromLocal({2024, 1, 1, 0, 0, 0, nan}), instantFromLocal({2024, 1, 1, 0, 0, 0, 0.0}));
}

TEST(UtcOffset, CountsEastPositive) {
    const TimeZoneOverride kiritimati("Pacific/Kiritimati");
    EXPECT_EQ(utcOffsetSeconds(utc(2024, 1, 1)), 14 * 3600);
    const TimeZoneOverride stJohns("America/St_Johns");
    EXPECT_EQ(utcOffsetSeconds(utc(2024, 1, 1)), -(3 * 3600 + 1800));
}

} // namespace
} // namespace zorel
