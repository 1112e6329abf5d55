// SPDX-License-Identifier: Apache-2.0
#include "platform/uikit/RunLoop.h"

#include "platform/uikit/UIView.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zorel {

namespace {

constexpr double kLongest = 1e9; ///< [s], about 30 years

/// Sets a flag while it lives.
class Flag {
public:
    explicit Flag(bool& flag) : flag_(flag) { flag_ = true; }
    Flag(const Flag&) = delete;
    Flag& operator=(const Flag&) = delete;
    ~Flag() { flag_ = false; }

private:
    bool& flag_;
};

} // namespace

RunLoop& RunLoop::main() {
    // Never destroyed: views that live until the end of the process refer to it.
    static RunLoop* const loop = new RunLoop;
    return *loop;
}

std::int64_t RunLoop::microseconds(double seconds) {
    return seconds > 0.0 ? std::llround(std::min(seconds, kLongest) * 1e6) : 0;
}

void RunLoop::advance(double seconds) {
    if (advancing_) {
        return;
    }
    const Event event;
    {
        const Flag advancing(advancing_);
        const std::int64_t until = now_ + microseconds(seconds);
        while (runNext(until)) {
        }
        now_ = until;
    }
    showAnimatedViews();
    announced_.reset();
    announceWake();
}

bool RunLoop::later(const Waiting& one, const Waiting& other) {
    return std::pair(one.due, one.sequence) > std::pair(other.due, other.sequence);
}

bool RunLoop::runNext(std::int64_t until) {
    if (waiting_.empty() || waiting_.front().due > until) {
        return false;
    }
    std::pop_heap(waiting_.begin(), waiting_.end(), later);
    const Waiting next = std::move(waiting_.back());
    waiting_.pop_back();
    now_ = next.due;
    if (!next.target.expired()) {
        next.call();
    }
    return true;
}

std::optional<double> RunLoop::nextWake() const {
    if (!animated_.empty()) {
        return time();
    }
    if (!waiting_.empty()) {
        return static_cast<double>(waiting_.front().due) / 1e6;
    }
    return std::nullopt;
}

void RunLoop::performAfterDelay(const UIObject& target, double delay, std::function<void()> call) {
    if (!call) {
        return;
    }
    waiting_.push_back({now_ + microseconds(delay), sequence_++, target.lifetime(), std::move(call)});
    std::push_heap(waiting_.begin(), waiting_.end(), later);
    announceWake();
}

void RunLoop::animateView(UIView& view, std::int64_t duration) {
    const std::int64_t until = now_ + duration;
    const auto known = std::find_if(animated_.begin(), animated_.end(),
                                    [&view](const Animated& one) { return one.view.get() == &view; });
    if (known == animated_.end()) {
        animated_.push_back({UIWeak<UIView>(&view), until});
    } else {
        known->until = std::max(known->until, until);
    }
    announceWake();
}

void RunLoop::showAnimatedViews() {
    for (const Animated& one : std::vector<Animated>(animated_)) {
        if (UIView* view = one.view.get()) {
            UIObserver::current().viewChanged(*view, UIProperty::presentation);
        }
    }
    std::erase_if(animated_,
                  [this](const Animated& one) { return one.until <= now_ || one.view.get() == nullptr; });
}

void RunLoop::announceWake() {
    const auto wake = nextWake();
    if (advancing_ || !wake || wake == announced_) {
        return;
    }
    announced_ = wake;
    UIObserver::current().runLoopWantsWake(*wake);
}

void RunLoop::disposeLater(std::unique_ptr<UIObject> object) {
    if (object != nullptr) {
        disposed_.push_back(std::move(object));
    }
}

void RunLoop::drain() {
    while (!disposed_.empty()) {
        const auto going = std::exchange(disposed_, {});
    }
}

void RunLoop::reset() {
    waiting_.clear();
    animated_.clear();
    announced_.reset();
    drain();
}

RunLoop::Event::Event() {
    ++main().events_;
}

RunLoop::Event::~Event() {
    if (--main().events_ == 0) {
        main().drain();
    }
}

} // namespace zorel
