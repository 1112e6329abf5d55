// SPDX-License-Identifier: Apache-2.0
/// @file
/// What can be computed with.
#pragma once

#include "almanac/Place.h"

#include <cmath>

namespace zorel::almanac {

/// A place on the Earth.
[[nodiscard]] inline bool isOnEarth(const Place& place) {
    return std::fabs(place.latitude) <= 90.0 && std::fabs(place.longitude) <= 180.0;
}

} // namespace zorel::almanac
