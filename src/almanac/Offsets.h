// SPDX-License-Identifier: Apache-2.0
/// @file
/// The offset of a clock from universal time as a course of stretches, whatever the course is made from.
#pragma once

#include "almanac/PlaceClock.h"

#include <limits>
#include <memory>
#include <vector>

namespace zorel::almanac {

/// Before and after all instants that are asked for.
inline constexpr Instant kEarliest{std::chrono::seconds(std::numeric_limits<std::int64_t>::min() / 8)};
inline constexpr Instant kLatest{std::chrono::seconds(std::numeric_limits<std::int64_t>::max() / 8)};

/// A span of time with one offset; the neighbouring one may have the same.
struct Stretch {
    Instant from;
    Instant to; ///< the first instant after it
    std::chrono::seconds offset;
};

class Offsets {
public:
    Offsets() = default;
    Offsets(const Offsets&) = delete;
    Offsets& operator=(const Offsets&) = delete;
    virtual ~Offsets() = default;

    /// The stretch that an instant lies in. Safe among threads.
    [[nodiscard]] virtual Stretch at(Instant instant) const = 0;
};

/// Always the same.
class FixedOffset : public Offsets {
public:
    explicit FixedOffset(std::chrono::seconds offset) : offset_(offset) {}
    [[nodiscard]] Stretch at(Instant /*instant*/) const override { return {kEarliest, kLatest, offset_}; }

private:
    std::chrono::seconds offset_;
};

/// What the catalogue's rule says of a day.
[[nodiscard]] std::chrono::seconds ruleOffsetOn(const ClockRule& rule, Date date);

/// The rule by instants: its days begin at 0:00 standard time.
class RuleOffsets : public Offsets {
public:
    explicit RuleOffsets(const ClockRule& rule);
    [[nodiscard]] Stretch at(Instant instant) const override;

private:
    ClockRule rule_;
    std::chrono::seconds standard_;
};

/// What the C library says for the zone that the process is in: for the forms of TZ that only it reads. It
/// follows the process when TZ changes.
class ProcessOffsets : public Offsets {
public:
    ProcessOffsets();
    [[nodiscard]] Stretch at(Instant instant) const override;
};

/// The instant of a wall-clock time: of two the first; one that the clock skips moved forward by the gap.
[[nodiscard]] Instant instantOf(const Offsets& offsets, Date date, std::chrono::seconds timeOfDay);
/// At local noon of a date.
[[nodiscard]] std::chrono::seconds offsetOn(const Offsets& offsets, Date date);

} // namespace zorel::almanac
