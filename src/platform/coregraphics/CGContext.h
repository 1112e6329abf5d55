// SPDX-License-Identifier: Apache-2.0
/// @file
/// Path drawing as an interface: the views draw into it, a host paints it, a test records it.
///
/// A path is built from sub-paths and drawn once; drawing it empties it. A context starts with line width 1,
/// butt caps and opaque black for both colours. Left out: clipping, transforms, images, text, saved states.
#pragma once

#include "platform/coregraphics/CGGeometry.h"
#include "platform/coregraphics/UIColor.h"

namespace zorel {

enum class CGLineCap { butt, round, square };
enum class CGPathDrawingMode { stroke, fillStroke };

class CGContext {
public:
    CGContext() = default;
    CGContext(const CGContext&) = delete;
    CGContext& operator=(const CGContext&) = delete;
    virtual ~CGContext() = default;

    [[nodiscard]] virtual double lineWidth() const = 0; ///< [pt]
    virtual void setLineWidth(double width) = 0;        ///< [pt]
    virtual void setLineCap(CGLineCap cap) = 0;
    virtual void setStrokeColor(const UIColor& color) = 0;
    virtual void setFillColor(const UIColor& color) = 0;

    /// Begins a new sub-path.
    virtual void moveTo(double x, double y) = 0;
    virtual void addLineTo(double x, double y) = 0;
    /// A tangent arc: of the circle of the given radius that touches the line from the current point to (x1,
    /// y1) and the line from (x1, y1) to (x2, y2), joined to the current point by a straight line. The
    /// current point becomes the second point of contact. Points in one line or radius 0 give the straight
    /// line to (x1, y1).
    virtual void addArcToPoint(double x1, double y1, double x2, double y2, double radius) = 0;
    /// An arc about (cx, cy) between two angles [rad], measured from the x axis towards the y axis, that is,
    /// on a screen whose y grows downwards, clockwise. `clockwise` follows growing angles. An open sub-path
    /// is joined to the arc's first point by a straight line.
    virtual void addArc(double cx, double cy, double radius, double startAngle, double endAngle,
                        bool clockwise) = 0;
    /// The inscribed ellipse as a closed sub-path.
    virtual void addEllipseInRect(const CGRect& rectangle) = 0;
    /// The rectangle as a closed sub-path.
    virtual void addRect(const CGRect& rectangle) = 0;
    virtual void closePath() = 0;

    virtual void drawPath(CGPathDrawingMode mode) = 0;
    void strokePath() { drawPath(CGPathDrawingMode::stroke); }
};

} // namespace zorel
