// SPDX-License-Identifier: Apache-2.0
#include "host/Contrast.h"
#include "host/PainterContext.h"

#include <gtest/gtest.h>

namespace zorel {
namespace {

TEST(Contrast, IsThatOfTheDefinition) {
    EXPECT_DOUBLE_EQ(contrastOf(Qt::black, Qt::white), 21.0);
    EXPECT_DOUBLE_EQ(contrastOf(Qt::white, Qt::black), 21.0);
    EXPECT_DOUBLE_EQ(contrastOf(Qt::red, Qt::red), 1.0);
    EXPECT_NEAR(contrastOf(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.01) << "the lightest grey for texts";
}

TEST(Contrast, AColourIsMovedAsFarAsNeeded) {
    const QColor pale(230, 226, 175);
    const QColor moved = withContrast(pale, Qt::white, kControlContrast);
    EXPECT_GE(contrastOf(moved, Qt::white), 3.0);
    EXPECT_LT(contrastOf(moved, Qt::white), 3.4) << "no further";
    EXPECT_NEAR(moved.hslHueF(), pale.hslHueF(), 0.03);
    const QColor ink(51, 55, 69);
    EXPECT_EQ(withContrast(ink, Qt::white, kTextContrast), ink) << "enough as it is";
    EXPECT_GE(contrastOf(withContrast(ink, Qt::black, kTextContrast), Qt::black), 4.5)
        << "made lighter on black";
    EXPECT_EQ(withContrast(Qt::white, Qt::white, kTextContrast), QColor(Qt::white)) << "not meant to be seen";
}

TEST(Contrast, DrawnControlsAreSeenOnBothGrounds) {
    const UIColor pale = UIColor::colorWithRed(230.0 / 255.0, 226.0 / 255.0, 175.0 / 255.0, 1.0);
    EXPECT_GE(contrastOf(seenColor(pale, false, kControlContrast), Qt::white), 3.0);
    EXPECT_GE(contrastOf(seenColor(pale, true, kControlContrast), QColor(0x1d, 0x24, 0x21)), 3.0);
    EXPECT_LT(contrastOf(shownColor(pale, false), Qt::white), 1.4) << "what the views record stays";
}

} // namespace
} // namespace zorel
