// SPDX-License-Identifier: Apache-2.0
/// @file
/// Degrees in double precision. (The engine's own constants are single-precision ones, engine/Single.h.)
#pragma once

#include <cmath>

namespace zorel::almanac {

inline constexpr double kRadian = 0.017453292519943295; ///< of one degree

/// Brought into [0, 360). (A tiny negative angle would become 360 itself by rounding.)
inline double bearingOf(double degrees) {
    const double turned = degrees - 360.0 * std::floor(degrees / 360.0);
    return turned < 360.0 ? turned : 0.0;
}

} // namespace zorel::almanac
