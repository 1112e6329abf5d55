// SPDX-License-Identifier: Apache-2.0
#include "tests/support/TemporaryFolder.h"
#include "tools/build-catalogue/TsvFile.h"
#include "tools/build-catalogue/Utf8.h"

#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorel::catalogue {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::array<std::string_view, 2> kColumns{"a", "b"};
const TsvLayout kLayout{"table.tsv", kColumns};

struct Reading {
    std::vector<std::string> rows;
    Problems problems;
};

Reading readText(std::string_view text) {
    Reading reading;
    TsvFile::fromText(text, kLayout).forEachRow(reading.problems, [&](const TsvRow& row) {
        reading.rows.push_back(std::to_string(row.line) + ":" + std::string(row.fields[0]) + "," +
                               std::string(row.fields[1]));
    });
    return reading;
}

TEST(TsvFile, HandsOverFieldsWithTheirLine) {
    const Reading reading = readText("a\tb\n1\t2\n\tçok\n");
    EXPECT_THAT(reading.rows, ElementsAre("2:1,2", "3:,çok"));
    EXPECT_TRUE(reading.problems.empty());
}

TEST(TsvFile, TheLastLineNeedsNoLineEnd) {
    EXPECT_THAT(readText("a\tb\n1\t2").rows, ElementsAre("2:1,2"));
}

TEST(TsvFile, RefusesAnotherHeader) {
    for (const char* text : {"", "a\n", "b\ta\n1\t2\n", "a\tb\tc\n", "a b\n"}) {
        const Reading reading = readText(text);
        EXPECT_THAT(reading.problems.lines(), ElementsAre("table.tsv:1: the header is not \"a b\"")) << text;
        EXPECT_THAT(reading.rows, IsEmpty());
    }
}

TEST(TsvFile, NamesTheLineWithAWrongNumberOfColumns) {
    const Reading reading = readText("a\tb\n1\t2\n1\n1\t2\t3\n\n5\t6\n");
    EXPECT_THAT(reading.problems.lines(),
                ElementsAre("table.tsv:3: 1 columns instead of 2", "table.tsv:4: 3 columns instead of 2",
                            "table.tsv:5: 1 columns instead of 2"));
    EXPECT_THAT(reading.rows, ElementsAre("2:1,2", "6:5,6"));
}

TEST(TsvFile, RefusesMalformedText) {
    for (const char* field :
         {"\xC3", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xFF", "a\r", "\x01"}) {
        const Reading reading = readText("a\tb\nx\t" + std::string(field) + "\n");
        ASSERT_EQ(reading.problems.count(), 1U) << field;
        EXPECT_THAT(reading.problems.lines()[0], HasSubstr("table.tsv:2: not well-formed"));
    }
}

TEST(TsvFile, AcceptsJoinersAndLettersOfEveryScript) {
    EXPECT_TRUE(isCleanText("شن\u200Cژن Москва 北京 \U0001F54C"));
    EXPECT_FALSE(isCleanText(std::string_view("a\0b", 3)));
}

TEST(TsvFile, AMissingFileIsAProblem) {
    Problems problems;
    EXPECT_FALSE(TsvFile::read("/nowhere", kLayout, problems));
    ASSERT_EQ(problems.count(), 1U);
    EXPECT_THAT(problems.lines()[0], HasSubstr("/nowhere/table.tsv: cannot be read"));
}

TEST(TsvFile, AFolderInsteadOfAFileIsAProblem) {
    const test::TemporaryFolder folder;
    std::filesystem::create_directory(folder.path("table.tsv"));
    Problems problems;
    const auto file = TsvFile::read(folder.path(), kLayout, problems);
    if (file) {
        file->forEachRow(problems, [](const TsvRow&) {});
    }
    EXPECT_EQ(problems.count(), 1U);
}

TEST(Problems, KeepsTwentyAndCountsTheRest) {
    Problems problems;
    for (std::size_t line = 1; line <= 50; ++line) {
        problems.add("f", line, "wrong");
    }
    EXPECT_EQ(problems.count(), 50U);
    ASSERT_EQ(problems.lines().size(), 20U);
    EXPECT_EQ(problems.lines().back(), "f:20: wrong");
}

} // namespace
} // namespace zorel::catalogue
