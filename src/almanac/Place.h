// SPDX-License-Identifier: Apache-2.0
/// @file
/// A place whose times can be told.
#pragma once

#include "almanac/PlaceClock.h"

#include <string>

namespace zorel::almanac {

/// Which table of precaution intervals counts: for surroundings up to that height.
enum class Temkin : std::uint8_t { upTo250m, upTo500m };

/// A value; what cannot be computed with (not finite, beyond the poles) gives days without times.
struct Place {
    std::string name;       ///< as shown; may be empty
    double latitude = 0.0;  ///< [deg] north positive, -90 to 90
    double longitude = 0.0; ///< [deg] east positive, -180 to 180
    Temkin temkin = Temkin::upTo250m;
    double height = 0.0; ///< above the sea [m]; 0 when unknown. Counts for the magnetic declination only
    PlaceClock clock;
};

} // namespace zorel::almanac
