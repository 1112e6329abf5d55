// SPDX-License-Identifier: Apache-2.0
#include "host/Host.h"

#include "host/AlarmEditor.h"
#include "host/PickerModel.h"
#include "host/RingCheck.h"
#include "host/SkyDrawings.h"
#include "host/TableModel.h"
#include "host/ViewItem.h"
#include "platform/uikit/RunLoop.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UISearchBar.h"
#include "platform/uikit/UISwitch.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>
#include <QQmlEngine>

#include <algorithm>

namespace zorel {

namespace {

constexpr double kFrameMilliseconds = 16.0;
constexpr int kSlideMilliseconds = 1000;

} // namespace

PageHandle::PageHandle(Host& host, UIViewController& controller) : host_(host), controller_(&controller) {
    refresh();
}

ViewHandle* PageHandle::content() const {
    return controller_.get() != nullptr ? host_.handle(controller_.get()->view()) : nullptr;
}

void PageHandle::refresh() {
    UIViewController* controller = controller_.get();
    if (controller == nullptr) {
        return;
    }
    title_ = QString::fromStdString(controller->navigationItem().title());
    if (const UINavigationController* stack = controller->navigationController();
        stack != nullptr && stack->topViewController() == controller) {
        backTitle_ = QString::fromStdString(stack->backButtonTitle());
    }
    emit changed();
}

Host::Host() : clockStart_(RunLoop::main().time()) {
    clock_.start();
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &Host::wake);
    qApp->installEventFilter(this);
    followDesktop();
    connect(&desktop_, &DesktopSettings::changed, this, [this] {
        followDesktop();
        emit desktopChanged();
    });
    UIObserver::install(this);
    schedule();
}

Host::~Host() {
    UIObserver::install(nullptr);
    qDeleteAll(pages_);
    qDeleteAll(handles_);
}

void Host::registerTypes() {
    constexpr const char* uri = "Zorel.Views";
    const QString reason = QStringLiteral("made by the host");
    qmlRegisterType<ViewItem>(uri, 1, 0, "ViewItem");
    qmlRegisterType<DayBar>(uri, 1, 0, "DayBar");
    qmlRegisterType<MoonDisc>(uri, 1, 0, "MoonDisc");
    qmlRegisterType<Bell>(uri, 1, 0, "Bell");
    qmlRegisterType<QiblaRose>(uri, 1, 0, "QiblaRose");
    qmlRegisterUncreatableType<ViewHandle>(uri, 1, 0, "ViewHandle", reason);
    qmlRegisterUncreatableType<PageHandle>(uri, 1, 0, "PageHandle", reason);
    qmlRegisterUncreatableType<AlarmRows>(uri, 1, 0, "AlarmRows", reason);
    qmlRegisterUncreatableType<AlarmEditor>(uri, 1, 0, "AlarmEditor", reason);
    qmlRegisterUncreatableType<TonePreview>(uri, 1, 0, "TonePreview", reason);
    qmlRegisterUncreatableType<RingCheck>(uri, 1, 0, "RingCheck", reason);
    qmlRegisterUncreatableType<Host>(uri, 1, 0, "Host", reason);
}

void Host::show(UINavigationController& navigation) {
    navigation_ = UIWeak<UINavigationController>(&navigation);
}

void Host::setDark(bool dark) {
    darkFixed_ = true;
    if (dark_ != dark) {
        dark_ = dark;
        emit darkChanged();
    }
}

/// Light or dark as the desktop says, else as the palette is that it gave.
void Host::followDesktop() {
    const bool darkPalette = QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
    const bool dark = desktop_.dark().value_or(darkPalette);
    if (!darkFixed_ && dark != dark_) {
        dark_ = dark;
        emit darkChanged();
    }
}

bool Host::eventFilter(QObject* object, QEvent* event) {
    switch (event->type()) {
    case QEvent::ApplicationPaletteChange:
        followDesktop();
        break;
    case QEvent::KeyPress:
        noteKeyboard(true);
        break;
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
        noteKeyboard(false);
        break;
    default:
        break;
    }
    return QObject::eventFilter(object, event);
}

void Host::noteKeyboard(bool used) {
    if (keyboardUsed_ != used) {
        keyboardUsed_ = used;
        emit keyboardUsedChanged();
    }
}

void Host::setFirstPage(QObject* page) {
    QQmlEngine::setObjectOwnership(page, QQmlEngine::CppOwnership);
    firstPage_ = page;
    emit firstPageChanged();
}

void Host::setEditing(bool editing) {
    if (editing_ != editing) {
        editing_ = editing;
        emit editingChanged();
    }
}

// Handles.

ViewHandle* Host::make(UIView& view) {
    switch (view.kind()) {
    case UIViewKind::switchControl:
        return new SwitchHandle(*this, view);
    case UIViewKind::searchBar:
        return new SearchHandle(*this, view);
    case UIViewKind::picker:
        return new PickerHandle(*this, static_cast<UIPickerView&>(view));
    case UIViewKind::table:
        return new TableHandle(*this, static_cast<UITableView&>(view));
    default:
        return new ViewHandle(*this, view);
    }
}

ViewHandle* Host::handle(UIView* view) {
    if (view == nullptr) {
        return nullptr;
    }
    const auto known = handles_.constFind(view);
    if (known != handles_.constEnd()) {
        return *known;
    }
    ViewHandle* made = make(*view);
    QQmlEngine::setObjectOwnership(made, QQmlEngine::CppOwnership);
    handles_.insert(view, made);
    return made;
}

PageHandle* Host::page(UIViewController& controller) {
    PageHandle*& page = pages_[&controller];
    if (page == nullptr) {
        page = new PageHandle(*this, controller);
        QQmlEngine::setObjectOwnership(page, QQmlEngine::CppOwnership);
    }
    return page;
}

QVariantList Host::pages() {
    QVariantList list;
    if (navigation_.get() != nullptr) {
        for (UIViewController* controller : navigation_.get()->viewControllers()) {
            list << QVariant::fromValue(page(*controller));
        }
    }
    return list;
}

// What the user does.

void Host::tapSheet(int index) {
    if (UIActionSheet* sheet = sheet_.get(); sheet != nullptr) {
        syncClock();
        sheet->userTapsButton(index);
    }
}

void Host::cancelSheet() {
    if (const UIActionSheet* sheet = sheet_.get(); sheet != nullptr) {
        tapSheet(sheet->cancelButtonIndex());
    }
}

void Host::back() {
    if (sheetVisible()) {
        cancelSheet();
    } else if (navigation_.get() != nullptr) {
        syncClock();
        navigation_.get()->popViewControllerAnimated(true);
    }
}

QString Host::sheetTitle() const {
    return sheetVisible() ? QString::fromStdString(sheet_.get()->title()) : QString();
}

QStringList Host::sheetButtons() const {
    QStringList titles;
    if (sheetVisible()) {
        for (const std::string& title : sheet_.get()->buttonTitles()) {
            titles << QString::fromStdString(title);
        }
    }
    return titles;
}

void Host::setScreenSize(double width, double height) {
    UIScreen::mainScreen().setBounds({0.0, 0.0, width, height});
}

void Host::announce(const QString& text) {
    constexpr int sameAgain = 1000; ///< [ms]
    const bool repeated = text == announced_ && announcedAt_.isValid() && announcedAt_.elapsed() < sameAgain;
    if (text.isEmpty() || repeated) {
        return;
    }
    announced_ = text;
    announcedAt_.start();
    emit announced(text);
}

void Host::finish() {
    const auto handles = handles_.values();
    for (ViewHandle* handle : handles) {
        if (auto* table = qobject_cast<TableHandle*>(handle); table != nullptr) {
            table->finishRemoval();
        }
    }
}

// What the views tell.

void Host::redrawAround(UIView& view) {
    for (UIView* step = &view; step != nullptr; step = step->superview()) {
        if (ViewHandle* handle = handles_.value(step); handle != nullptr) {
            emit handle->needsDisplay();
        }
    }
}

void Host::viewAdded(UIView& superview, UIView& /*view*/) {
    if (ViewHandle* handle = handles_.value(&superview); handle != nullptr) {
        emit handle->subviewsChanged();
    }
    redrawAround(superview);
}

void Host::viewRemoved(UIView& superview, UIView& view) {
    viewAdded(superview, view);
}

void Host::viewDestroyed(UIView& view) {
    if (ViewHandle* handle = handles_.take(&view); handle != nullptr) {
        handle->deleteLater();
    }
}

void Host::viewNeedsDisplay(UIView& view) {
    redrawAround(view);
}

void Host::viewChanged(UIView& view, UIProperty what) {
    if (ViewHandle* handle = handles_.value(&view); handle != nullptr) {
        const bool visible =
            what == UIProperty::presentation || what == UIProperty::alpha || what == UIProperty::transform;
        if (visible) {
            emit handle->presentationChanged();
            return;
        }
        emit handle->changed();
    }
    redrawAround(view);
}

void Host::tableReloaded(UITableView& table) {
    if (auto* handle = static_cast<TableHandle*>(handles_.value(&table)); handle != nullptr) {
        handle->reload();
    }
    emit reloaded(&table);
}

void Host::pickerReloaded(UIPickerView& picker) {
    if (auto* handle = static_cast<PickerHandle*>(handles_.value(&picker)); handle != nullptr) {
        handle->reload();
    }
}

void Host::pickerRowSelected(UIPickerView& picker, bool /*animated*/) {
    if (auto* handle = static_cast<PickerHandle*>(handles_.value(&picker)); handle != nullptr) {
        emit handle->selectedRowChanged();
    }
}

void Host::switchChanged(UISwitch& control, bool /*animated*/) {
    if (auto* handle = static_cast<SwitchHandle*>(handles_.value(&control)); handle != nullptr) {
        emit handle->onChanged();
    }
}

void Host::firstResponderChanged(UISearchBar& searchBar) {
    if (auto* handle = static_cast<SearchHandle*>(handles_.value(&searchBar)); handle != nullptr) {
        emit handle->focusedChanged();
    }
}

void Host::actionSheetPresented(UIActionSheet& sheet, UIView& /*view*/) {
    sheet_ = UIWeak<UIActionSheet>(&sheet);
    emit sheetChanged();
}

void Host::actionSheetDismissed(UIActionSheet& /*sheet*/) {
    sheet_ = {};
    emit sheetChanged();
}

void Host::viewControllerPushed(UINavigationController& navigation, UIViewController& controller,
                                bool animated) {
    if (&navigation == navigation_.get()) {
        page(controller)->refresh();
        emit pushed(page(controller), animated);
    }
}

void Host::viewControllerPopped(UINavigationController& /*navigation*/, UIViewController& controller,
                                bool animated) {
    // What the user did on that screen may show in the rows of the others.
    for (ViewHandle* handle : std::as_const(handles_)) {
        if (auto* table = qobject_cast<TableHandle*>(handle); table != nullptr) {
            table->refreshDetails();
        }
    }
    if (PageHandle* gone = pages_.take(&controller); gone != nullptr) {
        emit popped(gone, animated);
        // The screen still slides away.
        auto* const slide = new QTimer(gone);
        slide->setSingleShot(true);
        QObject::connect(slide, &QTimer::timeout, gone, &QObject::deleteLater);
        slide->start(kSlideMilliseconds);
    }
}

void Host::viewControllerChanged(UIViewController& controller) {
    if (PageHandle* known = pages_.value(&controller); known != nullptr) {
        known->refresh();
    }
}

// The run loop.

void Host::syncClock() {
    RunLoop::main().advanceTo(clockStart_ + static_cast<double>(clock_.nsecsElapsed()) * 1e-9);
}

void Host::runLoopWantsWake(double /*time*/) {
    schedule();
}

void Host::schedule() {
    const std::optional<double> wake = RunLoop::main().nextWake();
    if (!wake) {
        timer_.stop();
        return;
    }
    const double present = clockStart_ + static_cast<double>(clock_.nsecsElapsed()) * 1e-9;
    timer_.start(static_cast<int>(std::max(kFrameMilliseconds, (*wake - present) * 1000.0)));
}

void Host::wake() {
    syncClock();
    schedule();
}

} // namespace zorel
