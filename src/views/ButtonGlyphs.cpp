// SPDX-License-Identifier: Apache-2.0
#include "views/ButtonGlyphs.h"

#include <cmath>
#include <numbers>
#include <span>

namespace zorel {
namespace {

/// The box of a figure by the lines that the figures are measured from.
struct Box {
    explicit Box(const CGRect& box)
        : cx(box.midX()), cy(box.midY()), top(box.minY()), bottom(box.maxY()), half(box.midY() - box.minY()) {
    }

    double cx;
    double cy;
    double top;
    double bottom;
    double half; ///< half the height
};

void setLine(CGContext& context, double width, CGLineCap cap) {
    context.setLineWidth(width);
    context.setLineCap(cap);
}

/// One open line through points that are relative to an origin; `side` -1 mirrors it at the vertical.
void addPolyline(CGContext& context, CGPoint origin, std::span<const CGPoint> points, double side = 1.0) {
    bool first = true;
    for (const CGPoint& point : points) {
        const double x = origin.x + side * point.x;
        const double y = origin.y + point.y;
        if (first) {
            context.moveTo(x, y);
        } else {
            context.addLineTo(x, y);
        }
        first = false;
    }
}

void addLine(CGContext& context, CGPoint from, CGPoint to) {
    context.moveTo(from.x, from.y);
    context.addLineTo(to.x, to.y);
}

void drawDots(CGContext& context, const Box& box) {
    context.setLineWidth(2.0);
    for (const double left : {4.0, -0.5, -5.0}) {
        context.addEllipseInRect({box.cx + left, box.cy - 0.5, 1.0, 1.0});
    }
    context.drawPath(CGPathDrawingMode::fillStroke);
}

void drawPlus(CGContext& context, const Box& box) {
    setLine(context, 2.0, CGLineCap::butt);
    addLine(context, {box.cx - box.half, box.cy}, {box.cx + box.half, box.cy});
    addLine(context, {box.cx, box.top}, {box.cx, box.bottom});
    context.strokePath();
}

/// An arrow and its mirror image, each stroked by itself. The outline is given on the left of the centre.
void drawArrows(CGContext& context, const Box& box, std::span<const CGPoint> outline) {
    context.setLineCap(CGLineCap::square);
    for (const double side : {1.0, -1.0}) {
        addPolyline(context, {box.cx, box.cy}, outline, side);
        context.strokePath();
    }
}

void drawArrowsOut(CGContext& context, const Box& box) {
    static constexpr CGPoint kOutline[] = {{-8, 0}, {-4, -4}, {-4, -2}, {-1, -2},
                                           {-1, 2}, {-4, 2},  {-4, 4},  {-8, 0}};
    drawArrows(context, box, kOutline);
}

void drawArrowsIn(CGContext& context, const Box& box) {
    static constexpr CGPoint kOutline[] = {{-1, 0}, {-5, -4}, {-5, -2}, {-8, -2},
                                           {-8, 2}, {-5, 2},  {-5, 4},  {-1, 0}};
    drawArrows(context, box, kOutline);
}

void drawSmallHouse(CGContext& context, const Box& box) {
    static constexpr CGPoint kOutline[] = {{0, -1},  {6, 5},   {4, 5},   {4, 10}, {1, 10}, {1, 6},
                                           {-1, 6},  {-1, 10}, {-4, 10}, {-4, 5}, {-6, 5}, {-4, 3},
                                           {-4, -1}, {-2, -1}, {-2, 1},  {0, -1}};
    setLine(context, 1.2, CGLineCap::square);
    addPolyline(context, {box.cx, box.top}, kOutline);
    context.strokePath();
}

/// A house as large as the box, with a door of size t and a chimney on the left of the roof.
void drawHouse(CGContext& context, const Box& box) {
    const double h = box.half;
    const double t = (2.0 * h - 4.0) / 3.0;
    const double u = h / 3.0;
    const double wall = h - 2.0;
    const double foot = h / 2.0;
    const CGPoint outline[] = {{0.0, -h},
                               {h, 0.0},
                               {wall, 0.0},
                               {wall, foot},
                               {wall - t, foot},
                               {wall - t, foot - t},
                               {wall - 2.0 * t, foot - t},
                               {wall - 2.0 * t, foot},
                               {-wall, foot},
                               {-wall, 0.0},
                               {-h, 0.0},
                               {-h + u, -u},
                               {-h + u, -2.0 * u},
                               {-h + 1.5 * u, -2.0 * u},
                               {-h + 1.5 * u, -1.5 * u},
                               {0.0, -h}};
    setLine(context, 1.2, CGLineCap::square);
    addPolyline(context, {box.cx, box.cy}, outline);
    context.strokePath();
}

/// Measures of the bell. They grow with the height of its middle in the button, not with the box.
struct BellSize {
    explicit BellSize(const Box& box)
        : small(box.cy / 10.0), large(box.cy / 6.0), a(2.0 * small), b(3.0 * large),
          top(box.cy - (a + b) / 2.0 - 1.0) {}

    double small; ///< radius of the knob, the lip and the clapper
    double large; ///< radius of the shoulders
    double a;
    double b;
    double top;
};

void drawBellBody(CGContext& context, const Box& box, const BellSize& size) {
    const double r1 = size.small;
    const double r2 = size.large;
    const double x1 = box.cx + r1;
    const double y1 = size.top + r1;
    const double x2 = x1 + r2;
    const double y3 = y1 + size.b + r1;
    const double x4 = x2 + r1 - 2.0 * (size.a + r2);
    const double x5 = x4 + r1;
    const double y6 = y3 - r1 - 2.0 * r2;
    const double y7 = y6 - r2;
    const double x7 = x5 + r2;
    context.moveTo(box.cx, size.top);
    context.addArcToPoint(x1, size.top, x1, y1, r1);
    context.addLineTo(x1, y1);
    context.addArcToPoint(x2, y1, x2, y1 + r2, r2);
    context.addLineTo(x2, y1 + size.b);
    context.addLineTo(x2 + r1, y3);
    context.addLineTo(x4, y3);
    context.addLineTo(x5, y3 - r1);
    context.addLineTo(x5, y6);
    context.addArcToPoint(x5, y7, x7, y7, r2);
    context.addArcToPoint(x7, y7 - r1, x7 + r1, y7 - r1, r1);
    context.drawPath(CGPathDrawingMode::fillStroke);
}

void drawBellClapper(CGContext& context, const Box& box, const BellSize& size) {
    const double r1 = size.small;
    const double x1 = box.cx + r1;
    const double y = box.cy + (2.0 * r1 + size.b) / 2.0 + 1.0;
    context.moveTo(x1, y);
    context.addArcToPoint(x1, y + r1, box.cx, y + r1, r1);
    context.addArcToPoint(x1 - size.a, y + r1, x1 - size.a, y, r1);
    context.drawPath(CGPathDrawingMode::fillStroke);
}

void drawBell(CGContext& context, const Box& box) {
    const BellSize size(box);
    setLine(context, 1.0, CGLineCap::round);
    drawBellBody(context, box, size);
    drawBellClapper(context, box, size);
}

void drawBellStruck(CGContext& context, const Box& box, const UIColor& bar) {
    drawBell(context, box);
    const BellSize size(box);
    setLine(context, 3.0, CGLineCap::square);
    context.setStrokeColor(bar);
    context.setFillColor(bar);
    addLine(context, {box.cx - box.cy * 0.25, size.top},
            {box.cx + box.cy * 0.25, box.cy + (size.a + size.b) / 2.0 + 1.0});
    context.strokePath();
}

void drawSun(CGContext& context, const Box& box, const UIColor& disc) {
    setLine(context, 1.7, CGLineCap::round);
    addLine(context, {box.cx, box.top - 1.0}, {box.cx, box.bottom + 1.0});
    addLine(context, {box.cx - box.half - 1.0, box.cy}, {box.cx + box.half + 1.0, box.cy});
    addLine(context, {box.cx - 4.0, box.cy - 4.0}, {box.cx + 4.0, box.cy + 4.0});
    addLine(context, {box.cx - 4.0, box.cy + 4.0}, {box.cx + 4.0, box.cy - 4.0});
    context.strokePath();
    context.setFillColor(disc);
    context.addEllipseInRect({box.cx - 2.0, box.cy - 2.0, 4.0, 4.0});
    context.drawPath(CGPathDrawingMode::fillStroke);
}

/// An arc as a sub-path of its own: without the move it would be joined to the one before.
void addSeparateArc(CGContext& context, CGPoint center, double radius, double start, double end) {
    context.moveTo(center.x + radius * std::cos(start), center.y + radius * std::sin(start));
    context.addArc(center.x, center.y, radius, start, end, true);
}

void drawCrescent(CGContext& context, const Box& box) {
    constexpr double pi = std::numbers::pi;
    addSeparateArc(context, {box.cx, box.cy}, 7.0, pi / 12.0, 13.0 * pi / 9.0);
    addSeparateArc(context, {box.cx + 1.0, box.cy - 1.0}, 6.0, pi / 6.0, 25.0 * pi / 18.0);
    context.strokePath();
}

using PlainGlyph = void (*)(CGContext&, const Box&);

/// The figures that need no colour of their own, by shape.
constexpr PlainGlyph kPlainGlyphs[] = {nullptr,        drawDots,  drawPlus,    drawArrowsOut, drawArrowsIn,
                                       drawSmallHouse, drawHouse, nullptr,     nullptr,       drawBell,
                                       nullptr,        nullptr,   drawCrescent};

} // namespace

void drawButtonGlyph(CGContext& context, int shape, const CGRect& box, const GlyphColors& colors) {
    if (shape < 0 || shape >= static_cast<int>(std::size(kPlainGlyphs))) {
        return;
    }
    const Box measures(box);
    if (shape == UIButtonXShapeBellStruck) {
        drawBellStruck(context, measures, colors.bar);
    } else if (shape == UIButtonXShapeSun) {
        drawSun(context, measures, colors.sunDisc);
    } else if (kPlainGlyphs[shape] != nullptr) {
        kPlainGlyphs[shape](context, measures);
    }
}

} // namespace zorel
