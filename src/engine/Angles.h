// SPDX-License-Identifier: Apache-2.0
/// @file
/// Angles brought into one turn, at any size and without a loop.
#pragma once

#include <cmath>

namespace zorel {

/// x [deg] brought into [0, 360).
inline double intoTurn(double x) {
    const double r = std::fmod(x, 360.0); // exact, as repeated subtraction is
    return r < 0.0 ? r + 360.0 : r;
}

/// x [deg] brought into [0, 360]: 360 itself stays.
inline double intoClosedTurn(double x) {
    const double r = intoTurn(x);
    return r == 0.0 && x >= 360.0 ? 360.0 : r;
}

} // namespace zorel
