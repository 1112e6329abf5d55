// SPDX-License-Identifier: Apache-2.0
/// @file
/// A button drawn with lines: an outline, a small figure in it, a caption, and a selected state that taps can
/// toggle.
#pragma once

#include "platform/uikit/UIControl.h"
#include "platform/uikit/UILabel.h"
#include "views/ButtonGlyphs.h"
#include "views/Settings.h"

#include <cstdint>
#include <memory>

namespace zorel {

class GlobalFuncs;
class UIButtonX;

class UIButtonXDelegate {
public:
    virtual ~UIButtonXDelegate() = default;
    /// A tap has been completed; the button has toggled itself before. May destroy the button.
    virtual void delegateUIButtonXTapped(UIButtonX& button) = 0;
};

/// Outlines of UIButtonX.
enum UIButtonXType : int {
    UIButtonXTypeNone = 0,
    UIButtonXTypeEllipse = 1,
    UIButtonXTypeCircle = 2,
    UIButtonXTypeRoundedRectangle = 3,
    UIButtonXTypeRectangle = 4
};

/// An arc of a circle, measured as by CGContext::addArc.
struct UIButtonXArc {
    CGPoint center;    ///< [pt]
    double radius;     ///< [pt]
    double startAngle; ///< [rad]
    double endAngle;   ///< [rad]
    bool clockwise;
};

/// The button. Drawing reads neither `isSelecting` nor `isShadow`: a pressed button looks like a released
/// one.
class UIButtonX : public UIControl {
public:
    /// The services and the settings of the caller are not used: initialize() puts the button's own in their
    /// place.
    UIButtonX(const CGRect& frame, const GlobalFuncs& glbFuncs, const Settings& glbSettings);
    ~UIButtonX() override;

    /// Brings the button into its first state: own services and settings, no outline, no figure, not
    /// selectable, an empty caption as large as the button.
    void initialize();

    void setDelegate(UIButtonXDelegate* delegate) { delegate_ = delegate; }
    [[nodiscard]] UIButtonXDelegate* delegate() const { return delegate_; }
    /// Setting the outline, the figure or whether the button is selectable does not redraw it.
    [[nodiscard]] int buttonType() const { return buttonType_; }
    void setButtonType(int type) { buttonType_ = type; }
    [[nodiscard]] int buttonShape() const { return buttonShape_; }
    void setButtonShape(int shape) { buttonShape_ = shape; }
    [[nodiscard]] bool selectable() const { return selectable_; }
    void setSelectable(bool selectable) { selectable_ = selectable; }
    [[nodiscard]] bool isShadow() const { return isShadow_; }
    void setIsShadow(bool shadow) { isShadow_ = shadow; }
    [[nodiscard]] std::int32_t tag2() const { return tag2_; } ///< a second tag for the owner
    void setTag2(std::int32_t tag) { tag2_ = tag; }
    [[nodiscard]] UILabel& text() const { return *text_; }
    /// Whether a finger is down inside the button.
    [[nodiscard]] bool isSelecting() const { return isSelecting_; }
    [[nodiscard]] const Settings& glbSettings() const { return *glbSettings_; }

    /// An arc about (10, 10) that the drawing does not use.
    [[nodiscard]] UIButtonXArc createArcPath() const;

    void setFrame(const CGRect& frame) override;
    void setEnabled(bool enabled) override;
    /// Ignored unless the button is selectable.
    void setSelected(bool selected) override;
    /// An exception of the drawing ends it and is logged in two lines.
    void drawRect(CGContext& context) override;
    void touchesBegan(const UITouch& touch) override;
    void touchesMoved(const UITouch& touch) override;
    void touchesEnded(const UITouch& touch) override;
    void touchesCancelled(const UITouch& touch) override;

private:
    void makeCaption();
    void setSelecting(bool selecting);
    void completeTap();
    [[nodiscard]] const UIColor& stateColor() const;
    [[nodiscard]] const UIColor& enabledColor() const;
    void drawOutline(CGContext& context);
    void drawGlyph(CGContext& context);
    void showCharacter(const char* character, double boxHeight);

    std::unique_ptr<GlobalFuncs> glbFuncs_;
    std::unique_ptr<Settings> glbSettings_;
    UIButtonXDelegate* delegate_ = nullptr;
    std::unique_ptr<UILabel> text_;
    int buttonType_ = UIButtonXTypeNone;
    int buttonShape_ = UIButtonXShapeNone;
    std::int32_t tag2_ = 0;
    bool isSelecting_ = false;
    bool selectable_ = false;
    bool isShadow_ = true;
};

} // namespace zorel
