// SPDX-License-Identifier: Apache-2.0
#include "host/SkyDrawings.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace zorel {

namespace {

constexpr QRgb kNight = 0xff22355c;
constexpr QRgb kDawn = 0xff7d6fa8;
constexpr QRgb kDay = 0xfff0c75a;
constexpr QRgb kDusk = 0xffc97b5c;
constexpr QRgb kMoonDark = 0xff39424a;
constexpr QRgb kMoonLit = 0xfff3ead0;

QLinearGradient gradientOf(const QVariantList& stops, double width) {
    QLinearGradient gradient(0.0, 0.0, width, 0.0);
    gradient.setColorAt(0.0, QColor(kNight));
    const auto at = [&](int index) {
        return std::clamp(stops.value(index).toMap().value(QStringLiteral("at")).toDouble(), 0.0, 1.0);
    };
    if (stops.size() == 4) {
        gradient.setColorAt(at(0), QColor(kNight));
        gradient.setColorAt((at(0) + at(1)) / 2.0, QColor(kDawn));
        gradient.setColorAt(at(1), QColor(kDay));
        gradient.setColorAt(at(2), QColor(kDay));
        gradient.setColorAt((at(2) + at(3)) / 2.0, QColor(kDusk));
        gradient.setColorAt(at(3), QColor(kNight));
    }
    return gradient;
}

} // namespace

DayBar::DayBar(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setAntialiasing(true);
    connect(this, &DayBar::changed, this, [this] { update(); });
}

void DayBar::paint(QPainter* painter) {
    constexpr double overhang = 5.0;
    constexpr double markWidth = 3.0;
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    const QRectF track(0.0, overhang, width(), height() - 2.0 * overhang);
    painter->setBrush(gradientOf(stops_, width()));
    painter->drawRoundedRect(track, track.height() / 2.0, track.height() / 2.0);
    const double x = std::clamp(present_ * width(), markWidth, width() - markWidth);
    painter->setBrush(markGround_);
    painter->drawRect(QRectF(x - markWidth, overhang, 2.0 * markWidth, track.height()));
    painter->setBrush(markColor_);
    painter->drawRoundedRect(QRectF(x - markWidth / 2.0, 0.0, markWidth, height()), markWidth / 2.0,
                             markWidth / 2.0);
}

MoonDisc::MoonDisc(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setAntialiasing(true);
    connect(this, &MoonDisc::changed, this, [this] { update(); });
}

/// The lit part is half the disc and half an ellipse, the terminator: added to the half when more than half
/// is lit, else taken off.
void MoonDisc::paint(QPainter* painter) {
    painter->setRenderHint(QPainter::Antialiasing);
    const double radius = std::min(width(), height()) / 2.0 - 1.0;
    painter->translate(width() / 2.0, height() / 2.0);
    const QRectF disc(-radius, -radius, 2.0 * radius, 2.0 * radius);
    painter->setPen(QPen(QColor(0x80, 0x80, 0x80), 1.0));
    painter->setBrush(QColor(kMoonDark));
    painter->drawEllipse(disc);
    if (waxing_ == south_) {
        painter->scale(-1.0, 1.0);
    }
    const double part = std::clamp(illuminated_ / 100.0, 0.0, 1.0);
    const double halfWidth = std::abs(1.0 - 2.0 * part) * radius;
    QPainterPath lit;
    lit.moveTo(0.0, -radius);
    lit.arcTo(disc, 90.0, -180.0);
    QPainterPath terminator;
    terminator.addEllipse(QRectF(-halfWidth, -radius, 2.0 * halfWidth, 2.0 * radius));
    painter->setPen(Qt::NoPen);
    painter->setBrush(QColor(kMoonLit));
    painter->drawPath(part > 0.5 ? lit.united(terminator) : lit.subtracted(terminator));
}

QiblaRose::QiblaRose(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setAntialiasing(true);
    connect(this, &QiblaRose::changed, this, [this] { update(); });
}

void QiblaRose::paint(QPainter* painter) {
    constexpr double needleWidth = 3.0;
    painter->setRenderHint(QPainter::Antialiasing);
    const double radius = std::min(width(), height()) / 2.0 - 1.0;
    painter->translate(width() / 2.0, height() / 2.0);
    painter->setPen(QPen(color_, 1.0));
    painter->setBrush(Qt::NoBrush);
    painter->drawEllipse(QPointF(0.0, 0.0), radius, radius);
    QPolygonF north;
    north << QPointF(0.0, -radius + 1.0) << QPointF(-3.5, -radius + 8.0) << QPointF(3.5, -radius + 8.0);
    painter->setBrush(color_);
    painter->drawPolygon(north);
    if (known_) {
        painter->rotate(bearing_);
        painter->setPen(QPen(needle_, needleWidth, Qt::SolidLine, Qt::RoundCap));
        painter->drawLine(QPointF(0.0, 0.0), QPointF(0.0, -radius + 4.0));
        painter->setBrush(needle_);
        painter->drawEllipse(QPointF(0.0, 0.0), 2.0, 2.0);
    }
}

Bell::Bell(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setAntialiasing(true);
    connect(this, &Bell::changed, this, [this] { update(); });
}

/// Drawn in a square of 24.
void Bell::paint(QPainter* painter) {
    constexpr double square = 24.0;
    constexpr double line = 1.8;
    painter->setRenderHint(QPainter::Antialiasing);
    painter->scale(width() / square, height() / square);
    QPainterPath body(QPointF(4.0, 17.5));
    body.cubicTo(6.2, 15.6, 6.0, 13.0, 6.0, 10.5);
    body.cubicTo(6.0, 6.8, 8.6, 4.5, 12.0, 4.5);
    body.cubicTo(15.4, 4.5, 18.0, 6.8, 18.0, 10.5);
    body.cubicTo(18.0, 13.0, 17.8, 15.6, 20.0, 17.5);
    body.closeSubpath();
    painter->setPen(QPen(color_, line, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->setBrush(rings_ ? QBrush(color_) : QBrush(Qt::NoBrush));
    painter->drawPath(body);
    painter->drawLine(QPointF(12.0, 2.6), QPointF(12.0, 4.2));
    painter->setBrush(Qt::NoBrush);
    painter->drawArc(QRectF(9.6, 17.6, 4.8, 4.0), 180 * 16, 180 * 16);
    if (!rings_) {
        painter->drawLine(QPointF(4.5, 3.5), QPointF(19.5, 21.0));
    }
}

} // namespace zorel
