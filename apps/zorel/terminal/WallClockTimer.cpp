// SPDX-License-Identifier: Apache-2.0
#include "terminal/WallClockTimer.h"

#include "terminal/CliError.h"

#include <array>
#include <cerrno>
#include <cstdint>

#include <poll.h>
#include <sys/timerfd.h>
#include <unistd.h>

namespace zorel::cli {

WallClockTimer::WallClockTimer() : descriptor_(timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC)) {
    if (descriptor_ < 0) {
        throw CliError(Exit::dataTrouble, tr("the system gives no timer"), tr("try again without --follow"));
    }
}

WallClockTimer::~WallClockTimer() {
    close(descriptor_);
}

Woken WallClockTimer::sleepUntil(std::chrono::sys_seconds instant, int output) const {
    itimerspec setting{};
    setting.it_value.tv_sec = instant.time_since_epoch().count();
    timerfd_settime(descriptor_, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &setting, nullptr);
    std::array<pollfd, 2> watched{{{descriptor_, POLLIN, 0}, {output, 0, 0}}};
    while (poll(watched.data(), watched.size(), -1) < 0 && errno == EINTR) {
    }
    if ((watched[1].revents & (POLLERR | POLLHUP)) != 0) {
        return Woken::readerGone;
    }
    std::uint64_t expirations = 0;
    const bool changed = read(descriptor_, &expirations, sizeof expirations) < 0 && errno == ECANCELED;
    return changed ? Woken::clockChanged : Woken::reached;
}

} // namespace zorel::cli
