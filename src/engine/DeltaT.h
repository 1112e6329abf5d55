// SPDX-License-Identifier: Apache-2.0
/// @file
/// Difference between the uniform time of the theories and the time that clocks keep.
#pragma once

namespace zorel {

/// Delta-T = TT - UT [s] at a Julian day; within a second for 1700 to 2005, some seconds until 2050, a
/// long-term parabola outside 1600 to 2150. Polynomials of Espenak & Meeus, NASA/TP-2006-214141.
[[nodiscard]] double DeltaT(double julianDay);

} // namespace zorel
