// SPDX-License-Identifier: Apache-2.0
#include "ring/Schedule.h"
#include "tests/ring/RingWorld.h"

#include <gtest/gtest.h>

namespace zorel::test {
namespace {

using ring::RungLog;
using ring::Schedule;
using ring::Step;
using namespace std::chrono_literals;

/// A schedule for Fajr at kDawn.
struct ScheduleTest : testing::Test {
    TemporaryFolder folder;
    RungLog log{folder.path("rung.txt")};
    Schedule schedule{log};

    ScheduleTest() { schedule.setPlan(planOf({ringAt(kDawn)})); }
    static std::pair<std::size_t, std::size_t> counts(const Step& step) {
        return {step.ring.size(), step.missed.size()};
    }
};
using Counts = std::pair<std::size_t, std::size_t>;

TEST_F(ScheduleTest, WaitsForTheNextRing) {
    const Step step = schedule.step(kDawn - 1s);
    EXPECT_EQ(counts(step), Counts(0, 0));
    EXPECT_EQ(step.next, kDawn);
}

TEST_F(ScheduleTest, RingsOnTheSecondAndOnlyOnce) {
    EXPECT_EQ(counts(schedule.step(kDawn)), Counts(1, 0));
    EXPECT_EQ(counts(schedule.step(kDawn)), Counts(0, 0));
    EXPECT_EQ(counts(schedule.step(kDawn + 1s)), Counts(0, 0));
}

TEST_F(ScheduleTest, WhatWasMissedIsToldWithoutSoundForTenMinutes) {
    const std::vector<std::pair<std::chrono::seconds, Counts>> cases{
        {5s, {1, 0}}, {6s, {0, 1}}, {10min, {0, 1}}, {10min + 1s, {0, 0}}, {24h, {0, 0}}};
    for (const auto& [late, expected] : cases) {
        RungLog empty(folder.path("none-" + std::to_string(late.count())));
        Schedule fresh(empty);
        fresh.setPlan(planOf({ringAt(kDawn)}));
        EXPECT_EQ(counts(fresh.step(kDawn + late)), expected) << late.count();
    }
}

TEST_F(ScheduleTest, AClockThatIsSetBackRingsNothingTwice) {
    EXPECT_EQ(counts(schedule.step(kDawn)), Counts(1, 0));
    EXPECT_EQ(counts(schedule.step(kDawn - 1h)), Counts(0, 0));
    schedule.setPlan(planOf({ringAt(kDawn), ringAt(kDawn + 24h)}));
    EXPECT_EQ(counts(schedule.step(kDawn)), Counts(0, 0));
    EXPECT_EQ(counts(schedule.step(kDawn + 24h)), Counts(1, 0));
}

TEST_F(ScheduleTest, AClockThatIsSetForwardsPastARingTellsOrSkipsIt) {
    EXPECT_EQ(counts(schedule.step(kDawn - 1h)), Counts(0, 0));
    EXPECT_EQ(counts(schedule.step(kDawn + 3min)), Counts(0, 1));
    EXPECT_EQ(counts(schedule.step(kDawn + 4min)), Counts(0, 0));
}

TEST_F(ScheduleTest, NothingRingsTwiceAfterARestart) {
    EXPECT_EQ(counts(schedule.step(kDawn)), Counts(1, 0));
    RungLog again(folder.path("rung.txt"));
    Schedule restarted(again);
    restarted.setPlan(planOf({ringAt(kDawn)}));
    EXPECT_EQ(counts(restarted.step(kDawn)), Counts(0, 0));
    EXPECT_EQ(counts(restarted.step(kDawn + 2min)), Counts(0, 0));
}

TEST_F(ScheduleTest, AnAlarmThatWasMovedRingsAtItsNewTime) {
    EXPECT_EQ(counts(schedule.step(kDawn)), Counts(1, 0));
    schedule.setPlan(planOf({ringAt(kDawn + 10min)}));
    EXPECT_EQ(counts(schedule.step(kDawn + 1min)), Counts(0, 0));
    EXPECT_EQ(counts(schedule.step(kDawn + 10min)), Counts(1, 0));
}

TEST_F(ScheduleTest, TwoAlarmsOfOneInstantBothRing) {
    schedule.setPlan(planOf({ringAt(kDawn), ringAt(kDawn, "tulu")}));
    EXPECT_EQ(counts(schedule.step(kDawn)), Counts(2, 0));
}

TEST_F(ScheduleTest, ASnoozedRingComesBackAfterFiveMinutesEvenAfterARestart) {
    const Step first = schedule.step(kDawn);
    schedule.snooze(first.ring.front(), kDawn + 8s);
    RungLog again(folder.path("rung.txt"));
    Schedule restarted(again);
    restarted.setPlan(planOf({}));
    const Step waiting = restarted.step(kDawn + 60s);
    EXPECT_EQ(counts(waiting), Counts(0, 0));
    EXPECT_EQ(waiting.next, kDawn + 5min + 8s);
    const Step step = restarted.step(kDawn + 5min + 8s);
    ASSERT_EQ(counts(step), Counts(1, 0));
    EXPECT_EQ(step.ring.front(), ringAt(kDawn));
    EXPECT_EQ(counts(restarted.step(kDawn + 5min + 9s)), Counts(0, 0));
}

TEST_F(ScheduleTest, APlanIsAskedForWhenTheEventIsOver) {
    EXPECT_FALSE(schedule.step(kDawn).wantsPlan);
    const Step waiting = schedule.step(kDawn + 59s);
    EXPECT_FALSE(waiting.wantsPlan);
    EXPECT_EQ(waiting.next, kDawn + 60s);
    EXPECT_TRUE(schedule.step(kDawn + 60s).wantsPlan);
    EXPECT_FALSE(schedule.step(kDawn + 61s).wantsPlan);
}

TEST_F(ScheduleTest, APlanIsAskedForWhenThePlanSays) {
    Plan plan = planOf({ringAt(kDawn)});
    plan.again = kDawn - 30min;
    schedule.setPlan(plan);
    EXPECT_EQ(schedule.step(kDawn - 1h).next, kDawn - 30min);
    EXPECT_TRUE(schedule.step(kDawn - 30min).wantsPlan);
    EXPECT_EQ(schedule.step(kDawn - 29min).next, kDawn);
}

TEST_F(ScheduleTest, KeepsStillWhereAnotherProgramRings) {
    Plan plan = planOf({ringAt(kDawn)});
    plan.keeper = "gnome";
    schedule.setPlan(plan);
    const Step step = schedule.step(kDawn);
    EXPECT_EQ(counts(step), Counts(0, 0));
    EXPECT_EQ(step.next, std::nullopt);
}

TEST_F(ScheduleTest, WhatCannotBeNotedRingsAllTheSameAndIsSaid) {
    RungLog nowhere(folder.path("missing/rung.txt"));
    Schedule fresh(nowhere);
    fresh.setPlan(planOf({ringAt(kDawn)}));
    EXPECT_EQ(counts(fresh.step(kDawn)), Counts(1, 0));
    EXPECT_THAT(fresh.trouble(), testing::HasSubstr("cannot be noted"));
    EXPECT_EQ(counts(fresh.step(kDawn + 1s)), Counts(0, 0));
}

TEST(RungLog, KeepsTheNewestAndReadsWhatItWrote) {
    const TemporaryFolder folder;
    RungLog log(folder.path("rung.txt"));
    for (int day = 0; day < 40; ++day) {
        EXPECT_FALSE(log.add(ringAt(kDawn + day * 24h)));
    }
    const RungLog read(folder.path("rung.txt"));
    EXPECT_TRUE(read.has(ringAt(kDawn + 39 * 24h)));
    EXPECT_TRUE(read.has(ringAt(kDawn + 8 * 24h)));
    EXPECT_FALSE(read.has(ringAt(kDawn + 7 * 24h)));
    EXPECT_FALSE(read.has(ringAt(kDawn + 39 * 24h, "isha")));
}

TEST(RungLog, ABrokenFileIsReadAsFarAsItIsOne) {
    const TemporaryFolder folder;
    writeFile(folder.path("rung.txt"), "told\tfajr\t1800000000\nsnoozed\t1\tx\nnoise\ntold\tisha\tx\ntold");
    const RungLog log(folder.path("rung.txt"));
    EXPECT_TRUE(log.has(ringAt(kDawn)));
    EXPECT_TRUE(log.snoozed().empty());
}

TEST(RungLog, OnePrayerIsPutOffOnce) {
    const TemporaryFolder folder;
    RungLog log(folder.path("rung.txt"));
    EXPECT_FALSE(log.snooze(ringAt(kDawn), kDawn + 5min));
    EXPECT_FALSE(log.snooze(ringAt(kDawn), kDawn + 9min));
    ASSERT_EQ(log.snoozed().size(), 1U);
    EXPECT_EQ(log.snoozed().front().until, kDawn + 9min);
    EXPECT_FALSE(log.forgetSnooze("fajr"));
    EXPECT_TRUE(RungLog(folder.path("rung.txt")).snoozed().empty());
}

} // namespace
} // namespace zorel::test
