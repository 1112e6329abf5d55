// SPDX-License-Identifier: Apache-2.0
// Each action of a person is done as a whole or not at all, and says which.
#include "alarms/UserActions.h"
#include "tests/eventkit/MemoryCalendar.h"
#include "tests/support/HomeWorld.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace zorel {
namespace {

using namespace std::chrono_literals;
using std::chrono::sys_days;
using testing::HasSubstr;

constexpr std::int32_t kFajr = 200;
constexpr std::int32_t kAsr = 203;

class UserActionsTest : public testing::Test {
protected:
    UserActionsTest() { EKEventStore::setCalendar(calendar); }
    ~UserActionsTest() override { EKEventStore::setCalendar(nullptr); }

    [[nodiscard]] UserRows rows() const { return storedUserRows(world.functions.userDBPath()); }
    [[nodiscard]] std::string cities() const {
        std::string text;
        for (const UserCity& city : rows().cities) {
            text += city.cityId + (isMarkedAsHome(city) ? "* " : " ");
        }
        return text;
    }
    void expectDone(const ActionResult& result) {
        EXPECT_EQ(result.state, ActionState::done) << result.reason;
        EXPECT_TRUE(world.alarms.report().isGood()) << world.alarms.report().complaint();
    }
    ActionResult switchOn(std::int32_t prayerId, std::int32_t offset = 0) {
        return actions.switchOn(prayerId, [offset](AlarmInfo& alarm) {
            alarm.timeOffset = offset;
            alarm.melodyName = "Bell.wav";
            alarm.melodyTime = 3;
        });
    }
    /// Two cities, two alarms of the first.
    void settle() {
        expectDone(actions.addCity(test::kIstanbul));
        expectDone(actions.addCity(test::kBerlin));
        expectDone(switchOn(kFajr, -20));
        expectDone(switchOn(kAsr));
    }
    /// The rows are as they were, to the last column, and the calendar fits them as soon as it can.
    void expectTakenBack(const ActionResult& result, const UserRows& before, const char* reason = "refused") {
        EXPECT_EQ(result.state, ActionState::refused);
        EXPECT_THAT(result.reason, HasSubstr(reason));
        EXPECT_EQ(rows().alarms, before.alarms);
        EXPECT_EQ(statementsToRestore(before, rows()), std::vector<std::string>());
        calendar->refusesSaving = false;
        calendar->refusesRemoving = false;
        EXPECT_TRUE(world.alarms.reconcile().isGood());
        EXPECT_EQ(rows().cities.size(), before.cities.size());
    }

    std::shared_ptr<MemoryCalendar> calendar = std::make_shared<MemoryCalendar>();
    ClockOverride clock{sys_days{2026y / 11 / 22} + 9h};
    test::HomeWorld world;
    UserActions actions{world.glbFuncs, world.functions};
};

TEST_F(UserActionsTest, CitiesComeAndGoAndTheAlarmsFollow) {
    settle();
    EXPECT_EQ(cities(), "745044* 2950159 ");
    const auto inIstanbul = world.alarms.report().of(kAsr).ringsAt;
    expectDone(actions.makeHome(test::kBerlin));
    EXPECT_EQ(cities(), "745044 2950159* ");
    EXPECT_NE(world.alarms.report().of(kAsr).ringsAt, inIstanbul);
    expectDone(actions.removeCity(test::kBerlin));
    EXPECT_EQ(cities(), "745044* ");
    EXPECT_EQ(world.alarms.report().of(kAsr).ringsAt, inIstanbul);
    expectDone(actions.removeCity(test::kIstanbul));
    EXPECT_EQ(cities(), "");
    EXPECT_TRUE(calendar->events.empty());
    EXPECT_FALSE(world.row(1).active);
}

TEST_F(UserActionsTest, SwitchingOnAndOffAndChanging) {
    settle();
    EXPECT_EQ(rows().alarms[0].info().melodyName, "Bell.wav");
    expectDone(actions.setRingtone(kFajr, "Flute.wav"));
    expectDone(actions.setDuration(kFajr, 5));
    expectDone(actions.setOffset(kFajr, 7));
    EXPECT_EQ(rows().alarms[0].info().timeOffset, 7);
    EXPECT_EQ(rows().alarms[0].info().melodyName, "Flute.wav");
    EXPECT_EQ(rows().alarms[0].info().melodyTime, 5);
    expectDone(actions.switchOff(kFajr));
    EXPECT_EQ(calendar->events.size(), 1U);
    EXPECT_EQ(actions.setOffset(kFajr, 9).state, ActionState::alarmIsOff);
    EXPECT_EQ(rows().alarms[0].info().timeOffset, 7);
}

TEST_F(UserActionsTest, AllAreSwitchedAtOnce) {
    const auto choose = [](AlarmInfo& alarm) { alarm.melodyName = "Gong.wav"; };
    EXPECT_EQ(actions.switchAllOn(choose).state, ActionState::noHome);
    settle();
    expectDone(actions.switchAllOn(choose));
    for (const AlarmRow& row : rows().alarms) {
        EXPECT_TRUE(row.active);
        const std::int32_t id = row.timeId + kTimeIdOffset;
        EXPECT_EQ(row.info().melodyName, id == kFajr || id == kAsr ? "Bell.wav" : "Gong.wav");
        EXPECT_EQ(row.info().timeOffset, id == kFajr ? -20 : 0);
    }
    expectDone(actions.switchAllOff());
    for (const AlarmRow& row : rows().alarms) {
        EXPECT_FALSE(row.active);
    }
    EXPECT_EQ(actions.switchAllOn([](AlarmInfo& alarm) { alarm.melodyName = "It's late.wav"; }).state,
              ActionState::badName);
    EXPECT_FALSE(rows().alarms.front().active);
}

TEST_F(UserActionsTest, AllOrNothing) {
    settle();
    const UserRows before = rows();
    calendar->refusesSaving = true;
    expectTakenBack(actions.switchAllOn([](AlarmInfo& alarm) { alarm.melodyName = "Gong.wav"; }), before);
    calendar->refusesRemoving = true;
    expectTakenBack(actions.switchAllOff(), before, "an event that belongs to no alarm");
}

TEST_F(UserActionsTest, WhatMakesNoSenseChangesNothing) {
    EXPECT_EQ(switchOn(kFajr).state, ActionState::noHome);
    EXPECT_EQ(actions.makeHome(test::kBerlin).state, ActionState::notListed);
    settle();
    const UserRows before = rows();
    EXPECT_EQ(actions.addCity(test::kBerlin).state, ActionState::alreadyListed);
    EXPECT_EQ(actions.removeCity(test::kKirov).state, ActionState::done) << "it is not in the list";
    EXPECT_EQ(actions.setRingtone(kFajr, "Rock 'n' Roll.wav").state, ActionState::badName);
    const auto bad = [](AlarmInfo& alarm) { alarm.melodyName = "x'; DELETE FROM USER_CITY; --"; };
    EXPECT_EQ(actions.switchOn(kAsr, bad).state, ActionState::badName);
    EXPECT_EQ(rows().alarms, before.alarms);
    EXPECT_EQ(cities(), "745044* 2950159 ");
}

TEST_F(UserActionsTest, ACityThatIsListedTwiceGoesAsAWhole) {
    settle();
    world.run({statements::addCity(test::kIstanbul, false), statements::addCity(test::kBerlin, false)});
    expectDone(actions.removeCity(test::kIstanbul));
    EXPECT_EQ(cities(), "2950159* 2950159* ");
    expectDone(actions.switchOff(kFajr));
    expectDone(actions.removeCity(test::kBerlin));
    EXPECT_EQ(cities(), "");
}

TEST_F(UserActionsTest, ARefusedSwitchingOnIsTakenBack) {
    settle();
    const UserRows before = rows();
    calendar->refusesSaving = true;
    expectTakenBack(switchOn(204), before);
    EXPECT_FALSE(rows().alarms[4].melodyName) << "NULL again";
}

TEST_F(UserActionsTest, ARefusedSwitchingOffLeavesTheAlarmOn) {
    settle();
    const UserRows before = rows();
    calendar->refusesRemoving = true;
    expectTakenBack(actions.switchOff(kAsr), before);
    EXPECT_EQ(world.alarms.report().of(kAsr).state, AlarmState::rings);
}

TEST_F(UserActionsTest, AHomeThatTheAlarmsCannotFollowIsTakenBack) {
    settle();
    const UserRows before = rows();
    calendar->refusesSaving = true;
    expectTakenBack(actions.makeHome(test::kBerlin), before);
    calendar->refusesSaving = true;
    expectTakenBack(actions.removeCity(test::kIstanbul), before);
    EXPECT_EQ(cities(), "745044* 2950159 ") << "in the order that they had";
    calendar->refusesRemoving = true;
    expectDone(actions.removeCity(test::kBerlin));
}

TEST_F(UserActionsTest, ADatabaseThatRefusesLeavesTheCalendarAlone) {
    settle();
    const auto events = calendar->events;
    const UserRows before = rows();
    {
        sqlite3* other = nullptr;
        ASSERT_EQ(sqlite3_open(world.functions.userDBPath().c_str(), &other), SQLITE_OK);
        ASSERT_EQ(
            sqlite3_exec(other,
                         "CREATE TRIGGER T BEFORE UPDATE ON USER_CITY BEGIN SELECT RAISE(FAIL, 'no'); END",
                         nullptr, nullptr, nullptr),
            SQLITE_OK);
        sqlite3_close(other);
    }
    const ActionResult result = actions.makeHome(test::kBerlin);
    EXPECT_EQ(result.state, ActionState::unstorable);
    EXPECT_EQ(cities(), "745044* 2950159 ");
    EXPECT_EQ(actions.removeCity(test::kIstanbul).state, ActionState::unstorable);
    EXPECT_EQ(cities(), "745044* 2950159 ") << "the deletion is undone with the rest of it";
    EXPECT_EQ(rows().alarms, before.alarms);
    ASSERT_EQ(calendar->events.size(), events.size());
    for (const auto& [identifier, event] : events) {
        EXPECT_TRUE(sameEvent(calendar->events.at(identifier), event));
    }
}

TEST_F(UserActionsTest, BusyIsSaidAndChangesNothing) {
    settle();
    const UserRows before = rows();
    const FileLock other(world.functions.userDBPath() + ".lock");
    ASSERT_EQ(other.state(), LockState::acquired);
    EXPECT_EQ(switchOn(204).state, ActionState::busy);
    EXPECT_EQ(world.row(5).active, before.alarms[4].active);
}

/// Another program's transaction on the database is waited for; ours never meet one another there.
TEST_F(UserActionsTest, AForeignTransactionIsWaitedForAndThenCalledBusy) {
    settle();
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(world.functions.userDBPath().c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(actions.switchOff(kAsr).state, ActionState::busy);
    EXPECT_GT(std::chrono::steady_clock::now() - start, 4s);
    sqlite3_close(other);
    expectDone(actions.switchOff(kAsr));
}

TEST_F(UserActionsTest, ARefreshTellsWhatStillDoesNotRing) {
    settle();
    calendar->events.clear();
    calendar->refusesSaving = true;
    const ActionResult refused = actions.refresh();
    EXPECT_EQ(refused.state, ActionState::refused);
    EXPECT_THAT(refused.reason, HasSubstr("fajr"));
    calendar->refusesSaving = false;
    expectDone(actions.refresh());
}

} // namespace
} // namespace zorel
