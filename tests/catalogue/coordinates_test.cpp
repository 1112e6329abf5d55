// SPDX-License-Identifier: Apache-2.0
#include "tools/build-catalogue/Coordinates.h"

#include "common/DecryptKey.h"
#include "common/GlobalFuncs.h"
#include "platform/foundation/CodePage1254.h"
#include "platform/foundation/NumberText.h"
#include "tests/support/TemporaryFolder.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <stdexcept>

namespace zorel::catalogue {
namespace {

class Coordinates : public testing::Test {
protected:
    test::TemporaryLocations locations_;
    GlobalFuncs glbFuncs_;
};

TEST_F(Coordinates, TextIsDegreesMinutesSeconds) {
    EXPECT_EQ(sexagesimalText(41.51), "41;30;36");
    EXPECT_EQ(sexagesimalText(41.01384), "41;0;49.824");
    EXPECT_EQ(sexagesimalText(0.0), "0;0;0");
    EXPECT_EQ(sexagesimalText(180.0), "180;0;0");
}

TEST_F(Coordinates, TheSignLeadsEvenBeforeZeroDegrees) {
    EXPECT_EQ(sexagesimalText(-0.5), "-0;30;0");
    EXPECT_EQ(sexagesimalText(-73.98), "-73;58;48");
    EXPECT_EQ(sexagesimalText(-0.0), "0;0;0");
    EXPECT_EQ(sexagesimalText(-0.0000001), "0;0;0") << "nothing is left of it, not even the sign";
}

TEST_F(Coordinates, RoundingCarriesIntoMinutesAndDegrees) {
    EXPECT_EQ(sexagesimalText(10.0 + 59.9996 / 3600.0), "10;1;0");
    EXPECT_EQ(sexagesimalText(10.9999999), "11;0;0");
    EXPECT_EQ(sexagesimalText(10.0 + 59.9994 / 3600.0), "10;0;59.999");
    EXPECT_EQ(sexagesimalText(-10.9999999), "-11;0;0");
}

TEST_F(Coordinates, EveryByteComesBackAtEveryKeyAndAfterEveryByte) {
    // Ten fillers and more bring each byte to each key; the first pair runs through all values as "previous".
    for (int first = 0; first < 256; ++first) {
        for (int byte = 1; byte < 256; ++byte) {
            const std::string bytes(11, static_cast<char>(byte));
            const std::string text = encipher(bytes, static_cast<std::uint8_t>(first), kDecryptKey);
            ASSERT_EQ(glbFuncs_.Decrypt(text), utf8FromCodePage1254(bytes)) << first << " " << byte;
        }
    }
}

TEST_F(Coordinates, RandomTextsComeBack) {
    std::mt19937 random(20261120);
    for (int round = 0; round < 20'000; ++round) {
        std::string bytes(random() % 40, ' ');
        for (char& byte : bytes) {
            byte = static_cast<char>(1 + random() % 255);
        }
        const auto first = static_cast<std::uint8_t>(random());
        ASSERT_EQ(glbFuncs_.Decrypt(encipher(bytes, first, kDecryptKey)), utf8FromCodePage1254(bytes));
    }
}

TEST_F(Coordinates, TheCipherCarriesNoZeroByte) {
    EXPECT_THROW(encipher(std::string_view("a\0b", 3), 1, kDecryptKey), std::invalid_argument);
}

TEST_F(Coordinates, AnEmptyTextIsItsFirstPair) {
    EXPECT_EQ(encipher("", 0x0A, kDecryptKey), "0A");
}

TEST_F(Coordinates, KeysOfMoreThanEightBits) {
    // With such a key the mixed value is always above the previous one, so the byte is the difference's low
    // part.
    const std::array<std::uint16_t, 10> key{0x1FF, 0x1FF, 0x1FF, 0x1FF, 0x1FF,
                                            0x1FF, 0x1FF, 0x1FF, 0x1FF, 0x1FF};
    const std::string text = encipher("\xF0", 0x20, key);
    const auto pair = static_cast<unsigned>(std::stoi(text.substr(2), nullptr, 16));
    EXPECT_EQ(((0x1FFU ^ pair) - 0x20U) & 0xFFU, 0xF0U);
}

TEST_F(Coordinates, APositionComesBackToSixDecimals) {
    for (int step = -14587; step <= 14587; ++step) {
        const double rounded = std::round(step * 1234.0) / 1e5;
        const std::string text = glbFuncs_.getFloatStr(glbFuncs_.Decrypt(encipheredCoordinate(rounded)));
        ASSERT_EQ(text, sixDecimals(rounded + 0.0)) << rounded;
    }
}

} // namespace
} // namespace zorel::catalogue
