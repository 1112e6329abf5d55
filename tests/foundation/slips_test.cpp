// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/Slips.h"

#include "platform/foundation/Utf8.h"

#include <gtest/gtest.h>
#include <random>

namespace zorel {
namespace {

std::size_t slips(std::string_view left, std::string_view right, std::size_t most = 9) {
    return slipsBetween(charactersOf(left), charactersOf(right), most);
}

TEST(Slips, CountsEachKindOfSlipOnce) {
    EXPECT_EQ(slips("ankara", "ankara"), 0U);
    EXPECT_EQ(slips("ankra", "ankara"), 1U) << "missing";
    EXPECT_EQ(slips("ankkara", "ankara"), 1U) << "too much";
    EXPECT_EQ(slips("ankaro", "ankara"), 1U) << "wrong";
    EXPECT_EQ(slips("nakara", "ankara"), 1U) << "exchanged";
    EXPECT_EQ(slips("ankaar", "ankara"), 1U) << "exchanged at the end";
}

TEST(Slips, AddsThemUp) {
    EXPECT_EQ(slips("berln", "brlin"), 2U);
    EXPECT_EQ(slips("kitten", "sitting"), 3U);
    EXPECT_EQ(slips("", "abc"), 3U);
    EXPECT_EQ(slips("abc", ""), 3U);
    EXPECT_EQ(slips("", ""), 0U);
}

TEST(Slips, CountsCharactersNotBytes) {
    EXPECT_EQ(slips("москва", "масква"), 1U);
    EXPECT_EQ(slips("東京", "北京"), 1U);
}

TEST(Slips, MoreThanOfInterestIsOneMore) {
    EXPECT_EQ(slips("abcdef", "uvwxyz", 2), 3U);
    EXPECT_EQ(slips("a", "abcd", 2), 3U);
    EXPECT_EQ(slips("abcd", "abcd", 0), 0U);
    EXPECT_EQ(slips("abcd", "abce", 0), 1U);
}

TEST(Slips, WordsThatAreTooLongAreNotCompared) {
    EXPECT_EQ(slips(std::string(64, 'a'), std::string(64, 'a'), 2), 0U);
    EXPECT_EQ(slips(std::string(65, 'a'), std::string(65, 'a'), 2), 3U);
}

TEST(Slips, AreTheSameInBothDirections) {
    std::mt19937 random(20261122);
    const auto word = [&] {
        std::string text(random() % 8, ' ');
        for (char& letter : text) {
            letter = static_cast<char>('a' + random() % 3);
        }
        return text;
    };
    for (int round = 0; round < 20'000; ++round) {
        const std::string left = word();
        const std::string right = word();
        const std::size_t count = slips(left, right);
        ASSERT_EQ(count, slips(right, left)) << left << " " << right;
        ASSERT_EQ(count == 0, left == right);
        for (std::size_t most = 0; most < 4; ++most) {
            ASSERT_EQ(slips(left, right, most), std::min(count, most + 1)) << left << " " << right;
        }
    }
}

} // namespace
} // namespace zorel
