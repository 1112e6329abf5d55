// SPDX-License-Identifier: Apache-2.0
// What the ring service is told of the alarms of a user with a real home city.
#include "Planner.h"

#include "alarms/UserActions.h"
#include "platform/eventkit/GnomeSource.h"
#include "tests/support/HomeWorld.h"

#include <gtest/gtest.h>

namespace zorel::test {
namespace {

using namespace std::chrono_literals;
using ring::Planned;
using ring::Planner;

constexpr int kFajr = 1;
constexpr int kDhuhr = 3;

struct PlannerTest : testing::Test {
    HomeWorld world;
    std::optional<ClockOverride> clock;

    PlannerTest() {
        world.liveIn(kIstanbul);
        setClock(almanac::Date{std::chrono::year(2026), std::chrono::November, std::chrono::day(21)});
    }
    /// The morning of a date in Istanbul, before Fajr.
    void setClock(almanac::Date date) { at(std::chrono::sys_days(date) + 0h); }
    void at(almanac::Instant instant) {
        clock.reset();
        clock.emplace(Instant(instant));
    }
    [[nodiscard]] static almanac::Instant present() {
        return std::chrono::floor<std::chrono::seconds>(now());
    }
    Planned planned() {
        const AlarmReport before = world.alarms.report();
        return Planner(world.glbFuncs, present()).plan(before, world.alarms.reconcile());
    }
};

TEST_F(PlannerTest, NamesPrayerTimeAndCity) {
    world.glbFuncs.languageId = 1;
    world.glbFuncs.loadLanguageFile();
    world.switchOn(kFajr);
    const Planned result = planned();
    ASSERT_TRUE(result.isKnown);
    ASSERT_EQ(result.plan.rings.size(), 1U);
    const ring::Ring& fajr = result.plan.rings.front();
    EXPECT_EQ(fajr.prayer, "fajr");
    EXPECT_EQ(fajr.at, world.shown(kFajr, almanac::Date{std::chrono::year(2026), std::chrono::November,
                                                        std::chrono::day(21)}));
    EXPECT_EQ(fajr.title, "Fajr 06:07");
    EXPECT_EQ(fajr.body, world.home().name);
    EXPECT_EQ(fajr.missed, "Fajr was at 06:07");
    EXPECT_EQ(fajr.ringtone, Locations::current().ringtones + "/Bell.wav");
    EXPECT_EQ(fajr.duration, 20s);
    EXPECT_EQ(result.plan.stop, "Stop");
    EXPECT_EQ(result.plan.snooze, "Snooze 5 min");
}

TEST_F(PlannerTest, AnOffsetRingsEarlierAndNamesThePrayersOwnTime) {
    world.glbFuncs.languageId = 1;
    world.glbFuncs.loadLanguageFile();
    world.switchOn(kFajr, -15);
    const ring::Ring fajr = planned().plan.rings.at(0);
    EXPECT_EQ(fajr.title, "Fajr 06:07");
    EXPECT_EQ(fajr.body, "15 min before, " + world.home().name);
    EXPECT_EQ(fajr.missed, "Fajr 06:07"); // nobody knows whether it has been by then
}

TEST_F(PlannerTest, WhatPassedWithinTenMinutesIsStillInThePlan) {
    world.switchOn(kFajr);
    const almanac::Instant fajr = planned().plan.rings.at(0).at;
    at(fajr + 9min);
    const Planned soon = planned();
    ASSERT_EQ(soon.plan.rings.size(), 2U);
    EXPECT_EQ(soon.plan.rings[0].at, fajr);
    EXPECT_GT(soon.plan.rings[1].at, fajr + 23h);
    at(soon.plan.rings[1].at + 11min);
    EXPECT_EQ(planned().plan.rings.size(), 1U);
}

TEST_F(PlannerTest, AlarmsThatAreOffDoNotRing) {
    EXPECT_TRUE(planned().plan.rings.empty());
    EXPECT_TRUE(planned().plan.trouble.empty());
}

TEST_F(PlannerTest, TheAlarmsAreReadAgainAtMidnightOfTheMachine) {
    const auto again = planned().plan.again.value();
    EXPECT_GT(again, present());
    EXPECT_LE(again, present() + 24h);
    EXPECT_EQ(localText(Instant(again)).substr(11), "00:00");
}

TEST_F(PlannerTest, RowsThatCannotBeReadAreNotTakenForNone) {
    world.switchOn(kFajr);
    writeFile(world.path("user.sqlite"), "this is no database, but it is long enough to be looked at");
    const Planned result = planned();
    EXPECT_FALSE(result.isKnown);
    EXPECT_FALSE(result.plan.trouble.empty());
}

TEST_F(PlannerTest, GnomeKeepsTheServiceStill) {
    setenv("XDG_CONFIG_HOME", world.path("config").c_str(), 1);
    EXPECT_EQ(planned().plan.keeper, "");
    EXPECT_FALSE(connectGnome(world.path("elsewhere")));
    EXPECT_EQ(planned().plan.keeper, "") << "that is another calendar";
    EXPECT_FALSE(connectGnome(Locations::current().data + "/calendar"));
    EXPECT_EQ(planned().plan.keeper, "GNOME");
    unsetenv("XDG_CONFIG_HOME");
}

TEST_F(PlannerTest, WithoutADatabaseNothingRingsAndNothingIsWrong) {
    const Planned result = Planner(world.glbFuncs, present()).nothing();
    EXPECT_TRUE(result.isKnown);
    EXPECT_TRUE(result.plan.rings.empty());
    EXPECT_TRUE(result.plan.again.has_value());
}

TEST_F(PlannerTest, ATestRingsAnAlarmThatIsOff) {
    const Planner planner(world.glbFuncs, present());
    const Planned result = planner.test(world.alarms.report(), almanac::Prayer::dhuhr);
    ASSERT_EQ(result.plan.rings.size(), 1U);
    EXPECT_EQ(result.plan.rings[0].prayer, "dhuhr");
    EXPECT_EQ(result.plan.rings[0].at,
              world.shown(kDhuhr, almanac::Date{std::chrono::year(2026), std::chrono::November,
                                                std::chrono::day(21)}));
    EXPECT_EQ(result.plan.rings[0].duration, 5s);
}

TEST(Durations, AreThoseOfTheEditor) {
    const std::vector<std::chrono::seconds> expected{5s, 10s, 20s, 30s, 1min, 2min, 3min, 5min};
    for (std::size_t choice = 0; choice < expected.size(); ++choice) {
        EXPECT_EQ(ring::durationOf(static_cast<std::int32_t>(choice)), expected[choice]);
    }
    EXPECT_EQ(ring::durationOf(-1), 5s);
    EXPECT_EQ(ring::durationOf(8), 5s);
}

TEST_F(PlannerTest, WhatIsLeftOutIsNotRung) {
    world.switchOn(kFajr);
    ASSERT_EQ(planned().plan.rings.size(), 1U);
    const almanac::Instant left = planned().plan.rings.front().at;
    ASSERT_TRUE(UserActions(world.glbFuncs, world.functions).skipNext(kTimeIdOffset + kFajr).isDone());
    ASSERT_EQ(planned().plan.rings.size(), 1U);
    EXPECT_GT(planned().plan.rings.front().at, left + 20h);
    at(left + 1min);
    ASSERT_EQ(planned().plan.rings.size(), 1U) << "nor told as missed";
    EXPECT_GT(planned().plan.rings.front().at, left + 20h);
}

} // namespace
} // namespace zorel::test
