// SPDX-License-Identifier: Apache-2.0
#include "print/StatusLine.h"

#include <algorithm>

namespace zorel::cli {

using almanac::Instant;

Instant earliestAfter(Instant instant, std::initializer_list<Instant> candidates) {
    Instant earliest = instant + std::chrono::hours(24);
    for (const Instant candidate : candidates) {
        if (candidate > instant) {
            earliest = std::min(earliest, candidate);
        }
    }
    return earliest;
}

Instant nextMidnight(const almanac::PlaceClock& clock, Instant instant) {
    return clock.instantOf(almanac::addDays(clock.dateAt(instant), 1), std::chrono::seconds(0));
}

Instant nextMinute(Instant instant) {
    return std::chrono::floor<std::chrono::minutes>(instant) + std::chrono::minutes(1);
}

} // namespace zorel::cli
