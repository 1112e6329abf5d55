// SPDX-License-Identifier: Apache-2.0
#include "platform/uikit/UIView.h"

#include <algorithm>
#include <array>

namespace zorel {

namespace {

/// Place and length of a view in one direction [pt].
struct Span {
    double origin;
    double length;
};

/// Lets the flexible ones of margin, length and margin share the superview's change.
Span resized(Span span, double oldLength, double newLength, std::array<bool, 3> flexible) {
    const std::array<double, 3> lengths{span.origin, span.length, oldLength - span.origin - span.length};
    std::array<double, 3> weights{};
    double total = 0.0;
    for (std::size_t part = 0; part < 3; ++part) {
        weights[part] = flexible[part] ? std::max(0.0, lengths[part]) : 0.0;
        total += weights[part];
    }
    if (!(total > 0.0)) {
        std::transform(flexible.begin(), flexible.end(), weights.begin(),
                       [](bool flex) { return flex ? 1.0 : 0.0; });
        total = std::max(1.0, weights[0] + weights[1] + weights[2]);
    }
    const double change = (newLength - oldLength) / total;
    return {span.origin + change * weights[0], std::max(0.0, span.length + change * weights[1])};
}

} // namespace

UIView::UIView(const CGRect& frame) : frame_(frame) {}

UIView::~UIView() {
    endLifetime();
    removeFromSuperview();
    removeAllSubviews();
    UIObserver::current().viewDestroyed(*this);
}

void UIView::setFrame(const CGRect& frame) {
    if (frame == frame_) {
        return;
    }
    const CGSize oldSize = frame_.size();
    frame_ = frame;
    UIObserver::current().viewChanged(*this, UIProperty::frame);
    if (oldSize != frame.size() && autoresizesSubviews_) {
        autoresizeSubviews(oldSize);
    }
}

void UIView::setCenter(CGPoint center) {
    const CGRect moved{center.x - frame_.width * 0.5, center.y - frame_.height * 0.5, frame_.width,
                       frame_.height};
    change(frame_, moved, UIProperty::frame);
}

void UIView::autoresizeSubviews(CGSize oldSize) {
    const CGSize newSize = frame_.size();
    for (std::size_t i = 0; i < subviews_.size(); ++i) {
        subviews_[i]->autoresize(oldSize, newSize);
    }
}

void UIView::autoresize(CGSize oldSize, CGSize newSize) {
    const auto flexible = [this](unsigned part) { return (autoresizingMask_ & part) != 0; };
    const Span across =
        resized({frame_.x, frame_.width}, oldSize.width, newSize.width,
                {flexible(UIViewAutoresizingFlexibleLeftMargin), flexible(UIViewAutoresizingFlexibleWidth),
                 flexible(UIViewAutoresizingFlexibleRightMargin)});
    const Span down =
        resized({frame_.y, frame_.height}, oldSize.height, newSize.height,
                {flexible(UIViewAutoresizingFlexibleTopMargin), flexible(UIViewAutoresizingFlexibleHeight),
                 flexible(UIViewAutoresizingFlexibleBottomMargin)});
    setFrame({across.origin, down.origin, across.length, down.length});
}

void UIView::addSubview(UIView& view) {
    if (isDescendantOfView(view)) {
        return;
    }
    view.removeFromSuperview();
    subviews_.push_back(&view);
    view.superview_ = this;
    UIObserver::current().viewAdded(*this, view);
}

void UIView::removeFromSuperview() {
    if (superview_ != nullptr) {
        superview_->detach(*this);
    }
}

void UIView::removeAllSubviews() {
    while (!subviews_.empty()) {
        detach(*subviews_.back());
    }
}

void UIView::detach(UIView& subview) {
    std::erase(subviews_, &subview);
    subview.superview_ = nullptr;
    UIObserver::current().viewRemoved(*this, subview);
}

bool UIView::isDescendantOfView(const UIView& view) const {
    const UIView* ancestor = this;
    while (ancestor != nullptr && ancestor != &view) {
        ancestor = ancestor->superview_;
    }
    return ancestor != nullptr;
}

UIView* UIView::viewWithTag(std::int32_t tag) {
    if (tag_ == tag) {
        return this;
    }
    for (UIView* subview : subviews_) {
        if (UIView* found = subview->viewWithTag(tag)) {
            return found;
        }
    }
    return nullptr;
}

} // namespace zorel
