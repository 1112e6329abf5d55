// SPDX-License-Identifier: Apache-2.0
#include "views/UIButtonX.h"

#include "common/GlobalFuncs.h"
#include "platform/uikit/UITouch.h"

#include <exception>
#include <numbers>

namespace zorel {
namespace {

constexpr unsigned kFlexibleSides = UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleWidth |
                                    UIViewAutoresizingFlexibleRightMargin;
constexpr double kOutlineInset = 1.0;
constexpr double kGlyphInset = 6.0;
constexpr double kCornerRadius = 3.0;
constexpr const char* kStarCharacter = "\u2727";
/// The information sign with the selector that asks for its text form.
constexpr const char* kInfoCharacter = "\u2139\uFE0E";

} // namespace

UIButtonX::UIButtonX(const CGRect& frame, const GlobalFuncs& /*glbFuncs*/, const Settings& /*glbSettings*/)
    : UIControl(frame) {
    initialize();
}

UIButtonX::~UIButtonX() {
    removeAllSubviews();
}

void UIButtonX::initialize() {
    glbFuncs_ = std::make_unique<GlobalFuncs>();
    glbSettings_ = std::make_unique<Settings>();
    isSelecting_ = false;
    setBackgroundColor(UIColor::clearColor());
    buttonType_ = UIButtonXTypeNone;
    buttonShape_ = UIButtonXShapeNone;
    UIControl::setSelected(false);
    selectable_ = false;
    isShadow_ = true;
    setAutoresizingMask(kFlexibleSides);
    setAutoresizesSubviews(true);
    makeCaption();
}

void UIButtonX::makeCaption() {
    text_ = std::make_unique<UILabel>(bounds());
    text_->setUserInteractionEnabled(false);
    text_->setFont({glbSettings_->fontName, static_cast<double>(glbSettings_->fontSize)});
    text_->setAdjustsFontSizeToFitWidth(true);
    text_->setTextAlignment(UITextAlignment::center);
    text_->setBaselineAdjustment(UIBaselineAdjustment::alignCenters);
    text_->setTextColor(glbSettings_->thirdColor);
    text_->setAutoresizingMask(kFlexibleSides);
    text_->setBackgroundColor(UIColor::clearColor());
    addSubview(*text_);
}

UIButtonXArc UIButtonX::createArcPath() const {
    return {{10.0, 10.0}, 5.0, 0.0, 3.0 * std::numbers::pi / 4.0, true};
}

void UIButtonX::setFrame(const CGRect& frame) {
    UIControl::setFrame(frame);
    if (text_) {
        text_->setFrame({0.0, 0.0, frame.width, frame.height - 2.0});
    }
}

void UIButtonX::setEnabled(bool enabled) {
    UIControl::setEnabled(enabled);
    setNeedsDisplay();
}

void UIButtonX::setSelected(bool selected) {
    if (!selectable_) {
        return;
    }
    const bool before = isSelected();
    UIControl::setSelected(selected);
    if (isSelected()) {
        isSelecting_ = false;
        text_->setTextColor(glbSettings_->fifthColor);
    } else {
        text_->setTextColor(glbSettings_->secondColor);
    }
    if (isSelected() != before) {
        setNeedsDisplay();
    }
}

void UIButtonX::setSelecting(bool selecting) {
    isSelecting_ = selecting;
    setNeedsDisplay();
}

void UIButtonX::touchesBegan(const UITouch& touch) {
    UIControl::touchesBegan(touch);
    setSelecting(true);
}

void UIButtonX::touchesMoved(const UITouch& touch) {
    UIControl::touchesMoved(touch);
    setSelecting(pointInside(touch.locationInView(*this)));
}

/// For the superclass a finger that is lifted has moved a last time: its ended handler never runs.
void UIButtonX::touchesEnded(const UITouch& touch) {
    UIControl::touchesMoved(touch);
    const UIWeak<UIButtonX> self(this);
    if (pointInside(touch.locationInView(*this))) {
        completeTap();
    }
    if (self.get() != nullptr) {
        setSelecting(false);
    }
}

void UIButtonX::touchesCancelled(const UITouch& touch) {
    UIControl::touchesCancelled(touch);
    setSelecting(false);
}

void UIButtonX::completeTap() {
    if (selectable_) {
        setSelected(!isSelected());
    }
    if (delegate_ != nullptr) {
        delegate_->delegateUIButtonXTapped(*this);
    }
}

void UIButtonX::drawRect(CGContext& context) {
    try {
        drawOutline(context);
        drawGlyph(context);
    } catch (const std::exception& error) {
        glbFuncs_->NSLogToFile("Error in UIButtonX -> drawRect");
        glbFuncs_->NSLogToFile(error.what());
    }
}

const UIColor& UIButtonX::enabledColor() const {
    return isEnabled() ? glbSettings_->fifthColor : glbSettings_->secondColor;
}

/// A selectable button shows whether it is selected, any other whether it is enabled.
const UIColor& UIButtonX::stateColor() const {
    if (!selectable_) {
        return enabledColor();
    }
    return isSelected() ? glbSettings_->fifthColor : glbSettings_->secondColor;
}

void UIButtonX::drawOutline(CGContext& context) {
    if (buttonType_ == UIButtonXTypeNone) {
        return;
    }
    const CGRect box = bounds().inset(kOutlineInset, kOutlineInset);
    context.setStrokeColor(stateColor());
    if (buttonType_ == UIButtonXTypeEllipse) {
        context.addEllipseInRect(box);
    } else if (buttonType_ == UIButtonXTypeCircle) {
        context.addEllipseInRect(
            {box.width * 0.5 - box.height * 0.5 + kOutlineInset, box.y, box.height, box.height});
    } else if (buttonType_ == UIButtonXTypeRoundedRectangle) {
        glbFuncs_->drawRoundedRectangle(context, box, kCornerRadius);
    } else if (buttonType_ == UIButtonXTypeRectangle) {
        context.addRect(box);
    }
    context.strokePath();
}

void UIButtonX::drawGlyph(CGContext& context) {
    if (buttonShape_ == UIButtonXShapeNone) {
        return;
    }
    const CGRect box = bounds().inset(kGlyphInset, kGlyphInset);
    context.setLineWidth(1.0);
    context.setStrokeColor(stateColor());
    context.setFillColor(stateColor());
    if (buttonShape_ == UIButtonXShapeStar) {
        showCharacter(kStarCharacter, box.height);
    } else if (buttonShape_ == UIButtonXShapeInfo) {
        showCharacter(kInfoCharacter, box.height);
    } else {
        drawButtonGlyph(context, buttonShape_, box, {enabledColor(), glbSettings_->fourthColor});
    }
}

/// Every redraw replaces the caption, whatever its owner has set.
void UIButtonX::showCharacter(const char* character, double boxHeight) {
    text_->setFont({"AppleColorEmoji", 1.3 * boxHeight});
    text_->setText(character);
}

} // namespace zorel
