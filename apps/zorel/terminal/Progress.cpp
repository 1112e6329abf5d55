// SPDX-License-Identifier: Apache-2.0
#include "terminal/Progress.h"

#include "words/Tr.h"

#include <fmt/format.h>

#include <algorithm>

namespace zorel::cli {

namespace {
using std::chrono::milliseconds;
constexpr milliseconds kFirstOnTerminal(500);
constexpr milliseconds kStepOnTerminal(200);
constexpr milliseconds kStepElsewhere(10'000);
constexpr int kBarWidth = 30;

std::string bar(double part) {
    const int filled = static_cast<int>(std::clamp(part, 0.0, 1.0) * kBarWidth);
    return fmt::format("[{:#<{}}{:.<{}}]", "", filled, "", kBarWidth - filled);
}
} // namespace

Progress::Progress(std::ostream& err, bool terminal, std::int64_t total, Unit unit)
    : err_(err), terminal_(terminal), total_(std::max<std::int64_t>(total, 1)), unit_(unit),
      start_(Clock::now()), nextLine_(start_ + (terminal ? kFirstOnTerminal : kStepElsewhere)) {}

void Progress::update(std::int64_t done, const std::string& detail) {
    const auto time = Clock::now();
    if (time < nextLine_) {
        return;
    }
    nextLine_ = time + (terminal_ ? kStepOnTerminal : kStepElsewhere);
    shown_ = true;
    const double part = static_cast<double>(done) / static_cast<double>(total_);
    const double seconds = std::chrono::duration<double>(time - start_).count();
    const std::string line =
        fmt::format("{} {}{}{}", bar(part), steps(done, static_cast<double>(done) / seconds),
                    detail.empty() ? "" : ", ", detail);
    err_ << (terminal_ ? "\r\x1b[K" : "") << line << (terminal_ ? "" : "\n") << std::flush;
}

std::string Progress::steps(std::int64_t done, double perSecond) const {
    const auto total = static_cast<unsigned long long>(total_);
    // translators: {0} is how many there are, {1} how many are done
    return unit_ == Unit::days ? trPlural("{1} of {0} day, {2:.0f} per second",
                                          "{1} of {0} days, {2:.0f} per second", total, done, perSecond)
                               : trPlural("{1} of {0} place, {2:.0f} per second",
                                          "{1} of {0} places, {2:.0f} per second", total, done, perSecond);
}

void Progress::finish() {
    if (shown_ && terminal_) {
        err_ << "\r\x1b[K" << std::flush;
    }
}

} // namespace zorel::cli
