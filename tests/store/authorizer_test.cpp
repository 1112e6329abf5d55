// SPDX-License-Identifier: Apache-2.0
#include "tests/store/DatabaseFixture.h"

namespace zorel {
namespace {

using testing::EndsWith;

class Authorizer : public test::DatabaseFixture {
protected:
    void SetUp() override { database_.generateUserDatabaseFile(); }

    [[nodiscard]] std::string beside(const std::string& name) const { return locations_.folder.path(name); }

    /// A statement as it is made from a ringtone's name.
    bool storeRingtone(const std::string& name) {
        return database_.executeSQL(" UPDATE USER_ALARMS SET MELODYNAME = '" + name + "'  WHERE TIMEID = 1 ");
    }
};

TEST_F(Authorizer, LetsTheProgramsOwnStatementsPass) {
    for (const char* statement :
         {"SELECT ID, SETASHOME FROM USER_CITY", "INSERT INTO USER_CITY (ID,SETASHOME) VALUES (3, 1)",
          "UPDATE USER_CITY SET SETASHOME=1 WHERE ID=3", "DELETE FROM USER_CITY WHERE ID = 3",
          " SELECT MINUTE, MELODYTIME, MELODYNAME, ACTIVE  FROM USER_ALARMS WHERE TIMEID = 1 ",
          " UPDATE USER_ALARMS SET  PRAYTIME = 13.500000  WHERE TIMEID = 1 ",
          "select timeid from user_alarms", "INSERT INTO USER_SETTINGS (SETTINGID) VALUES (1)"}) {
        EXPECT_TRUE(database_.executeSQL(statement)) << statement;
    }
    EXPECT_EQ(log(), "");
}

TEST_F(Authorizer, RefusesEverythingElse) {
    for (const std::string& statement :
         {"ATTACH DATABASE '" + beside("other.sqlite") + "' AS other",
          std::string("DETACH DATABASE main"),
          std::string("DROP TABLE USER_ALARMS"),
          std::string("PRAGMA writable_schema = 1"),
          std::string("PRAGMA journal_mode = WAL"),
          std::string("VACUUM"),
          "VACUUM INTO '" + beside("copy.sqlite") + "'",
          std::string("CREATE TABLE OTHER (A INTEGER)"),
          std::string("CREATE TEMP TABLE USER_CITY (A INTEGER)"),
          std::string("CREATE INDEX I ON USER_CITY (ID)"),
          std::string("CREATE VIEW V AS SELECT 1"),
          std::string("ALTER TABLE USER_CITY RENAME TO X"),
          std::string("CREATE TRIGGER T AFTER INSERT ON USER_CITY BEGIN DELETE FROM USER_ALARMS; END"),
          std::string("SELECT load_extension('evil')"),
          std::string("SELECT hex(zeroblob(1000000000))"),
          std::string("SELECT * FROM pragma_database_list"),
          std::string("BEGIN EXCLUSIVE"),
          std::string("SAVEPOINT S"),
          std::string("ANALYZE"),
          std::string("DELETE FROM sqlite_master"),
          std::string("UPDATE sqlite_master SET sql = ''"),
          std::string("WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N) SELECT I FROM N"),
          std::string("CREATE VIRTUAL TABLE USER_CITY USING fts5(A)")}) {
        const std::string before = log();
        EXPECT_FALSE(database_.executeSQL(statement)) << statement;
        EXPECT_GT(log().size(), before.size()) << statement;
    }
    EXPECT_EQ(rows("SELECT name FROM sqlite_master ORDER BY rowid"),
              "USER_CITY\nUSER_ALARMS\nUSER_SETTINGS\n");
    EXPECT_EQ(rows("PRAGMA journal_mode"), "delete\n");
    EXPECT_FALSE(functions_.fileExists(beside("other.sqlite")));
    EXPECT_FALSE(functions_.fileExists(beside("copy.sqlite")));
}

TEST_F(Authorizer, LogsARefusalLikeAnyFailure) {
    EXPECT_FALSE(database_.executeSQL("DROP TABLE USER_CITY"));
    EXPECT_THAT(log(), EndsWith("] not authorized\n"));
}

TEST_F(Authorizer, KeepsAHostileRingtoneFromOtherFiles) {
    test::writeFile(beside("victim"), "kept");
    for (const std::string& name :
         {"x'; ATTACH DATABASE '" + beside("evil.sqlite") + "' AS e; CREATE TABLE e.T (A); --",
          std::string("x'; DROP TABLE USER_ALARMS; --"), std::string("x'; PRAGMA user_version = 9; --"),
          "x'; VACUUM INTO '" + beside("evil.sqlite") + "'; --",
          std::string("x' || load_extension('e') || '")}) {
        EXPECT_FALSE(storeRingtone(name)) << name;
    }
    EXPECT_FALSE(functions_.fileExists(beside("evil.sqlite")));
    EXPECT_EQ(rows("PRAGMA user_version"), "0\n");
    EXPECT_EQ(rows("SELECT TIMEID FROM USER_ALARMS"), "1\n2\n3\n4\n5\n6\n");
}

TEST_F(Authorizer, CutsOffAStatementWithoutEnd) {
    EXPECT_FALSE(storeRingtone("x' WHERE EXISTS (SELECT 1 FROM USER_ALARMS A, USER_ALARMS B, USER_ALARMS C, "
                               "USER_ALARMS D, USER_ALARMS E, USER_ALARMS F, USER_ALARMS G, USER_ALARMS H, "
                               "USER_ALARMS I, USER_ALARMS J, USER_ALARMS K, USER_ALARMS L WHERE A.MINUTE + "
                               "L.MINUTE = 1); --"));
    EXPECT_THAT(log(), EndsWith("] interrupted\n"));
}

TEST_F(Authorizer, HoldsForTriggersOfAForeignFileToo) {
    runFreely(
        "CREATE TABLE OTHER (A); CREATE TRIGGER T AFTER INSERT ON USER_CITY BEGIN INSERT INTO OTHER VALUES "
        "(1); END");
    EXPECT_FALSE(database_.executeSQL("INSERT INTO USER_CITY (ID,SETASHOME) VALUES (1, 0)"));
    EXPECT_EQ(rows("SELECT * FROM OTHER"), "");
    EXPECT_EQ(rows("SELECT * FROM USER_CITY"), "");
}

class CatalogueAuthorizer : public test::DatabaseFixture {
protected:
    void SetUp() override {
        runFreely("CREATE TABLE CITY (ID INTEGER, NAMESRC TEXT); CREATE TABLE SECRET (A TEXT);"
                  "INSERT INTO CITY VALUES (1, 'Bursa'), (2, 'Ankara'); INSERT INTO SECRET VALUES ('s')");
        catalogue_ = Database::openCatalogue(path());
        ASSERT_TRUE(catalogue_);
    }
    std::optional<Database> catalogue_;
};

TEST_F(CatalogueAuthorizer, LetsASearchPass) {
    Statement search = catalogue_->prepare("SELECT C.ID FROM CITY C WHERE C.NAMESRC LIKE '%urs%'");
    ASSERT_TRUE(search.nextRow());
    EXPECT_EQ(search.text(0), "1");
    EXPECT_FALSE(search.nextRow());
}

TEST_F(CatalogueAuthorizer, RefusesEverythingElse) {
    for (const char* statement :
         {"SELECT A FROM SECRET", "SELECT ID FROM CITY WHERE NAMESRC LIKE '%' UNION SELECT A FROM SECRET",
          "SELECT sql FROM sqlite_master", "SELECT upper(NAMESRC) FROM CITY", "DELETE FROM CITY",
          "INSERT INTO CITY VALUES (3, 'x')", "PRAGMA table_info(CITY)", "ATTACH DATABASE ':memory:' AS m"}) {
        EXPECT_FALSE(catalogue_->prepare(statement).isPrepared()) << statement;
    }
    EXPECT_TRUE(catalogue_->execute("UPDATE CITY SET ID = 9"));
    EXPECT_EQ(rows("SELECT ID FROM CITY"), "1\n2\n");
}

TEST_F(CatalogueAuthorizer, RefusesAPatternNoNameIsAsLongAs) {
    const std::string pattern(5000, '%');
    Statement search = catalogue_->prepare("SELECT ID FROM CITY WHERE NAMESRC LIKE '" + pattern + "'");
    EXPECT_FALSE(search.nextRow());
}

TEST_F(CatalogueAuthorizer, OpensNothingThatIsMissing) {
    EXPECT_FALSE(Database::openCatalogue(locations_.folder.path("missing.sqlite")));
    EXPECT_FALSE(functions_.fileExists(locations_.folder.path("missing.sqlite")));
}

} // namespace
} // namespace zorel
