// SPDX-License-Identifier: Apache-2.0
#include "platform/uikit/UIView.h"

namespace zorel {

namespace {

constexpr double kLeastTouchableAlpha = 0.01;

} // namespace

UIView* UIView::hitTest(CGPoint point) {
    if (hidden_ || !userInteractionEnabled_ || alpha() < kLeastTouchableAlpha || !pointInside(point)) {
        return nullptr;
    }
    for (auto front = subviews_.rbegin(); front != subviews_.rend(); ++front) {
        if (UIView* hit = (*front)->hitTest((*front)->pointFromSuperview(point))) {
            return hit;
        }
    }
    return this;
}

CGPoint UIView::pointFromSuperview(CGPoint point) const {
    return {(point.x - frame_.midX()) / scale() + frame_.width * 0.5,
            (point.y - frame_.midY()) / scale() + frame_.height * 0.5};
}

CGPoint UIView::pointToSuperview(CGPoint point) const {
    return {(point.x - frame_.width * 0.5) * scale() + frame_.midX(),
            (point.y - frame_.height * 0.5) * scale() + frame_.midY()};
}

CGPoint UIView::convertPointFromView(CGPoint point, const UIView* ancestor) const {
    if (this == ancestor) {
        return point;
    }
    return pointFromSuperview(superview_ != nullptr ? superview_->convertPointFromView(point, ancestor)
                                                    : point);
}

} // namespace zorel
