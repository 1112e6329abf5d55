// SPDX-License-Identifier: Apache-2.0
#include "views/UICityHeaderView.h"

#include "views/Texts.h"

namespace zorel {
namespace {

constexpr CGPoint kTitleCenter = {110.0, 20.0};
constexpr CGSize kTitleSize = {200.0, 30.0};
constexpr CGRect kButtonFrame = {0.0, 0.0, 70.0, 30.0};
constexpr std::int32_t kTitleKey = 1023;
constexpr std::int32_t kAddKey = 1025;

} // namespace

UICityHeaderView::UICityHeaderView(const CGRect& frame, const GlobalFuncs& glbFuncs,
                                   const Settings& glbSettings)
    : UIView(frame) {
    text_ =
        glbFuncs.addLabel_IOS7(*this, kTitleCenter, kTitleSize, glbSettings.fontName, glbSettings.fontSize,
                               textForKey(glbFuncs, kTitleKey), glbSettings.fifthColor, 0, false, false, 0);
    buttonAdd_ = std::make_unique<UIButtonX>(kButtonFrame, glbFuncs, glbSettings);
    buttonAdd_->setCenter({frame.width - 35.0, 20.0});
    buttonAdd_->setButtonType(UIButtonXTypeCircle);
    buttonAdd_->setButtonShape(UIButtonXShapePlus);
    buttonAdd_->setSelectable(false);
    buttonAdd_->setTag(0);
    buttonAdd_->setDelegate(this);
    buttonAdd_->setAccessibilityLabel(textForKey(glbFuncs, kAddKey));
    addSubview(*buttonAdd_);
}

UICityHeaderView::~UICityHeaderView() {
    removeAllSubviews();
}

void UICityHeaderView::delegateUIButtonXTapped(UIButtonX& button) {
    if (delegate_ != nullptr) {
        delegate_->delegateUICityHeaderView_AddTapped(button);
    }
}

} // namespace zorel
