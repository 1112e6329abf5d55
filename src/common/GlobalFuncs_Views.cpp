// SPDX-License-Identifier: Apache-2.0
#include "common/GlobalFuncs.h"
#include "platform/coregraphics/CGContext.h"
#include "platform/uikit/UILabel.h"

namespace zorel {

void GlobalFuncs::drawRoundedRectangle(CGContext& context, const CGRect& rectangle, double radius) const {
    const double left = rectangle.minX();
    const double right = rectangle.maxX();
    const double top = rectangle.minY();
    const double bottom = rectangle.maxY();
    context.moveTo(left, rectangle.midY());
    context.addArcToPoint(left, top, rectangle.midX(), top, radius);
    context.addArcToPoint(right, top, right, rectangle.midY(), radius);
    context.addArcToPoint(right, bottom, rectangle.midX(), bottom, radius);
    context.addArcToPoint(left, bottom, left, rectangle.midY(), radius);
    context.addLineTo(left, rectangle.midY());
    context.closePath();
}

std::unique_ptr<UILabel> GlobalFuncs::addLabel_IOS7(UIView& parent, CGPoint center, CGSize widthHeight,
                                                    const std::string& fontName, double fontSize,
                                                    const std::string& text, const UIColor& textColor,
                                                    int textAlign, bool hidden, bool shadow,
                                                    std::int32_t tag) const {
    auto label = std::make_unique<UILabel>(CGRect{0.0, 0.0, widthHeight.width, widthHeight.height});
    label->setFont({fontName, fontSize});
    label->setCenter(center);
    label->setTextAlignment(static_cast<UITextAlignment>(textAlign));
    label->setText(text);
    label->setHidden(hidden);
    label->setTag(tag);
    label->setTextColor(textColor);
    label->setBackgroundColor(UIColor::clearColor());
    label->setAdjustsFontSizeToFitWidth(true);
    label->setBaselineAdjustment(UIBaselineAdjustment::alignCenters);
    label->setNumberOfLines(1);
    label->setUserInteractionEnabled(false);
    label->setLineBreakMode(UILineBreakMode::truncatingTail);
    if (shadow) {
        label->setShadow(UILabelShadow{UIColor::blackColor(), {1.0, 1.0}});
    }
    parent.addSubview(*label);
    return label;
}

} // namespace zorel
