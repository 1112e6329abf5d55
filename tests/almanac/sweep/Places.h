// SPDX-License-Identifier: Apache-2.0
/// @file
/// The places that a sweep goes over.
#pragma once

#include "almanac/Place.h"

#include <string>
#include <vector>

namespace zorel::almanac::tests {

struct SweptPlace {
    Place place;
    std::string zone{}; ///< IANA name; empty: the clock stands at `offset`
    ClockRule rule{};   ///< the catalogue's
    std::chrono::seconds offset{0};
};

/// The place of most inhabitants in each of the catalogue's zones, with the clock that the catalogue gives
/// it.
[[nodiscard]] std::vector<SweptPlace> largestPlaces();
/// Places by latitude, in steps [deg], from -88 to 88, all around the Earth and of both classes of temkin;
/// clocks within two hours of the meridian.
[[nodiscard]] std::vector<SweptPlace> latitudeGrid(double step);

} // namespace zorel::almanac::tests
