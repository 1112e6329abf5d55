// SPDX-License-Identifier: Apache-2.0
// Every zone of the catalogue against the C library, which reads the same data on its own; and places whose
// rule and whose system's data are of different editions.
#include "almanac/PlaceClock.h"
#include "platform/foundation/Clock.h"
#include "tests/almanac/Probe.h"
#include "tests/almanac/ZoneTable.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ctime>
#include <filesystem>
#include <random>

namespace zorel::almanac {
namespace {

using namespace std::chrono_literals;
using std::chrono::sys_days;
using testing::ElementsAre;

std::tm libraryFields(Instant instant) {
    const std::time_t time = instant.time_since_epoch().count();
    std::tm fields{};
    localtime_r(&time, &fields);
    return fields;
}

TEST(ClockOfEveryZone, IsThatOfTheCLibraryAtNoon) {
    const std::vector<std::string> zones = ZoneTable().names();
    EXPECT_EQ(zones.size(), 391u);
    for (const std::string& name : zones) {
        const TimeZoneOverride lives(name.c_str());
        const auto clock = PlaceClock::ofZone(name);
        ASSERT_TRUE(clock) << name;
        for (Date date = 2026y / 1 / 1; date < 2029y / 1 / 1; date = addDays(date, 1)) {
            const auto offset = clock->offsetOn(date);
            const std::tm fields = libraryFields(sys_days(date) + 12h - offset);
            ASSERT_EQ(fields.tm_gmtoff, offset.count()) << name << ' ' << isoDate(date);
            ASSERT_EQ(fields.tm_hour, 12) << name << ' ' << isoDate(date);
        }
    }
}

TEST(ClockOfEveryZone, IsThatOfTheCLibraryAtAnyInstant) {
    std::mt19937_64 random(1);
    std::uniform_int_distribution<std::int64_t> any(sys_days(1850y / 1 / 1).time_since_epoch() / 1s,
                                                    sys_days(2900y / 1 / 1).time_since_epoch() / 1s);
    for (const std::string& name : ZoneTable().names()) {
        const TimeZoneOverride lives(name.c_str());
        const PlaceClock clock = PlaceClock::ofZone(name).value();
        for (int i = 0; i < 400; ++i) {
            const Instant instant{std::chrono::seconds(any(random))};
            ASSERT_EQ(libraryFields(instant).tm_gmtoff, clock.offsetAt(instant).count())
                << name << ' ' << instant.time_since_epoch().count();
        }
    }
}

TEST(ClockOfEveryZone, InstantsComeBackFromTheirLocalTime) {
    for (const std::string& name : ZoneTable().names()) {
        const PlaceClock clock = PlaceClock::ofZone(name).value();
        for (Instant instant = sys_days(2026y / 9 / 1); instant < sys_days(2027y / 6 / 1); instant += 23min) {
            const LocalTime time = clock.localTime(instant);
            const Instant back = clock.instantOf(time.date, time.timeOfDay);
            const LocalTime shown = clock.localTime(back);
            ASSERT_LE(back, instant) << name << ' ' << isoDateTime(time);
            ASSERT_TRUE(shown.date == time.date && shown.timeOfDay == time.timeOfDay) << isoDateTime(time);
            ASSERT_EQ(back == instant, shown.offset == time.offset) << name << ' ' << isoDateTime(time);
        }
    }
}

/// The offset if it is the same at every quarter of an hour from a day before 0:00 to two days after.
std::optional<std::chrono::seconds> steadyByLooking(const PlaceClock& clock, Date date) {
    const Instant midnight = clock.instantOf(date, 0s);
    const auto offset = clock.offsetAt(midnight);
    for (Instant instant = midnight - 24h; instant < midnight + 48h; instant += 15min) {
        if (clock.offsetAt(instant) != offset) {
            return std::nullopt;
        }
    }
    return offset;
}

TEST(ClockOfEveryZone, SteadyOffsetIsWhatLookingAtEveryInstantFinds) {
    const ZoneTable table;
    for (const std::string& name : table.names()) {
        const PlaceClock clock = PlaceClock::ofPlace(name, table.rule(name), "2026f");
        for (Date date = 2026y / 10 / 1; date < 2027y / 4 / 15; date = addDays(date, 1)) {
            ASSERT_EQ(clock.steadyOffsetAround(date), steadyByLooking(clock, date)) << name << isoDate(date);
        }
    }
}

// What the zone table counts in 2026 are days before its exact rules held: the rest of the year they are
// right.
TEST(RulesOfTheCatalogue, HoldFromTheDayThatIsTakenForTheirFirst) {
    const ZoneTable table;
    for (const std::string& name : table.names()) {
        const ClockRule rule = table.rule(name);
        const PlaceClock byRule = PlaceClock::ofPlace("", rule, "");
        const PlaceClock system = PlaceClock::ofZone(name).value();
        int wrong = 0;
        for (Date date = 2026y / 1 / 1; date < kRuleExactFrom; date = addDays(date, 1)) {
            wrong += byRule.offsetOn(date) != system.offsetOn(date) ? 1 : 0;
        }
        EXPECT_TRUE(!rule.exact || wrong == table.number(name, "days2026")) << name << ' ' << wrong;
    }
}

const std::string kOldData = "TZDIR='" ZOREL_OLD_ZONES "'";

std::vector<std::string> onDays(const std::string& environment, const std::string& zone,
                                const std::vector<std::string>& dates) {
    std::vector<std::string> questions;
    for (const std::string& date : dates) {
        questions.push_back("place 2026f " + zone + ' ' + date);
    }
    return ask(environment, questions);
}

TEST(ClockWithOlderData, KnowsItsEdition) {
    EXPECT_THAT(ask(kOldData, {"edition"}), ElementsAre("2025b"));
}

TEST(ClockWithOlderData, ExactRuleTakesOverWhereTheyDiffer) {
    EXPECT_THAT(onDays(kOldData, "America/Vancouver",
                       {"2026-10-31", "2026-11-01", "2026-11-22", "2027-03-13", "2027-03-14", "2030-12-31"}),
                ElementsAre("-07:00 zoneData none", "-07:00 rule ruleIsNewer -08:00",
                            "-07:00 rule ruleIsNewer -08:00", "-07:00 rule ruleIsNewer -08:00",
                            "-07:00 zoneData none", "-07:00 rule ruleIsNewer -08:00"));
    EXPECT_THAT(
        onDays(kOldData, "Africa/Casablanca", {"2026-09-20", "2027-01-01", "2027-02-20"}),
        ElementsAre("+00:00 rule ruleIsNewer +01:00", "+00:00 rule ruleIsNewer +01:00",
                    "+00:00 zoneData none")); // the last in Ramadan, when the old law had the same time
}

TEST(ClockWithOlderData, SaysNothingOfDaysBeforeTheRule) {
    EXPECT_THAT(onDays(kOldData, "Africa/Casablanca", {"2026-09-19", "2020-01-01"}),
                ElementsAre("+01:00 zoneData none", "+01:00 zoneData none"));
    EXPECT_THAT(onDays(kOldData, "America/Vancouver", {"2026-01-01"}), ElementsAre("-08:00 zoneData none"));
}

TEST(ClockWithOlderData, SystemStaysAfterTheDaysOfTheRuleAndSaysSo) {
    EXPECT_THAT(onDays(kOldData, "America/Vancouver", {"2031-01-01", "2031-07-01", "2500-01-01"}),
                ElementsAre("-08:00 zoneData systemIsOlder -07:00", "-07:00 zoneData none",
                            "-08:00 zoneData systemIsOlder -07:00"));
}

TEST(ClockWithOlderData, SystemStaysWhereTheRuleIsNotExact) {
    EXPECT_THAT(
        onDays(kOldData, "Australia/Sydney", {"2027-04-03", "2027-04-04", "2027-10-01", "2027-10-03"}),
        ElementsAre("+11:00 zoneData none", "+10:00 zoneData none", "+10:00 zoneData systemIsOlder +11:00",
                    "+11:00 zoneData none"));
    EXPECT_THAT(
        onDays(kOldData, "Pacific/Auckland", {"2027-09-26", "2027-09-30", "2027-10-01", "2027-07-01"}),
        ElementsAre("+13:00 zoneData systemIsOlder +12:00", "+13:00 zoneData systemIsOlder +12:00",
                    "+13:00 zoneData none", "+12:00 zoneData none"));
    EXPECT_THAT(
        onDays(kOldData, "America/Santiago", {"2027-09-01", "2027-09-05", "2027-12-01"}),
        ElementsAre("-04:00 zoneData systemIsOlder -03:00", "-03:00 zoneData none", "-03:00 zoneData none"));
    EXPECT_THAT(onDays(kOldData, "Asia/Gaza", {"2027-07-01", "2030-03-30", "2030-04-01"}),
                ElementsAre("+03:00 zoneData none", "+03:00 zoneData none", "+03:00 zoneData none"));
}

TEST(ClockWithOlderData, NoticeIsThereExactlyWhereTheyDiffer) {
    EXPECT_THAT(onDays(kOldData, "Europe/Berlin", {"2026-11-22", "2027-03-28", "2027-07-01", "2040-01-01"}),
                ElementsAre("+01:00 zoneData none", "+02:00 zoneData none", "+02:00 zoneData none",
                            "+01:00 zoneData none"));
}

TEST(ClockWithOlderData, ChangeThatWasAbolishedDoesNotHappen) {
    // Vancouver: 1:59:59 and 2:00 on 1 November 2026, 2:00 on 14 March 2027; 1 January 2031 has no way round.
    EXPECT_THAT(
        ask(kOldData, {"local 2026f America/Vancouver 1793523599", "local 2026f America/Vancouver 1793523600",
                       "local 2026f America/Vancouver 1805014799", "local 2026f America/Vancouver 1805014800",
                       "local 2026f America/Vancouver 1805018400"}),
        ElementsAre("2026-11-01T01:59:59-07:00", "2026-11-01T02:00:00-07:00", "2027-03-14T01:59:59-07:00",
                    "2027-03-14T02:00:00-07:00", "2027-03-14T03:00:00-07:00"));
}

TEST(ClockWithOlderData, SameOrNewerEditionIsTheSystems) {
    const std::string vancouver = " America/Vancouver 2026-12-01";
    EXPECT_THAT(ask(kOldData, {"place 2025b" + vancouver, "place 2025a" + vancouver, "place 1999" + vancouver,
                               "place rearguard" + vancouver, "place 2025c" + vancouver}),
                ElementsAre("-08:00 zoneData none", "-08:00 zoneData none", "-08:00 zoneData none",
                            "-08:00 zoneData none", "-07:00 rule ruleIsNewer -08:00"));
}

TEST(ClockWithoutData, RuleAloneServesAndSaysSo) {
    const test::TemporaryFolder empty;
    const std::string noData = "TZDIR='" + empty.path() + "'";
    EXPECT_THAT(ask(noData, {"edition", "zone Europe/Berlin 2027-07-01", "zone UTC 2027-07-01"}),
                ElementsAre("", "no zone", "no zone"));
    for (const auto& [zone, answer] : std::map<std::string, std::string>{{"Africa/Casablanca", "+00:00"},
                                                                         {"America/Vancouver", "-07:00"},
                                                                         {"Australia/Sydney", "+11:00"},
                                                                         {"Pacific/Auckland", "+13:00"},
                                                                         {"America/Santiago", "-03:00"},
                                                                         {"Asia/Gaza", "+02:00"}}) {
        EXPECT_THAT(onDays(noData, zone, {"2026-12-01"}), ElementsAre(answer + " rule ruleOnly")) << zone;
    }
    EXPECT_THAT(onDays("TZDIR=/no/such/folder", "Europe/Berlin", {"2027-07-01"}),
                ElementsAre("+02:00 rule ruleOnly"));
}

TEST(ClockWithDamagedData, IsAsWithout) {
    const test::TemporaryFolder damaged;
    const std::string data = test::readFile(ZOREL_OLD_ZONES "/Europe/Berlin");
    test::writeFile(damaged.path("Empty"), "");
    test::writeFile(damaged.path("Text"), "This is no time zone data.\n");
    test::writeFile(damaged.path("Short"), data.substr(0, data.size() / 2));
    test::writeFile(damaged.path("Head"), data.substr(0, 44));
    std::string wild = data;
    for (std::size_t i = 20; i < 44; ++i) {
        wild[i] = '\x7f';
    }
    test::writeFile(damaged.path("Wild"), wild);
    std::filesystem::create_directory(damaged.path("Folder"));
    const std::string environment = "TZDIR='" + damaged.path() + "'";
    for (const char* name : {"Empty", "Text", "Short", "Head", "Wild", "Folder"}) {
        EXPECT_THAT(ask(environment, {std::string("zone ") + name + " 2027-07-01"}), ElementsAre("no zone"))
            << name;
    }
}

} // namespace
} // namespace zorel::almanac
