// SPDX-License-Identifier: Apache-2.0
#include "views/UICityView.h"

#include "views/Texts.h"

namespace zorel {
namespace {

constexpr CGPoint kNameCenter = {170.0, 30.0};
constexpr CGSize kNameSize = {300.0, 30.0};
constexpr CGRect kButtonFrame = {0.0, 0.0, 70.0, 30.0};
constexpr std::int32_t kHomeKey = 1042;

} // namespace

UICityView::UICityView(const CGRect& frame, const GlobalFuncs& glbFuncs, const Settings& glbSettings)
    : UIView(frame) {
    setBackgroundColor(UIColor::clearColor());
    cityName_ = glbFuncs.addLabel_IOS7(*this, kNameCenter, kNameSize, glbSettings.fontName,
                                       glbSettings.fontSize, "", glbSettings.fifthColor, 0, false, false, 0);
    buttonHome_ = std::make_unique<UIButtonX>(kButtonFrame, glbFuncs, glbSettings);
    buttonHome_->setCenter({frame.width - 35.0, 30.0});
    buttonHome_->setButtonType(UIButtonXTypeCircle);
    buttonHome_->setButtonShape(UIButtonXShapeHouse);
    buttonHome_->setSelectable(true);
    buttonHome_->setTag(0);
    buttonHome_->setDelegate(this);
    buttonHome_->setAccessibilityLabel(textForKey(glbFuncs, kHomeKey));
    addSubview(*buttonHome_);
}

UICityView::~UICityView() {
    removeAllSubviews();
}

void UICityView::delegateUIButtonXTapped(UIButtonX& button) {
    if (!button.isSelected()) {
        button.setSelected(true);
        button.setNeedsDisplay();
        return;
    }
    if (delegate_ != nullptr) {
        delegate_->delegateUICityView_HomeTapped(*this);
    }
}

} // namespace zorel
