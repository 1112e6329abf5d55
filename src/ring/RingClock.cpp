// SPDX-License-Identifier: Apache-2.0
#include "ring/RingClock.h"

#include <cerrno>
#include <cstdint>
#include <sys/timerfd.h>
#include <system_error>

namespace zorel::ring {
namespace {

/// A timer that is not set never says that the clock was; an instant that never comes does.
constexpr time_t kNever = time_t{1} << 33; // the year 2242

void setTimer(int timer, time_t seconds, int flags) {
    itimerspec setting{};
    setting.it_value.tv_sec = seconds;
    if (timerfd_settime(timer, flags, &setting, nullptr) != 0) {
        throw std::system_error(errno, std::generic_category(), "timerfd_settime");
    }
}

} // namespace

SystemClock::SystemClock()
    : timer_(timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC | TFD_NONBLOCK)),
      waker_(timerfd_create(CLOCK_REALTIME_ALARM, TFD_CLOEXEC | TFD_NONBLOCK)) {
    if (timer_.get() < 0) {
        throw std::system_error(errno, std::generic_category(), "timerfd_create");
    }
    wait(std::nullopt);
}

Instant SystemClock::now() const {
    return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
}

Tick SystemClock::take() {
    std::uint64_t expirations = 0;
    const bool isSet = read(timer_.get(), &expirations, sizeof expirations) < 0 && errno == ECANCELED;
    return isSet ? Tick::clockIsSet : Tick::due;
}

void SystemClock::wait(std::optional<Instant> until) {
    const time_t instant = until ? until->time_since_epoch().count() : kNever;
    setTimer(timer_.get(), instant, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET);
    if (wakes()) {
        // Nobody reads this one: that it expires is enough to wake the machine. Zero switches it off.
        setTimer(waker_.get(), until ? instant - kAhead.count() : 0, TFD_TIMER_ABSTIME);
    }
}

} // namespace zorel::ring
