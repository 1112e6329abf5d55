// SPDX-License-Identifier: Apache-2.0
// The rows that an action works on: read as a whole, changed in one transaction, put back, under one lock.
#include "store/UserRows.h"
#include "store/UserStatements.h"
#include "tests/store/DatabaseFixture.h"

#include <algorithm>
#include <chrono>
#include <iterator>

namespace zorel {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class UserRowsTest : public test::DatabaseFixture {
protected:
    void SetUp() override { database_.generateUserDatabaseFile(); }
    [[nodiscard]] UserRows stored() const { return storedUserRows(path()); }
};

TEST_F(UserRowsTest, AreReadWithWhatIsNull) {
    runFreely(
        "INSERT INTO USER_CITY VALUES (30, 0), (10, 1); UPDATE USER_ALARMS SET MINUTE = -5, ACTIVE = 1, "
        "MELODYTIME = 3, MELODYNAME = 'Bell.wav', PRAYTIME = 18.25, EVENTID = 'e' WHERE TIMEID = 5");
    const UserRows rows = stored();
    ASSERT_TRUE(rows.result.isDone());
    EXPECT_EQ(rows.cities.size(), 2U);
    EXPECT_EQ(rows.alarms[4], (AlarmRow{5, -5, true, 3, "Bell.wav", 18.25, "e"}));
    EXPECT_EQ(rows.alarms[0], (AlarmRow{1, 0, false, {}, {}, {}, {}}));
    EXPECT_EQ(rows.alarms[4].prayerId(), 204);
    EXPECT_EQ(rows.alarms[0].info().melodyName, "");
}

TEST_F(UserRowsTest, MissingUnreadableAndBusyAreThreeThings) {
    const auto state = [this] { return stored().result.state; };
    EXPECT_EQ(state(), StoreState::done);
    {
        const FileLock writer(path() + ".lock");
        EXPECT_EQ(state(), StoreState::busy);
        EXPECT_EQ(changeUserRows(path(), {}).state, StoreState::busy);
    }
    runFreely("DELETE FROM USER_ALARMS WHERE TIMEID = 6");
    EXPECT_THAT(stored().result.reason, HasSubstr("alarm 6"));
    test::writeFile(path(), "this is no database, it is a text of some length");
    EXPECT_EQ(state(), StoreState::failed);
    std::filesystem::remove(path());
    EXPECT_EQ(state(), StoreState::missing);
    EXPECT_EQ(changeUserRows(path(), {}).state, StoreState::missing);
    EXPECT_FALSE(std::filesystem::exists(path()));
}

TEST_F(UserRowsTest, ChangeAllTogetherOrNotAtAll) {
    EXPECT_TRUE(
        changeUserRows(path(), {statements::addCity(7, true), statements::setActive(2, true)}).isDone());
    EXPECT_EQ(rows("SELECT ID, SETASHOME FROM USER_CITY"), "7|1\n");
    const std::string before = test::readFile(path());
    const StoreResult result =
        changeUserRows(path(), {statements::removeCity(7), "UPDATE USER_ALARMS SET NOTHING = 1"});
    EXPECT_EQ(result.state, StoreState::failed);
    EXPECT_THAT(result.reason, HasSubstr("NOTHING"));
    EXPECT_EQ(test::readFile(path()), before);
}

/// What a transaction needs is allowed to nobody else.
TEST_F(UserRowsTest, NoStatementEndsTheTransaction) {
    for (const char* statement : {"COMMIT", "ROLLBACK", "SAVEPOINT S", "BEGIN"}) {
        EXPECT_EQ(changeUserRows(path(), {statements::addCity(7, true), statement}).state,
                  StoreState::failed);
        EXPECT_EQ(rows("SELECT ID FROM USER_CITY"), "") << statement;
    }
}

TEST_F(UserRowsTest, GoBackToWhatTheyWere) {
    runFreely("INSERT INTO USER_CITY VALUES (30, 0), (10, 1), (30, 0); UPDATE USER_ALARMS SET MINUTE = -5, "
              "ACTIVE = 1, MELODYTIME = 3, MELODYNAME = 'It''s late.wav', PRAYTIME = 18.25 WHERE TIMEID = 5");
    const std::string cities = rows("SELECT ID, SETASHOME FROM USER_CITY");
    const std::string alarms = rows("SELECT * FROM USER_ALARMS");
    const UserRows before = stored();
    EXPECT_THAT(statementsToRestore(before, before), IsEmpty());
    ASSERT_TRUE(changeUserRows(path(), {statements::removeCity(30), statements::unmarkHome(),
                                        statements::defineAlarm(1, {true, 9, 1, "Bell.wav"}, 5.5),
                                        statements::setActive(5, false), statements::setEventId(5, "e"),
                                        statements::setMelodyName(5, "Flute.wav"),
                                        statements::setMelodyTime(5, 1), statements::setPrayerTime(5, 1.0)})
                    .isDone());
    EXPECT_NE(rows("SELECT * FROM USER_ALARMS"), alarms);
    EXPECT_TRUE(changeUserRows(path(), statementsToRestore(before, stored())).isDone());
    EXPECT_EQ(rows("SELECT ID, SETASHOME FROM USER_CITY"), cities);
    EXPECT_EQ(rows("SELECT * FROM USER_ALARMS"), alarms);
}

TEST_F(UserRowsTest, WhatIsSilentIsReadChangedAndPutBack) {
    EXPECT_FALSE(stored().pausedUntil);
    const UserRows before = stored();
    std::vector<std::string> changes = statements::setSilence(statements::kPauseSetting, 1'800'000'000);
    std::ranges::move(statements::setSilence(204, 5'000'000'000), std::back_inserter(changes));
    ASSERT_TRUE(changeUserRows(path(), changes).isDone());
    ASSERT_TRUE(changeUserRows(path(), changes).isDone()) << "again";
    EXPECT_EQ(rows("SELECT SETTINGID, PARAM1 FROM USER_SETTINGS"), "100|1800000000\n204|5000000000\n");
    const UserRows silent = stored();
    EXPECT_EQ(silent.pausedUntil, 1'800'000'000);
    EXPECT_EQ(silent.alarms[4].silentUntil, 5'000'000'000) << "after 2038";
    EXPECT_FALSE(silent.alarms[3].silentUntil);
    ASSERT_TRUE(changeUserRows(path(), statementsToRestore(before, silent)).isDone());
    EXPECT_EQ(rows("SELECT * FROM USER_SETTINGS"), "");
    ASSERT_TRUE(changeUserRows(path(), statementsToRestore(silent, stored())).isDone());
    EXPECT_EQ(stored().alarms[4], silent.alarms[4]);
    EXPECT_EQ(stored().pausedUntil, silent.pausedUntil);
}

TEST_F(UserRowsTest, WhatIsNoInstantSilencesNothing) {
    runFreely("INSERT INTO USER_SETTINGS (SETTINGID, PARAM1) VALUES (100, NULL), (200, 'soon'), (201, -5), "
              "(202, 9e300), (203, x'00ff'), (9, 1800000000)");
    const UserRows rows = stored();
    ASSERT_TRUE(rows.result.isDone());
    EXPECT_FALSE(rows.pausedUntil);
    for (const AlarmRow& alarm : rows.alarms) {
        EXPECT_FALSE(alarm.silentUntil) << alarm.timeId;
    }
}

TEST_F(UserRowsTest, AForeignTransactionIsWaitedForUnderTheLock) {
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(path().c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(stored().result.state, StoreState::busy);
    EXPECT_GT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4));
    sqlite3_close(other);
    EXPECT_EQ(stored().result.state, StoreState::done);
}

class UserLockTest : public UserRowsTest {};

TEST_F(UserLockTest, IsSharedByReadersAndHeldAloneByAWriter) {
    const FileLock reader(path() + ".lock", LockKind::shared);
    ASSERT_EQ(reader.state(), LockState::acquired);
    EXPECT_TRUE(UserLock(path(), LockKind::shared).isHeld());
    const UserLock writer(path(), LockKind::exclusive);
    EXPECT_EQ(writer.state(), LockState::busy);
    EXPECT_NE(writer.reason(), "");
}

TEST_F(UserLockTest, JoinsTheOneThatThisProcessHolds) {
    const UserLock outer(path(), LockKind::exclusive);
    EXPECT_TRUE(outer.isHeld());
    EXPECT_TRUE(UserLock(path(), LockKind::exclusive).isHeld());
    EXPECT_TRUE(UserLock(path(), LockKind::shared).isHeld());
    EXPECT_GT(UserLock::patience(path()), std::chrono::steady_clock::now());
    EXPECT_EQ(UserLock::patience(path() + "x"), FileLock::Deadline::min());
}

TEST_F(UserLockTest, AReaderDoesNotBecomeAWriter) {
    const UserLock outer(path(), LockKind::shared);
    EXPECT_EQ(UserLock(path(), LockKind::exclusive).state(), LockState::busy);
}

TEST_F(UserLockTest, WithoutADatabaseThereIsNothingToGuard) {
    std::filesystem::remove(path());
    EXPECT_TRUE(UserLock(path(), LockKind::exclusive).isHeld());
    EXPECT_FALSE(std::filesystem::exists(path() + ".lock"));
}

TEST_F(UserLockTest, AFolderInItsPlaceIsSaidAndStopsWritersOnly) {
    std::filesystem::create_directory(path() + ".lock");
    const UserLock writer(path(), LockKind::exclusive);
    EXPECT_EQ(writer.state(), LockState::cannotLock);
    EXPECT_THAT(writer.reason(), HasSubstr(".lock"));
    EXPECT_EQ(changeUserRows(path(), {statements::addCity(7, true)}).state, StoreState::failed);
    EXPECT_EQ(rows("SELECT ID FROM USER_CITY"), "");
}

} // namespace
} // namespace zorel
