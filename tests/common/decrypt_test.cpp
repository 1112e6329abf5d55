// SPDX-License-Identifier: Apache-2.0
#include "common/DecryptKey.h"
#include "common/GlobalFuncs.h"
#include "platform/foundation/CodePage1254.h"
#include "tests/support/TemporaryFolder.h"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <random>

namespace zorel {
namespace {

/// Finds the pairs by trying: for each byte the first pair from which the cipher's rule makes it.
std::string enciphered(std::string_view bytes, unsigned first) {
    std::string text = fmt::format("{:02X}", first);
    std::size_t key = 1;
    unsigned previous = first;
    for (const char byte : bytes) {
        for (unsigned pair = 0; pair < 256; ++pair) {
            const unsigned mixed = kDecryptKey[key] ^ pair;
            const unsigned made = mixed > previous ? mixed - previous : mixed + 255 - previous;
            if (made == static_cast<unsigned char>(byte)) {
                text += fmt::format("{:02X}", pair);
                previous = pair;
                break;
            }
        }
        key = (key + 1) % 10;
    }
    return text;
}

class Decrypt : public testing::Test {
protected:
    test::TemporaryLocations locations_;
    GlobalFuncs functions_;
};

TEST_F(Decrypt, KeyCanMakeEveryByte) {
    for (const std::uint16_t key : kDecryptKey) {
        EXPECT_GE(key, 1U);
        EXPECT_LE(key, 255U);
    }
}

/// Worked by hand with the keys from position 1 (C3, 17) and the first pair 10: C3 ^ 80 = 43 > 10 gives 33
/// ("3"); 17 ^ 20 = 37 <= 80 gives 37 + FF - 80 = B6.
TEST_F(Decrypt, FollowsTheRuleStepByStep) {
    EXPECT_EQ(functions_.Decrypt("10"), "");
    EXPECT_EQ(functions_.Decrypt("1080"), "3");
    EXPECT_EQ(functions_.Decrypt("108020"), "3¶");
}

/// With equal numbers the difference is not taken: C3 ^ C2 = 01, previous 01, gives FF, which is y with dots.
TEST_F(Decrypt, AddsTwoHundredFiftyFiveWhenNotGreater) {
    EXPECT_EQ(functions_.Decrypt("01C2"), "ÿ");
}

TEST_F(Decrypt, UndoesEveryByteAtEveryKeyAfterEveryPair) {
    for (unsigned first = 0; first < 256; ++first) {
        for (unsigned byte = 1; byte < 256; ++byte) {
            const std::string bytes(kDecryptKey.size() + 1, static_cast<char>(byte));
            EXPECT_EQ(functions_.Decrypt(enciphered(bytes, first)), utf8FromCodePage1254(bytes));
        }
    }
}

TEST_F(Decrypt, UndoesRandomTextsInBothCasesOfDigits) {
    std::mt19937 random(11);
    for (int i = 0; i < 300; ++i) {
        std::string bytes(random() % 60, ' ');
        for (char& byte : bytes) {
            byte = static_cast<char>(1 + random() % 255);
        }
        std::string text = enciphered(bytes, random() % 256);
        EXPECT_EQ(functions_.Decrypt(text), utf8FromCodePage1254(bytes));
        for (char& digit : text) {
            digit = digit >= 'A' ? static_cast<char>(digit + ('a' - 'A')) : digit;
        }
        EXPECT_EQ(functions_.Decrypt(text), utf8FromCodePage1254(bytes));
    }
}

TEST_F(Decrypt, ReadsTheResultInTheTurkishCodePage) {
    EXPECT_EQ(functions_.Decrypt(enciphered("\xDDmsak \xDEi\xFEli", 0x3C)), "İmsak Şişli");
}

TEST_F(Decrypt, StopsAtTheFirstPairThatIsNone) {
    const std::string good = enciphered("41;30;36", 0x77);
    EXPECT_EQ(functions_.Decrypt(good + "A"), "41;30;36");
    EXPECT_EQ(functions_.Decrypt(good + "0x" + good), "41;30;36");
    EXPECT_EQ(functions_.Decrypt(good + " F" + good), "41;30;36");
    EXPECT_EQ(functions_.Decrypt(good + "-1" + good), "41;30;36");
    for (const char* text : {"", "4", "zz", "4z41", "  ", "Ş"}) {
        EXPECT_EQ(functions_.Decrypt(text), "") << text;
    }
}

/// A byte 0 needs the previous pair FF and the key itself as the pair; it ends the text.
TEST_F(Decrypt, EndsAtAZeroByte) {
    EXPECT_EQ(functions_.Decrypt("FF" + fmt::format("{:02X}", kDecryptKey[1]) + "8020"), "");
}

} // namespace
} // namespace zorel
