// SPDX-License-Identifier: Apache-2.0
// Files that are locked, read-only, cut off, damaged or of another kind: statements fail, nothing crashes,
// and what could be read before can be read afterwards.
#include "tests/store/DatabaseFixture.h"

#include <random>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zorel {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

constexpr const char* kInsert = "INSERT INTO USER_CITY (ID,SETASHOME) VALUES (1, 0)";
constexpr uid_t kNobody = 65534;

class DamagedDatabase : public test::DatabaseFixture {
protected:
    void SetUp() override {
        database_.generateUserDatabaseFile();
        intact_ = test::readFile(path());
    }

    /// Runs a few statements of each kind; whatever they answer, they have to come back.
    void useEverything() {
        database_.generateUserDatabaseFile();
        const std::string batch[] = {kInsert, "UPDATE USER_ALARMS SET MINUTE = 3",
                                     "SELECT * FROM USER_SETTINGS"};
        static_cast<void>(database_.executeArrayOfSQL(batch));
        static_cast<void>(database_.executeSQL("SELECT ID, SETASHOME FROM USER_CITY"));
    }

    /// Runs something as a user whom file permissions bind; true when it answered true.
    template <typename Operation> static bool asNobody(Operation operation) {
        const pid_t child = fork();
        if (child == 0) {
            const bool bound = geteuid() != 0 || seteuid(kNobody) == 0;
            _exit(bound && operation() ? 0 : 1);
        }
        int status = 0;
        return waitpid(child, &status, 0) == child && status == 0;
    }

    std::string intact_;
};

TEST_F(DamagedDatabase, LockedFailsAtOnceAndStaysWhole) {
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(path().c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_FALSE(database_.executeSQL(kInsert));
    EXPECT_THAT(log(), EndsWith("] database is locked\n"));
    sqlite3_close(other);
    EXPECT_TRUE(database_.executeSQL(kInsert));
    EXPECT_EQ(rows("SELECT ID FROM USER_CITY"), "1\n");
}

TEST_F(DamagedDatabase, ReadOnlyCanStillBeRead) {
    ASSERT_EQ(chmod(path().c_str(), 0444), 0);
    ASSERT_EQ(chmod(locations_.folder.path().c_str(), 0555), 0);
    EXPECT_TRUE(asNobody([this] {
        return !database_.executeSQL(kInsert) && database_.executeSQL("SELECT TIMEID FROM USER_ALARMS");
    }));
    EXPECT_EQ(test::readFile(path()), intact_);
}

TEST_F(DamagedDatabase, UnreadableIsNotOpenedAndStaysWhole) {
    ASSERT_EQ(chmod(path().c_str(), 0000), 0);
    ASSERT_EQ(chmod(locations_.folder.path().c_str(), 0755), 0);
    EXPECT_TRUE(asNobody([this] {
        database_.generateUserDatabaseFile();
        return !database_.executeSQL(kInsert);
    }));
    ASSERT_EQ(chmod(path().c_str(), 0600), 0);
    EXPECT_EQ(test::readFile(path()), intact_);
}

TEST_F(DamagedDatabase, ForeignFilesStayAsTheyAre) {
    for (const std::string& foreign : {std::string("hello, I am a letter"), std::string(8192, 'x'),
                                       "SQLite format 3" + std::string(200, '\0')}) {
        test::writeFile(path(), foreign);
        useEverything();
        EXPECT_FALSE(database_.executeSQL(kInsert));
        EXPECT_EQ(test::readFile(path()), foreign);
    }
    EXPECT_THAT(log(), HasSubstr("] file is not a database\n"));
}

TEST_F(DamagedDatabase, EmptyHasNoTablesAndGetsNone) {
    test::writeFile(path(), "");
    useEverything();
    EXPECT_FALSE(database_.executeSQL(kInsert));
    EXPECT_THAT(log(), EndsWith("] no such table: USER_CITY\n"));
    EXPECT_EQ(test::readFile(path()), "");
}

TEST_F(DamagedDatabase, CutOffAtAnyPlaceIsSurvived) {
    for (std::size_t length = 0; length < intact_.size(); length += 509) {
        test::writeFile(path(), intact_.substr(0, length));
        useEverything();
    }
}

TEST_F(DamagedDatabase, WithWrongBytesIsSurvived) {
    std::mt19937 random(17);
    for (int i = 0; i < 60; ++i) {
        std::string damaged = intact_;
        for (int byte = 0; byte < 20; ++byte) {
            damaged[random() % (i % 2 == 0 ? 200 : damaged.size())] = static_cast<char>(random());
        }
        std::filesystem::remove(path() + "-journal");
        test::writeFile(path(), damaged);
        useEverything();
    }
}

TEST_F(DamagedDatabase, OfAnotherShapeFailsStatementByStatement) {
    std::filesystem::remove(path());
    runFreely("CREATE TABLE USER_CITY (NAME TEXT); INSERT INTO USER_CITY VALUES ('kept')");
    useEverything();
    EXPECT_FALSE(database_.executeSQL(kInsert));
    EXPECT_THAT(log(), HasSubstr("no such table: USER_ALARMS"));
    EXPECT_EQ(rows("SELECT NAME FROM USER_CITY"), "kept\n");
}

TEST_F(DamagedDatabase, ReplacedByAPipeOrAFolderIsSurvived) {
    std::filesystem::remove(path());
    std::filesystem::create_directory(path());
    useEverything();
    std::filesystem::remove(path());
    ASSERT_EQ(mkfifo(path().c_str(), 0600), 0);
    useEverything();
    EXPECT_TRUE(std::filesystem::is_fifo(path()));
}

} // namespace
} // namespace zorel
