// SPDX-License-Identifier: Apache-2.0
/// @file
/// A date as a span of time by the clock of a place, and events told by that clock.
#pragma once

#include "almanac/PlaceClock.h"
#include "almanac/Sky.h"

namespace zorel::almanac {

/// From 0:00 of a date to 0:00 of the next: 23 or 25 hours where the clock changes, none at all where the
/// date was left out.
struct CivilDay {
    Instant begin{};
    Instant end{}; ///< lies outside

    CivilDay(const PlaceClock& clock, Date date);
    [[nodiscard]] double hours() const;
};

/// An instant to the nearest minute of the local clock (half a minute goes up), told by the offset then in
/// force.
[[nodiscard]] SkyEvent toldByMinute(const PlaceClock& clock, ExactInstant exact);

/// A number of hours after an instant, to the nearest millisecond.
[[nodiscard]] ExactInstant hoursAfter(Instant instant, double hours);

} // namespace zorel::almanac
