// SPDX-License-Identifier: Apache-2.0
/// @file
/// Sleep until an instant of the wall clock.
#pragma once

#include <chrono>

namespace zorel::cli {

enum class Woken {
    reached,      ///< the instant has come
    clockChanged, ///< somebody set the clock, or the machine slept
    readerGone,   ///< nobody reads the output any more
};

/// A timer on the wall clock that notices when the clock is set. Uses no processor time while it sleeps.
class WallClockTimer {
public:
    /// @throws CliError (data trouble) when the system gives no timer.
    WallClockTimer();
    WallClockTimer(const WallClockTimer&) = delete;
    WallClockTimer& operator=(const WallClockTimer&) = delete;
    ~WallClockTimer();

    /// @param output descriptor whose reader is watched; -1: none.
    [[nodiscard]] Woken sleepUntil(std::chrono::sys_seconds instant, int output) const;

private:
    int descriptor_;
};

} // namespace zorel::cli
