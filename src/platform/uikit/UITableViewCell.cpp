// SPDX-License-Identifier: Apache-2.0
#include "platform/uikit/UITableViewCell.h"

#include "platform/uikit/RunLoop.h"

#include <algorithm>

namespace zorel {

namespace {

constexpr double kMargin = 15.0;         ///< at both sides [pt]
constexpr double kIndicatorWidth = 18.0; ///< of the disclosure indicator with the gap before it [pt]

} // namespace

UITableViewCell::UITableViewCell(std::string reuseIdentifier) : reuseIdentifier_(std::move(reuseIdentifier)) {
    addSubview(textLabel_);
}

void UITableViewCell::setAccessoryType(UITableViewCellAccessoryType type) {
    change(accessoryType_, type, UIProperty::content);
    layoutSubviews();
}

UIView* UITableViewCell::accessoryView() const {
    UIView* view = accessory_.get();
    return view != nullptr && view->superview() == this ? view : nullptr;
}

void UITableViewCell::setAccessoryView(UIView* view) {
    UIView* former = accessoryView();
    if (former != view) {
        if (former != nullptr) {
            former->removeFromSuperview();
        }
        RunLoop::main().disposeLater(std::move(ownedAccessory_));
        accessory_ = UIWeak<UIView>(view);
    }
    if (view != nullptr && view->superview() != this) {
        addSubview(*view);
    }
    layoutSubviews();
}

void UITableViewCell::setAccessoryView(std::unique_ptr<UIView> view) {
    setAccessoryView(view.get());
    ownedAccessory_ = std::move(view);
}

void UITableViewCell::setFrame(const CGRect& frame) {
    UIView::setFrame(frame);
    layoutSubviews();
}

void UITableViewCell::layoutSubviews() {
    const CGRect box = bounds();
    double textEnd = box.width - kMargin;
    if (UIView* accessory = accessoryView()) {
        const CGSize size = accessory->frame().size();
        const double left = std::max(0.0, std::min(box.width - size.width, box.width - kMargin - size.width));
        accessory->setCenter({left + size.width * 0.5, box.midY()});
        textEnd = left - kMargin * 0.5;
    } else if (accessoryType_ == UITableViewCellAccessoryType::disclosureIndicator) {
        textEnd -= kIndicatorWidth;
    }
    textLabel_.setFrame({kMargin, 0.0, std::max(0.0, textEnd - kMargin), box.height});
}

} // namespace zorel
