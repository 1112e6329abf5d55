// SPDX-License-Identifier: Apache-2.0
// The Moon's apparent place after Meeus, Astronomical Algorithms, 1st ed., chapters 21 and 45.
#include "engine/MoonCompute.h"

#include "engine/LunarArguments.h"
#include "engine/Single.h"
#include "engine/Turns.h"
#include "engine/series/MoonLatitudeSeries.h"
#include "engine/series/MoonLongitudeSeries.h"
#include "engine/series/NutationSeries.h"

#include <cmath>
#include <cstdint>

namespace zorel {

namespace {

/// Below this size an angle divided by 360 fits a 64-bit integer, which truncates faster than a library call.
constexpr double kFastTruncationLimit = 1e18;

double truncated(double x) {
    if (std::abs(x) < kFastTruncationLimit) {
        return static_cast<double>(static_cast<std::int64_t>(x));
    }
    return std::trunc(x);
}

/// `degrees` in [0, 360). One addition is enough wherever a double still resolves degrees.
inline double putIn360(double degrees) {
    double reduced = degrees - truncated(degrees / 360.0) * 360.0;
    if (reduced < 0.0) {
        reduced += 360.0;
        if (reduced < 0.0) {
            reduced = addWhileNegative(reduced, 360.0);
        }
    }
    return reduced;
}

/// Degrees to radians; the single-precision functions round them.
inline double radians(double degrees) {
    return putIn360(degrees) * kRadiansPerDegree;
}

inline double sinDeg(double degrees) {
    return sinSingle(radians(degrees));
}

inline double cosDeg(double degrees) {
    return cosSingle(radians(degrees));
}

/// Julian centuries from J2000.
double centuries(double julianDay) {
    return (julianDay - 2451545.0) / 36525.0;
}

/// Fundamental arguments of the nutation [deg, reduced].
struct NutationArguments {
    double D, M, Mp, F, Omega;
};

NutationArguments nutationArguments(double T) {
    const double T2 = T * T;
    const double T3 = T2 * T;
    return {
        putIn360(single(297.85036) + single(445267.111480) * T - single(0.0019142) * T2 + T3 / 189474.0),
        putIn360(single(357.52772) + single(35999.050340) * T - single(0.0001603) * T2 - T3 / 300000.0),
        putIn360(single(134.96298) + single(477198.867398) * T + single(0.0086972) * T2 + T3 / 56250.0),
        putIn360(single(93.27191) + single(483202.017538) * T - single(0.0036825) * T2 + T3 / 327270.0),
        putIn360(single(125.04452) - single(1934.136261) * T + single(0.0020708) * T2 + T3 / 450000.0),
    };
}

/// Sums of the nutation series [0.0001 arcsec].
struct NutationSums {
    double psi = 0.0, epsilon = 0.0;
};

NutationSums nutationSums(double T) {
    const NutationArguments a = nutationArguments(T);
    constexpr double tenth = single(0.1);
    NutationSums sums;
    for (const NutationTerm& row : kNutation) {
        const double angle =
            radians(a.D * row.D + a.M * row.M + a.Mp * row.Mp + a.F * row.F + a.Omega * row.Omega);
        sums.psi += (row.dpsi + row.dpsiRate * T * tenth) * sinSingle(angle);
        sums.epsilon += (row.deps + row.depsRate * T * tenth) * cosSingle(angle);
    }
    return sums;
}

/// E to the power |M|, for M from -2 to 2: position M + 2.
struct EccentricityFactors {
    double power[5];

    explicit EccentricityFactors(double E) : power{E * E, E, 1.0, E, E * E} {}
    [[nodiscard]] double of(int M) const { return power[M + 2]; }
};

/// Sums of the lunar series [1e-6 deg, 0.001 km].
struct LunarSums {
    double l = 0.0, r = 0.0, b = 0.0;
};

void addLongitudeAndDistance(const LunarArguments& a, LunarSums& sums) {
    const EccentricityFactors factors(a.E);
    for (const MoonLongitudeTerm& row : kMoonLongitude) {
        const double angle = radians(a.D * row.D + a.M * row.M + a.Mp * row.Mp + a.F * row.F);
        const double factor = factors.of(row.M);
        sums.l += row.sigmaL * sinSingle(angle) * factor;
        sums.r += row.sigmaR * cosSingle(angle) * factor;
    }
    sums.l += 3958.0 * sinDeg(a.A1) + 1962.0 * sinDeg(a.Lp - a.F) + 318.0 * sinDeg(a.A2);
}

void addLatitude(const LunarArguments& a, LunarSums& sums) {
    const EccentricityFactors factors(a.E);
    for (const MoonLatitudeTerm& row : kMoonLatitude) {
        const double angle = radians(a.D * row.D + a.M * row.M + a.Mp * row.Mp + a.F * row.F);
        sums.b += row.sigmaB * sinSingle(angle) * factors.of(row.M);
    }
    sums.b += -2235.0 * sinDeg(a.Lp) + 382.0 * sinDeg(a.A3) + 175.0 * sinDeg(a.A1 - a.F) +
              175.0 * sinDeg(a.A1 + a.F) + 127.0 * sinDeg(a.Lp - a.Mp) - 115.0 * sinDeg(a.Lp + a.Mp);
}

} // namespace

double MoonCompute::PutIn360(double degrees) const {
    return putIn360(degrees);
}

double MoonCompute::Cos_Deg(double degrees) const {
    return cosDeg(degrees);
}

double MoonCompute::Sin_Deg(double degrees) const {
    return sinDeg(degrees);
}

double MoonCompute::Tan_Deg(double degrees) const {
    return tanSingle(radians(degrees));
}

double MoonCompute::ArcSin_Deg(double x) const {
    return asinSingle(x) * kDegreesPerRadian;
}

double MoonCompute::ArcTan2_Deg(double y, double x) const {
    return atan2Single(y, x) * kDegreesPerRadian;
}

void MoonCompute::Calc_Epsilon_Phi(double julianDay, double& deltaPsi, double& epsilon) const {
    const double T = centuries(julianDay);
    const NutationSums sums = nutationSums(T);
    constexpr double unit = single(0.0001);
    deltaPsi = sums.psi * unit / 3600.0;
    // The nutation in obliquity is divided by 3600 twice, so that this is in practice the mean obliquity.
    epsilon = (single(84381.448) - single(46.815) * T - single(0.00059) * T * T +
               single(0.001813) * T * T * T + sums.epsilon * unit / 3600.0) /
              3600.0;
}

void MoonCompute::Calc_Geocentric(double julianDay, double& lambda, double beta, double& rightAscension,
                                  double& declination) const {
    double deltaPsi = 0.0;
    double epsilon = 0.0;
    Calc_Epsilon_Phi(julianDay, deltaPsi, epsilon);
    lambda = putIn360(lambda + deltaPsi);
    const double sinLambda = sinDeg(lambda);
    const double sinEpsilon = sinDeg(epsilon);
    const double cosEpsilon = cosDeg(epsilon);
    rightAscension = ArcTan2_Deg(sinLambda * cosEpsilon - Tan_Deg(beta) * sinEpsilon, cosDeg(lambda));
    declination = ArcSin_Deg(sinDeg(beta) * cosEpsilon + cosDeg(beta) * sinEpsilon * sinLambda);
}

void MoonCompute::Moon_Coordinate(double julianDay, double& declination, double& rightAscension,
                                  double& distance) const {
    const LunarArguments arguments = lunarArguments(centuries(julianDay));
    LunarSums sums;
    addLongitudeAndDistance(arguments, sums);
    addLatitude(arguments, sums);
    double lambda = arguments.Lp + sums.l / 1000000.0;
    Calc_Geocentric(julianDay, lambda, sums.b / 1000000.0, rightAscension, declination);
    rightAscension = addWhileNegative(rightAscension / 15.0, 24.0);
    distance = single(385000.56) + sums.r / 1000.0;
}

} // namespace zorel
