// SPDX-License-Identifier: Apache-2.0
/// @file
/// The square degrees of the globe, numbered, so that what lies near a point is found by a range of numbers.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace zorel {

/// Square degrees between two circles of latitude one degree apart.
inline constexpr std::int32_t kSquareDegreesOfBand = 360;

/// @param latitude [deg], north positive
/// @return the band that the latitude lies in: 0 from the south pole on, 179 up to the north pole; what lies
///     beyond a pole counts to the band at the pole
[[nodiscard]] inline std::int32_t latitudeBand(double latitude) {
    return static_cast<std::int32_t>(std::clamp(std::floor(latitude + 90.0), 0.0, 179.0));
}

/// @param longitude [deg], east positive; may lie beyond 180 on either side
/// @return the place of its square in a band, counted eastwards from 180 W: 0 to 359
[[nodiscard]] inline std::int32_t positionInBand(double longitude) {
    const double east = std::floor(longitude + 180.0);
    return static_cast<std::int32_t>(east - 360.0 * std::floor(east / 360.0));
}

/// @param latitude [deg], north positive
/// @param longitude [deg], east positive
/// @return the number of the square degree that the point lies in, counted from 90 S 180 W eastwards, then
///     northwards
[[nodiscard]] inline std::int32_t squareDegree(double latitude, double longitude) {
    return latitudeBand(latitude) * kSquareDegreesOfBand + positionInBand(longitude);
}

} // namespace zorel
