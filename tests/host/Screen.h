// SPDX-License-Identifier: Apache-2.0
/// @file
/// A finger and an eye for a window: finds items by what they show and touches them.
#pragma once

#include "host/Host.h"
#include "host/ViewItem.h"
#include "host/Window.h"

#include <QImage>
#include <QQuickItem>
#include <QTest>

#include <functional>

namespace zorel::test {

/// Waits until the condition holds; false after three seconds.
inline bool eventually(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, 3000);
}

class Screen {
public:
    explicit Screen(Window& window) : window_(window) {}

    /// The first visible item, depth first, of which the predicate holds.
    [[nodiscard]] QQuickItem* find(const std::function<bool(QQuickItem&)>& predicate) const {
        return find(window_.rootObject(), predicate);
    }
    [[nodiscard]] QQuickItem* text(const QString& text) const {
        return find([&](QQuickItem& item) { return item.property("text").toString() == text; });
    }
    /// The item that shows a view.
    [[nodiscard]] QQuickItem* showing(const UIView& view) const {
        return find([&](QQuickItem& item) {
            const auto* handle = item.property("handle").value<ViewHandle*>();
            return handle != nullptr && handle->view() == &view;
        });
    }
    [[nodiscard]] static QPoint centre(const QQuickItem& item) {
        return item.mapToScene({item.width() / 2, item.height() / 2}).toPoint();
    }
    void tap(const QQuickItem& item) { tap(centre(item)); }
    void tap(QPoint point) { QTest::mouseClick(&window_, Qt::LeftButton, {}, point); }
    void rightTap(const QQuickItem& item) { QTest::mouseClick(&window_, Qt::RightButton, {}, centre(item)); }
    /// Turns the mouse's wheel, a positive number towards the user.
    void notches(const QQuickItem& item, int count) {
        constexpr int notch = 120;
        const QPointF point = centre(item);
        QWheelEvent event(point, window_.mapToGlobal(point), {}, {0, -notch * count}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&window_, &event);
    }
    void drag(QPoint from, QPoint by) {
        constexpr int steps = 12;
        QTest::mousePress(&window_, Qt::LeftButton, {}, from);
        for (int step = 1; step <= steps; ++step) {
            QTest::mouseMove(&window_, from + by * step / steps);
            QTest::qWait(5);
        }
        QTest::mouseRelease(&window_, Qt::LeftButton, {}, from + by);
    }
    void key(Qt::Key key, Qt::KeyboardModifiers held = {}) { QTest::keyClick(&window_, key, held); }
    void type(const QString& text) {
        for (const QChar letter : text) {
            QTest::sendKeyEvent(QTest::Click, &window_, Qt::Key_unknown, QString(letter), Qt::NoModifier);
        }
    }
    [[nodiscard]] QImage picture() { return window_.grabWindow(); }

private:
    [[nodiscard]] static QQuickItem* find(QQuickItem* item,
                                          const std::function<bool(QQuickItem&)>& predicate) {
        if (item == nullptr || !item->isVisible()) {
            return nullptr;
        }
        if (predicate(*item)) {
            return item;
        }
        for (QQuickItem* child : item->childItems()) {
            if (QQuickItem* found = find(child, predicate); found != nullptr) {
                return found;
            }
        }
        return nullptr;
    }

    Window& window_;
};

} // namespace zorel::test
