// SPDX-License-Identifier: Apache-2.0
/// @file
/// A line that a status bar shows, and when it has to be made again.
#pragma once

#include "almanac/PlaceClock.h"

#include <initializer_list>
#include <string>

namespace zorel::cli {

struct StatusLine {
    std::string line;              ///< without a line feed
    almanac::Instant nextChange{}; ///< the first later instant at which the line may be another one
};

/// The earliest of the candidates that lie after an instant; a day after it when there is none.
[[nodiscard]] almanac::Instant earliestAfter(almanac::Instant instant,
                                             std::initializer_list<almanac::Instant> candidates);
/// The next 0:00 by a clock.
[[nodiscard]] almanac::Instant nextMidnight(const almanac::PlaceClock& clock, almanac::Instant instant);
/// The next whole minute of universal time.
[[nodiscard]] almanac::Instant nextMinute(almanac::Instant instant);

} // namespace zorel::cli
