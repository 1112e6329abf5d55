// SPDX-License-Identifier: Apache-2.0
// Clocks, rounding and days: what is shown is the engine's result, moved to the safe side and nowhere else.
#include "CliError.h"
#include "Day.h"
#include "DayFlags.h"
#include "QiblaInstants.h"
#include "Rounding.h"
#include "WidgetState.h"
#include "ZoneClock.h"
#include "platform/foundation/Clock.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zorel::cli {
namespace {

using namespace std::chrono_literals;
using std::chrono::sys_days;

Date date(int y, unsigned m, unsigned d) {
    return {std::chrono::year{y}, std::chrono::month{m}, std::chrono::day{d}};
}

Place pointAt(double latitude, double longitude, ZoneClock clock) {
    Place place;
    place.latitude = latitude;
    place.longitude = longitude;
    place.clock = std::move(clock);
    return place;
}

TEST(CliClock, NamedZoneOnEveDayAndMorrowOfAChange) {
    const ZoneClock berlin(NamedClock{"Europe/Berlin"});
    EXPECT_EQ(berlin.offsetOn(date(2027, 3, 27)), 1h);
    EXPECT_EQ(berlin.offsetOn(date(2027, 3, 28)), 2h);
    EXPECT_EQ(berlin.offsetOn(date(2027, 3, 29)), 2h);
    EXPECT_EQ(berlin.offsetAt(sys_days(date(2027, 3, 28)) + 59min), 1h);
    EXPECT_EQ(berlin.offsetAt(sys_days(date(2027, 3, 28)) + 1h), 2h);
    const ZoneClock sydney(NamedClock{"Australia/Sydney"});
    EXPECT_EQ(sydney.offsetOn(date(2026, 10, 3)), 10h);
    EXPECT_EQ(sydney.offsetOn(date(2026, 10, 4)), 11h);
    const ZoneClock kathmandu(NamedClock{"Asia/Kathmandu"});
    EXPECT_EQ(kathmandu.offsetOn(date(2026, 1, 1)), 5h + 45min);
    EXPECT_EQ(kathmandu.dateAt(sys_days(date(2026, 1, 1)) + 18h + 15min), date(2026, 1, 2));
}

TEST(CliClock, TheZoneOfTheProcessIsLeftAsItWas) {
    const TimeZoneOverride lives("Asia/Kolkata");
    (void)ZoneClock(NamedClock{"America/New_York"}).offsetOn(date(2026, 7, 1));
    EXPECT_EQ(utcOffsetSeconds(Instant{}), 19800);
    EXPECT_EQ(ZoneClock(NamedClock{}).offsetOn(date(2026, 7, 1)), 5h + 30min);
    EXPECT_EQ(systemZoneName(), "Asia/Kolkata");
}

TEST(CliClock, ZonesThatDoNotExistAreRefused) {
    for (const char* zone :
         {"Europe/Nowhere", "../../etc/passwd", "/etc/passwd", "Europe", "Europe//Oslo", "a b", "\n"})
        EXPECT_THROW(ZoneClock(NamedClock{zone}), CliError) << zone;
}

TEST(CliClock, RuleHoldsForWholeDays) {
    // Last Sunday of March to last Sunday of October, one hour.
    const ZoneClock clock(RuleClock{1.0, 1, 2, 35, 9, 35, 1});
    EXPECT_EQ(clock.offsetOn(date(2027, 3, 27)), 1h);
    EXPECT_EQ(clock.offsetOn(date(2027, 3, 28)), 2h);
    EXPECT_EQ(clock.offsetOn(date(2027, 10, 30)), 2h);
    EXPECT_EQ(clock.offsetOn(date(2027, 10, 31)), 1h);
    EXPECT_EQ(clock.dateAt(sys_days(date(2027, 6, 1)) + 22h), date(2027, 6, 2));
    EXPECT_EQ(ZoneClock(RuleClock{5.75, 0, 0, 0, 0, 0, 0}).offsetOn(date(2027, 6, 1)), 5h + 45min);
}

EventTime fixedEvent(double hours, Rounding rounding, Precision precision = Precision::minutes) {
    return eventTime(ZoneClock(FixedClock{3h}), date(2026, 11, 21), hours, rounding, precision);
}

TEST(CliRounding, EarlierAndLater) {
    const double time = 6.0 + 32.0 / 60.0 + 17.4 / 3600.0;
    EXPECT_EQ(fixedEvent(time, Rounding::earlier).timeOfDay, 6h + 32min);
    EXPECT_EQ(fixedEvent(time, Rounding::later).timeOfDay, 6h + 33min);
    EXPECT_EQ(fixedEvent(time, Rounding::earlier, Precision::seconds).timeOfDay, 6h + 32min + 17s);
    EXPECT_EQ(fixedEvent(time, Rounding::later, Precision::seconds).timeOfDay, 6h + 32min + 18s);
    EXPECT_EQ(fixedEvent(time, Rounding::earlier).utc, sys_days(date(2026, 11, 21)) + 3h + 32min);
}

TEST(CliRounding, AWholeMinuteStaysInSpiteOfBinaryFractions) {
    for (int minute = 0; minute < 1440; ++minute) {
        const double hours = minute / 60.0;
        EXPECT_EQ(fixedEvent(hours, Rounding::earlier).timeOfDay, std::chrono::minutes(minute));
        EXPECT_EQ(fixedEvent(hours, Rounding::later).timeOfDay, std::chrono::minutes(minute));
    }
}

TEST(CliRounding, CarriesOverMidnight) {
    EXPECT_EQ(fixedEvent(23.999, Rounding::later).date, date(2026, 11, 22));
    EXPECT_EQ(fixedEvent(23.999, Rounding::later).timeOfDay, 0s);
    EXPECT_EQ(fixedEvent(25.5, Rounding::later).timeOfDay, 1h + 30min);
    EXPECT_EQ(fixedEvent(-0.25, Rounding::earlier).date, date(2026, 11, 20));
    EXPECT_EQ(fixedEvent(-0.25, Rounding::earlier).timeOfDay, 23h + 45min);
}

TEST(CliRounding, NoEvent) {
    EXPECT_FALSE(fixedEvent(-1.0, Rounding::later).exists);
    EXPECT_FALSE(fixedEvent(std::nan(""), Rounding::later).exists);
    EXPECT_FALSE(fixedEvent(std::numeric_limits<double>::infinity(), Rounding::later).exists);
    EXPECT_FALSE(fixedEvent(1e300, Rounding::later).exists);
}

TEST(CliRounding, TimesBeforeAChangeOfTheNightShowTheOldOffset) {
    const ZoneClock berlin(NamedClock{"Europe/Berlin"});
    // Half past one by summer time does not exist on this morning: it is half past midnight by winter time.
    const EventTime event = eventTime(berlin, date(2027, 3, 28), 1.5, Rounding::later, Precision::minutes);
    EXPECT_EQ(event.timeOfDay, 30min);
    EXPECT_EQ(event.offset, 1h);
    EXPECT_EQ(event.utc, sys_days(date(2027, 3, 27)) + 23h + 30min);
}

TEST(CliDay, TheSixTimesAreTheEnginesOwn) {
    FastAstro engine;
    engine.SetCurrentDateTime(DateRecordMake(28, 3, 2027, 0, 0, 0));
    engine.SetPlace(52.52, 13.405, 1.0, 1, 2, 35, 9, 35, 1, 0);
    const PrayerTimes expected = engine.CalculatePrayTimes().today;
    DayComputer computer;
    const Day day = computer.compute(pointAt(52.52, 13.405, ZoneClock(RuleClock{1.0, 1, 2, 35, 9, 35, 1})),
                                     date(2027, 3, 28), Precision::seconds);
    EXPECT_EQ(day.record.times, expected.times);
    EXPECT_EQ(day.offset, 2h);
    for (const int index : kPrayerIndices) {
        const double shown = static_cast<double>(day.event(index).timeOfDay.count()) / 3600.0;
        const double difference = (shown - expected.times[static_cast<std::size_t>(index)]) * 3600.0;
        const bool earlier = roundingOf(index) == Rounding::earlier;
        EXPECT_LE(difference, earlier ? 0.001 : 1.001) << index;
        EXPECT_GE(difference, earlier ? -1.001 : -0.001) << index;
    }
}

TEST(CliDay, NothingOfADayStaysInTheNext) {
    const Place oslo = pointAt(59.91, 10.75, ZoneClock(NamedClock{"Europe/Oslo"}));
    DayComputer reused;
    EXPECT_TRUE(reused.compute(oslo, date(2026, 6, 21)).record.dawnFromOtherDay);
    DayComputer fresh;
    EXPECT_EQ(reused.compute(oslo, date(2026, 12, 21)).record,
              fresh.compute(oslo, date(2026, 12, 21)).record);
}

TEST(CliDay, ADawnBeforeMidnightIsNotMovedIntoTheHourAfterIt) {
    // By a clock seven hours slow the dawn of this place comes before midnight.
    const Place slow = pointAt(41.0, 29.0, ZoneClock(FixedClock{-4h}));
    const Place right = pointAt(41.0, 29.0, ZoneClock(FixedClock{3h}));
    DayComputer computer;
    for (unsigned day = 1; day <= 28; ++day) {
        const auto shown = computer.compute(slow, date(2026, 6, day)).event(PrayerTimes::dawn).utc;
        const auto truth = computer.compute(right, date(2026, 6, day)).event(PrayerTimes::dawn).utc;
        EXPECT_LE(std::chrono::abs(shown - truth), 2min) << day;
    }
}

TEST(CliDay, PlacesBeyondTheDateLineHaveTheTimesOfTheirOwnDate) {
    DayComputer computer;
    const Day apia =
        computer.compute(pointAt(-13.83, -171.77, ZoneClock(FixedClock{13h})), date(2026, 11, 21));
    const Day sameSky =
        computer.compute(pointAt(-13.83, -171.77, ZoneClock(FixedClock{-11h})), date(2026, 11, 21));
    for (const int index : kPrayerIndices) {
        EXPECT_EQ(apia.event(index).date, date(2026, 11, 21)) << index;
        EXPECT_EQ(apia.event(index).timeOfDay, sameSky.event(index).timeOfDay) << index;
    }
    // Transit at 12 h + 11.4513 h - 14.1 min = 23:13 UT, temkin 6.6 min.
    EXPECT_EQ(apia.event(PrayerTimes::noon).utc, sys_days(date(2026, 11, 20)) + 23h + 20min);
}

TEST(CliDay, WithoutANightThereAreNoPartsOfIt) {
    DayComputer computer;
    const Place pole = pointAt(-90.0, 0.0, ZoneClock());
    const Day day = computer.compute(pole, date(2026, 12, 21));
    for (const int index : {PrayerTimes::dawn, PrayerTimes::sunset, PrayerTimes::lastSixthOfNight,
                            PrayerTimes::middleOfNight, PrayerTimes::firstThirdOfNight})
        EXPECT_FALSE(day.event(index).exists) << index;
    EXPECT_FALSE(flagsOf(computer, pole, day).any());
}

TEST(CliDay, FlagsInWords) {
    DayComputer computer;
    const Place oslo = pointAt(59.91, 10.75, ZoneClock(NamedClock{"Europe/Oslo"}));
    const DayFlags flags = flagsOf(computer, oslo, computer.compute(oslo, date(2026, 6, 21)));
    ASSERT_TRUE(flags.dawnFrom);
    EXPECT_LT(std::chrono::sys_days(*flags.dawnFrom), sys_days(date(2026, 5, 15)));
    EXPECT_FALSE(computer.compute(oslo, *flags.dawnFrom).record.dawnFromOtherDay);
    EXPECT_TRUE(computer.compute(oslo, addDays(*flags.dawnFrom, 1)).record.dawnFromOtherDay);
    EXPECT_FALSE(flags.loweredLatitude);
    const Place north = pointAt(69.65, 18.96, ZoneClock(NamedClock{"Europe/Oslo"}));
    const DayFlags lowered = flagsOf(computer, north, computer.compute(north, date(2026, 6, 21)));
    ASSERT_TRUE(lowered.loweredLatitude);
    EXPECT_LT(*lowered.loweredLatitude, 67.0);
    EXPECT_NEAR(std::remainder(69.65 - *lowered.loweredLatitude, 1.0), 0.0, 1e-9);
    EXPECT_FALSE(flagsOf(computer, oslo, computer.compute(oslo, date(2026, 12, 21))).any());
}

TEST(CliDay, NextAndPreviousPrayer) {
    const Place istanbul = pointAt(41.01, 28.97, ZoneClock(FixedClock{3h}));
    DayComputer computer;
    const Day day = computer.compute(istanbul, date(2026, 11, 21));
    const auto noon = day.event(PrayerTimes::noon).utc;
    EXPECT_EQ(nextPrayer(computer, istanbul, noon - 1s).index, PrayerTimes::noon);
    const NextPrayer atNoon = nextPrayer(computer, istanbul, noon);
    EXPECT_EQ(atNoon.index, PrayerTimes::afternoon);
    EXPECT_EQ(atNoon.previousIndex, PrayerTimes::noon);
    const NextPrayer night = nextPrayer(computer, istanbul, day.event(PrayerTimes::nightfall).utc + 1h);
    EXPECT_EQ(night.index, PrayerTimes::dawn);
    EXPECT_EQ(night.event.date, date(2026, 11, 22));
    const NextPrayer early = nextPrayer(computer, istanbul, day.event(PrayerTimes::dawn).utc - 1h);
    EXPECT_EQ(early.previousIndex, PrayerTimes::nightfall);
    EXPECT_EQ(early.previousEvent.date, date(2026, 11, 20));
}

TEST(CliDay, EveryPlaceAndYearGivesADayWithoutNonsense) {
    DayComputer computer;
    for (int step = -12; step <= 12; ++step) {
        const double latitude = step * 7.5;
        for (const double longitude : {-180.0, -75.3, 0.0, 39.82, 180.0}) {
            const Place place = pointAt(latitude, longitude, ZoneClock(FixedClock{0h}));
            for (const int year : {1583, 1900, 2026, 2400, 9998}) {
                const Day day = computer.compute(place, date(year, 6, 21));
                for (const EventTime& event : day.events) {
                    EXPECT_TRUE(!event.exists || (event.timeOfDay >= 0s && event.timeOfDay < 24h));
                    EXPECT_TRUE(!event.exists || std::abs(daysBetween(day.date, event.date)) <= 2)
                        << latitude << ' ' << longitude << ' ' << year;
                }
            }
        }
    }
}

TEST(CliQibla, BearingsOfKnownPlaces) {
    const auto bearing = [](double latitude, double longitude) {
        return qiblaBearing(pointAt(latitude, longitude, ZoneClock()));
    };
    EXPECT_NEAR(*bearing(41.01, 28.97), 151.6, 0.3);
    EXPECT_NEAR(*bearing(40.71, -74.01), 58.5, 0.3);
    EXPECT_NEAR(*bearing(-6.21, 106.85), 295.1, 0.3);
    EXPECT_NEAR(*bearing(-33.87, 151.21), 277.5, 0.3);
    EXPECT_FALSE(bearing(21.4225, 39.8262));
}

TEST(CliWidget, NearnessAndPercentage) {
    const UtcSeconds start = sys_days(date(2026, 11, 21));
    NextPrayer next;
    next.index = PrayerTimes::noon;
    next.event.utc = start + 100min;
    next.previousIndex = PrayerTimes::sunrise;
    next.previousEvent.utc = start;
    EXPECT_EQ(nearnessOf(next, start, 15min), Nearness::now);
    EXPECT_EQ(nearnessOf(next, start + 5min, 15min), Nearness::calm);
    EXPECT_EQ(nearnessOf(next, start + 84min + 59s, 15min), Nearness::calm);
    EXPECT_EQ(nearnessOf(next, start + 85min, 15min), Nearness::soon);
    EXPECT_EQ(percentageOf(next, start), 0);
    EXPECT_EQ(percentageOf(next, start + 59s), 0);
    EXPECT_EQ(percentageOf(next, start + 50min), 50);
    EXPECT_EQ(percentageOf(NextPrayer(), start), 0);
}

} // namespace
} // namespace zorel::cli
