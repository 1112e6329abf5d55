// SPDX-License-Identifier: Apache-2.0
/// @file
/// What QML holds of a view: an object that says what the view is like and turns empty when the view is gone.
#pragma once

#include "platform/uikit/UIView.h"

#include <QObject>
#include <QString>
#include <QVariantList>

namespace zorel {

class Host;

/// A view for QML. One per view, kept by the host until the view is destroyed.
class ViewHandle : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString kind READ kind CONSTANT)
    Q_PROPERTY(double viewX READ viewX NOTIFY changed)
    Q_PROPERTY(double viewY READ viewY NOTIFY changed)
    Q_PROPERTY(double viewWidth READ viewWidth NOTIFY changed)
    Q_PROPERTY(double viewHeight READ viewHeight NOTIFY changed)
    Q_PROPERTY(double viewOpacity READ viewOpacity NOTIFY presentationChanged)
    Q_PROPERTY(double viewScale READ viewScale NOTIFY presentationChanged)
    Q_PROPERTY(bool shown READ shown NOTIFY changed)
    Q_PROPERTY(QVariantList subviews READ subviews NOTIFY subviewsChanged)
    Q_PROPERTY(QString spoken READ spoken NOTIFY changed)
    Q_PROPERTY(QString caption READ caption NOTIFY changed)
    Q_PROPERTY(zorel::ViewHandle* control READ control NOTIFY changed)
    Q_PROPERTY(bool operable READ operable NOTIFY changed)
    Q_PROPERTY(bool marked READ marked NOTIFY changed)

public:
    ViewHandle(Host& host, UIView& view);

    /// The view, or nullptr when it is gone.
    [[nodiscard]] UIView* view() const { return view_.get(); }
    /// "plain", "label", "switch", "picker", "search", "table" or "cell".
    [[nodiscard]] QString kind() const { return kind_; }
    [[nodiscard]] double viewX() const;
    [[nodiscard]] double viewY() const;
    [[nodiscard]] double viewWidth() const;
    [[nodiscard]] double viewHeight() const;
    [[nodiscard]] double viewOpacity() const;
    [[nodiscard]] double viewScale() const;
    [[nodiscard]] bool shown() const;
    [[nodiscard]] QVariantList subviews() const;
    /// What a screen reader says: the view's accessibility label, else the texts in it.
    [[nodiscard]] QString spoken() const;
    /// The text of the first label that lies in the view itself; empty without one.
    [[nodiscard]] QString caption() const;
    /// The control in the view, or nullptr.
    [[nodiscard]] ViewHandle* control() const;
    /// Whether an enabled, visible control lies in the view.
    [[nodiscard]] bool operable() const;
    /// Whether the control in the view is selected.
    [[nodiscard]] bool marked() const;

    /// Gives the view a new size, its place staying what it is.
    Q_INVOKABLE void resize(double width, double height);
    /// Taps the control in the view, as the keyboard and a screen reader do.
    Q_INVOKABLE void activate();
    /// To be called before an event is handed to the view.
    void syncHostClock();

signals:
    void changed();
    void presentationChanged();
    void subviewsChanged();
    void needsDisplay();

protected:
    [[nodiscard]] Host& host() const { return host_; }

private:
    Host& host_;
    UIWeak<UIView> view_;
    QString kind_;
};

/// An on/off switch for QML.
class SwitchHandle : public ViewHandle {
    Q_OBJECT
    Q_PROPERTY(bool on READ on NOTIFY onChanged)

public:
    using ViewHandle::ViewHandle;
    [[nodiscard]] bool on() const;
    Q_INVOKABLE void toggle();

signals:
    void onChanged();
};

/// A search field for QML.
class SearchHandle : public ViewHandle {
    Q_OBJECT
    Q_PROPERTY(QString placeholder READ placeholder NOTIFY changed)
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(bool focused READ focused NOTIFY focusedChanged)
    Q_PROPERTY(bool searched READ searched NOTIFY searchedChanged)
    Q_PROPERTY(int letters READ letters NOTIFY searchedChanged)

public:
    using ViewHandle::ViewHandle;
    [[nodiscard]] QString placeholder() const;
    [[nodiscard]] QString text() const;
    [[nodiscard]] bool focused() const;
    /// Whether what is on show was found with the present text.
    [[nodiscard]] bool searched() const { return searched_; }
    Q_INVOKABLE void type(const QString& text);
    Q_INVOKABLE void search();
    /// The table beneath shows what was found with the present text.
    Q_INVOKABLE void settle() { setSearched(!text().isEmpty()); }
    /// Characters of the present text.
    [[nodiscard]] int letters() const;

signals:
    void focusedChanged();
    void searchedChanged();

private:
    void setSearched(bool searched);

    bool searched_ = false;
};

} // namespace zorel
