// SPDX-License-Identifier: Apache-2.0
#include "common/GlobalFuncs.h"
#include "platform/coregraphics/RecordingContext.h"
#include "platform/uikit/UILabel.h"
#include "tests/views/ViewsFixture.h"

namespace zorel {
namespace {

using SharedDrawing = test::ViewsFixture;
using Calls = std::vector<RecordedCall>;

TEST_F(SharedDrawing, RoundedRectangleRunsThroughTheFourCorners) {
    RecordingContext context;
    GlobalFuncs().drawRoundedRectangle(context, {10.0, 20.0, 40.0, 30.0}, 3.0);
    EXPECT_EQ(context.calls(), (Calls{{"moveTo", {10.0, 35.0}},
                                      {"addArcToPoint", {10.0, 20.0, 30.0, 20.0, 3.0}},
                                      {"addArcToPoint", {50.0, 20.0, 50.0, 35.0, 3.0}},
                                      {"addArcToPoint", {50.0, 50.0, 30.0, 50.0, 3.0}},
                                      {"addArcToPoint", {10.0, 50.0, 10.0, 35.0, 3.0}},
                                      {"addLineTo", {10.0, 35.0}},
                                      {"closePath", {}}}));
}

TEST_F(SharedDrawing, LabelIsOneShrinkingLine) {
    UIView parent({0.0, 0.0, 320.0, 60.0});
    const auto label = GlobalFuncs().addLabel_IOS7(parent, {170.0, 30.0}, {300.0, 30.0}, "Verdana", 15.0,
                                                   "Bursa", UIColor::whiteColor(), 1, false, false, 7);
    EXPECT_EQ(label->frame(), (CGRect{20.0, 15.0, 300.0, 30.0}));
    EXPECT_EQ(label->font(), (UIFont{"Verdana", 15.0}));
    EXPECT_EQ(label->text(), "Bursa");
    EXPECT_EQ(label->textColor(), UIColor::whiteColor());
    EXPECT_EQ(label->textAlignment(), UITextAlignment::center);
    EXPECT_EQ(label->tag(), 7);
    EXPECT_EQ(label->backgroundColor(), UIColor::clearColor());
    EXPECT_TRUE(label->adjustsFontSizeToFitWidth());
    EXPECT_EQ(label->baselineAdjustment(), UIBaselineAdjustment::alignCenters);
    EXPECT_EQ(label->numberOfLines(), 1);
    EXPECT_EQ(label->lineBreakMode(), UILineBreakMode::truncatingTail);
    EXPECT_FALSE(label->isUserInteractionEnabled());
    EXPECT_FALSE(label->isHidden());
    EXPECT_FALSE(label->shadow());
    EXPECT_EQ(parent.subviews(), std::vector<UIView*>{label.get()});
}

TEST_F(SharedDrawing, LabelCanBeHiddenAndShadowed) {
    UIView parent;
    const auto label = GlobalFuncs().addLabel_IOS7(parent, {}, {10.0, 10.0}, "Verdana", 9.0, "",
                                                   UIColor::blackColor(), 2, true, true, 0);
    EXPECT_TRUE(label->isHidden());
    EXPECT_EQ(label->textAlignment(), UITextAlignment::right);
    ASSERT_TRUE(label->shadow());
    EXPECT_EQ(label->shadow()->color, UIColor::blackColor());
    EXPECT_EQ(label->shadow()->offset, (CGSize{1.0, 1.0}));
}

} // namespace
} // namespace zorel
