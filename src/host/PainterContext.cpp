// SPDX-License-Identifier: Apache-2.0
#include "host/PainterContext.h"

#include <QPainter>

#include <cmath>
#include <numbers>

namespace zorel {

namespace {

constexpr double kDegrees = 180.0 / std::numbers::pi;

QRectF circleBox(double cx, double cy, double radius) {
    return {cx - radius, cy - radius, 2.0 * radius, 2.0 * radius};
}

/// Sweep [rad] from one angle to another in the asked sense, at most one turn.
double sweep(double start, double end, bool clockwise) {
    constexpr double turn = 2.0 * std::numbers::pi;
    double angle = std::fmod(end - start, turn);
    if (clockwise && angle < 0.0) {
        angle += turn;
    }
    if (!clockwise && angle > 0.0) {
        angle -= turn;
    }
    return angle;
}

} // namespace

QColor shownColor(const UIColor& color, bool dark) {
    const QColor plain =
        QColor::fromRgbF(static_cast<float>(color.red()), static_cast<float>(color.green()),
                         static_cast<float>(color.blue()), static_cast<float>(color.alpha()));
    if (!dark) {
        return plain;
    }
    float hue = 0.0F;
    float saturation = 0.0F;
    float lightness = 0.0F;
    plain.getHslF(&hue, &saturation, &lightness);
    constexpr float darkest = 0.12F;
    return QColor::fromHslF(hue, saturation, 1.0F - lightness * (1.0F - darkest), plain.alphaF());
}

QColor seenColor(const UIColor& color, bool dark, double contrast) {
    constexpr QRgb darkRow = 0xff1d2421; // Theme.qml
    return withContrast(shownColor(color, dark), dark ? QColor(darkRow) : QColor(Qt::white), contrast);
}

PainterContext::PainterContext(QPainter& painter, bool dark, const QColor& tint)
    : painter_(painter), fill_(shownColor(UIColor::blackColor(), dark)), tint_(tint), dark_(dark) {
    pen_.setWidthF(1.0);
    pen_.setCapStyle(Qt::FlatCap);
    pen_.setJoinStyle(Qt::MiterJoin);
    pen_.setColor(fill_);
}

void PainterContext::setLineCap(CGLineCap cap) {
    switch (cap) {
    case CGLineCap::butt:
        pen_.setCapStyle(Qt::FlatCap);
        break;
    case CGLineCap::round:
        pen_.setCapStyle(Qt::RoundCap);
        break;
    case CGLineCap::square:
        pen_.setCapStyle(Qt::SquareCap);
        break;
    }
}

void PainterContext::addArcToPoint(double x1, double y1, double x2, double y2, double radius) {
    const QPointF from = path_.currentPosition();
    const double inX = from.x() - x1;
    const double inY = from.y() - y1;
    const double outX = x2 - x1;
    const double outY = y2 - y1;
    const double inLength = std::hypot(inX, inY);
    const double outLength = std::hypot(outX, outY);
    const double cross = inX * outY - inY * outX;
    if (!(radius > 0.0) || inLength == 0.0 || outLength == 0.0 || cross == 0.0) {
        path_.lineTo(x1, y1);
        return;
    }
    // Half the angle between the two lines gives the way from the corner to the points of contact and the
    // centre.
    const double cosine = (inX * outX + inY * outY) / (inLength * outLength);
    const double half = std::acos(std::fmax(-1.0, std::fmin(1.0, cosine))) / 2.0;
    const double contact = radius / std::tan(half);
    const double toCentre = radius / std::sin(half);
    double axisX = inX / inLength + outX / outLength;
    double axisY = inY / inLength + outY / outLength;
    const double axis = std::hypot(axisX, axisY);
    axisX /= axis;
    axisY /= axis;
    const double cx = x1 + axisX * toCentre;
    const double cy = y1 + axisY * toCentre;
    const QPointF first(x1 + inX / inLength * contact, y1 + inY / inLength * contact);
    const QPointF second(x1 + outX / outLength * contact, y1 + outY / outLength * contact);
    const double start = std::atan2(first.y() - cy, first.x() - cx);
    const double end = std::atan2(second.y() - cy, second.x() - cx);
    path_.lineTo(first);
    path_.arcTo(circleBox(cx, cy, radius), -start * kDegrees, -sweep(start, end, cross < 0.0) * kDegrees);
}

void PainterContext::addArc(double cx, double cy, double radius, double startAngle, double endAngle,
                            bool clockwise) {
    const QRectF box = circleBox(cx, cy, radius);
    if (path_.isEmpty()) {
        path_.arcMoveTo(box, -startAngle * kDegrees);
    }
    path_.arcTo(box, -startAngle * kDegrees, -sweep(startAngle, endAngle, clockwise) * kDegrees);
}

void PainterContext::addEllipseInRect(const CGRect& rectangle) {
    path_.addEllipse(QRectF(rectangle.x, rectangle.y, rectangle.width, rectangle.height));
}

void PainterContext::addRect(const CGRect& rectangle) {
    path_.addRect(QRectF(rectangle.x, rectangle.y, rectangle.width, rectangle.height));
}

void PainterContext::drawPath(CGPathDrawingMode mode) {
    painter_.setPen(pen_);
    painter_.setBrush(mode == CGPathDrawingMode::fillStroke ? QBrush(fill_) : QBrush(Qt::NoBrush));
    painter_.drawPath(path_);
    path_ = QPainterPath();
}

} // namespace zorel
