// SPDX-License-Identifier: Apache-2.0
// What the clock of a place shows: changes, gaps, folds, days that never were, years far away, rules.
#include "almanac/PlaceClock.h"

#include <gtest/gtest.h>

#include <ostream>
#include <thread>

namespace zorel::almanac {

void PrintTo(const LocalTime& time, std::ostream* stream) {
    *stream << isoDateTime(time);
}

namespace {

using namespace std::chrono_literals;
using std::chrono::sys_days;

PlaceClock zone(const char* name) {
    return PlaceClock::ofZone(name).value();
}

/// Last Sunday of March to last Sunday of October.
const ClockRule kBerlinRule{1.0, true, 2, 35, 9, 35, true};

PlaceClock ruleAlone(const ClockRule& rule) {
    return PlaceClock::ofPlace("", rule, "2026f");
}

std::string shown(const PlaceClock& clock, Date date, std::chrono::seconds timeOfDay) {
    return isoDateTime(clock.localTime(clock.instantOf(date, timeOfDay)));
}

TEST(PlaceClock, OffsetsOnEveDayAndMorrowOfAChange) {
    const PlaceClock berlin = zone("Europe/Berlin");
    EXPECT_EQ(berlin.offsetOn(2027y / 3 / 27), 1h);
    EXPECT_EQ(berlin.offsetOn(2027y / 3 / 28), 2h);
    EXPECT_EQ(berlin.offsetOn(2027y / 3 / 29), 2h);
    EXPECT_EQ(berlin.offsetAt(sys_days(2027y / 3 / 28) + 59min + 59s), 1h);
    EXPECT_EQ(berlin.offsetAt(sys_days(2027y / 3 / 28) + 1h), 2h);
    EXPECT_EQ(zone("Australia/Sydney").offsetOn(2026y / 10 / 3), 10h);
    EXPECT_EQ(zone("Australia/Sydney").offsetOn(2026y / 10 / 4), 11h);
}

TEST(PlaceClock, LocalTimeOfAnInstant) {
    const PlaceClock kathmandu = zone("Asia/Kathmandu");
    const LocalTime midnight{2026y / 1 / 2, 0s, 5h + 45min};
    EXPECT_EQ(kathmandu.localTime(sys_days(2026y / 1 / 1) + 18h + 15min), midnight);
    EXPECT_EQ(kathmandu.dateAt(sys_days(2026y / 1 / 1) + 18h + 14min + 59s), 2026y / 1 / 1);
    EXPECT_EQ(zone("America/St_Johns").localTime(Instant(-1s)),
              (LocalTime{1969y / 12 / 31, 20h + 29min + 59s, -(3h + 30min)}));
}

TEST(PlaceClock, SkippedTimeMovesForwardByTheGap) {
    const PlaceClock berlin = zone("Europe/Berlin");
    EXPECT_EQ(shown(berlin, 2027y / 3 / 28, 1h + 59min), "2027-03-28T01:59:00+01:00");
    EXPECT_EQ(shown(berlin, 2027y / 3 / 28, 2h), "2027-03-28T03:00:00+02:00");
    EXPECT_EQ(shown(berlin, 2027y / 3 / 28, 2h + 59min), "2027-03-28T03:59:00+02:00");
    EXPECT_EQ(shown(berlin, 2027y / 3 / 28, 3h), "2027-03-28T03:00:00+02:00");
    // Half an hour, and one at midnight.
    EXPECT_EQ(shown(zone("Australia/Lord_Howe"), 2026y / 10 / 4, 2h + 10min), "2026-10-04T02:40:00+11:00");
    EXPECT_EQ(shown(zone("Africa/Cairo"), 2024y / 4 / 26, 0h), "2024-04-26T01:00:00+03:00");
}

TEST(PlaceClock, OfATimeThatOccursTwiceTheFirst) {
    const PlaceClock berlin = zone("Europe/Berlin");
    EXPECT_EQ(shown(berlin, 2026y / 10 / 25, 2h), "2026-10-25T02:00:00+02:00");
    EXPECT_EQ(shown(berlin, 2026y / 10 / 25, 2h + 59min), "2026-10-25T02:59:00+02:00");
    EXPECT_EQ(shown(berlin, 2026y / 10 / 25, 3h), "2026-10-25T03:00:00+01:00");
    EXPECT_EQ(shown(zone("America/Santiago"), 2026y / 4 / 4, 23h + 30min), "2026-04-04T23:30:00-03:00");
}

TEST(PlaceClock, ADayThatNeverWas) {
    const PlaceClock apia = zone("Pacific/Apia");
    EXPECT_EQ(apia.offsetOn(2011y / 12 / 29), -10h);
    EXPECT_EQ(apia.offsetOn(2011y / 12 / 30), 14h);
    EXPECT_EQ(shown(apia, 2011y / 12 / 30, 12h), "2011-12-31T12:00:00+14:00");
    EXPECT_EQ(apia.dateAt(sys_days(2011y / 12 / 30) + 9h + 59min), 2011y / 12 / 29);
    EXPECT_EQ(apia.dateAt(sys_days(2011y / 12 / 30) + 10h), 2011y / 12 / 31);
    EXPECT_FALSE(apia.steadyOffsetAround(2011y / 12 / 30));
    EXPECT_EQ(shown(zone("Asia/Manila"), 1844y / 12 / 31, 12h).substr(0, 10), "1845-01-01");
    EXPECT_EQ(shown(zone("Pacific/Guam"), 1844y / 12 / 31, 12h).substr(0, 10), "1845-01-01");
}

TEST(PlaceClock, LocalMeanTimeHasSeconds) {
    EXPECT_EQ(zone("Europe/Istanbul").offsetOn(1700y / 1 / 1), 1h + 55min + 52s);
    EXPECT_EQ(zone("America/New_York").offsetOn(1583y / 1 / 1), -(4h + 56min + 2s));
    EXPECT_EQ(isoDateTime(zone("Asia/Kolkata").localTime(sys_days(1800y / 1 / 1))),
              "1800-01-01T05:53:28+05:53:28");
}

TEST(PlaceClock, YearsAfterTheLastOfTheData) {
    const PlaceClock berlin = zone("Europe/Berlin");
    for (const auto year :
         {2037y, 2038y, 2059y, 2060y, 2100y, 2436y, 2437y, 2438y, 2837y, 2838y, 6000y, 9998y}) {
        EXPECT_EQ(berlin.offsetOn(year / 7 / 1), 2h) << int(year);
        EXPECT_EQ(berlin.offsetOn(year / 1 / 1), 1h) << int(year);
        EXPECT_EQ(berlin.offsetOn(year / 12 / 31), 1h) << int(year);
        EXPECT_EQ(berlin.steadyOffsetAround(year / 7 / 1), 2h) << int(year);
        const Date change(sys_days(year / 3 / std::chrono::Sunday[std::chrono::last]));
        EXPECT_EQ(berlin.offsetOn(addDays(change, -1)), 1h) << int(year);
        EXPECT_EQ(berlin.offsetOn(change), 2h) << int(year);
        EXPECT_FALSE(berlin.steadyOffsetAround(change)) << int(year);
    }
    EXPECT_EQ(zone("Asia/Kolkata").steadyOffsetAround(9998y / 7 / 1), 5h + 30min);
}

TEST(PlaceClock, SteadyFromADayBeforeToTwoDaysAfter) {
    const PlaceClock berlin = zone("Europe/Berlin"); // the change is at 1:00 universal time, 2:00 on the wall
    EXPECT_EQ(berlin.steadyOffsetAround(2027y / 3 / 26), 1h);
    EXPECT_FALSE(berlin.steadyOffsetAround(2027y / 3 / 27));
    EXPECT_FALSE(berlin.steadyOffsetAround(2027y / 3 / 28));
    EXPECT_FALSE(berlin.steadyOffsetAround(2027y / 3 / 29));
    EXPECT_EQ(berlin.steadyOffsetAround(2027y / 3 / 30), 2h);
}

TEST(PlaceClock, FixedOffset) {
    const PlaceClock clock = PlaceClock::fixed(-(3h + 30min));
    EXPECT_EQ(clock.offsetOn(2026y / 7 / 1), -(3h + 30min));
    EXPECT_EQ(clock.steadyOffsetAround(2026y / 7 / 1), -(3h + 30min));
    EXPECT_EQ(shown(clock, 9998y / 12 / 31, 24h), "9999-01-01T00:00:00-03:30");
    EXPECT_EQ(clock.sourceOn(2026y / 7 / 1), ClockSource::fixed);
    EXPECT_EQ(clock.noticeOn(2026y / 7 / 1), ClockNotice::none);
    EXPECT_EQ(clock.zoneName(), "");
    EXPECT_EQ(PlaceClock().offsetOn(2026y / 7 / 1), 0s);
}

TEST(PlaceClock, RuleAloneHoldsForWholeDays) {
    const PlaceClock clock = ruleAlone(kBerlinRule);
    EXPECT_EQ(clock.offsetOn(2027y / 3 / 27), 1h);
    EXPECT_EQ(clock.offsetOn(2027y / 3 / 28), 2h);
    EXPECT_EQ(clock.offsetOn(2027y / 10 / 30), 2h);
    EXPECT_EQ(clock.offsetOn(2027y / 10 / 31), 1h);
    EXPECT_EQ(clock.dateAt(sys_days(2027y / 6 / 1) + 22h), 2027y / 6 / 2);
    EXPECT_EQ(ruleAlone({.standard = 5.75}).offsetOn(2027y / 6 / 1), 5h + 45min);
}

TEST(PlaceClock, RuleChangesAtMidnightOfStandardTime) {
    const PlaceClock clock = ruleAlone(kBerlinRule);
    EXPECT_EQ(shown(clock, 2027y / 3 / 27, 23h + 59min), "2027-03-27T23:59:00+01:00");
    EXPECT_EQ(shown(clock, 2027y / 3 / 28, 30min), "2027-03-28T01:30:00+02:00");
    EXPECT_EQ(shown(clock, 2027y / 10 / 31, 30min), "2027-10-31T00:30:00+02:00");
    EXPECT_EQ(isoDateTime(clock.localTime(sys_days(2027y / 10 / 30) + 23h)), "2027-10-31T00:00:00+01:00");
    EXPECT_FALSE(clock.steadyOffsetAround(2027y / 3 / 28));
    EXPECT_EQ(clock.steadyOffsetAround(2027y / 3 / 31), 2h);
    EXPECT_EQ(clock.steadyOffsetAround(2027y / 3 / 26), 1h);
}

TEST(PlaceClock, RuleAloneSaysSo) {
    for (const char* name : {"", "Mars/Olympus", "../Berlin"}) {
        const PlaceClock clock = PlaceClock::ofPlace(name, kBerlinRule, "2026f");
        EXPECT_EQ(clock.sourceOn(2027y / 7 / 1), ClockSource::rule) << name;
        EXPECT_EQ(clock.noticeOn(2027y / 7 / 1), ClockNotice::ruleOnly) << name;
        EXPECT_FALSE(clock.otherOffsetOn(2027y / 7 / 1)) << name;
        EXPECT_EQ(clock.offsetOn(2027y / 7 / 1), 2h) << name;
        EXPECT_EQ(clock.zoneName(), name);
    }
}

TEST(PlaceClock, RuleWithADeparture) {
    ClockRule rule = kBerlinRule;
    rule.departure = ClockDeparture{2026y / 11 / 1, 2027y / 3 / 13, 2.0};
    const PlaceClock clock = ruleAlone(rule);
    EXPECT_EQ(clock.offsetOn(2026y / 10 / 31), 1h);
    EXPECT_EQ(clock.offsetOn(2026y / 11 / 1), 2h);
    EXPECT_EQ(clock.offsetOn(2027y / 3 / 13), 2h);
    EXPECT_EQ(clock.offsetOn(2027y / 3 / 14), 1h);
}

TEST(PlaceClock, RuleThatIsNoNumberIsUniversalTime) {
    EXPECT_EQ(ruleAlone({.standard = std::numeric_limits<double>::quiet_NaN()}).offsetOn(2027y / 7 / 1), 0s);
    EXPECT_EQ(ruleAlone({.standard = 1e300}).offsetOn(2027y / 7 / 1), 0s);
    const ClockRule nonsense{0.0, true, -7, 2147483647, 2147483647, -2147483647 - 1};
    EXPECT_LE(ruleAlone(nonsense).offsetOn(2027y / 7 / 1), 1h);
}

TEST(PlaceClock, PlaceWithoutAKnownEditionTakesTheSystemsData) {
    for (const char* edition : {"", "unknown", "2000a", "26f"}) {
        const PlaceClock clock =
            PlaceClock::ofPlace("Europe/Berlin", {.standard = 9.0, .exact = true}, edition);
        EXPECT_EQ(clock.offsetOn(2027y / 7 / 1), 2h) << edition;
        EXPECT_EQ(clock.noticeOn(2027y / 7 / 1), ClockNotice::none) << edition;
        EXPECT_FALSE(clock.otherOffsetOn(2027y / 7 / 1)) << edition;
    }
}

TEST(PlaceClock, OnlyPlainNamesOfZonesWithData) {
    for (const char* name : {"",
                             "Europe/Nowhere",
                             "../../etc/passwd",
                             "/etc/passwd",
                             "/etc/localtime",
                             "Europe",
                             "Europe/",
                             "Europe//Oslo",
                             "a b",
                             "\n",
                             "posix/../UTC",
                             "libc:localtime",
                             "file:UTC",
                             "Fixed/UTC+03:00:00",
                             "UTC0",
                             "UTC+3",
                             "EST5EDT,M3.2.0,M11.1.0",
                             "localtime",
                             "posixrules",
                             "tzdata.zi",
                             "leapseconds",
                             "right/Europe/Berlin"}) {
        EXPECT_FALSE(PlaceClock::ofZone(name)) << name;
    }
    EXPECT_FALSE(PlaceClock::ofZone(std::string("Europe/Berlin\0x", 15)));
    EXPECT_FALSE(PlaceClock::ofZone(std::string(100'000, 'a')));
    for (const char* name : {"UTC", "Europe/Berlin", "Etc/GMT+3", "America/Argentina/Buenos_Aires"}) {
        ASSERT_TRUE(PlaceClock::ofZone(name)) << name;
        EXPECT_EQ(zone(name).zoneName(), name);
    }
}

/// Offsets of many zones and days, for comparison.
std::vector<std::chrono::seconds> survey() {
    std::vector<std::chrono::seconds> found;
    for (const char* name :
         {"Europe/Paris", "Asia/Gaza", "America/Havana", "Africa/Casablanca", "Pacific/Easter"}) {
        const PlaceClock both = PlaceClock::ofPlace(name, kBerlinRule, "9999z");
        for (Date date = 2026y / 1 / 1; date < 2028y / 1 / 1; date = addDays(date, 1)) {
            found.push_back(zone(name).offsetOn(date));
            found.push_back(both.offsetOn(date));
        }
    }
    return found;
}

TEST(PlaceClock, TwoThreadsSeeTheSame) {
    std::vector<std::chrono::seconds> other;
    std::thread thread([&other] { other = survey(); });
    const auto here = survey();
    thread.join();
    EXPECT_EQ(here, other);
}

} // namespace
} // namespace zorel::almanac
