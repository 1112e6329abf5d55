// SPDX-License-Identifier: Apache-2.0
/// @file
/// A time of day over the days of a year, in pieces that can be drawn without a jump.
#pragma once

#include "draw/YearOfPlace.h"

#include <vector>

namespace zorel::cli {

struct CurvePoint {
    std::size_t day = 0; ///< 0: 1 January
    double hour = 0.0;   ///< of the clock on that date, 0 to 24
};

using CurvePiece = std::vector<CurvePoint>;

/// The told minutes of a time through a year, each on the date that it falls on. A piece ends where a date
/// has no such time, where the time passes midnight, and where it leaps by more than two hours.
[[nodiscard]] std::vector<CurvePiece> curveOf(const YearOfPlace& year, almanac::Prayer prayer);

} // namespace zorel::cli
