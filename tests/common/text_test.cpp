// SPDX-License-Identifier: Apache-2.0
#include "common/GlobalFuncs.h"
#include "platform/foundation/NumberText.h"
#include "tests/support/TemporaryFolder.h"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <random>
#include <utility>

namespace zorel {
namespace {

class Text : public testing::Test {
protected:
    test::TemporaryLocations locations_;
    GlobalFuncs functions_;
};

TEST_F(Text, CoordinatesBecomeDecimal) {
    const std::pair<const char*, const char*> cases[] = {
        {"41;30;36", "41.510000"}, {"-41;30;36", "-41.510000"},     {"41", "41.000000"},
        {"-41", "-41.000000"},     {"41;30;", "41.500000"},         {"-41;30;", "-41.500000"},
        {"41;30", "41.008333"},    {"-41;30", "-41.008333"},        {"0;0;0", "0.000000"},
        {"-0;30;0", "-0.500000"},  {"179;59;59.999", "180.000000"}, {"41;30;36.5", "41.510139"},
        {"41;;36", "41.010000"},   {";30;0", "0.500000"},           {"41;", "41.000000"}};
    for (const auto& [text, decimal] : cases) {
        EXPECT_EQ(functions_.getFloatStr(text), decimal) << text;
    }
}

/// Every field closed by a semicolon counts as minutes, the third one too.
TEST_F(Text, CoordinateFieldsBeforeTheLastAreMinutes) {
    EXPECT_EQ(functions_.getFloatStr("41;30;36;"), "42.100000");
    EXPECT_EQ(functions_.getFloatStr("1;6;6;36"), "1.210000");
}

TEST_F(Text, CoordinatesOfNonsenseAreZeroOrWhatCanBeRead) {
    for (const char* text : {"", ";", ";;;", "abc", "Ş;ı;ü", "+"}) {
        EXPECT_EQ(functions_.getFloatStr(text), "0.000000") << text;
    }
    EXPECT_EQ(functions_.getFloatStr("-"), "-0.000000");
    EXPECT_EQ(functions_.getFloatStr("--"), "-0.000000");
    EXPECT_EQ(functions_.getFloatStr("12abc;30xyz;"), "12.500000");
    EXPECT_EQ(functions_.getFloatStr("41,5"), "41.000000");
    EXPECT_EQ(functions_.getFloatStr(std::string(100000, ';')), "0.000000");
}

TEST_F(Text, CoordinatesComeBackFromSexagesimalText) {
    std::mt19937 random(3);
    for (int i = 0; i < 2000; ++i) {
        const auto degrees = random() % 180;
        const auto minutes = random() % 60;
        const auto thousandths = random() % 60000;
        const double value =
            static_cast<double>(degrees * 3600000 + minutes * 60000 + thousandths) / 3600000.0;
        const std::string text =
            fmt::format("-{};{};{:.3f}", degrees, minutes, static_cast<double>(thousandths) / 1000.0);
        EXPECT_NEAR(doubleValue(functions_.getFloatStr(text)), -value, 0.51e-6) << text;
    }
}

TEST_F(Text, TimesHaveTwoDigitsEach) {
    EXPECT_EQ(functions_.timeLeadingZeroWithSeconds(7, 5, 0), "07:05:00");
    EXPECT_EQ(functions_.timeLeadingZeroWithSeconds(23, 59, 59), "23:59:59");
    EXPECT_EQ(functions_.timeLeadingZeroWithSeconds(0, 0, 0), "00:00:00");
    EXPECT_EQ(functions_.timeLeadingZeroWithSeconds(-1, 100, 2147483647), "-1:100:2147483647");
}

TEST_F(Text, FilesAreAskedOfTheFileSystem) {
    EXPECT_TRUE(functions_.fileExists(locations_.folder.path()));
    EXPECT_FALSE(functions_.fileExists(locations_.folder.path("missing")));
}

} // namespace
} // namespace zorel
