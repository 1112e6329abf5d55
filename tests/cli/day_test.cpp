// SPDX-License-Identifier: Apache-2.0
// How a told day is put into words: times beside midnight, seconds, the sunset-based dial, a status bar.
#include "print/Clockface.h"
#include "print/DayText.h"
#include "print/PlaceText.h"
#include "print/WidgetState.h"

#include "almanac/Almanac.h"

#include <gtest/gtest.h>

namespace zorel::cli {
namespace {

using namespace std::chrono_literals;
using almanac::Date;
using almanac::DayTime;
using almanac::Prayer;
using almanac::Precision;
using std::chrono::sys_days;

constexpr Date kDate = 2026y / 11 / 21;

almanac::Place istanbul() {
    almanac::Place place;
    place.latitude = 41.01;
    place.longitude = 28.97;
    place.clock = almanac::PlaceClock::fixed(3h);
    return place;
}

TEST(CliClockface, ShowsTheToldMinuteOrSecond) {
    const almanac::Place place = istanbul();
    const almanac::Day day = almanac::Almanac(place).day(kDate);
    const Clockface minutes(place.clock, Precision::minutes);
    const Clockface seconds(place.clock, Precision::seconds);
    for (const Prayer prayer : almanac::kListedPrayers) {
        const DayTime& time = day[prayer];
        EXPECT_EQ(minutes.of(time), time.local);
        EXPECT_EQ(seconds.of(time), place.clock.localTime(time.rounded(Precision::seconds)));
        EXPECT_NE(seconds.of(time), minutes.of(time)) << almanac::keyOf(prayer);
    }
}

TEST(CliClockface, ShowsNothingOfATimeThatThereIsNot) {
    almanac::Place pole;
    pole.latitude = -90.0;
    const almanac::Day day = almanac::Almanac(pole).day(2026y / 12 / 21);
    EXPECT_FALSE(Clockface(pole.clock, Precision::minutes).of(day[Prayer::maghrib]));
    EXPECT_FALSE(shownTime(std::nullopt));
}

TEST(CliClockface, SaysOnWhichDateATimeFalls) {
    const auto text = [](Date date, std::chrono::seconds time, std::string_view blank) {
        return clockAndDayText({date, time, 3h}, kDate, Precision::minutes, blank);
    };
    EXPECT_EQ(text(kDate, 6h + 7min, " "), "06:07");
    EXPECT_EQ(text(2026y / 11 / 22, 4min, " "), "00:04 +1");
    EXPECT_EQ(text(2026y / 11 / 20, 23h + 51min, " "), "23:51 -1");
    EXPECT_EQ(text(2026y / 11 / 20, 23h + 51min, ""), "23:51-1");
    EXPECT_EQ(clockAndDayText({kDate, 61s, 3h}, kDate, Precision::seconds, " "), "00:01:01");
}

TEST(CliDayText, HoursOnTheSunsetBasedDial) {
    EXPECT_EQ(ezaniText(12.0), "12:00");
    EXPECT_EQ(ezaniText(12.5), "12:30");
    EXPECT_EQ(ezaniText(1.25), "1:15");
    EXPECT_EQ(ezaniText(0.25), "12:15");
    EXPECT_EQ(ezaniText(-0.5), "11:30");
    EXPECT_EQ(ezaniText(std::nullopt), "");
}

TEST(CliPlaceText, Distances) {
    EXPECT_EQ(distanceText(0.34), "0.3 km");
    EXPECT_EQ(distanceText(9.96), "10 km");
    EXPECT_EQ(distanceText(10306.6), "10307 km");
}

DayTime shownAt(Prayer prayer, almanac::Instant instant) {
    DayTime time;
    time.prayer = prayer;
    time.shown = instant;
    return time;
}

TEST(CliWidget, NearnessAndPercentage) {
    const almanac::Instant start = sys_days(kDate);
    const almanac::NextPrayer next{shownAt(Prayer::dhuhr, start + 100min), shownAt(Prayer::sunrise, start)};
    EXPECT_EQ(nearnessOf(next, start, 15min), Nearness::now);
    EXPECT_EQ(nearnessOf(next, start + 5min, 15min), Nearness::calm);
    EXPECT_EQ(nearnessOf(next, start + 84min + 59s, 15min), Nearness::calm);
    EXPECT_EQ(nearnessOf(next, start + 85min, 15min), Nearness::soon);
    EXPECT_EQ(percentageOf(next, start), 0);
    EXPECT_EQ(percentageOf(next, start + 59s), 0);
    EXPECT_EQ(percentageOf(next, start + 50min), 50);
    EXPECT_EQ(percentageOf({}, start), 0);
    EXPECT_EQ(nearnessOf({}, start, 15min), Nearness::calm);
}

} // namespace
} // namespace zorel::cli
