// SPDX-License-Identifier: Apache-2.0
/// @file
/// The main thread's run loop: a clock that the host (or a test) moves, the calls that wait for it, the views
/// that are being animated, and the objects whose destruction waits for the end of the running event.
///
/// The clock counts whole microseconds, so that 0.4 s and another 0.2 s are 0.6 s exactly. Calls run in the
/// order of their times, those of one time in the order in which they were asked for, each with the clock
/// standing at its own time; a call that asks for another one which falls due within the same move is served
/// in that move.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/uikit/UIObject.h"

namespace zorel {

class UIView;

class RunLoop {
public:
    /// The one of the process.
    [[nodiscard]] static RunLoop& main();

    /// Time since the program began [s].
    [[nodiscard]] double time() const { return static_cast<double>(now_) / 1e6; }
    /// The same in whole microseconds.
    [[nodiscard]] std::int64_t clock() const { return now_; }
    /// A length of time [s] in whole microseconds; negative or not a number is 0, more than 30 years is 30
    /// years.
    [[nodiscard]] static std::int64_t microseconds(double seconds);
    /// Moves the clock forward [s] and runs what falls due; 0 runs what is due now. Negative or not a number
    /// is 0. A call from inside one of the loop's own calls does nothing.
    void advance(double seconds);
    /// Moves the clock to a time [s] not before the present one.
    void advanceTo(double time) { advance(time - this->time()); }
    /// When the clock has to be moved next [s]: now while a view is being animated, otherwise at the next
    /// waiting call; nothing when all is at rest.
    [[nodiscard]] std::optional<double> nextWake() const;

    /// Runs `call` after a delay [s, not negative], unless `target` has been destroyed by then.
    void performAfterDelay(const UIObject& target, double delay, std::function<void()> call);
    /// Keeps the observer informed of the view's visible values for a while [us].
    void animateView(UIView& view, std::int64_t duration);

    /// Keeps an object until the outermost running event has ended, or, outside of any event, until the next
    /// event or move of the clock.
    void disposeLater(std::unique_ptr<UIObject> object);
    /// Forgets waiting calls and animations and disposes of what waits: for tests.
    void reset();

    /// While one lives, an event (a touch, a selected row, a flipped switch, a move of the clock) is being
    /// handled.
    class Event {
    public:
        Event();
        Event(const Event&) = delete;
        Event& operator=(const Event&) = delete;
        ~Event();
    };

private:
    struct Waiting {
        std::int64_t due;      ///< [us]
        std::int64_t sequence; ///< order of asking
        std::weak_ptr<const void> target;
        std::function<void()> call;
    };
    struct Animated {
        UIWeak<UIView> view;
        std::int64_t until; ///< [us]
    };

    RunLoop() = default;
    [[nodiscard]] static bool later(const Waiting& one, const Waiting& other);
    [[nodiscard]] bool runNext(std::int64_t until);
    void showAnimatedViews();
    void announceWake();
    void drain();

    std::int64_t now_ = 0; ///< [us]
    std::int64_t sequence_ = 0;
    int events_ = 0;
    bool advancing_ = false;
    std::optional<double> announced_;
    std::vector<Waiting> waiting_; ///< a heap, the next call in front
    std::vector<Animated> animated_;
    std::vector<std::unique_ptr<UIObject>> disposed_;
};

} // namespace zorel
