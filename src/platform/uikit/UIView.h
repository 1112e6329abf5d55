// SPDX-License-Identifier: Apache-2.0
/// @file
/// A view: a rectangle of the screen that draws itself, holds other views and takes touches.
///
/// A view refers to its subviews; whoever made them keeps them. A view that is destroyed leaves its superview
/// and lets its subviews go. Left out: layers, constraints, gesture recognisers, more than one touch,
/// transforms other than a uniform scale about the centre.
#pragma once

#include "platform/coregraphics/CGContext.h"
#include "platform/coregraphics/CGGeometry.h"
#include "platform/coregraphics/UIColor.h"
#include "platform/uikit/UIObject.h"
#include "platform/uikit/UIObserver.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zorel {

class UITouch;

/// Which parts of its superview's width and height a view takes along when that size changes; a sum of these.
enum UIViewAutoresizing : unsigned {
    UIViewAutoresizingNone = 0,
    UIViewAutoresizingFlexibleLeftMargin = 1,
    UIViewAutoresizingFlexibleWidth = 2,
    UIViewAutoresizingFlexibleRightMargin = 4,
    UIViewAutoresizingFlexibleTopMargin = 8,
    UIViewAutoresizingFlexibleHeight = 16,
    UIViewAutoresizingFlexibleBottomMargin = 32
};

/// How a host shows a view: `plain` ones (drawn controls too) by calling drawRect, the others in a native
/// way.
enum class UIViewKind { plain, label, switchControl, picker, searchBar, table, cell };

enum class UIViewAnimationOptions { none, allowUserInteraction };

/// The course of every animation: the share of the change [0 to 1] that is done after a share of the time [0
/// to 1], slow at both ends and even about the middle (3t^2 - 2t^3).
[[nodiscard]] double easeInOut(double fraction);

class UIView : public UIObject {
public:
    UIView() = default;
    explicit UIView(const CGRect& frame);
    ~UIView() override;

    [[nodiscard]] virtual UIViewKind kind() const { return UIViewKind::plain; }

    // Place and size (UIView.cpp).

    /// The rectangle in the superview, before the scale. Setting it keeps the scale and autoresizes the
    /// subviews.
    [[nodiscard]] const CGRect& frame() const { return frame_; }
    virtual void setFrame(const CGRect& frame);
    /// The view's own rectangle; its origin is always (0, 0).
    [[nodiscard]] CGRect bounds() const { return {0.0, 0.0, frame_.width, frame_.height}; }
    [[nodiscard]] CGPoint center() const { return {frame_.midX(), frame_.midY()}; }
    void setCenter(CGPoint center);
    /// A sum of UIViewAutoresizing values. In each direction the flexible parts (margin, size, margin) share
    /// the change of the superview in proportion to their lengths, equally when all of these are 0.
    [[nodiscard]] unsigned autoresizingMask() const { return autoresizingMask_; }
    void setAutoresizingMask(unsigned mask) { autoresizingMask_ = mask; }
    /// Whether a change of size is passed on to the subviews.
    [[nodiscard]] bool autoresizesSubviews() const { return autoresizesSubviews_; }
    void setAutoresizesSubviews(bool resizes) { autoresizesSubviews_ = resizes; }

    // The tree (UIView.cpp).

    [[nodiscard]] UIView* superview() const { return superview_; }
    /// Back to front.
    [[nodiscard]] const std::vector<UIView*>& subviews() const { return subviews_; }
    /// Puts the view in front of the other subviews, taking it from its former superview. Adding a view to
    /// itself or to one of its own descendants does nothing.
    void addSubview(UIView& view);
    void removeFromSuperview();
    void removeAllSubviews();
    [[nodiscard]] bool isDescendantOfView(const UIView& view) const;
    /// This view or the first descendant, depth first, with the tag.
    [[nodiscard]] UIView* viewWithTag(std::int32_t tag);
    [[nodiscard]] std::int32_t tag() const { return tag_; }
    void setTag(std::int32_t tag) { tag_ = tag; }

    // Look.

    [[nodiscard]] const UIColor& backgroundColor() const { return backgroundColor_; }
    void setBackgroundColor(const UIColor& color) {
        change(backgroundColor_, color, UIProperty::backgroundColor);
    }
    [[nodiscard]] double cornerRadius() const { return cornerRadius_; } ///< [pt]
    void setCornerRadius(double radius) { change(cornerRadius_, radius, UIProperty::backgroundColor); }
    [[nodiscard]] bool isHidden() const { return hidden_; }
    void setHidden(bool hidden) { change(hidden_, hidden, UIProperty::hidden); }
    /// What a screen reader says for the view; "" leaves it to the view's texts.
    [[nodiscard]] const std::string& accessibilityLabel() const { return accessibilityLabel_; }
    void setAccessibilityLabel(std::string label) {
        change(accessibilityLabel_, std::move(label), UIProperty::content);
    }
    /// Draws the view's own content in its bounds, above the background and below the subviews.
    virtual void drawRect(CGContext& /*context*/) {}
    void setNeedsDisplay() { UIObserver::current().viewNeedsDisplay(*this); }

    // Opacity, scale and their animation (UIView_Animation.cpp).

    /// Opacity 0 to 1 as last set; an animation's goal from its first moment on.
    [[nodiscard]] double alpha() const { return alpha_.value; }
    /// Sets the opacity, at once or, inside the block of animate, in the course of that animation.
    void setAlpha(double alpha) { setAnimatable(alpha_, alpha, UIProperty::alpha); }
    /// Uniform scale about the centre as last set; 1 is the identity transform.
    [[nodiscard]] double scale() const { return scale_.value; }
    void setScale(double scale) { setAnimatable(scale_, scale, UIProperty::transform); }
    /// The opacity to be seen at the run loop's present time.
    [[nodiscard]] double presentationAlpha() const { return visible(alpha_); }
    /// The scale to be seen at the run loop's present time.
    [[nodiscard]] double presentationScale() const { return visible(scale_); }
    /// Runs `animations` at once; every opacity and scale that it sets (of any view) moves there from its
    /// visible value in `duration` [s] after `delay` [s]. `completion` runs at the end of that time, also if
    /// another animation or setting has taken the values over; not if this view has been destroyed by then.
    void animate(double duration, double delay, UIViewAnimationOptions options,
                 const std::function<void()>& animations, std::function<void()> completion = {});
    void animate(double duration, const std::function<void()>& animations,
                 std::function<void()> completion = {}) {
        animate(duration, 0.0, UIViewAnimationOptions::none, animations, std::move(completion));
    }
    /// Runs the call after a delay [s], unless this view has been destroyed by then.
    void performAfterDelay(double delay, std::function<void()> call);

    // Touches (UIView_Touches.cpp).

    [[nodiscard]] bool isUserInteractionEnabled() const { return userInteractionEnabled_; }
    void setUserInteractionEnabled(bool enabled) {
        change(userInteractionEnabled_, enabled, UIProperty::interaction);
    }
    /// Whether the point, in this view's coordinates, lies in its bounds.
    [[nodiscard]] bool pointInside(CGPoint point) const { return bounds().contains(point); }
    /// The frontmost descendant (or this view) that takes a touch at the point, in this view's coordinates.
    /// Hidden views, those without user interaction and those of an opacity below 0.01 take none, nor do
    /// their subviews.
    [[nodiscard]] virtual UIView* hitTest(CGPoint point);
    /// A point of the superview in this view's coordinates and the reverse, the scale included.
    [[nodiscard]] CGPoint pointFromSuperview(CGPoint point) const;
    [[nodiscard]] CGPoint pointToSuperview(CGPoint point) const;
    /// A point of another view (an ancestor, or nullptr for the top of the tree) in this view's coordinates.
    [[nodiscard]] CGPoint convertPointFromView(CGPoint point, const UIView* ancestor) const;

    virtual void touchesBegan(const UITouch& /*touch*/) {}
    virtual void touchesMoved(const UITouch& /*touch*/) {}
    virtual void touchesEnded(const UITouch& /*touch*/) {}
    virtual void touchesCancelled(const UITouch& /*touch*/) {}

protected:
    /// Sets a field and tells the observer, if the value is a new one.
    template <typename Value> void change(Value& field, Value value, UIProperty what) {
        if (field == value) {
            return;
        }
        field = std::move(value);
        UIObserver::current().viewChanged(*this, what);
    }

private:
    struct Course {
        double from = 0.0;
        std::int64_t start = 0;    ///< [us] of the run loop's clock
        std::int64_t duration = 0; ///< [us]
    };
    struct AnimationBlock;
    struct Animatable {
        double value = 1.0;
        std::optional<Course> course;
    };

    void setAnimatable(Animatable& animatable, double value, UIProperty what);
    [[nodiscard]] static double visible(const Animatable& animatable);
    void autoresizeSubviews(CGSize oldSize);
    void autoresize(CGSize oldSize, CGSize newSize);
    void detach(UIView& subview);

    static AnimationBlock* block_; ///< the one whose settings are being made
    CGRect frame_;
    UIView* superview_ = nullptr;
    std::vector<UIView*> subviews_;
    UIColor backgroundColor_;
    Animatable alpha_;
    Animatable scale_;
    double cornerRadius_ = 0.0;
    std::string accessibilityLabel_;
    std::int32_t tag_ = 0;
    unsigned autoresizingMask_ = UIViewAutoresizingNone;
    bool autoresizesSubviews_ = true;
    bool hidden_ = false;
    bool userInteractionEnabled_ = true;
};

} // namespace zorel
