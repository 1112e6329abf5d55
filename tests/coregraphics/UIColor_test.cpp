// SPDX-License-Identifier: Apache-2.0
#include "platform/coregraphics/UIColor.h"

#include <gtest/gtest.h>

namespace zorel {
namespace {

TEST(UIColor, KeepsItsComponentsExactly) {
    const UIColor color = UIColor::colorWithRed(51.0 / 255.0, 55.0 / 255.0, 69.0 / 255.0, 0.8);
    EXPECT_EQ(color.red(), 51.0 / 255.0);
    EXPECT_EQ(color.green(), 55.0 / 255.0);
    EXPECT_EQ(color.blue(), 69.0 / 255.0);
    EXPECT_EQ(color.alpha(), 0.8);
}

TEST(UIColor, EqualsAColorOfTheSameComponents) {
    EXPECT_EQ(UIColor::colorWithRed(1.0, 1.0, 1.0, 1.0), UIColor::whiteColor());
    EXPECT_EQ(UIColor::colorWithRed(0.0, 0.0, 0.0, 0.0), UIColor::clearColor());
    EXPECT_NE(UIColor::blackColor(), UIColor::clearColor());
    EXPECT_NE(UIColor::colorWithRed(0.1, 0.2, 0.3, 1.0), UIColor::colorWithRed(0.1, 0.2, 0.3, 0.9));
}

TEST(UIColor, NamedColorsAreOpaqueAndGrayIsGray) {
    for (const UIColor& color : {UIColor::whiteColor(), UIColor::blackColor(), UIColor::lightGrayColor(),
                                 UIColor::groupTableViewBackgroundColor()}) {
        EXPECT_EQ(color.alpha(), 1.0);
    }
    EXPECT_EQ(UIColor::lightGrayColor().red(), UIColor::lightGrayColor().blue());
    EXPECT_EQ(UIColor(), UIColor::clearColor());
}

} // namespace
} // namespace zorel
