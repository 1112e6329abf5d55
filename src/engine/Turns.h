// SPDX-License-Identifier: Apache-2.0
/// @file
/// Bringing a negative angle or hour into the first turn.
#pragma once

#include <cmath>

namespace zorel {

/// x with whole periods added while it is negative, at any size and without a loop; not-a-number for
/// -infinity.
inline double addWhileNegative(double x, double period) {
    if (!(x < 0.0)) {
        return x;
    }
    const double rest = std::fmod(x, period); // exact, as repeated addition is
    return rest == 0.0 ? 0.0 : rest + period;
}

} // namespace zorel
