// SPDX-License-Identifier: Apache-2.0
#include "platform/uikit/UIActionSheet.h"

#include "platform/uikit/RunLoop.h"
#include "platform/uikit/UIObserver.h"

#include <utility>

namespace zorel {

UIActionSheet::UIActionSheet(std::string title, UIActionSheetDelegate* delegate,
                             std::string cancelButtonTitle, std::vector<std::string> otherButtonTitles)
    : title_(std::move(title)), delegate_(delegate), buttonTitles_(std::move(otherButtonTitles)) {
    buttonTitles_.push_back(std::move(cancelButtonTitle));
}

UIActionSheet::~UIActionSheet() {
    endLifetime();
    dismiss();
}

void UIActionSheet::showInView(UIView& view) {
    if (!visible_) {
        visible_ = true;
        UIObserver::current().actionSheetPresented(*this, view);
    }
}

void UIActionSheet::userTapsButton(int index) {
    if (!visible_ || index < 0 || index > cancelButtonIndex()) {
        return;
    }
    const RunLoop::Event event;
    dismiss();
    if (delegate_ != nullptr) {
        delegate_->clickedButtonAtIndex(*this, index);
    }
}

void UIActionSheet::dismiss() {
    if (std::exchange(visible_, false)) {
        UIObserver::current().actionSheetDismissed(*this);
    }
}

} // namespace zorel
