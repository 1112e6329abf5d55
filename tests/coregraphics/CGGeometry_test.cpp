// SPDX-License-Identifier: Apache-2.0
#include "platform/coregraphics/CGGeometry.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace zorel {
namespace {

TEST(CGRect, EdgesAndMiddles) {
    const CGRect box{10.0, 20.0, 30.0, 50.0};
    EXPECT_EQ(box.minX(), 10.0);
    EXPECT_EQ(box.midX(), 25.0);
    EXPECT_EQ(box.maxX(), 40.0);
    EXPECT_EQ(box.minY(), 20.0);
    EXPECT_EQ(box.midY(), 45.0);
    EXPECT_EQ(box.maxY(), 70.0);
    EXPECT_EQ(box.origin(), (CGPoint{10.0, 20.0}));
    EXPECT_EQ(box.size(), (CGSize{30.0, 50.0}));
}

TEST(CGRect, InsetKeepsTheMiddle) {
    const CGRect inner = CGRect{0.0, 0.0, 70.0, 30.0}.inset(6.0, 1.0);
    EXPECT_EQ(inner, (CGRect{6.0, 1.0, 58.0, 28.0}));
    EXPECT_EQ(inner.midX(), 35.0);
    EXPECT_EQ(inner.midY(), 15.0);
}

TEST(CGRect, InsetNeverTurnsARectangleInsideOut) {
    const CGRect gone = CGRect{0.0, 0.0, 4.0, 10.0}.inset(3.0, 3.0);
    EXPECT_EQ(gone.width, 0.0);
    EXPECT_EQ(gone.height, 4.0);
    EXPECT_TRUE(gone.isEmpty());
}

TEST(CGRect, ContainsItsTopLeftButNotItsBottomRightEdge) {
    const CGRect box{0.0, 0.0, 10.0, 10.0};
    EXPECT_TRUE(box.contains({0.0, 0.0}));
    EXPECT_TRUE(box.contains({-0.0, 9.999}));
    EXPECT_FALSE(box.contains({10.0, 5.0}));
    EXPECT_FALSE(box.contains({5.0, 10.0}));
    EXPECT_FALSE(box.contains({-0.001, 5.0}));
}

TEST(CGRect, ContainsNoPointThatIsNoNumber) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    const CGRect box{0.0, 0.0, 10.0, 10.0};
    EXPECT_FALSE(box.contains({nan, 5.0}));
    EXPECT_FALSE(box.contains({5.0, nan}));
    EXPECT_FALSE(box.contains({infinity, 5.0}));
    EXPECT_FALSE(box.contains({-infinity, 5.0}));
}

TEST(CGRect, IsEmptyWithoutAnArea) {
    EXPECT_TRUE(CGRect{}.isEmpty());
    EXPECT_TRUE((CGRect{0.0, 0.0, 5.0, 0.0}.isEmpty()));
    EXPECT_TRUE((CGRect{0.0, 0.0, -5.0, 5.0}.isEmpty()));
    EXPECT_FALSE((CGRect{0.0, 0.0, 0.1, 0.1}.isEmpty()));
}

} // namespace
} // namespace zorel
