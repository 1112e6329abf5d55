// SPDX-License-Identifier: Apache-2.0
/// @file
/// The wall clock that the ring service waits on. Tests have one of their own and set it.
#pragma once

#include "platform/foundation/Descriptor.h"
#include "ring/Plan.h"

#include <chrono>
#include <optional>

namespace zorel::ring {

/// What a wait ended with.
enum class Tick {
    due,        ///< the instant has come
    clockIsSet, ///< somebody set the clock, or the machine slept: the instant may be passed or far away
};

class RingClock {
public:
    RingClock() = default;
    RingClock(const RingClock&) = delete;
    RingClock& operator=(const RingClock&) = delete;
    virtual ~RingClock() = default;

    /// The present, rounded down to whole seconds.
    [[nodiscard]] virtual Instant now() const = 0;
    /// Becomes readable when there is a tick.
    [[nodiscard]] virtual int descriptor() const = 0;
    /// Takes the tick that made the descriptor readable.
    [[nodiscard]] virtual Tick take() = 0;
    /// Waits for this instant instead of the one before; nothing: only for changes of the clock.
    virtual void wait(std::optional<Instant> until) = 0;
    /// Whether a machine that sleeps is woken for an instant that is waited for.
    [[nodiscard]] virtual bool wakes() const = 0;
};

/// The clock of the system. A timer on the wall clock ends the wait to the millisecond, and at once when the
/// clock is set or the machine has slept. Where the process may (CAP_WAKE_ALARM), a second timer wakes a
/// sleeping machine kAhead before, so that it is up in time; without, the first is all there is. Whether the
/// machine has a real-time clock that can wake it is not looked at.
class SystemClock final : public RingClock {
public:
    static constexpr std::chrono::seconds kAhead{10};

    /// @throws std::system_error when the system gives no timer.
    SystemClock();

    [[nodiscard]] Instant now() const override;
    [[nodiscard]] int descriptor() const override { return timer_.get(); }
    [[nodiscard]] Tick take() override;
    void wait(std::optional<Instant> until) override;
    [[nodiscard]] bool wakes() const override { return waker_.get() >= 0; }

private:
    Descriptor timer_;
    Descriptor waker_;
};

} // namespace zorel::ring
