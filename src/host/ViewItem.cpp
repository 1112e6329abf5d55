// SPDX-License-Identifier: Apache-2.0
#include "host/ViewItem.h"

#include "host/Host.h"
#include "host/ViewPainter.h"
#include "platform/uikit/UIControl.h"

#include <QMouseEvent>
#include <QPainter>

namespace zorel {

namespace {

CGPoint pointOf(const QMouseEvent& event) {
    return {event.position().x(), event.position().y()};
}

} // namespace

ViewItem::ViewItem(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setAcceptedMouseButtons(Qt::LeftButton);
    setAntialiasing(true);
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
        paintView(*painter, *handle_->view(), dark_);
    }
}

void ViewItem::mousePressEvent(QMouseEvent* event) {
    if (handle_ == nullptr || handle_->view() == nullptr) {
        event->ignore();
        return;
    }
    handle_->syncHostClock();
    touch_.emplace(*handle_->view());
    if (!touch_->began(pointOf(*event)) || dynamic_cast<UIControl*>(touch_->target()) == nullptr) {
        // No control wants the touch: the row behind the view may.
        touch_.reset();
        event->ignore();
    }
}

void ViewItem::mouseMoveEvent(QMouseEvent* event) {
    if (touch_) {
        touch_->moved(pointOf(*event));
    }
}

void ViewItem::mouseReleaseEvent(QMouseEvent* event) {
    if (touch_) {
        // The handler may destroy the view, the row and this item: nothing of them is used after the call.
        UITouchDispatcher touch = *touch_;
        touch_.reset();
        touch.ended(pointOf(*event));
    }
}

void ViewItem::mouseUngrabEvent() {
    if (touch_) {
        touch_->cancelled();
        touch_.reset();
    }
}

} // namespace zorel
