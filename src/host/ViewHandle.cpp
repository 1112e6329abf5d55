// SPDX-License-Identifier: Apache-2.0
#include "host/ViewHandle.h"

#include "host/Host.h"
#include "platform/uikit/UIControl.h"
#include "platform/uikit/UILabel.h"
#include "platform/uikit/UISearchBar.h"
#include "platform/uikit/UISwitch.h"
#include "platform/uikit/UITouch.h"

#include <QStringList>

namespace zorel {

namespace {

QString kindName(UIViewKind kind) {
    switch (kind) {
    case UIViewKind::label:
        return QStringLiteral("label");
    case UIViewKind::switchControl:
        return QStringLiteral("switch");
    case UIViewKind::picker:
        return QStringLiteral("picker");
    case UIViewKind::searchBar:
        return QStringLiteral("search");
    case UIViewKind::table:
        return QStringLiteral("table");
    case UIViewKind::cell:
        return QStringLiteral("cell");
    case UIViewKind::plain:
        break;
    }
    return QStringLiteral("plain");
}

void collectTexts(const UIView& view, QStringList& texts) {
    if (view.isHidden()) {
        return;
    }
    if (!view.accessibilityLabel().empty()) {
        texts << QString::fromStdString(view.accessibilityLabel());
        return;
    }
    if (const auto* label = dynamic_cast<const UILabel*>(&view); label != nullptr && !label->text().empty()) {
        texts << QString::fromStdString(label->text());
    }
    for (const UIView* subview : view.subviews()) {
        collectTexts(*subview, texts);
    }
}

UIControl* firstControl(UIView& view) {
    if (view.isHidden()) {
        return nullptr;
    }
    if (auto* control = dynamic_cast<UIControl*>(&view); control != nullptr && control->isEnabled()) {
        return control;
    }
    for (UIView* subview : view.subviews()) {
        if (UIControl* control = firstControl(*subview); control != nullptr) {
            return control;
        }
    }
    return nullptr;
}

/// Middle of a control in the coordinates of a view above it.
CGPoint centreIn(const UIView& root, const UIControl& control) {
    CGPoint point{control.bounds().midX(), control.bounds().midY()};
    for (const UIView* step = &control; step != &root && step != nullptr; step = step->superview()) {
        point = step->pointToSuperview(point);
    }
    return point;
}

} // namespace

ViewHandle::ViewHandle(Host& host, UIView& view) : host_(host), view_(&view), kind_(kindName(view.kind())) {}

double ViewHandle::viewX() const {
    return view() != nullptr ? view()->frame().x : 0.0;
}
double ViewHandle::viewY() const {
    return view() != nullptr ? view()->frame().y : 0.0;
}
double ViewHandle::viewWidth() const {
    return view() != nullptr ? view()->frame().width : 0.0;
}
double ViewHandle::viewHeight() const {
    return view() != nullptr ? view()->frame().height : 0.0;
}
double ViewHandle::viewOpacity() const {
    return view() != nullptr ? view()->presentationAlpha() : 0.0;
}
double ViewHandle::viewScale() const {
    return view() != nullptr ? view()->presentationScale() : 1.0;
}
bool ViewHandle::shown() const {
    return view() != nullptr && !view()->isHidden();
}

QVariantList ViewHandle::subviews() const {
    QVariantList list;
    if (view() != nullptr) {
        for (UIView* subview : view()->subviews()) {
            list << QVariant::fromValue(host_.handle(subview));
        }
    }
    return list;
}

QString ViewHandle::spoken() const {
    QStringList texts;
    if (view() != nullptr) {
        collectTexts(*view(), texts);
    }
    return texts.join(QStringLiteral(", "));
}

QString ViewHandle::caption() const {
    for (const UIView* subview : view() != nullptr ? view()->subviews() : std::vector<UIView*>()) {
        if (subview->kind() == UIViewKind::label && !subview->isHidden()) {
            return QString::fromStdString(static_cast<const UILabel*>(subview)->text());
        }
    }
    return {};
}

ViewHandle* ViewHandle::control() const {
    return view() != nullptr ? host_.handle(firstControl(*view())) : nullptr;
}

bool ViewHandle::operable() const {
    return view() != nullptr && firstControl(*view()) != nullptr;
}

bool ViewHandle::marked() const {
    const UIControl* control = view() != nullptr ? firstControl(*view()) : nullptr;
    return control != nullptr && control->isSelected();
}

void ViewHandle::resize(double width, double height) {
    if (UIView* view = this->view(); view != nullptr) {
        view->setFrame({view->frame().x, view->frame().y, width, height});
        // What lies in it has moved only now.
        emit changed();
    }
}

void ViewHandle::activate() {
    UIView* root = view();
    const UIControl* control = root != nullptr ? firstControl(*root) : nullptr;
    if (control == nullptr) {
        return;
    }
    const CGPoint point = centreIn(*root, *control);
    host_.syncClock();
    UITouchDispatcher(*root).tap(point);
}

void ViewHandle::syncHostClock() {
    host_.syncClock();
}

bool SwitchHandle::on() const {
    return view() != nullptr && static_cast<UISwitch*>(view())->isOn();
}

void SwitchHandle::toggle() {
    if (view() != nullptr) {
        host().syncClock();
        static_cast<UISwitch*>(view())->userToggles();
    }
}

QString SearchHandle::placeholder() const {
    return view() != nullptr ? QString::fromStdString(static_cast<UISearchBar*>(view())->placeholder())
                             : QString();
}

QString SearchHandle::text() const {
    return view() != nullptr ? QString::fromStdString(static_cast<UISearchBar*>(view())->text()) : QString();
}

bool SearchHandle::focused() const {
    return view() != nullptr && static_cast<UISearchBar*>(view())->isFirstResponder();
}

void SearchHandle::type(const QString& text) {
    if (view() != nullptr) {
        host().syncClock();
        static_cast<UISearchBar*>(view())->userTypes(text.toStdString());
        setSearched(false);
    }
}

void SearchHandle::search() {
    if (view() != nullptr) {
        host().syncClock();
        static_cast<UISearchBar*>(view())->userTapsSearch();
        settle();
    }
}

int SearchHandle::letters() const {
    return static_cast<int>(text().toUcs4().size());
}

void SearchHandle::setSearched(bool searched) {
    searched_ = searched;
    emit searchedChanged();
}

} // namespace zorel
