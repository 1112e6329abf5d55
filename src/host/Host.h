// SPDX-License-Identifier: Apache-2.0
/// @file
/// Shows a navigation stack of views in a Qt Quick window and moves the views' run loop.
#pragma once

#include "host/DesktopSettings.h"
#include "host/ViewHandle.h"
#include "host/Words.h"
#include "platform/uikit/UIActionSheet.h"
#include "platform/uikit/UIObserver.h"
#include "platform/uikit/UIViewController.h"

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QStringList>
#include <QTimer>

class QQmlEngine;

namespace zorel {

/// A screen of the navigation stack for QML.
class PageHandle : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString backTitle READ backTitle NOTIFY changed)
    Q_PROPERTY(zorel::ViewHandle* content READ content NOTIFY changed)

public:
    PageHandle(Host& host, UIViewController& controller);
    [[nodiscard]] QString title() const { return title_; }
    /// Title of the back button when this screen is on top.
    [[nodiscard]] QString backTitle() const { return backTitle_; }
    [[nodiscard]] ViewHandle* content() const;
    /// Takes title, back button and view from the controller.
    void refresh();

signals:
    void changed();

private:
    Host& host_;
    UIWeak<UIViewController> controller_;
    QString title_;
    QString backTitle_;
};

/// The one observer of the views. Lives as long as the window; the views may come and go.
class Host : public QObject, public UIObserver {
    Q_OBJECT
    Q_PROPERTY(bool dark READ dark NOTIFY darkChanged)
    Q_PROPERTY(bool highContrast READ highContrast NOTIFY desktopChanged)
    Q_PROPERTY(bool reducedMotion READ reducedMotion NOTIFY desktopChanged)
    Q_PROPERTY(double textScale READ textScale CONSTANT)
    Q_PROPERTY(QString problem READ problem CONSTANT)
    Q_PROPERTY(QVariantMap words READ wordMap CONSTANT)
    Q_PROPERTY(QObject* firstPage READ firstPage NOTIFY firstPageChanged)
    Q_PROPERTY(bool editing READ editing WRITE setEditing NOTIFY editingChanged)
    Q_PROPERTY(bool keyboardUsed READ keyboardUsed NOTIFY keyboardUsedChanged)
    Q_PROPERTY(bool sheetVisible READ sheetVisible NOTIFY sheetChanged)
    Q_PROPERTY(QString sheetTitle READ sheetTitle NOTIFY sheetChanged)
    Q_PROPERTY(QStringList sheetButtons READ sheetButtons NOTIFY sheetChanged)

public:
    Host();
    ~Host() override;

    /// Types that the QML files use, for an engine.
    static void registerTypes();

    /// Shows this stack. It and its controllers outlive the host or are announced as popped.
    void show(UINavigationController& navigation);
    /// A trouble that the window says at its top, with its remedy.
    void setProblem(const QString& problem) { problem_ = problem; }
    /// Light or dark; without a call, as the desktop's palette has it.
    void setDark(bool dark);
    /// Size of the reader's text in proportion to the usual one.
    void setTextScale(double scale) { textScale_ = scale; }

    [[nodiscard]] bool dark() const { return dark_; }
    /// What the desktop is asked for beside light and dark.
    [[nodiscard]] bool highContrast() const { return desktop_.highContrast(); }
    [[nodiscard]] bool reducedMotion() const { return desktop_.reducedMotion(); }
    [[nodiscard]] DesktopSettings& desktop() { return desktop_; }
    [[nodiscard]] double textScale() const { return textScale_; }
    [[nodiscard]] QString problem() const { return problem_; }
    [[nodiscard]] const Words& words() const { return words_; }
    [[nodiscard]] QVariantMap wordMap() const { return words_.map(); }
    Q_INVOKABLE [[nodiscard]] QString placesFound(int count) const { return words_.placesFound(count); }
    /// What stands above the pane on the first screen; nullptr for nothing. Outlives the window.
    [[nodiscard]] QObject* firstPage() const { return firstPage_; }
    void setFirstPage(QObject* page);
    /// Whether the rows that can be deleted show a button for it.
    [[nodiscard]] bool editing() const { return editing_; }
    void setEditing(bool editing);
    /// Whether the last thing touched was the keyboard: then the focus is marked.
    [[nodiscard]] bool keyboardUsed() const { return keyboardUsed_; }
    [[nodiscard]] bool sheetVisible() const { return sheet_.get() != nullptr; }
    [[nodiscard]] QString sheetTitle() const;
    [[nodiscard]] QStringList sheetButtons() const;

    Q_INVOKABLE void tapSheet(int index);
    Q_INVOKABLE void cancelSheet();
    /// Takes the top screen away.
    Q_INVOKABLE void back();
    /// The screens from the root to the top.
    Q_INVOKABLE QVariantList pages();
    /// The window's size [pt], which becomes the screen's.
    Q_INVOKABLE void setScreenSize(double width, double height);

    /// Says something to a screen reader that nothing with the focus says. The same again at once is not
    /// said.
    Q_INVOKABLE void announce(const QString& text);

    /// Does now what still waits for a change of mind; before the window goes.
    void finish();

    /// The handle of a view (nullptr for none); made when first asked for.
    [[nodiscard]] ViewHandle* handle(UIView* view);
    /// Moves the run loop to the present time; called before every event.
    void syncClock();

    void viewAdded(UIView& superview, UIView& view) override;
    void viewRemoved(UIView& superview, UIView& view) override;
    void viewDestroyed(UIView& view) override;
    void viewNeedsDisplay(UIView& view) override;
    void viewChanged(UIView& view, UIProperty what) override;
    void tableReloaded(UITableView& table) override;
    void pickerReloaded(UIPickerView& picker) override;
    void pickerRowSelected(UIPickerView& picker, bool animated) override;
    void switchChanged(UISwitch& control, bool animated) override;
    void firstResponderChanged(UISearchBar& searchBar) override;
    void actionSheetPresented(UIActionSheet& sheet, UIView& view) override;
    void actionSheetDismissed(UIActionSheet& sheet) override;
    void viewControllerPushed(UINavigationController& navigation, UIViewController& pushed,
                              bool animated) override;
    void viewControllerPopped(UINavigationController& navigation, UIViewController& popped,
                              bool animated) override;
    void viewControllerChanged(UIViewController& controller) override;
    void runLoopWantsWake(double time) override;

signals:
    void darkChanged();
    void desktopChanged();
    void announced(const QString& text);
    void keyboardUsedChanged();
    void sheetChanged();
    void firstPageChanged();
    void editingChanged();
    void reloaded(const zorel::UITableView* table);
    void pushed(zorel::PageHandle* page, bool animated);
    void popped(zorel::PageHandle* page, bool animated);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    [[nodiscard]] ViewHandle* make(UIView& view);
    [[nodiscard]] PageHandle* page(UIViewController& controller);
    void redrawAround(UIView& view);
    void schedule();
    void wake();
    void followDesktop();
    void noteKeyboard(bool used);

    QHash<const UIView*, ViewHandle*> handles_;
    QHash<const UIViewController*, PageHandle*> pages_;
    UIWeak<UINavigationController> navigation_;
    UIWeak<UIActionSheet> sheet_;
    QElapsedTimer clock_;
    double clockStart_;
    QTimer timer_;
    DesktopSettings desktop_;
    QString problem_;
    QString announced_;
    QElapsedTimer announcedAt_;
    double textScale_ = 1.0;
    Words words_;
    QObject* firstPage_ = nullptr;
    bool editing_ = false;
    bool dark_ = false;
    bool darkFixed_ = false;
    bool keyboardUsed_ = false;
};

} // namespace zorel
