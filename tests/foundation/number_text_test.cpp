// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/NumberText.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <utility>
#include <vector>

namespace zorel {
namespace {

TEST(IntegerValue, ReadsLeadingBlanksSignAndDigits) {
    const std::vector<std::pair<std::string_view, std::int32_t>> cases = {{"", 0},
                                                                          {"0", 0},
                                                                          {"7", 7},
                                                                          {"  42", 42},
                                                                          {"\t\n\r\v\f -3", -3},
                                                                          {"+5", 5},
                                                                          {"12abc", 12},
                                                                          {"1.9", 1},
                                                                          {"abc", 0},
                                                                          {"-", 0},
                                                                          {"+-5", 0},
                                                                          {"--5", 0},
                                                                          {"- 5", 0},
                                                                          {"0x1F", 0},
                                                                          {"1e3", 1},
                                                                          {"007", 7},
                                                                          {"1,5", 1},
                                                                          {"\xC2\xA0"
                                                                           "5",
                                                                           0},
                                                                          {"-0", 0},
                                                                          {"1 000", 1},
                                                                          {"١٢", 0}};
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(integerValue(text), value) << '"' << text << '"';
    }
}

TEST(IntegerValue, StaysAtTheNearestValueWhenOutOfRange) {
    constexpr std::int32_t largest = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t smallest = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(integerValue("2147483647"), largest);
    EXPECT_EQ(integerValue("2147483648"), largest);
    EXPECT_EQ(integerValue("-2147483648"), smallest);
    EXPECT_EQ(integerValue("-2147483649"), smallest);
    EXPECT_EQ(integerValue("99999999999999999999999999"), largest);
    EXPECT_EQ(integerValue("-99999999999999999999999999"), smallest);
}

TEST(IntegerValue, StopsAtAZeroByte) {
    EXPECT_EQ(integerValue(std::string_view("12\0"
                                            "34",
                                            5)),
              12);
}

TEST(DoubleValue, ReadsDecimalNumbersWithAPoint) {
    const std::vector<std::pair<std::string_view, double>> cases = {
        {"", 0.0},    {"1.5", 1.5},   {" -2.25", -2.25}, {"+3", 3.0},      {".5", 0.5},
        {"5.", 5.0},  {"-.5", -0.5},  {"1e3", 1000.0},   {"1E-3", 0.001},  {"1e", 1.0},
        {"1e+", 1.0}, {"1,5", 1.0},   {"13.5 h", 13.5},  {".", 0.0},       {"-.", 0.0},
        {"abc", 0.0}, {"inf", 0.0},   {"nan", 0.0},      {"-inf", 0.0},    {"0x10", 0.0},
        {"--1", 0.0}, {"1.2.3", 1.2}, {"- 1", 0.0},      {"infinity", 0.0}};
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(doubleValue(text), value) << '"' << text << '"';
    }
}

TEST(DoubleValue, KeepsTheSignOfZero) {
    EXPECT_TRUE(std::signbit(doubleValue("-0")));
    EXPECT_FALSE(std::signbit(doubleValue("0")));
}

TEST(DoubleValue, GoesToInfinityOrZeroWhenOutOfRange) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(doubleValue("1e400"), infinity);
    EXPECT_EQ(doubleValue("-1e400"), -infinity);
    EXPECT_EQ(doubleValue("1e999999999999999999999"), infinity);
    EXPECT_EQ(doubleValue("1" + std::string(400, '0')), infinity);
    EXPECT_EQ(doubleValue("0.001e500"), infinity);
    EXPECT_EQ(doubleValue("1e-400"), 0.0);
    EXPECT_EQ(doubleValue("0." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(doubleValue("1000e-999999999999"), 0.0);
    EXPECT_EQ(doubleValue("0e99999"), 0.0);
}

TEST(SixDecimals, HasAPointInEveryLocale) {
    EXPECT_EQ(sixDecimals(13.5), "13.500000");
    EXPECT_EQ(sixDecimals(-0.0000006), "-0.000001");
    EXPECT_EQ(sixDecimals(0.0), "0.000000");
    EXPECT_EQ(sixDecimals(41.51), "41.510000");
    EXPECT_EQ(sixDecimals(-1650.0), "-1650.000000");
    EXPECT_EQ(sixDecimals(1e15), "1000000000000000.000000");
}

TEST(SixDecimals, ComesBackWithinHalfOfTheLastDigit) {
    std::mt19937_64 random(20240101);
    std::uniform_real_distribution<double> values(-400.0, 400.0);
    for (int i = 0; i < 2000; ++i) {
        const double value = values(random);
        EXPECT_NEAR(doubleValue(sixDecimals(value)), value, 0.5000001e-6);
    }
}

} // namespace
} // namespace zorel
