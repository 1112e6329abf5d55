// SPDX-License-Identifier: Apache-2.0
#include "tools/build-catalogue/Progress.h"

#include <cstdio>
#include <fmt/format.h>
#include <unistd.h>

namespace zorel::catalogue {

Progress::Progress(bool quiet) : quiet_(quiet), terminal_(isatty(STDERR_FILENO) == 1) {}

void Progress::draw(std::string_view text, bool last) const {
    if (quiet_) {
        return;
    }
    constexpr const char* kRedraw = "\r\033[K";
    fmt::print(stderr, "{}{}{}", terminal_ ? kRedraw : "", text, terminal_ && !last ? "" : "\n");
    std::fflush(stderr);
}

void Progress::step(std::string_view name) {
    step_ = name;
    percent_ = 0;
    draw(step_, false);
}

void Progress::advance(std::size_t done, std::size_t all) {
    const std::size_t percent = all == 0 ? 100 : done * 100 / all;
    if (terminal_ && percent != percent_) {
        draw(fmt::format("{} {}%", step_, percent), false);
    }
    percent_ = percent;
}

void Progress::finish(std::string_view summary) {
    draw(summary, true);
}

} // namespace zorel::catalogue
