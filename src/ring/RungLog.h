// SPDX-License-Identifier: Apache-2.0
/// @file
/// What has rung, kept over the end of the program so that nothing rings twice.
#pragma once

#include "ring/Plan.h"

#include <string>
#include <system_error>
#include <vector>

namespace zorel::ring {

/// A ring that a person put off.
struct Snoozed {
    Ring ring;
    Instant until;
};

/// A small file. Each change is on the disk before anything rings, so that a process that dies while it rings
/// does not ring again when it is started anew: an alarm is told at most once.
class RungLog {
public:
    /// Reads the file. Without one, or where it is no such file, nothing has rung.
    explicit RungLog(std::string path);

    /// Whether this ringing of this prayer was told before.
    [[nodiscard]] bool has(const Ring& ring) const;
    /// Notes that it is told now. Older entries go once there are more than kKept.
    [[nodiscard]] std::error_code add(const Ring& ring);

    [[nodiscard]] const std::vector<Snoozed>& snoozed() const { return snoozed_; }
    /// Puts a ring off; a second time for the same prayer replaces the first.
    [[nodiscard]] std::error_code snooze(const Ring& ring, Instant until);
    /// Forgets what was put off for a prayer.
    [[nodiscard]] std::error_code forgetSnooze(const std::string& prayer);

    static constexpr std::size_t kKept = 32;

private:
    struct Told {
        std::string prayer;
        Instant at;
        friend bool operator==(const Told&, const Told&) = default;
    };

    void read();
    void takeLine(std::string_view line);
    [[nodiscard]] std::error_code write() const;

    std::string path_;
    std::vector<Told> told_; ///< oldest first
    std::vector<Snoozed> snoozed_;
};

} // namespace zorel::ring
