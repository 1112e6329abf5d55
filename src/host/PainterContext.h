// SPDX-License-Identifier: Apache-2.0
/// @file
/// The views' path drawing, painted with QPainter.
#pragma once

#include "host/Contrast.h"
#include "platform/coregraphics/CGContext.h"

#include <QColor>
#include <QPainterPath>
#include <QPen>

class QPainter;

namespace zorel {

/// How a colour of the views is shown: as it is, or, in dark surroundings, with its lightness turned round so
/// that dark lines and texts stay readable on a dark ground. The hue stays.
[[nodiscard]] QColor shownColor(const UIColor& color, bool dark);
/// The same for what is drawn or written on the ground of a row: with enough contrast to be seen by everyone
/// (Contrast.h).
[[nodiscard]] QColor seenColor(const UIColor& color, bool dark, double contrast);

/// A drawing context on a painter. Arc-to-point follows the tangent-arc rule of CGContext.
class PainterContext : public CGContext {
public:
    /// @param dark whether colours are shown for dark surroundings. @param tint the one colour of all that is
    /// drawn; an invalid one: as the views have it
    PainterContext(QPainter& painter, bool dark, const QColor& tint = {});

    [[nodiscard]] double lineWidth() const override { return pen_.widthF(); }
    void setLineWidth(double width) override { pen_.setWidthF(width); }
    void setLineCap(CGLineCap cap) override;
    void setStrokeColor(const UIColor& color) override { pen_.setColor(shown(color)); }
    void setFillColor(const UIColor& color) override { fill_ = shown(color); }
    void moveTo(double x, double y) override { path_.moveTo(x, y); }
    void addLineTo(double x, double y) override { path_.lineTo(x, y); }
    void addArcToPoint(double x1, double y1, double x2, double y2, double radius) override;
    void addArc(double cx, double cy, double radius, double startAngle, double endAngle,
                bool clockwise) override;
    void addEllipseInRect(const CGRect& rectangle) override;
    void addRect(const CGRect& rectangle) override;
    void closePath() override { path_.closeSubpath(); }
    void drawPath(CGPathDrawingMode mode) override;

private:
    [[nodiscard]] QColor shown(const UIColor& color) const {
        return tint_.isValid() ? tint_ : seenColor(color, dark_, kControlContrast);
    }

    QPainter& painter_;
    QPainterPath path_;
    QPen pen_;
    QColor fill_;
    QColor tint_;
    bool dark_;
};

} // namespace zorel
