// SPDX-License-Identifier: Apache-2.0
/// @file
/// A text of one or more lines. The host measures and paints it.
#pragma once

#include "platform/uikit/UIFont.h"
#include "platform/uikit/UIView.h"

namespace zorel {

/// The colour and offset [pt] of a label's shadow.
struct UILabelShadow {
    UIColor color;
    CGSize offset;

    friend bool operator==(const UILabelShadow&, const UILabelShadow&) = default;
};

/// Takes no touches until told to, as labels do.
class UILabel : public UIView {
public:
    UILabel() : UILabel(CGRect{}) {}
    explicit UILabel(const CGRect& frame);

    [[nodiscard]] UIViewKind kind() const override { return UIViewKind::label; }

    [[nodiscard]] const std::string& text() const { return text_; } ///< UTF-8
    void setText(std::string text) { set(text_, std::move(text)); }
    [[nodiscard]] const UIFont& font() const { return font_; }
    void setFont(UIFont font) { set(font_, std::move(font)); }
    [[nodiscard]] const UIColor& textColor() const { return textColor_; }
    void setTextColor(const UIColor& color) { set(textColor_, color); }
    [[nodiscard]] UITextAlignment textAlignment() const { return textAlignment_; }
    void setTextAlignment(UITextAlignment alignment) { set(textAlignment_, alignment); }
    /// Lines at most; 0 is as many as the text needs.
    [[nodiscard]] int numberOfLines() const { return numberOfLines_; }
    void setNumberOfLines(int lines) { set(numberOfLines_, lines); }
    [[nodiscard]] UILineBreakMode lineBreakMode() const { return lineBreakMode_; }
    void setLineBreakMode(UILineBreakMode mode) { set(lineBreakMode_, mode); }
    /// Whether a text of one line is set smaller until it fits.
    [[nodiscard]] bool adjustsFontSizeToFitWidth() const { return adjustsFontSizeToFitWidth_; }
    void setAdjustsFontSizeToFitWidth(bool adjusts) { set(adjustsFontSizeToFitWidth_, adjusts); }
    /// Where a text that was made smaller stands.
    [[nodiscard]] UIBaselineAdjustment baselineAdjustment() const { return baselineAdjustment_; }
    void setBaselineAdjustment(UIBaselineAdjustment adjustment) { set(baselineAdjustment_, adjustment); }
    [[nodiscard]] const std::optional<UILabelShadow>& shadow() const { return shadow_; }
    void setShadow(std::optional<UILabelShadow> shadow) { set(shadow_, shadow); }

private:
    template <typename Value> void set(Value& field, Value value) {
        change(field, std::move(value), UIProperty::content);
    }

    std::string text_;
    UIFont font_;
    UIColor textColor_ = UIColor::blackColor();
    UITextAlignment textAlignment_ = UITextAlignment::left;
    int numberOfLines_ = 1;
    UILineBreakMode lineBreakMode_ = UILineBreakMode::truncatingTail;
    bool adjustsFontSizeToFitWidth_ = false;
    UIBaselineAdjustment baselineAdjustment_ = UIBaselineAdjustment::alignBaselines;
    std::optional<UILabelShadow> shadow_;
};

} // namespace zorel
