// SPDX-License-Identifier: Apache-2.0
#include "platform/uikit/UITouch.h"

#include "platform/uikit/RunLoop.h"

namespace zorel {

bool UITouchDispatcher::began(CGPoint point) {
    cancelled();
    UIView* root = root_.get();
    UIView* hit = root != nullptr ? root->hitTest(point) : nullptr;
    target_ = UIWeak<UIView>(hit);
    send(&UIView::touchesBegan, point);
    return hit != nullptr;
}

void UITouchDispatcher::moved(CGPoint point) {
    send(&UIView::touchesMoved, point);
}

void UITouchDispatcher::ended(CGPoint point) {
    send(&UIView::touchesEnded, point);
    target_ = {};
}

void UITouchDispatcher::cancelled() {
    send(&UIView::touchesCancelled, last_);
    target_ = {};
}

bool UITouchDispatcher::tap(CGPoint point) {
    const bool taken = began(point);
    ended(point);
    return taken;
}

void UITouchDispatcher::send(void (UIView::*handler)(const UITouch&), CGPoint point) {
    last_ = point;
    const UIView* root = root_.get();
    UIView* target = target_.get();
    if (root == nullptr || target == nullptr) {
        return;
    }
    const RunLoop::Event event;
    (target->*handler)(UITouch(*root, point));
}

} // namespace zorel
