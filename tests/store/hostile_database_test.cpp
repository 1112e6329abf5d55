// SPDX-License-Identifier: Apache-2.0
// A user database that somebody else made: what a file may hold beyond our three tables has no effect, and
// what is too much for a person's list ends soon, and not as an empty list.
#include "store/UserCities.h"
#include "tests/store/DatabaseFixture.h"

#include <chrono>
#include <filesystem>
#include <sys/stat.h>

namespace zorel {
namespace {

class HostileDatabase : public test::DatabaseFixture {
protected:
    void SetUp() override { database_.generateUserDatabaseFile(); }

    /// Whether the cities cannot be read, and that is said within two seconds.
    [[nodiscard]] testing::AssertionResult isRefusedSoon() const {
        const auto before = std::chrono::steady_clock::now();
        const UserCities cities = storedUserCities(path());
        if (std::chrono::steady_clock::now() - before > std::chrono::seconds(2)) {
            return testing::AssertionFailure() << "it took too long";
        }
        return cities.result.isDone() ? testing::AssertionFailure() << cities.rows.size() << " cities"
                                      : testing::AssertionSuccess();
    }
};

TEST_F(HostileDatabase, AViewIsNoTable) {
    for (const char* view :
         {"WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N) SELECT I AS ID, 0 AS SETASHOME "
          "FROM N",
          "SELECT A.TIMEID AS ID, 0 AS SETASHOME FROM USER_ALARMS A, USER_ALARMS B, USER_ALARMS C, "
          "USER_ALARMS D, "
          "USER_ALARMS E, USER_ALARMS F, USER_ALARMS G, USER_ALARMS H, USER_ALARMS I, USER_ALARMS J",
          "SELECT 745044 AS ID, 1 AS SETASHOME"}) {
        runFreely(std::string("DROP TABLE IF EXISTS USER_CITY; DROP VIEW IF EXISTS V; CREATE VIEW V AS ") +
                  view + ";");
        runFreely("PRAGMA writable_schema = 1; UPDATE sqlite_master SET name = 'USER_CITY', tbl_name = "
                  "'USER_CITY', "
                  "sql = replace(sql, 'VIEW V', 'VIEW USER_CITY') WHERE name = 'V';");
        EXPECT_TRUE(isRefusedSoon()) << view;
        EXPECT_FALSE(database_.executeSQL("SELECT ID FROM USER_CITY")) << view;
        runFreely("PRAGMA writable_schema = 1; DELETE FROM sqlite_master WHERE name = 'USER_CITY';");
    }
}

/// It can do no more than the statement that sets it off might: to our tables, and for as long.
TEST_F(HostileDatabase, ATriggerReachesNothingElseAndNotForLong) {
    runFreely(
        "CREATE TRIGGER T AFTER INSERT ON USER_CITY BEGIN INSERT INTO USER_CITY SELECT A.TIMEID, 0 FROM "
        "USER_ALARMS A, USER_ALARMS B, USER_ALARMS C, USER_ALARMS D, USER_ALARMS E, USER_ALARMS F, "
        "USER_ALARMS G, USER_ALARMS H; END;");
    const auto before = std::chrono::steady_clock::now();
    EXPECT_FALSE(database_.executeSQL("INSERT INTO USER_CITY (ID,SETASHOME) VALUES (1, 1)"));
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(2));
    EXPECT_EQ(rows("SELECT COUNT(*) FROM USER_CITY"), "0\n");
}

TEST_F(HostileDatabase, AMillionCitiesAreRefusedAndAThousandAreNot) {
    constexpr const char* kFill = "WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N WHERE I < ";
    runFreely(std::string(kFill) + "1000) INSERT INTO USER_CITY (ID,SETASHOME) SELECT I, 0 FROM N;");
    const UserCities thousand = storedUserCities(path());
    EXPECT_TRUE(thousand.result.isDone());
    EXPECT_EQ(thousand.rows.size(), 1'000U);
    runFreely(std::string(kFill) + "1000000) INSERT INTO USER_CITY (ID,SETASHOME) SELECT I, 0 FROM N;");
    EXPECT_TRUE(isRefusedSoon());
}

TEST_F(HostileDatabase, ATextOfManyMegabytesIsRefused) {
    runFreely("UPDATE USER_ALARMS SET MELODYNAME = hex(zeroblob(20000000)) WHERE TIMEID = 1;");
    const auto before = std::chrono::steady_clock::now();
    EXPECT_EQ(database_.getAlarmInfo(200).melodyName, "");
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(2));
}

/// The test would hang here if the file were opened.
TEST_F(HostileDatabase, OnlyARegularFileIsOpened) {
    std::filesystem::remove(path());
    ASSERT_EQ(mkfifo(path().c_str(), 0600), 0);
    EXPECT_FALSE(Database::openUser(path()));
    EXPECT_FALSE(Database::openCatalogue(path()));
    EXPECT_TRUE(isRefusedSoon());
    std::filesystem::remove(path());
    std::filesystem::create_symlink("/dev/zero", path());
    EXPECT_FALSE(Database::openUser(path()));
    EXPECT_FALSE(Database::openCatalogue(path()));
    EXPECT_TRUE(isRefusedSoon());
}

} // namespace
} // namespace zorel
