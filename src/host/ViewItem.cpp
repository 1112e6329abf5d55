// SPDX-License-Identifier: Apache-2.0
#include "host/ViewItem.h"

#include "host/Host.h"
#include "host/ViewPainter.h"
#include "platform/uikit/UIControl.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <optional>

namespace zorel {

namespace {

CGPoint pointOf(const QMouseEvent& event) {
    return {event.position().x(), event.position().y()};
}

constexpr double kTarget = 44.0; ///< least width and height of what a finger has to hit [pt]

/// Where a touch beside a small control, within its 44 points, lies in it; nothing when it is at no control.
std::optional<CGPoint> pointInControl(UIView& view, CGPoint point) {
    if (view.isHidden()) {
        return std::nullopt;
    }
    if (const auto* control = dynamic_cast<const UIControl*>(&view);
        control != nullptr && control->isEnabled()) {
        const CGRect box = control->bounds();
        const double besideX = std::max(0.0, (kTarget - box.width) / 2.0);
        const double besideY = std::max(0.0, (kTarget - box.height) / 2.0);
        const bool hit = point.x >= -besideX && point.x < box.width + besideX && point.y >= -besideY &&
                         point.y < box.height + besideY;
        return hit ? std::optional(CGPoint{std::clamp(point.x, 0.0, box.width - 1.0),
                                           std::clamp(point.y, 0.0, box.height - 1.0)})
                   : std::nullopt;
    }
    for (UIView* subview : view.subviews()) {
        const CGPoint origin = subview->pointToSuperview({0.0, 0.0});
        if (const auto inside = pointInControl(*subview, {point.x - origin.x, point.y - origin.y})) {
            return CGPoint{inside->x + origin.x, inside->y + origin.y};
        }
    }
    return std::nullopt;
}

} // namespace

ViewItem::ViewItem(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setAcceptedMouseButtons(Qt::LeftButton);
    setAntialiasing(true);
    connect(this, &ViewItem::tintChanged, this, [this] { update(); });
}

void ViewItem::setHandle(ViewHandle* handle) {
    if (handle_ == handle) {
        return;
    }
    if (handle_ != nullptr) {
        handle_->disconnect(this);
    }
    handle_ = handle;
    touch_.reset();
    if (handle != nullptr) {
        connect(handle, &ViewHandle::needsDisplay, this, [this] { update(); });
        connect(handle, &ViewHandle::changed, this, [this] { update(); });
    }
    update();
    emit handleChanged();
}

void ViewItem::setDark(bool dark) {
    if (dark_ != dark) {
        dark_ = dark;
        update();
        emit darkChanged();
    }
}

void ViewItem::paint(QPainter* painter) {
    if (handle_ != nullptr && handle_->view() != nullptr) {
        painter->setRenderHint(QPainter::Antialiasing);
        paintView(*painter, *handle_->view(), dark_, tint_);
    }
}

CGPoint ViewItem::touched(const QMouseEvent& event) const {
    const CGPoint point = pointOf(event);
    UIView* view = handle_ != nullptr ? handle_->view() : nullptr;
    return view != nullptr ? pointInControl(*view, point).value_or(point) : point;
}

void ViewItem::mousePressEvent(QMouseEvent* event) {
    if (handle_ == nullptr || handle_->view() == nullptr) {
        event->ignore();
        return;
    }
    handle_->syncHostClock();
    touch_.emplace(*handle_->view());
    if (!touch_->began(touched(*event)) || dynamic_cast<UIControl*>(touch_->target()) == nullptr) {
        // No control wants the touch: the row behind the view may.
        touch_.reset();
        event->ignore();
    }
}

void ViewItem::mouseMoveEvent(QMouseEvent* event) {
    if (touch_) {
        touch_->moved(touched(*event));
    }
}

void ViewItem::mouseReleaseEvent(QMouseEvent* event) {
    if (touch_) {
        // The handler may destroy the view, the row and this item: nothing of them is used after the call.
        const CGPoint point = touched(*event);
        UITouchDispatcher touch = *touch_;
        touch_.reset();
        touch.ended(point);
    }
}

void ViewItem::mouseUngrabEvent() {
    if (touch_) {
        touch_->cancelled();
        touch_.reset();
    }
}

} // namespace zorel
