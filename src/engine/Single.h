// SPDX-License-Identifier: Apache-2.0
/// @file
/// Single precision in one place. The engine keeps many constants as single-precision values held in doubles
/// and takes some functions in single precision; both come from here, so that every compiler gives the same
/// bits.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>

namespace zorel {

/// The single-precision value nearest to x, widened again.
constexpr double single(double x) {
    return static_cast<double>(static_cast<float>(x));
}

/// Degrees to radians: pi/180 rounded to single precision.
inline constexpr double kRadiansPerDegree = single(0.017453292519943295);
/// Radians to degrees where a formula asks for 57.29578 in single precision.
inline constexpr double kDegreesPerRadian = single(57.29578);
/// pi/2, pi, 3pi/2 and 2pi rounded to single precision.
inline constexpr double kHalfPi = single(1.5707963705062866);
inline constexpr double kPi = single(3.1415927410125732);
inline constexpr double kThreeHalvesPi = single(4.71238899230957);
inline constexpr double kTwoPi = single(6.2831854820251465);

/// Sine and cosine to a double's accuracy by arithmetic alone, for |x| below kTurnLimit: the nearest multiple
/// of pi is taken off (pi in two parts, the first times any whole number below 2^20 being exact), the rest
/// goes through its power series to 1e-15. They round to single precision as the true values do, with every
/// compiler and C library. Without a branch and always in line, so that a compiler makes a loop over them
/// work on as many numbers as the processor's vectors hold.
namespace portable {

inline constexpr double kTurnLimit = 3.0e6;

struct HalfTurns {
    [[gnu::always_inline]] explicit HalfTurns(double x) {
        constexpr double kToWhole = 6755399441055744.0; // 1.5 * 2^52: adding it rounds to a whole number
        const double shifted = x * 0.3183098861837907 + kToWhole;
        const double count = shifted - kToWhole;
        rest = x - count * 3.1415926534682512;
        rest = rest - count * 1.2154201013012384e-10;
        sign = std::bit_cast<std::uint64_t>(shifted) << 63;
    }
    [[nodiscard, gnu::always_inline]] double withSign(double y) const {
        return std::bit_cast<double>(std::bit_cast<std::uint64_t>(y) ^ sign);
    }

    double rest;        // -pi/2 to pi/2
    std::uint64_t sign; // set after an odd number of half turns
};

/// The even and odd powers of z = rest^2 are summed apart: two short chains instead of a long one.
[[gnu::always_inline]] inline double cosine(double x) {
    const HalfTurns turns(x);
    const double z = turns.rest * turns.rest;
    const double w = z * z;
    const double even =
        (((w * (1.0 / 20922789888000.0) + 1.0 / 479001600.0) * w + 1.0 / 40320.0) * w + 1.0 / 24.0) * w;
    const double odd =
        (((w * (-1.0 / 6402373705728000.0) - 1.0 / 87178291200.0) * w - 1.0 / 3628800.0) * w - 1.0 / 720.0) *
            w -
        0.5;
    return turns.withSign(z * odd + even + 1.0);
}

[[gnu::always_inline]] inline double sine(double x) {
    const HalfTurns turns(x);
    const double z = turns.rest * turns.rest;
    const double w = z * z;
    const double even =
        ((w * (-1.0 / 1307674368000.0) - 1.0 / 39916800.0) * w - 1.0 / 5040.0) * w - 1.0 / 6.0;
    const double odd =
        ((w * (1.0 / 355687428096000.0) + 1.0 / 6227020800.0) * w + 1.0 / 362880.0) * w + 1.0 / 120.0;
    return turns.withSign(turns.rest * (z * (z * odd + even)) + turns.rest);
}

} // namespace portable

/// Functions of the argument rounded to single precision, with a single-precision result [argument in
/// radians].
inline double sinSingle(double x) {
    const double a = single(x);
    return single(std::fabs(a) < portable::kTurnLimit ? portable::sine(a) : std::sin(a));
}
inline double cosSingle(double x) {
    const double a = single(x);
    return single(std::fabs(a) < portable::kTurnLimit ? portable::cosine(a) : std::cos(a));
}
/// Both at once.
struct SineCosine {
    double sine;
    double cosine;
};
inline SineCosine sineCosineSingle(double x) {
    return {sinSingle(x), cosSingle(x)};
}
inline double tanSingle(double x) {
    return static_cast<double>(std::tan(static_cast<float>(x)));
}
inline double asinSingle(double x) {
    return static_cast<double>(std::asin(static_cast<float>(x)));
}
inline double atanSingle(double x) {
    return static_cast<double>(std::atan(static_cast<float>(x)));
}
inline double atan2Single(double y, double x) {
    return static_cast<double>(std::atan2(static_cast<float>(y), static_cast<float>(x)));
}

} // namespace zorel
