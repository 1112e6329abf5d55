// SPDX-License-Identifier: Apache-2.0
/// @file
/// One finger on the screen, and the way of its touches to the view under it.
#pragma once

#include "platform/uikit/UIView.h"

namespace zorel {

/// Where the finger is. Valid while the touch handler runs.
class UITouch {
public:
    /// @param root the view in whose coordinates the location is given
    UITouch(const UIView& root, CGPoint location) : root_(&root), location_(location) {}

    /// The location in the coordinates of a view below the root (or of the root itself).
    [[nodiscard]] CGPoint locationInView(const UIView& view) const {
        return view.convertPointFromView(location_, root_);
    }

private:
    const UIView* root_;
    CGPoint location_;
};

/// Carries the touches of one finger to the view that it first hit, until it is lifted. The root, the hit
/// view or any other view may be destroyed at any moment; the rest of the touch then goes nowhere. Points are
/// in the coordinates of the root.
class UITouchDispatcher {
public:
    explicit UITouchDispatcher(UIView& root) : root_(&root) {}

    /// Puts the finger down. @return whether a view took the touch
    bool began(CGPoint point);
    void moved(CGPoint point);
    void ended(CGPoint point);
    /// Takes the touch away from its view, as when a drag becomes a scroll.
    void cancelled();
    /// Down and up at one point. @return whether a view took the touch
    bool tap(CGPoint point);
    /// The view that has the touch, or nullptr.
    [[nodiscard]] UIView* target() const { return target_.get(); }

private:
    void send(void (UIView::*handler)(const UITouch&), CGPoint point);

    UIWeak<UIView> root_;
    UIWeak<UIView> target_;
    CGPoint last_;
};

} // namespace zorel
