// SPDX-License-Identifier: Apache-2.0
#include "host/PainterContext.h"
#include "host/ViewPainter.h"
#include "platform/uikit/UILabel.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace zorel {
namespace {

QImage canvas() {
    QImage image(100, 100, QImage::Format_ARGB32);
    image.fill(Qt::white);
    return image;
}

bool inked(const QImage& image, double x, double y) {
    return qGray(image.pixel(static_cast<int>(x), static_cast<int>(y))) < 128;
}

template <typename Draw> QImage drawn(const Draw& draw, bool dark = false) {
    QImage image = canvas();
    QPainter painter(&image);
    PainterContext context(painter, dark);
    context.setLineWidth(4.0);
    draw(context);
    return image;
}

TEST(PainterContext, StartsWithLineWidthOneAndBlack) {
    QImage image = canvas();
    QPainter painter(&image);
    const PainterContext context(painter, false);
    EXPECT_EQ(context.lineWidth(), 1.0);
}

TEST(PainterContext, StrokesLinesWithTheirCaps) {
    const auto line = [](CGLineCap cap) {
        return drawn([cap](CGContext& context) {
            context.setLineCap(cap);
            context.moveTo(30.0, 50.0);
            context.addLineTo(60.0, 50.0);
            context.strokePath();
        });
    };
    EXPECT_TRUE(inked(line(CGLineCap::butt), 45, 50));
    EXPECT_FALSE(inked(line(CGLineCap::butt), 61, 50));
    EXPECT_TRUE(inked(line(CGLineCap::square), 61, 48));
    EXPECT_TRUE(inked(line(CGLineCap::round), 61, 50));
    EXPECT_FALSE(inked(line(CGLineCap::square), 64, 50));
}

TEST(PainterContext, ArcToPointTouchesBothLines) {
    // A right angle at (80, 20) with radius 20: points of contact (60, 20) and (80, 40), centre (60, 40).
    const QImage image = drawn([](CGContext& context) {
        context.moveTo(20.0, 20.0);
        context.addArcToPoint(80.0, 20.0, 80.0, 80.0, 20.0);
        context.addLineTo(80.0, 80.0);
        context.strokePath();
    });
    EXPECT_TRUE(inked(image, 40, 20));
    EXPECT_TRUE(inked(image, 60 + 20 * std::sqrt(0.5), 40 - 20 * std::sqrt(0.5)));
    EXPECT_TRUE(inked(image, 80, 60));
    EXPECT_FALSE(inked(image, 79, 22)) << "the corner is cut off";
}

TEST(PainterContext, ArcToPointTurnsEitherWay) {
    // The same corner walked the other way round.
    const QImage image = drawn([](CGContext& context) {
        context.moveTo(80.0, 80.0);
        context.addArcToPoint(80.0, 20.0, 20.0, 20.0, 20.0);
        context.addLineTo(20.0, 20.0);
        context.strokePath();
    });
    EXPECT_TRUE(inked(image, 60 + 20 * std::sqrt(0.5), 40 - 20 * std::sqrt(0.5)));
    EXPECT_FALSE(inked(image, 79, 22));
}

TEST(PainterContext, ArcToPointOfPointsInOneLineIsALine) {
    const QImage image = drawn([](CGContext& context) {
        context.moveTo(20.0, 50.0);
        context.addArcToPoint(60.0, 50.0, 90.0, 50.0, 10.0);
        context.strokePath();
    });
    EXPECT_TRUE(inked(image, 50, 50));
    EXPECT_FALSE(inked(image, 70, 50));
}

TEST(PainterContext, ArcsFollowGrowingAnglesClockwise) {
    const auto quarter = [](bool clockwise) {
        return drawn([clockwise](CGContext& context) {
            context.addArc(50.0, 50.0, 30.0, 0.0, std::numbers::pi / 2.0, clockwise);
            context.strokePath();
        });
    };
    const double off = 30.0 * std::sqrt(0.5);
    EXPECT_TRUE(inked(quarter(true), 50 + off, 50 + off)) << "y grows downwards";
    EXPECT_FALSE(inked(quarter(true), 50 - off, 50 - off));
    EXPECT_FALSE(inked(quarter(false), 50 + off, 50 + off));
    EXPECT_TRUE(inked(quarter(false), 50 - off, 50 - off));
}

TEST(PainterContext, FillsOnlyWhenAsked) {
    const auto box = [](CGPathDrawingMode mode) {
        return drawn([mode](CGContext& context) {
            context.addRect({20.0, 20.0, 60.0, 60.0});
            context.drawPath(mode);
        });
    };
    EXPECT_TRUE(inked(box(CGPathDrawingMode::fillStroke), 50, 50));
    EXPECT_FALSE(inked(box(CGPathDrawingMode::stroke), 50, 50));
    EXPECT_TRUE(inked(box(CGPathDrawingMode::stroke), 20, 50));
}

TEST(PainterContext, DrawingEmptiesThePath) {
    const QImage image = drawn([](CGContext& context) {
        context.addEllipseInRect({20.0, 20.0, 60.0, 60.0});
        context.setStrokeColor(UIColor::whiteColor());
        context.setFillColor(UIColor::whiteColor());
        context.drawPath(CGPathDrawingMode::fillStroke);
        context.setFillColor(UIColor::blackColor());
        context.drawPath(CGPathDrawingMode::fillStroke);
    });
    EXPECT_FALSE(inked(image, 50, 50));
}

TEST(ShownColor, TurnsLightnessRoundInTheDarkAndKeepsTheRest) {
    const UIColor ink = UIColor::colorWithRed(51.0 / 255.0, 55.0 / 255.0, 69.0 / 255.0, 0.5);
    EXPECT_EQ(shownColor(ink, false).red(), 51);
    const QColor bright = shownColor(ink, true);
    EXPECT_GT(bright.lightnessF(), 0.7F);
    EXPECT_NEAR(bright.hslHueF(), shownColor(ink, false).hslHueF(), 0.02F);
    EXPECT_NEAR(bright.alphaF(), 0.5F, 0.01F);
}

TEST(PaintView, PaintsSubviewsInTheirPlacesAndLeavesHiddenOnesOut) {
    UIView root(CGRect{0.0, 0.0, 100.0, 100.0});
    UIView box(CGRect{10.0, 10.0, 20.0, 20.0});
    UIView hidden(CGRect{60.0, 60.0, 20.0, 20.0});
    box.setBackgroundColor(UIColor::blackColor());
    hidden.setBackgroundColor(UIColor::blackColor());
    hidden.setHidden(true);
    root.addSubview(box);
    root.addSubview(hidden);
    QImage image = canvas();
    QPainter painter(&image);
    paintView(painter, root, false);
    EXPECT_TRUE(inked(image, 20, 20));
    EXPECT_FALSE(inked(image, 5, 5));
    EXPECT_FALSE(inked(image, 70, 70));
}

TEST(PaintView, ScalesASubviewAboutItsCentre) {
    UIView root(CGRect{0.0, 0.0, 100.0, 100.0});
    UIView box(CGRect{40.0, 40.0, 20.0, 20.0});
    box.setBackgroundColor(UIColor::blackColor());
    box.setScale(2.0);
    root.addSubview(box);
    QImage image = canvas();
    QPainter painter(&image);
    paintView(painter, root, false);
    EXPECT_TRUE(inked(image, 33, 33));
    EXPECT_TRUE(inked(image, 67, 67));
    EXPECT_FALSE(inked(image, 27, 50));
}

int inkedColumns(const UILabel& label) {
    QImage image = canvas();
    QPainter painter(&image);
    UIView root(CGRect{0.0, 0.0, 100.0, 100.0});
    root.addSubview(const_cast<UILabel&>(label));
    paintView(painter, root, false);
    int columns = 0;
    for (int x = 0; x < 100; ++x) {
        for (int y = 0; y < 100; ++y) {
            if (inked(image, x, y)) {
                columns = x + 1;
                break;
            }
        }
    }
    return columns;
}

TEST(PaintView, ALongTextStaysInItsLabel) {
    UILabel label(CGRect{0.0, 0.0, 60.0, 30.0});
    label.setFont({"", 15.0});
    label.setText("A text that is far too long for its label");
    EXPECT_GT(inkedColumns(label), 20);
    EXPECT_LE(inkedColumns(label), 61);
    label.setAdjustsFontSizeToFitWidth(true);
    EXPECT_LE(inkedColumns(label), 61);
    label.setNumberOfLines(2);
    EXPECT_LE(inkedColumns(label), 61);
}

} // namespace
} // namespace zorel
