// SPDX-License-Identifier: Apache-2.0
// What a person leaves out: the next ring of one alarm, or all of them until a day; and the two actions that
// change everything at once.
#include "alarms/NextRings.h"
#include "alarms/UserActions.h"
#include "tests/eventkit/MemoryCalendar.h"
#include "tests/support/HomeWorld.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorel {
namespace {

using namespace std::chrono_literals;
using almanac::Date;
using std::chrono::sys_days;
using testing::HasSubstr;

constexpr std::int32_t kFajr = 200;
constexpr std::int32_t kAsr = 203;
constexpr std::int32_t kMaghrib = 204;
constexpr Date kToday = 2026y / 11 / 22;
constexpr Date kTomorrow = 2026y / 11 / 23;
constexpr Date kAfter = 2026y / 11 / 24;

class SilenceTest : public testing::Test {
protected:
    SilenceTest() {
        EKEventStore::setCalendar(calendar);
        expectDone(actions.addCity(test::kIstanbul));
        expectDone(actions.addCity(test::kBerlin));
    }
    ~SilenceTest() override { EKEventStore::setCalendar(nullptr); }

    void at(almanac::Instant present) {
        clock.reset();
        clock.emplace(Instant(present));
    }
    void expectDone(const ActionResult& result) {
        EXPECT_EQ(result.state, ActionState::done) << result.reason;
        EXPECT_TRUE(world.alarms.report().isGood()) << world.alarms.report().complaint();
    }
    ActionResult switchOn(std::int32_t prayerId, std::int32_t offset = 0) {
        return actions.switchOn(prayerId, [offset](AlarmInfo& alarm) {
            alarm.timeOffset = offset;
            alarm.melodyName = "Bell.wav";
        });
    }
    [[nodiscard]] almanac::Instant shown(std::int32_t prayerId, Date date) const {
        return world.shown(prayerId - kTimeIdOffset, date);
    }
    [[nodiscard]] AlarmStatus alarm(std::int32_t prayerId) const {
        return world.alarms.report().of(prayerId);
    }
    /// What stands in the calendar, one after the other.
    [[nodiscard]] std::vector<almanac::Instant> starts() const {
        std::vector<almanac::Instant> all;
        for (const auto& [identifier, event] : calendar->events) {
            all.push_back(std::chrono::floor<std::chrono::seconds>(event.startDate));
        }
        std::ranges::sort(all);
        return all;
    }
    [[nodiscard]] UserRows rows() const { return storedUserRows(world.functions.userDBPath()); }

    std::shared_ptr<MemoryCalendar> calendar = std::make_shared<MemoryCalendar>();
    std::optional<ClockOverride> clock{Instant(sys_days{kToday} + 9h)};
    test::HomeWorld world;
    UserActions actions{world.glbFuncs, world.functions};
};

TEST_F(SilenceTest, TheNextRingIsLeftOutAndTheOneAfterItRings) {
    expectDone(switchOn(kMaghrib));
    ASSERT_EQ(alarm(kMaghrib).ringsAt, shown(kMaghrib, kToday));
    EXPECT_FALSE(alarm(kMaghrib).skipped);
    expectDone(actions.skipNext(kMaghrib));
    EXPECT_EQ(alarm(kMaghrib).ringsAt, shown(kMaghrib, kTomorrow));
    EXPECT_EQ(alarm(kMaghrib).skipped, shown(kMaghrib, kToday));
    EXPECT_FALSE(alarm(kMaghrib).skipsNext()) << "that is another thing";
    EXPECT_EQ(starts(), std::vector{shown(kMaghrib, kTomorrow)});
    expectDone(actions.skipNext(kMaghrib));
    EXPECT_EQ(alarm(kMaghrib).ringsAt, shown(kMaghrib, kTomorrow)) << "the same one is left out";
}

TEST_F(SilenceTest, WhatIsLeftOutIsTheRingThatIsShown) {
    at(shown(kMaghrib, kToday) - 2min);
    expectDone(switchOn(kMaghrib));
    ASSERT_EQ(alarm(kMaghrib).ringsAt, shown(kMaghrib, kTomorrow)) << "today's is too near for an edit";
    expectDone(actions.skipNext(kMaghrib));
    EXPECT_EQ(alarm(kMaghrib).ringsAt, shown(kMaghrib, kAfter));
}

TEST_F(SilenceTest, OnceIsOnce) {
    expectDone(switchOn(kMaghrib));
    expectDone(actions.skipNext(kMaghrib));
    at(shown(kMaghrib, kToday) + 1min);
    EXPECT_TRUE(world.alarms.reconcile().isGood());
    EXPECT_EQ(alarm(kMaghrib).ringsAt, shown(kMaghrib, kTomorrow));
    EXPECT_FALSE(alarm(kMaghrib).skipped) << "nothing is left out any more";
    at(shown(kMaghrib, kTomorrow) + 1min);
    EXPECT_TRUE(world.alarms.reconcile().isGood());
    EXPECT_EQ(alarm(kMaghrib).ringsAt, shown(kMaghrib, kAfter));
    expectDone(actions.skipNext(kMaghrib));
    EXPECT_EQ(alarm(kMaghrib).skipped, shown(kMaghrib, kAfter));
}

TEST_F(SilenceTest, UndoneItRingsAgainEvenWithinTheMarginOfAnEdit) {
    expectDone(switchOn(kMaghrib));
    expectDone(actions.skipNext(kMaghrib));
    at(shown(kMaghrib, kToday) - 2min);
    EXPECT_TRUE(world.alarms.reconcile().isGood());
    expectDone(actions.undoSkip(kMaghrib));
    EXPECT_EQ(alarm(kMaghrib).ringsAt, shown(kMaghrib, kToday));
    EXPECT_FALSE(alarm(kMaghrib).skipped);
    expectDone(actions.undoSkip(kMaghrib));
    EXPECT_EQ(alarm(kMaghrib).ringsAt, shown(kMaghrib, kToday));
}

TEST_F(SilenceTest, ItOutlivesAnotherOffsetAndAnotherHomeCity) {
    expectDone(switchOn(kMaghrib));
    expectDone(actions.skipNext(kMaghrib));
    expectDone(actions.setOffset(kMaghrib, 50));
    EXPECT_EQ(alarm(kMaghrib).ringsAt, shown(kMaghrib, kTomorrow) + 50min);
    expectDone(actions.makeHome(test::kBerlin));
    EXPECT_EQ(alarm(kMaghrib).ringsAt, shown(kMaghrib, kTomorrow) + 50min);
    EXPECT_EQ(alarm(kMaghrib).skipped, shown(kMaghrib, kToday) + 50min);
    expectDone(actions.switchOff(kMaghrib));
    expectDone(switchOn(kMaghrib));
    EXPECT_EQ(alarm(kMaghrib).ringsAt, shown(kMaghrib, kToday)) << "what is switched on anew rings next";
}

TEST_F(SilenceTest, WhatIsOffOrHasNoTimeLeavesNothingOut) {
    EXPECT_EQ(actions.skipNext(kMaghrib).state, ActionState::alarmIsOff);
    constexpr std::int32_t mcMurdo = 6696480; // 77.8 S: the Sun does not set there now
    expectDone(actions.addCity(mcMurdo));
    expectDone(switchOn(kMaghrib));
    expectDone(actions.makeHome(mcMurdo));
    ASSERT_EQ(alarm(kMaghrib).state, AlarmState::noSuchTime);
    EXPECT_EQ(actions.skipNext(kMaghrib).state, ActionState::noNextTime);
    for (const std::int32_t id : {test::kIstanbul, test::kBerlin, mcMurdo}) {
        actions.removeCity(id);
    }
    EXPECT_EQ(actions.skipNext(kFajr).state, ActionState::noHome);
    EXPECT_EQ(actions.pauseUntil(sys_days{kAfter}).state, ActionState::noHome);
}

TEST_F(SilenceTest, APauseIsForAllAndEndsByItself) {
    expectDone(switchOn(kAsr));
    expectDone(switchOn(kMaghrib));
    const almanac::Instant until = world.home().clock.instantOf(2026y / 12 / 1, 0s);
    expectDone(actions.pauseUntil(until));
    EXPECT_EQ(world.alarms.report().pausedUntil, until);
    EXPECT_EQ(starts(), (std::vector{shown(kAsr, 2026y / 12 / 1), shown(kMaghrib, 2026y / 12 / 1)}));
    EXPECT_EQ(alarm(kAsr).skipped, shown(kAsr, kToday));
    expectDone(switchOn(kFajr)); // while they are paused
    EXPECT_EQ(alarm(kFajr).ringsAt, shown(kFajr, 2026y / 12 / 1));
    at(until + 1s);
    EXPECT_TRUE(world.alarms.reconcile().isGood());
    EXPECT_FALSE(world.alarms.report().pausedUntil);
    EXPECT_FALSE(alarm(kAsr).skipped);
    EXPECT_EQ(starts().front(), shown(kFajr, 2026y / 12 / 1));
}

TEST_F(SilenceTest, APauseEndsWhenItIsTakenBack) {
    expectDone(switchOn(kMaghrib));
    expectDone(actions.pauseUntil(sys_days{kAfter}));
    expectDone(actions.skipNext(kMaghrib));
    EXPECT_EQ(alarm(kMaghrib).ringsAt, shown(kMaghrib, 2026y / 11 / 25)) << "the first after the pause";
    expectDone(actions.undoSkip(kMaghrib));
    expectDone(actions.pauseUntil(std::nullopt));
    EXPECT_EQ(alarm(kMaghrib).ringsAt, shown(kMaghrib, kToday));
    EXPECT_FALSE(world.alarms.report().pausedUntil);
}

TEST_F(SilenceTest, AnEventThatIsRightIsNotTouchedThroughoutAPause) {
    expectDone(switchOn(kMaghrib));
    expectDone(actions.pauseUntil(sys_days{2026y / 12 / 20}));
    const auto writes = calendar->handedOver.size();
    for (Date date = kToday; date < 2026y / 12 / 20; date = almanac::addDays(date, 1)) {
        at(sys_days{date} + 12h);
        EXPECT_TRUE(world.alarms.reconcile().isGood()) << almanac::isoDate(date);
    }
    EXPECT_EQ(calendar->handedOver.size(), writes);
    EXPECT_EQ(starts(), std::vector{shown(kMaghrib, 2026y / 12 / 20)});
}

/// A clock that was wrong by years must not silence a person's alarms for years.
TEST_F(SilenceTest, ASilenceOfYearsDoesNotCount) {
    expectDone(switchOn(kMaghrib));
    world.run(statements::setSilence(statements::kPauseSetting, 4'000'000'000));
    world.run(statements::setSilence(kMaghrib, 4'000'000'000));
    EXPECT_TRUE(world.alarms.reconcile().isGood());
    EXPECT_EQ(alarm(kMaghrib).ringsAt, shown(kMaghrib, kToday));
    EXPECT_FALSE(world.alarms.report().pausedUntil);
}

TEST_F(SilenceTest, ACalendarThatRefusesPutsEverythingBack) {
    expectDone(switchOn(kMaghrib));
    calendar->refusesSaving = true;
    EXPECT_EQ(actions.skipNext(kMaghrib).state, ActionState::refused);
    EXPECT_FALSE(rows().alarms[4].silentUntil);
    EXPECT_EQ(actions.pauseUntil(sys_days{kAfter}).state, ActionState::refused);
    EXPECT_FALSE(rows().pausedUntil);
    calendar->refusesSaving = false;
    EXPECT_TRUE(world.alarms.reconcile().isGood());
    EXPECT_EQ(starts(), std::vector{shown(kMaghrib, kToday)});
}

TEST_F(SilenceTest, ClearingLeavesNoEventAndKeepsTheChoices) {
    expectDone(switchOn(kAsr, -15));
    expectDone(switchOn(kMaghrib));
    expectDone(actions.clear());
    EXPECT_TRUE(calendar->events.empty());
    EXPECT_FALSE(rows().alarms[3].active);
    EXPECT_EQ(rows().alarms[3].minute, -15);
    EXPECT_TRUE(world.alarms.reconcile().isGood());
    EXPECT_TRUE(calendar->events.empty());
}

/// Whoever leaves must not need a catalogue.
TEST_F(SilenceTest, ClearingWorksWithoutACatalogue) {
    expectDone(switchOn(kMaghrib));
    world.glbFuncs.appBundlePath = world.path("nowhere");
    EXPECT_EQ(actions.clear().state, ActionState::done);
    EXPECT_TRUE(calendar->events.empty());
}

TEST_F(SilenceTest, ClearingThatIsRefusedLeavesTheAlarmsOn) {
    expectDone(switchOn(kMaghrib));
    calendar->refusesRemoving = true;
    EXPECT_EQ(actions.clear().state, ActionState::refused);
    EXPECT_TRUE(rows().alarms[4].active);
    EXPECT_EQ(calendar->events.size(), 1U);
}

TEST_F(SilenceTest, EverythingIsReplacedAtOnceOrNothing) {
    expectDone(switchOn(kMaghrib, 5));
    const UserRows before = rows();
    UserRows wanted;
    wanted.cities = {{"323786", "0"}, {"2950159", "1"}};
    wanted.alarms[3].active = true;
    wanted.alarms[3].minute = -7;
    wanted.alarms[3].melodyName = "Flute.wav";
    calendar->refusesSaving = true;
    EXPECT_EQ(actions.replaceAll(wanted).state, ActionState::refused);
    EXPECT_EQ(rows().cities.size(), before.cities.size());
    EXPECT_TRUE(rows().alarms[4].active);
    EXPECT_EQ(rows().alarms[4].minute, 5);
    EXPECT_FALSE(rows().alarms[3].active);
    calendar->refusesSaving = false;
    EXPECT_TRUE(world.alarms.reconcile().isGood());
    expectDone(actions.replaceAll(wanted));
    EXPECT_EQ(world.home().name, "Berlin");
    EXPECT_EQ(rows().cities.size(), 2U);
    EXPECT_FALSE(rows().alarms[4].active);
    EXPECT_EQ(starts(), std::vector{shown(kAsr, kToday) - 7min});
    expectDone(actions.replaceAll(wanted));
    EXPECT_EQ(calendar->events.size(), 1U);
}

} // namespace
} // namespace zorel
