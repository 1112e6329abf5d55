// SPDX-License-Identifier: Apache-2.0
#include "store/CatalogueLike.h"

#include <gtest/gtest.h>
#include <random>
#include <sqlite3.h>

namespace zorel {
namespace {

/// The answer of a connection to: name LIKE pattern. -1 for NULL, -2 for an error.
int answer(sqlite3* connection, const char* pattern, const char* name,
           const char* question = "SELECT ?1 LIKE ?2") {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(connection, question, -1, &statement, nullptr);
    sqlite3_bind_text(statement, 1, name, -1, SQLITE_TRANSIENT);
    sqlite3_bind_text(statement, 2, pattern, -1, SQLITE_TRANSIENT);
    int result = -2;
    if (sqlite3_step(statement) == SQLITE_ROW) {
        result = sqlite3_column_type(statement, 0) == SQLITE_NULL ? -1 : sqlite3_column_int(statement, 0);
    }
    sqlite3_finalize(statement);
    return result;
}

/// The text with every wildcard marked as a letter.
std::string escaped(const std::string& text) {
    std::string result;
    for (const char c : text) {
        result += c == '%' || c == '_' ? "\\" : "";
        result += c;
    }
    return result;
}

/// One connection with SQLite's LIKE and one with ours.
class Like : public testing::Test {
protected:
    Like() {
        sqlite3_open(":memory:", &theirs_);
        sqlite3_open(":memory:", &ours_);
        useCatalogueLike(ours_);
    }
    ~Like() override {
        sqlite3_close(theirs_);
        sqlite3_close(ours_);
    }
    void expectSame(const char* pattern, const char* name) {
        EXPECT_EQ(answer(ours_, pattern, name), answer(theirs_, pattern, name))
            << name << " LIKE " << pattern;
    }

    sqlite3* theirs_ = nullptr;
    sqlite3* ours_ = nullptr;
};

TEST_F(Like, AnswersAsSqliteDoes) {
    for (const char* pattern : {"%lon%", "%LON%", "%ndon|%", "%ö%", "%Ö%", "%مكة%", "%%", "%", "", "l%n",
                                "London", "%z%", "%LONDON|KÖLN|MEKKE|مكة%", "%n|k%"}) {
        for (const char* name : {"London|Köln|Mekke|مكة", "", "lon", "LoN", "ön", "n", "Londo", "aLonx"}) {
            expectSame(pattern, name);
        }
    }
}

TEST_F(Like, WildcardsWithinTheTextAreLetters) {
    EXPECT_EQ(answer(ours_, "%l%n%", "London"), 0);
    EXPECT_EQ(answer(ours_, "%l%n%", "al%nz"), 1);
    EXPECT_EQ(answer(ours_, "%_ön%", "Köln"), 0);
    EXPECT_EQ(answer(ours_, "%_ön%", "x_öny"), 1);
    EXPECT_EQ(answer(ours_, "%%%", "London"), 0);
    EXPECT_EQ(answer(ours_, "%%%", "100%"), 1);
    EXPECT_EQ(answer(ours_, "%___%", "London"), 0);
}

TEST_F(Like, NullHasNoAnswer) {
    expectSame(nullptr, "London");
    expectSame("%lon%", nullptr);
    expectSame("l_n", nullptr);
    EXPECT_EQ(answer(ours_, "%lon%", nullptr), -1);
}

TEST_F(Like, APatternThatIsTooLongIsAnError) {
    sqlite3_limit(ours_, SQLITE_LIMIT_LIKE_PATTERN_LENGTH, 10);
    EXPECT_EQ(answer(ours_, "%12345678%", "12345678"), 1);
    EXPECT_EQ(answer(ours_, "%123456789%", "123456789"), -2);
}

TEST_F(Like, RandomTextsHaveTheSameAnswer) {
    const std::string letters[] = {"a", "A", "b", "B", "z", " ", "|",         "ö",
                                   "Ö", "ı", "م", "М", "%", "_", "\U0001F54C"};
    std::mt19937 random(4);
    const auto text = [&](std::size_t longest, std::size_t alphabet) {
        std::string result;
        for (std::size_t left = random() % (longest + 1); left > 0; --left) {
            result += letters[random() % alphabet];
        }
        return result;
    };
    int found = 0;
    for (int round = 0; round < 20'000; ++round) {
        const std::string typed = text(3, 15);
        const std::string pattern = "%" + typed + "%";
        const std::string name = text(30, 15);
        const int expected = answer(theirs_, ("%" + escaped(typed) + "%").c_str(), name.c_str(),
                                    "SELECT ?1 LIKE ?2 ESCAPE '\\'");
        ASSERT_EQ(answer(ours_, pattern.c_str(), name.c_str()), expected) << name << " LIKE " << pattern;
        found += expected;
    }
    EXPECT_GT(found, 2'000);
    EXPECT_LT(found, 18'000);
}

TEST_F(Like, KnowsItsPatterns) {
    for (const char* pattern : {"%a%", "%ö%", "% %", "%%%", "%a_%", "%a%b%"}) {
        EXPECT_TRUE(ContainedText::isPatternOf(pattern)) << pattern;
    }
    for (const char* pattern : {"", "%", "%%", "a%", "%a"}) {
        EXPECT_FALSE(ContainedText::isPatternOf(pattern)) << pattern;
    }
}

TEST_F(Like, FindsTextAtBothEnds) {
    const ContainedText text("%Abz%");
    EXPECT_TRUE(text.isIn("aBZ"));
    EXPECT_TRUE(text.isIn("xxABz"));
    EXPECT_TRUE(text.isIn("abzxx"));
    EXPECT_TRUE(text.isIn("zabz"));
    EXPECT_FALSE(text.isIn("bz"));
    EXPECT_FALSE(text.isIn("zab"));
    EXPECT_FALSE(text.isIn("ab"));
    EXPECT_FALSE(text.isIn(""));
}

} // namespace
} // namespace zorel
