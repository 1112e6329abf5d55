// SPDX-License-Identifier: Apache-2.0
/// @file
/// A Qt Quick item that paints a view without native parts whole and carries touches to it.
#pragma once

#include "host/ViewHandle.h"
#include "platform/uikit/UITouch.h"

#include <QPointer>
#include <QQuickPaintedItem>

#include <optional>

namespace zorel {

class ViewItem : public QQuickPaintedItem {
    Q_OBJECT
    Q_PROPERTY(zorel::ViewHandle* handle READ handle WRITE setHandle NOTIFY handleChanged)
    Q_PROPERTY(bool dark READ dark WRITE setDark NOTIFY darkChanged)
    Q_PROPERTY(QColor tint MEMBER tint_ NOTIFY tintChanged)

public:
    explicit ViewItem(QQuickItem* parent = nullptr);

    [[nodiscard]] ViewHandle* handle() const { return handle_; }
    void setHandle(ViewHandle* handle);
    [[nodiscard]] bool dark() const { return dark_; }
    void setDark(bool dark);
    void paint(QPainter* painter) override;

signals:
    void handleChanged();
    void darkChanged();
    void tintChanged();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseUngrabEvent() override;

private:
    /// The point of an event, moved into the control that it is meant for.
    [[nodiscard]] CGPoint touched(const QMouseEvent& event) const;

    QPointer<ViewHandle> handle_;
    std::optional<UITouchDispatcher> touch_;
    QColor tint_; ///< the one colour of its drawing; invalid: the view's own
    bool dark_ = false;
};

} // namespace zorel
