// SPDX-License-Identifier: Apache-2.0
// A day as it is told: equal to the engine's where no correction is named, whole and in one piece.
#include "tests/almanac/Days.h"

#include "engine/FastAstro.h"

#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace zorel::almanac {
namespace {

using namespace std::chrono_literals;
using tests::placeAt;
using tests::placeIn;

bool sameBits(double a, double b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

/// The engine by itself, fed as the almanac feeds it.
PrayerTimes engineTimes(const Place& place, Date date) {
    FastAstro engine;
    const double offset = static_cast<double>(place.clock.offsetOn(date).count()) / 3600.0;
    engine.SetCurrentDateTime(engineDate(date));
    engine.SetPlace(place.latitude, place.longitude, offset, 0, 0, 0, 0, 0, 0,
                    place.temkin == Temkin::upTo500m ? 1 : 0);
    return engine.CalculatePrayTimes().today;
}

/// Any place and day: latitudes to 66 degrees, clocks within two hours of the meridian.
struct AnyPlaceDay {
    Place place;
    Date date;
};

AnyPlaceDay anyPlaceDay(std::mt19937& random) {
    const auto between = [&](double low, double high) {
        return low + (high - low) * static_cast<double>(random()) / 4294967296.0;
    };
    const double longitude = between(-180.0, 180.0);
    const double offset = std::round((longitude / 15.0 + between(-2.0, 2.0)) * 4.0) / 4.0;
    AnyPlaceDay any{placeAt(between(-66.0, 66.0), longitude, offset), {}};
    any.place.temkin = random() % 2 == 0 ? Temkin::upTo250m : Temkin::upTo500m;
    any.date = addDays(1990y / 1 / 1, static_cast<int>(random() % 25000));
    return any;
}

TEST(Day, IsTheEnginesToTheBitWhereNoCorrectionIsNamed) {
    std::mt19937 random(14);
    Memory memory;
    std::array<int, kCorrections> byKind{};
    int equal = 0;
    int corrected = 0;
    for (int i = 0; i < 10000; ++i) {
        const auto [place, date] = anyPlaceDay(random);
        const Day day = Almanac(place).day(date, memory);
        const PrayerTimes engine = engineTimes(place, date);
        for (const DayTime& time : day.times) {
            const double own = engine.times[static_cast<std::size_t>(identityOf(time.prayer).position)];
            EXPECT_TRUE(sameBits(time.why.engineHours, own));
            if (time.why.corrections.none()) {
                ASSERT_TRUE(sameBits(time.hours, own)) << keyOf(time.prayer) << ' ' << isoDate(date);
                ++equal;
                continue;
            }
            ++corrected;
            for (std::size_t kind = 0; kind < kCorrections; ++kind) {
                byKind[kind] += time.why.corrections.has(static_cast<Correction>(kind)) ? 1 : 0;
            }
        }
    }
    std::printf("10000 place-days: %d times equal to the bit, %d corrected\n", equal, corrected);
    for (std::size_t kind = 0; kind < kCorrections; ++kind) {
        std::printf("%-20s %d\n", std::string(keyOf(static_cast<Correction>(kind))).c_str(), byKind[kind]);
    }
    EXPECT_EQ(equal + corrected, 150000);
    EXPECT_GT(equal, 125000);
    EXPECT_GT(corrected, 10000); // every day's Sun at the qibla among them
}

TEST(Day, IsTheSameWithAndWithoutMemory) {
    std::mt19937 random(15);
    Memory memory;
    for (int i = 0; i < 500; ++i) {
        const auto [place, date] = anyPlaceDay(random);
        const Almanac almanac(place);
        const Day first = almanac.day(date);
        const Day second = almanac.day(date, memory);
        const Day third = almanac.day(date, memory);
        for (std::size_t p = 0; p < kPrayers; ++p) {
            ASSERT_TRUE(sameBits(first.times[p].hours, second.times[p].hours));
            ASSERT_TRUE(sameBits(first.times[p].hours, third.times[p].hours));
            ASSERT_EQ(first.times[p].why.corrections, second.times[p].why.corrections);
        }
        ASSERT_EQ(first.record, second.record);
    }
}

TEST(Day, RoundsToTheSafeSide) {
    const Day day = Almanac(placeIn(41.0082, 28.9784, "Europe/Istanbul")).day(2026y / 11 / 22);
    for (const DayTime& time : day.times) {
        ASSERT_TRUE(time.exists()) << keyOf(time.prayer);
        EXPECT_EQ(time.shown.time_since_epoch() % 60s, 0s);
        const auto late = time.shown - time.exact;
        if (identityOf(time.prayer).rounding == Rounding::earlier) {
            EXPECT_LE(late, 0ms);
            EXPECT_GT(late, -1min);
        } else {
            EXPECT_GE(late, 0ms);
            EXPECT_LT(late, 1min);
        }
        EXPECT_LT(std::chrono::abs(time.rounded(Precision::seconds) - time.exact), 1s);
        EXPECT_EQ(time.rounded(Precision::minutes), time.shown);
    }
}

TEST(Day, SpeaksOfTheSameInstantEverywhere) {
    const Place place = placeIn(41.0082, 28.9784, "Europe/Istanbul");
    const Date date = 2026y / 11 / 22;
    const Day day = Almanac(place).day(date);
    EXPECT_EQ(day.offset, 3h);
    for (const DayTime& time : day.times) {
        const auto fromHours = std::chrono::sys_days(date) - 3h +
                               std::chrono::milliseconds(std::llround(time.hours * 3'600'000.0));
        EXPECT_EQ(time.exact, fromHours);
        EXPECT_EQ(time.local, place.clock.localTime(time.shown));
        EXPECT_EQ(time.why.date, date);
        EXPECT_NE(time.why.rule, PrayTimeRule::none);
    }
}

TEST(Day, KeepsTheMinutesOfAClockWithSeconds) {
    const Day day = Almanac(placeAt(48.8566, 2.3522, 561.0 / 3600.0)).day(1880y / 7 / 1); // local mean time
    for (const DayTime& time : day.times) {
        EXPECT_EQ(time.local.timeOfDay % 60s, 0s) << keyOf(time.prayer);
        EXPECT_EQ(time.local.offset, 561s);
    }
}

TEST(Day, FillsTheRecordWithWhatIsTold) {
    const Day day = Almanac(placeAt(41.0082, 28.9784, 3.0)).day(2026y / 11 / 22);
    PrayerTimes engine = engineTimes(placeAt(41.0082, 28.9784, 3.0), 2026y / 11 / 22);
    engine.ezani = {}; // the sunset-based clock is not computed
    EXPECT_EQ(day.record, engine);
    EXPECT_EQ(day.record.times[PrayerTimes::unused], 0.0);
    EXPECT_FALSE(day.record.latitudeLowered);
}

TEST(EzaniClock, IsTheEnginesOwn) {
    const Day day = Almanac(placeAt(41.0082, 28.9784, 3.0)).day(2026y / 11 / 22);
    PrayerTimes engine = day.record;
    FastAstro().CalculateAllEzaniTimes(engine);
    const auto hours = ezaniHours(day);
    for (const DayTime& time : day.times) {
        const auto index = static_cast<std::size_t>(time.prayer);
        if (time.prayer != Prayer::sunAtQibla) {
            EXPECT_EQ(hours[index], engine.ezani[static_cast<std::size_t>(identityOf(time.prayer).position)]);
        }
    }
    EXPECT_EQ(hours[static_cast<std::size_t>(Prayer::maghrib)], 12.0);
}

TEST(EzaniClock, HasNoHoursWithoutATimeOrASunset) {
    const Day summer = Almanac(placeAt(-77.85, 166.67, 13.0)).day(2026y / 12 / 21);
    EXPECT_TRUE(summer[Prayer::dhuhr].exists());
    for (const auto& hours : ezaniHours(summer)) {
        EXPECT_FALSE(hours);
    }
    const Day winter = Almanac(placeAt(69.65, 18.96, 1.0)).day(2026y / 12 / 21);
    EXPECT_FALSE(winter[Prayer::morningFiveDegrees].exists());
    EXPECT_FALSE(ezaniHours(winter)[static_cast<std::size_t>(Prayer::morningFiveDegrees)]);
    EXPECT_TRUE(ezaniHours(winter)[static_cast<std::size_t>(Prayer::dhuhr)]);
}

TEST(Day, SaysThatItCannotBeTold) {
    const double none = std::numeric_limits<double>::quiet_NaN();
    const Date date = 2026y / 11 / 22;
    for (const Place& place : {placeAt(90.5, 0.0, 0.0), placeAt(0.0, -180.5, 0.0), placeAt(none, 0.0, 0.0),
                               placeAt(0.0, none, 0.0)}) {
        const Day day = Almanac(place).day(date);
        for (const DayTime& time : day.times) {
            EXPECT_FALSE(time.exists());
            EXPECT_EQ(time.absence, Absence::outOfRange);
            EXPECT_EQ(time.hours, kNoSolarEvent);
        }
        EXPECT_FALSE(Almanac(place).next(std::chrono::sys_days(date)).next);
    }
    const Almanac greenwich(placeAt(51.5, 0.0, 0.0));
    for (const Date out : {Date(1500y / 1 / 1), Date(10000y / 1 / 1), Date(2027y / 2 / 29)}) {
        EXPECT_EQ(greenwich.day(out)[Prayer::dhuhr].absence, Absence::outOfRange);
    }
}

TEST(Day, ToldAtThePolesAndAtTheEndsOfTime) {
    for (const double latitude : {-90.0, -66.6, 0.0, 66.6, 89.9, 90.0}) {
        for (const double longitude : {-180.0, 0.0, 180.0}) {
            for (const Date date : {Date(1583y / 1 / 1), Date(2027y / 6 / 21), Date(9998y / 12 / 31)}) {
                const Day day = Almanac(placeAt(latitude, longitude, 0.0)).day(date);
                EXPECT_TRUE(day[Prayer::dhuhr].exists()) << latitude << ' ' << isoDate(date);
            }
        }
    }
}

TEST(NextPrayer, IsTheNextShownMinute) {
    const Almanac istanbul(placeIn(41.0082, 28.9784, "Europe/Istanbul"));
    const Day day = istanbul.day(2026y / 11 / 22);
    const Instant asr = day[Prayer::asr].shown;
    const NextPrayer before = istanbul.next(asr - 1s);
    ASSERT_TRUE(before.next && before.previous);
    EXPECT_EQ(before.next->prayer, Prayer::asr);
    EXPECT_EQ(before.previous->prayer, Prayer::dhuhr);
    const NextPrayer at = istanbul.next(asr);
    EXPECT_EQ(at.next->prayer, Prayer::maghrib);
    EXPECT_EQ(at.previous->prayer, Prayer::asr);
}

TEST(NextPrayer, GoesByTheSecondWhenAskedTo) {
    const Almanac istanbul(placeIn(41.0082, 28.9784, "Europe/Istanbul"));
    const DayTime fajr = istanbul.day(2026y / 11 / 22)[Prayer::fajr];
    ASSERT_GT(fajr.rounded(Precision::seconds), fajr.shown + 1s);
    EXPECT_EQ(istanbul.next(fajr.shown + 1s).next->prayer, Prayer::sunrise);
    EXPECT_EQ(istanbul.next(fajr.shown + 1s, Precision::seconds).next->prayer, Prayer::fajr);
    EXPECT_EQ(istanbul.next(fajr.rounded(Precision::seconds), Precision::seconds).next->prayer,
              Prayer::sunrise);
}

TEST(NextPrayer, CrossesMidnight) {
    const Almanac istanbul(placeIn(41.0082, 28.9784, "Europe/Istanbul"));
    const Instant late = istanbul.day(2026y / 11 / 22)[Prayer::isha].shown + 1h;
    const NextPrayer found = istanbul.next(late);
    EXPECT_EQ(found.next->prayer, Prayer::fajr);
    EXPECT_EQ(found.next->local.date, 2026y / 11 / 23);
    EXPECT_EQ(found.previous->prayer, Prayer::isha);
}

TEST(NextPrayer, FindsADawnOnTheEve) {
    // Kazan: the dawn of 1 May is told on 30 April, before midnight.
    const Almanac kazan(placeAt(55.78874, 49.12214, 3.0));
    const Instant evening = std::chrono::sys_days(2027y / 4 / 30) + 23h + 40min - 3h;
    const NextPrayer found = kazan.next(evening);
    ASSERT_TRUE(found.next);
    EXPECT_EQ(found.next->prayer, Prayer::fajr);
    EXPECT_EQ(found.next->local.date, 2027y / 4 / 30);
}

} // namespace
} // namespace zorel::almanac
