// SPDX-License-Identifier: Apache-2.0
/// @file
/// A line on the error stream that says how far long work has come.
#pragma once

#include <chrono>
#include <cstdint>
#include <ostream>
#include <string>

namespace zorel::cli {

/// On a terminal one line that is written over and over, from half a second on; elsewhere a line every ten
/// seconds. Work that is done sooner shows nothing.
class Progress {
public:
    enum class Unit { days, places };
    /// @param total units of the whole work.
    Progress(std::ostream& err, bool terminal, std::int64_t total, Unit unit);

    /// @param detail said at the end of the line ("last id 745044").
    void update(std::int64_t done, const std::string& detail = {});
    /// Wipes the line from a terminal.
    void finish();

private:
    using Clock = std::chrono::steady_clock;

    /// "30 of 365 days, 100 per second".
    [[nodiscard]] std::string steps(std::int64_t done, double perSecond) const;

    std::ostream& err_;
    bool terminal_;
    std::int64_t total_;
    Unit unit_;
    Clock::time_point start_;
    Clock::time_point nextLine_;
    bool shown_ = false;
};

} // namespace zorel::cli
