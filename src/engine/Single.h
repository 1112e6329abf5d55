// SPDX-License-Identifier: Apache-2.0
/// @file
/// Single precision in one place. The engine keeps many constants as single-precision values held in doubles and
/// takes some functions in single precision; both come from here, so that every compiler gives the same bits.
#pragma once

#include <cmath>

namespace zorel {

/// The single-precision value nearest to x, widened again.
constexpr double single(double x) { return static_cast<double>(static_cast<float>(x)); }

/// Degrees to radians: pi/180 rounded to single precision.
inline constexpr double kRadiansPerDegree = single(0.017453292519943295);
/// Radians to degrees where a formula asks for 57.29578 in single precision.
inline constexpr double kDegreesPerRadian = single(57.29578);
/// pi/2, pi, 3pi/2 and 2pi rounded to single precision.
inline constexpr double kHalfPi = single(1.5707963705062866);
inline constexpr double kPi = single(3.1415927410125732);
inline constexpr double kThreeHalvesPi = single(4.71238899230957);
inline constexpr double kTwoPi = single(6.2831854820251465);

/// Functions of the argument rounded to single precision, with a single-precision result [argument in radians].
inline double sinSingle(double x) { return static_cast<double>(std::sin(static_cast<float>(x))); }
inline double cosSingle(double x) { return static_cast<double>(std::cos(static_cast<float>(x))); }
inline double tanSingle(double x) { return static_cast<double>(std::tan(static_cast<float>(x))); }
inline double asinSingle(double x) { return static_cast<double>(std::asin(static_cast<float>(x))); }
inline double atanSingle(double x) { return static_cast<double>(std::atan(static_cast<float>(x))); }
inline double atan2Single(double y, double x) {
    return static_cast<double>(std::atan2(static_cast<float>(y), static_cast<float>(x)));
}

} // namespace zorel
