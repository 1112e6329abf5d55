// SPDX-License-Identifier: Apache-2.0
#include "tests/store/DatabaseFixture.h"

namespace zorel {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

class DatabaseStatements : public test::DatabaseFixture {
protected:
    void SetUp() override { database_.generateUserDatabaseFile(); }
};

TEST_F(DatabaseStatements, RunAndLast) {
    EXPECT_TRUE(database_.executeSQL("INSERT INTO USER_CITY (ID,SETASHOME) VALUES (7, 1)"));
    EXPECT_TRUE(database_.executeSQL("INSERT INTO USER_CITY (ID,SETASHOME) VALUES (7, 0)"));
    EXPECT_TRUE(database_.executeSQL("UPDATE USER_CITY SET SETASHOME = 0"));
    EXPECT_EQ(rows("SELECT ID, SETASHOME FROM USER_CITY"), "7|0\n7|0\n");
    EXPECT_TRUE(database_.executeSQL("DELETE FROM USER_CITY WHERE ID = 7"));
    EXPECT_EQ(rows("SELECT ID FROM USER_CITY"), "");
    EXPECT_EQ(log(), "");
}

TEST_F(DatabaseStatements, RunAsABatchUpToTheFirstThatFails) {
    EXPECT_FALSE(database_.executeSQL("INSERT INTO USER_CITY VALUES (1, 0); INSERT INTO NOWHERE VALUES (1);"
                                      "INSERT INTO USER_CITY VALUES (2, 0)"));
    EXPECT_EQ(rows("SELECT ID FROM USER_CITY"), "1\n");
    EXPECT_THAT(log(), EndsWith("] no such table: NOWHERE\n"));
}

TEST_F(DatabaseStatements, ThatSayNothingSucceed) {
    for (const char* nothing : {"", " ", ";", "-- comment"}) {
        EXPECT_TRUE(database_.executeSQL(nothing)) << nothing;
    }
    EXPECT_EQ(log(), "");
}

TEST_F(DatabaseStatements, BreakAtAQuoteInAText) {
    EXPECT_FALSE(
        database_.executeSQL(" UPDATE USER_ALARMS SET MELODYNAME = 'Rock 'n' Roll'  WHERE TIMEID = 1 "));
    EXPECT_THAT(log(), HasSubstr("syntax error"));
    EXPECT_EQ(rows("SELECT MELODYNAME FROM USER_ALARMS WHERE TIMEID = 1"), "NULL\n");
}

TEST_F(DatabaseStatements, AreLoggedWithTheirErrorTextAsItIs) {
    EXPECT_FALSE(database_.executeSQL("INSERT INTO USER_ALARMS (TIMEID,MINUTE,ACTIVE) VALUES (1, 0, 0)"));
    EXPECT_THAT(log(), EndsWith("] UNIQUE constraint failed: USER_ALARMS.TIMEID\n"));
}

TEST_F(DatabaseStatements, InAnArraySucceedWhenOneDoes) {
    const std::string mixed[] = {"INSERT INTO USER_CITY VALUES (1, 0)", "bad",
                                 "INSERT INTO USER_CITY VALUES (2, 0)"};
    EXPECT_TRUE(database_.executeArrayOfSQL(mixed));
    EXPECT_EQ(rows("SELECT ID FROM USER_CITY"), "1\n2\n");
    EXPECT_THAT(log(), EndsWith("] near \"bad\": syntax error\n"));
}

TEST_F(DatabaseStatements, InAnArrayFailWhenAllDoOrThereAreNone) {
    const std::string bad[] = {"bad", "worse"};
    EXPECT_FALSE(database_.executeArrayOfSQL(bad));
    EXPECT_THAT(log(), HasSubstr("near \"bad\""));
    EXPECT_THAT(log(), HasSubstr("near \"worse\""));
    EXPECT_FALSE(database_.executeArrayOfSQL({}));
}

TEST_F(DatabaseStatements, WithoutAFileAreRefusedAndMakeNone) {
    std::filesystem::remove(path());
    const std::string statement[] = {"DELETE FROM USER_CITY"};
    EXPECT_FALSE(database_.executeSQL(statement[0]));
    EXPECT_THAT(log(), EndsWith("] Error in executeSQL : DB file not exists\n"));
    EXPECT_FALSE(database_.executeArrayOfSQL(statement));
    EXPECT_THAT(log(), EndsWith("] Error in executeArrayOfSQL : DB file not exists\n"));
    EXPECT_FALSE(functions_.fileExists(path()));
}

TEST_F(DatabaseStatements, OnWhatCannotBeOpenedAreRefused) {
    database_.setUserDBPath(locations_.folder.path());
    const std::string statement[] = {"DELETE FROM USER_CITY"};
    EXPECT_FALSE(database_.executeSQL(statement[0]));
    EXPECT_THAT(log(), EndsWith("] Error in executeSQL : DB not opened\n"));
    EXPECT_FALSE(database_.executeArrayOfSQL(statement));
    EXPECT_THAT(log(), EndsWith("] Error in executeArrayOfSQL : DB not opened\n"));
}

/// What each typed reader makes of one stored value.
struct Reading {
    const char* stored;
    std::int32_t integer;
    bool truth;
    double real;
    const char* text;
};

TEST_F(DatabaseStatements, ReadColumnsByType) {
    const Reading readings[] = {{"NULL", 0, false, 0.0, ""},
                                {"2", 2, true, 2.0, "2"},
                                {"-1", -1, false, -1.0, "-1"},
                                {"0", 0, false, 0.0, "0"},
                                {"'12abc'", 12, true, 12.0, "12abc"},
                                {"'abc'", 0, false, 0.0, "abc"},
                                {"' 7'", 7, true, 7.0, " 7"},
                                {"13.5", 13, true, 13.5, "13.5"},
                                {"'-0.25'", 0, false, -0.25, "-0.25"},
                                {"'1,5'", 1, true, 1.0, "1,5"},
                                {"99999999999", 2147483647, true, 99999999999.0, "99999999999"},
                                {"''", 0, false, 0.0, ""},
                                {"x'C5'", 0, false, 0.0, "\xC5"},
                                {"'Şafak'", 0, false, 0.0, "Şafak"}};
    const auto connection = Database::openUser(path());
    ASSERT_TRUE(connection);
    for (const Reading& reading : readings) {
        Statement statement = connection->prepare(std::string("SELECT ") + reading.stored);
        ASSERT_TRUE(statement.nextRow()) << reading.stored;
        EXPECT_EQ(database_.asInteger(statement.get(), 0), reading.integer) << reading.stored;
        EXPECT_EQ(database_.asBoolean(statement.get(), 0), reading.truth) << reading.stored;
        EXPECT_EQ(database_.asFloat(statement.get(), 0), reading.real) << reading.stored;
        EXPECT_EQ(database_.asString(statement.get(), 0), reading.text) << reading.stored;
        EXPECT_EQ(statement.text(0), reading.text) << reading.stored;
        EXPECT_FALSE(statement.nextRow());
    }
}

TEST_F(DatabaseStatements, ReadNothingFromAMissingColumnOrStatement) {
    const auto connection = Database::openUser(path());
    ASSERT_TRUE(connection);
    Statement good = connection->prepare("SELECT 5");
    ASSERT_TRUE(good.nextRow());
    Statement bad = connection->prepare("SELECT nonsense");
    EXPECT_FALSE(bad.isPrepared());
    EXPECT_FALSE(bad.nextRow());
    for (const int column : {-1, 1, 1000}) {
        EXPECT_EQ(database_.asInteger(good.get(), column), 0);
        EXPECT_EQ(database_.asString(good.get(), column), "");
    }
    EXPECT_EQ(database_.asInteger(bad.get(), 0), 0);
    EXPECT_FALSE(database_.asBoolean(bad.get(), 0));
    EXPECT_EQ(database_.asFloat(bad.get(), 0), 0.0);
    EXPECT_EQ(database_.asString(nullptr, 0), "");
}

} // namespace
} // namespace zorel
