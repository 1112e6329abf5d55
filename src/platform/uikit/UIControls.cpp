// SPDX-License-Identifier: Apache-2.0
// The small controls: label, switch, search bar, and what every control has.
#include "platform/uikit/RunLoop.h"
#include "platform/uikit/UILabel.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UISearchBar.h"
#include "platform/uikit/UISwitch.h"

namespace zorel {

UIScreen& UIScreen::mainScreen() {
    static UIScreen screen;
    return screen;
}

UILabel::UILabel(const CGRect& frame) : UIView(frame) {
    setUserInteractionEnabled(false);
}

void UIControl::sendValueChanged() {
    const std::function<void()> action = valueChanged_;
    if (action) {
        action();
    }
}

void UISwitch::setOn(bool on, bool animated) {
    if (on_ == on) {
        return;
    }
    on_ = on;
    UIObserver::current().switchChanged(*this, animated);
}

void UISwitch::userToggles() {
    if (!isEnabled()) {
        return;
    }
    const RunLoop::Event event;
    setOn(!on_, true);
    sendValueChanged();
}

void UISearchBar::setFirstResponder(bool first) {
    if (firstResponder_ == first) {
        return;
    }
    firstResponder_ = first;
    UIObserver::current().firstResponderChanged(*this);
}

void UISearchBar::userTypes(std::string text) {
    const RunLoop::Event event;
    setFirstResponder(true);
    text_ = std::move(text);
    if (delegate_ != nullptr) {
        delegate_->searchBarTextDidChange(*this);
    }
}

void UISearchBar::userTapsSearch() {
    const RunLoop::Event event;
    if (delegate_ != nullptr) {
        delegate_->searchBarSearchButtonClicked(*this);
    }
}

} // namespace zorel
