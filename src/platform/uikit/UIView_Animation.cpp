// SPDX-License-Identifier: Apache-2.0
#include "platform/uikit/RunLoop.h"
#include "platform/uikit/UIView.h"

#include <algorithm>

namespace zorel {

/// The animation whose settings are being made; blocks nest.
struct UIView::AnimationBlock {
    AnimationBlock(std::int64_t delayTime, std::int64_t durationTime)
        : delay(delayTime), duration(durationTime), outer(block_) {
        block_ = this;
    }
    AnimationBlock(const AnimationBlock&) = delete;
    AnimationBlock& operator=(const AnimationBlock&) = delete;
    ~AnimationBlock() { block_ = outer; }

    std::int64_t delay;    ///< [us]
    std::int64_t duration; ///< [us]
    AnimationBlock* outer;
};

UIView::AnimationBlock* UIView::block_ = nullptr;

double easeInOut(double fraction) {
    const double t = std::clamp(fraction, 0.0, 1.0);
    return t * t * (3.0 - 2.0 * t);
}

void UIView::setAnimatable(Animatable& animatable, double value, UIProperty what) {
    const double from = visible(animatable);
    if (animatable.value == value && from == value) {
        return;
    }
    animatable.value = value;
    animatable.course.reset();
    if (block_ != nullptr && from != value) {
        RunLoop& loop = RunLoop::main();
        animatable.course = Course{from, loop.clock() + block_->delay, block_->duration};
        loop.animateView(*this, block_->delay + block_->duration);
    }
    UIObserver::current().viewChanged(*this, what);
}

double UIView::visible(const Animatable& animatable) {
    if (!animatable.course) {
        return animatable.value;
    }
    const Course& course = *animatable.course;
    const std::int64_t elapsed = RunLoop::main().clock() - course.start;
    if (elapsed >= course.duration) {
        return animatable.value;
    }
    const double done = easeInOut(static_cast<double>(elapsed) / static_cast<double>(course.duration));
    return course.from + (animatable.value - course.from) * done;
}

void UIView::animate(double duration, double delay, UIViewAnimationOptions /*options*/,
                     const std::function<void()>& animations, std::function<void()> completion) {
    const std::int64_t waits = RunLoop::microseconds(delay);
    const std::int64_t lasts = RunLoop::microseconds(duration);
    RunLoop::main().performAfterDelay(*this, static_cast<double>(waits + lasts) / 1e6, std::move(completion));
    const AnimationBlock block(waits, lasts);
    animations();
}

void UIView::performAfterDelay(double delay, std::function<void()> call) {
    RunLoop::main().performAfterDelay(*this, delay, std::move(call));
}

} // namespace zorel
