// SPDX-License-Identifier: Apache-2.0
/// @file
/// The small drawings of the first page: the day's light, the Moon's phase, the direction of the qibla,
/// an alarm's bell.
#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QVariantList>

namespace zorel {

/// A bar from midnight to midnight with the day's light, and a mark at the present.
class DayBar : public QQuickPaintedItem {
    Q_OBJECT
    Q_PROPERTY(QVariantList stops MEMBER stops_ NOTIFY changed)
    Q_PROPERTY(double present MEMBER present_ NOTIFY changed)
    Q_PROPERTY(QColor markColor MEMBER markColor_ NOTIFY changed)
    Q_PROPERTY(QColor markGround MEMBER markGround_ NOTIFY changed)

public:
    explicit DayBar(QQuickItem* parent = nullptr);
    void paint(QPainter* painter) override;

signals:
    void changed();

private:
    QVariantList stops_; ///< TodayModel::bar
    double present_ = 0.0;
    QColor markColor_;
    QColor markGround_;
};

/// The Moon's disc as it is lit, the lit side as seen from the northern or southern hemisphere.
class MoonDisc : public QQuickPaintedItem {
    Q_OBJECT
    Q_PROPERTY(double illuminated MEMBER illuminated_ NOTIFY changed)
    Q_PROPERTY(bool waxing MEMBER waxing_ NOTIFY changed)
    Q_PROPERTY(bool south MEMBER south_ NOTIFY changed)

public:
    explicit MoonDisc(QQuickItem* parent = nullptr);
    void paint(QPainter* painter) override;

signals:
    void changed();

private:
    double illuminated_ = 0.0; ///< [%]
    bool waxing_ = false;
    bool south_ = false;
};

/// A rose with north on top and a needle towards the qibla.
class QiblaRose : public QQuickPaintedItem {
    Q_OBJECT
    Q_PROPERTY(double bearing MEMBER bearing_ NOTIFY changed)
    Q_PROPERTY(bool known MEMBER known_ NOTIFY changed)
    Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed)
    Q_PROPERTY(QColor needle MEMBER needle_ NOTIFY changed)

public:
    explicit QiblaRose(QQuickItem* parent = nullptr);
    void paint(QPainter* painter) override;

signals:
    void changed();

private:
    double bearing_ = 0.0; ///< [deg] clockwise from north
    bool known_ = false;
    QColor color_;
    QColor needle_;
};

/// A bell: filled where it will ring, else an outline, struck through.
class Bell : public QQuickPaintedItem {
    Q_OBJECT
    Q_PROPERTY(bool rings MEMBER rings_ NOTIFY changed)
    Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed)

public:
    explicit Bell(QQuickItem* parent = nullptr);
    void paint(QPainter* painter) override;

signals:
    void changed();

private:
    bool rings_ = false;
    QColor color_;
};

} // namespace zorel
