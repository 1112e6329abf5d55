// SPDX-License-Identifier: Apache-2.0
#include "Playback.h"

#include <gtest/gtest.h>

namespace zorel::ring {
namespace {

TEST(Loudness, BeginsAndEndsInSilenceAndIsFullBetween) {
    EXPECT_EQ(loudnessAt(0, 30), 0);
    EXPECT_EQ(loudnessAt(30, 30), 0);
    EXPECT_EQ(loudnessAt(-1, 30), 0);
    EXPECT_EQ(loudnessAt(31, 30), 0);
    EXPECT_EQ(loudnessAt(kFade, 30), 1);
    EXPECT_EQ(loudnessAt(15, 30), 1);
    EXPECT_EQ(loudnessAt(30 - kFade, 30), 1);
}

TEST(Loudness, NeverJumps) {
    for (const double duration : {1.0, 5.0, 30.0, 300.0}) {
        for (double at = 0; at < duration; at += 0.02) {
            EXPECT_LT(std::abs(loudnessAt(at + 0.02, duration) - loudnessAt(at, duration)), 0.25)
                << at << " of " << duration;
        }
    }
}

TEST(Loudness, ShortRingsAreHeardToo) {
    EXPECT_EQ(loudnessAt(2.5, 5), 1);
    EXPECT_EQ(loudnessAt(0.5, 1), 1);
}

} // namespace
} // namespace zorel::ring
