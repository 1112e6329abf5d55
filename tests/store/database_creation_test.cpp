// SPDX-License-Identifier: Apache-2.0
#include "tests/store/DatabaseFixture.h"
#include "tests/support/FaultPoints.h"

#include <cerrno>
#include <sys/wait.h>
#include <unistd.h>

namespace zorel {
namespace {

constexpr const char* kSixAlarms = "1|0|0\n2|0|0\n3|0|0\n4|0|0\n5|0|0\n6|0|0\n";

class DatabaseCreation : public test::DatabaseFixture {
protected:
    [[nodiscard]] std::string alarms() const {
        return rows("SELECT TIMEID, MINUTE, ACTIVE FROM USER_ALARMS");
    }
    [[nodiscard]] std::size_t files() const {
        const std::filesystem::path folder = std::filesystem::path(path()).parent_path();
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
    }
};

TEST_F(DatabaseCreation, LiesInTheDataFolder) {
    EXPECT_EQ(path(), locations_.folder.path("user.sqlite"));
    database_.setUserDBPath("/elsewhere");
    EXPECT_EQ(path(), "/elsewhere");
}

TEST_F(DatabaseCreation, MakesThreeTablesAndSixAlarms) {
    database_.generateUserDatabaseFile();
    EXPECT_EQ(alarms(), kSixAlarms);
    EXPECT_EQ(rows("SELECT * FROM USER_CITY"), "");
    EXPECT_EQ(rows("SELECT * FROM USER_SETTINGS"), "");
    EXPECT_EQ(rows("SELECT name FROM sqlite_master ORDER BY rowid"),
              "USER_CITY\nUSER_ALARMS\nUSER_SETTINGS\n");
    EXPECT_EQ(rows("PRAGMA integrity_check"), "ok\n");
    EXPECT_EQ(log(), "");
    EXPECT_EQ(files(), 1U);
}

/// SQLite keeps the text from CREATE TABLE on; one blank stands where it normalises the beginning.
TEST_F(DatabaseCreation, KeepsTheTextOfTheStatements) {
    database_.generateUserDatabaseFile();
    const auto schemaOf = [this](const std::string& table) {
        return rows("SELECT sql FROM sqlite_master WHERE name = '" + table + "'");
    };
    EXPECT_EQ(schemaOf("USER_CITY"),
              "CREATE TABLE USER_CITY (   ID           INTEGER NOT NULL,  SETASHOME    INTEGER NOT NULL)\n");
    EXPECT_EQ(schemaOf("USER_ALARMS"),
              "CREATE TABLE USER_ALARMS (   TIMEID       INTEGER NOT NULL,  MINUTE       INTEGER NOT NULL,  "
              "ACTIVE       INTEGER NOT NULL,  MELODYTIME   INTEGER NULL,  MELODYNAME   VARCHAR(200) NULL,  "
              "PRAYTIME     DOUBLE NULL,  EVENTID      VARCHAR(200) NULL,  CONSTRAINT PK_USER_ALARMS PRIMARY "
              "KEY(TIMEID) )\n");
}

TEST_F(DatabaseCreation, LaysOutTheSettingsAsTheAlarms) {
    database_.generateUserDatabaseFile();
    std::string expected = "CREATE TABLE USER_SETTINGS (   SETTINGID    INTEGER NOT NULL,";
    for (int i = 1; i <= 14; ++i) {
        const std::string name = "PARAM" + std::to_string(i);
        expected += "  " + name + std::string(13 - name.size(), ' ') + (i <= 9 ? "INTEGER" : "VARCHAR(200)") +
                    " NULL,";
    }
    expected += "  CONSTRAINT PK_USER_SETTINGS PRIMARY KEY(SETTINGID) )\n";
    EXPECT_EQ(rows("SELECT sql FROM sqlite_master WHERE name = 'USER_SETTINGS'"), expected);
}

TEST_F(DatabaseCreation, HappensOnce) {
    database_.generateUserDatabaseFile();
    runFreely("INSERT INTO USER_CITY VALUES (5, 1); UPDATE USER_ALARMS SET MINUTE = 9 WHERE TIMEID = 1");
    const std::string before = test::readFile(path());
    database_.generateUserDatabaseFile();
    DatabaseFunctions(functions_).generateUserDatabaseFile();
    EXPECT_EQ(test::readFile(path()), before);
    EXPECT_EQ(rows("SELECT * FROM USER_CITY"), "5|1\n");
}

TEST_F(DatabaseCreation, NeverTouchesAFileThatIsThere) {
    for (const char* content : {"", "no database", "SQLite format 3"}) {
        test::writeFile(path(), content);
        database_.generateUserDatabaseFile();
        EXPECT_EQ(test::readFile(path()), content);
        EXPECT_EQ(files(), 1U);
    }
}

TEST_F(DatabaseCreation, MakesTheDataFolder) {
    database_.setUserDBPath(locations_.folder.path("a/b/user.sqlite"));
    database_.generateUserDatabaseFile();
    EXPECT_EQ(alarms(), kSixAlarms);
}

TEST_F(DatabaseCreation, StopsInSilenceWhereNoFileCanBe) {
    test::writeFile(locations_.folder.path("plain"), "kept");
    for (const std::string& bad : {locations_.folder.path("plain/user.sqlite"),
                                   std::string("/proc/user.sqlite"), std::string(), std::string(5000, 'x')}) {
        database_.setUserDBPath(bad);
        database_.generateUserDatabaseFile();
        EXPECT_FALSE(functions_.fileExists(bad)) << bad;
    }
    EXPECT_EQ(log(), "");
}

TEST_F(DatabaseCreation, LeavesNothingWhenAStepFailsAndSucceedsTheNextTime) {
    int failures = 0;
    for (bool failed = true; failed;) {
        faults::arm(faults::Effect::fail, failures + 1, EIO);
        database_.generateUserDatabaseFile();
        failed = faults::disarm() > failures;
        failures += failed ? 1 : 0;
        EXPECT_EQ(files(), functions_.fileExists(path()) ? 1U : 0U);
        database_.generateUserDatabaseFile();
        EXPECT_EQ(alarms(), kSixAlarms);
        std::filesystem::remove(path());
    }
    EXPECT_EQ(failures, 5); // create, write, sync, rename, sync of the folder
}

TEST_F(DatabaseCreation, IsWholeOrMissingWhenTheProcessIsKilled) {
    for (const auto effect : {faults::Effect::die, faults::Effect::tear}) {
        int status = faults::kDied;
        for (int nth = 1; status == faults::kDied; ++nth) {
            status = faults::runInChild(effect, nth, [this] { database_.generateUserDatabaseFile(); });
            EXPECT_TRUE(!functions_.fileExists(path()) || alarms() == kSixAlarms);
            database_.generateUserDatabaseFile();
            EXPECT_EQ(alarms(), kSixAlarms);
            std::filesystem::remove(path());
        }
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(files(), 0U);
}

TEST_F(DatabaseCreation, SweepsWhatAKilledProcessLeft) {
    test::writeFile(std::filesystem::path(path()).parent_path() / ".zorel-0-0.tmp", "half");
    database_.generateUserDatabaseFile();
    EXPECT_EQ(files(), 1U);
}

TEST_F(DatabaseCreation, OfTwoProcessesAtOnceLeavesOneWholeFile) {
    constexpr int kProcesses = 8;
    for (int process = 0; process < kProcesses; ++process) {
        if (fork() == 0) {
            database_.generateUserDatabaseFile();
            _exit(database_.executeSQL("INSERT INTO USER_CITY (ID,SETASHOME) VALUES (1, 0)") ? 0 : 1);
        }
    }
    int status = 0;
    while (wait(&status) > 0) {
    }
    EXPECT_EQ(alarms(), kSixAlarms);
    EXPECT_EQ(rows("PRAGMA integrity_check"), "ok\n");
}

} // namespace
} // namespace zorel
