// SPDX-License-Identifier: Apache-2.0
#include "platform/coregraphics/RecordingContext.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

namespace zorel {
namespace {

using testing::ElementsAre;

TEST(RecordingContext, WritesDownEveryCallInOrder) {
    RecordingContext context;
    context.moveTo(1.0, 2.0);
    context.addLineTo(3.0, 4.0);
    context.addArcToPoint(5.0, 6.0, 7.0, 8.0, 9.0);
    context.addArc(1.0, 2.0, 3.0, 0.5, 1.5, true);
    context.addArc(1.0, 2.0, 3.0, 0.5, 1.5, false);
    context.addEllipseInRect({1.0, 2.0, 3.0, 4.0});
    context.addRect({5.0, 6.0, 7.0, 8.0});
    context.closePath();
    context.strokePath();
    context.drawPath(CGPathDrawingMode::fillStroke);
    EXPECT_THAT(context.calls(),
                ElementsAre(RecordedCall{"moveTo", {1.0, 2.0}}, RecordedCall{"addLineTo", {3.0, 4.0}},
                            RecordedCall{"addArcToPoint", {5.0, 6.0, 7.0, 8.0, 9.0}},
                            RecordedCall{"addArc", {1.0, 2.0, 3.0, 0.5, 1.5, 1.0}},
                            RecordedCall{"addArc", {1.0, 2.0, 3.0, 0.5, 1.5, 0.0}},
                            RecordedCall{"addEllipseInRect", {1.0, 2.0, 3.0, 4.0}},
                            RecordedCall{"addRect", {5.0, 6.0, 7.0, 8.0}}, RecordedCall{"closePath", {}},
                            RecordedCall{"drawPath stroke", {}}, RecordedCall{"drawPath fillStroke", {}}));
}

TEST(RecordingContext, NamesCapsAndSpellsOutColors) {
    RecordingContext context;
    context.setLineCap(CGLineCap::butt);
    context.setLineCap(CGLineCap::round);
    context.setLineCap(CGLineCap::square);
    context.setStrokeColor(UIColor::colorWithRed(0.1, 0.2, 0.3, 0.4));
    context.setFillColor(UIColor::whiteColor());
    EXPECT_THAT(context.calls(),
                ElementsAre(RecordedCall{"setLineCap butt", {}}, RecordedCall{"setLineCap round", {}},
                            RecordedCall{"setLineCap square", {}},
                            RecordedCall{"setStrokeColor", {0.1, 0.2, 0.3, 0.4}},
                            RecordedCall{"setFillColor", {1.0, 1.0, 1.0, 1.0}}));
}

TEST(RecordingContext, RemembersTheLineWidth) {
    RecordingContext context;
    EXPECT_EQ(context.lineWidth(), 1.0);
    context.setLineWidth(1.7);
    EXPECT_EQ(context.lineWidth(), 1.7);
    EXPECT_THAT(context.calls(), ElementsAre(RecordedCall{"setLineWidth", {1.7}}));
}

TEST(RecordingContext, FindsCallsByNameAndForgetsThem) {
    RecordingContext context;
    context.moveTo(1.0, 1.0);
    context.addLineTo(2.0, 2.0);
    context.moveTo(3.0, 3.0);
    EXPECT_THAT(context.callsNamed("moveTo"),
                ElementsAre(RecordedCall{"moveTo", {1.0, 1.0}}, RecordedCall{"moveTo", {3.0, 3.0}}));
    EXPECT_TRUE(context.callsNamed("addRect").empty());
    context.clear();
    EXPECT_TRUE(context.calls().empty());
}

TEST(RecordedCall, ComparesWithATolerance) {
    const RecordedCall call{"moveTo", {1.0, 2.0}};
    EXPECT_TRUE(call.isNear({"moveTo", {1.0 + 1e-12, 2.0}}, 1e-9));
    EXPECT_FALSE(call.isNear({"moveTo", {1.1, 2.0}}, 1e-9));
    EXPECT_FALSE(call.isNear({"addLineTo", {1.0, 2.0}}, 1e-9));
    EXPECT_FALSE(call.isNear({"moveTo", {1.0}}, 1e-9));
}

TEST(RecordedCall, PrintsItself) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << RecordedCall{"moveTo", {1.5, -2.0}} << RecordedCall{"closePath", {}};
    EXPECT_EQ(text.str(), "moveTo(1.5, -2)closePath()");
}

} // namespace
} // namespace zorel
