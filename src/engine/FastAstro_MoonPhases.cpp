// SPDX-License-Identifier: Apache-2.0
// Illuminated fraction, elongation and principal phases: Meeus, Astronomical Algorithms, 1st ed., ch. 46
// and 47.
#include "engine/FastAstro.h"
#include "engine/LunarArguments.h"
#include "engine/Single.h"
#include "engine/Turns.h"
#include "engine/series/MoonPhaseSeries.h"

#include <array>
#include <cmath>
#include <span>

namespace zorel {

namespace {

constexpr int kNewMoon = 0;
constexpr int kFullMoon = 1;
constexpr int kFirstQuarter = 2;
constexpr int kLastQuarter = 3;

double sine(double degrees) {
    return std::sin(degrees * kRadiansPerDegree);
}
double cosine(double degrees) {
    return std::cos(degrees * kRadiansPerDegree);
}

/// What a phase code adds to the number of the lunation.
double lunationFraction(int phase) {
    if (phase == kFullMoon) {
        return 0.5;
    }
    if (phase == kFirstQuarter) {
        return 0.25;
    }
    return phase == kLastQuarter ? 0.75 : 0.0;
}

/// Arguments of the phase series [deg, reduced] and the factor of the Earth's eccentricity.
struct PhaseArguments {
    double M, Mp, F, Omega, E;
};

PhaseArguments phaseArguments(const FastAstro& engine, double k, double T) {
    const double T2 = T * T;
    const double T3 = T2 * T;
    const double T4 = T3 * T;
    return {
        engine.ToDeg(single(2.5534) + single(29.10535669) * k - single(0.0000218) * T2 -
                     single(0.00000011) * T3),
        engine.ToDeg(single(201.5643) + single(385.81693528) * k + single(0.0107438) * T2 +
                     single(0.00001239) * T3 - single(0.000000058) * T4),
        engine.ToDeg(single(160.7108) + single(390.67050274) * k - single(0.0016341) * T2 -
                     single(0.00000227) * T3 + single(0.000000011) * T4),
        engine.ToDeg(single(124.7746) - single(1.56375580) * k + single(0.0020691) * T2 +
                     single(0.00000215) * T3),
        1.0 - single(0.002516) * T - single(0.0000074) * T2,
    };
}

double seriesSum(std::span<const MoonPhaseTerm> series, const PhaseArguments& a) {
    const std::array<double, 3> factor{1.0, a.E, a.E * a.E};
    double sum = 0.0;
    for (const MoonPhaseTerm& term : series) {
        sum += single(term.coefficient) * factor[static_cast<std::size_t>(term.ePower)] *
               sine(a.M * term.M + a.Mp * term.Mp + a.F * term.F + a.Omega * term.Omega);
    }
    return sum;
}

/// What separates the first from the last quarter [day].
double quarterTerm(const PhaseArguments& a) {
    return single(0.00306) - single(0.00038) * a.E * cosine(a.M) + single(0.00026) * cosine(a.Mp) -
           single(0.00002) * cosine(a.Mp - a.M) + single(0.00002) * cosine(a.Mp + a.M) +
           single(0.00002) * cosine(2.0 * a.F);
}

/// Periodic terms of a phase [day].
double periodicTerms(int phase, const PhaseArguments& a) {
    switch (phase) {
    case kNewMoon:
        return seriesSum(kMoonPhaseNew, a);
    case kFullMoon:
        return seriesSum(kMoonPhaseFull, a);
    case kFirstQuarter:
        return seriesSum(kMoonPhaseQuarter, a) + quarterTerm(a);
    case kLastQuarter:
        return seriesSum(kMoonPhaseQuarter, a) - quarterTerm(a);
    default:
        return 0.0;
    }
}

/// One planetary term: amplitude [day], argument base + perLunation * k + perCentury2 * T^2 [deg].
struct PlanetaryTerm {
    double amplitude, base, perLunation, perCentury2;
};

constexpr std::array<PlanetaryTerm, 14> kPlanetary{{
    {single(0.000325), single(299.77), single(0.107408), single(-0.009173)},
    {single(0.000165), single(251.88), single(0.016321), 0.0},
    {single(0.000164), single(251.83), single(26.651886), 0.0},
    {single(0.000126), single(349.42), single(36.412478), 0.0},
    {single(0.000110), single(84.66), single(18.206239), 0.0},
    {single(0.000062), single(141.74), single(53.303771), 0.0},
    {single(0.000060), single(207.14), single(2.453732), 0.0},
    {single(0.000056), single(154.84), single(7.306860), 0.0},
    {single(0.000047), single(34.52), single(27.261239), 0.0},
    {single(0.000042), single(207.19), single(0.121824), 0.0},
    {single(0.000040), single(291.34), single(1.844379), 0.0},
    {single(0.000037), single(161.72), single(24.198154), 0.0},
    {single(0.000035), single(239.56), single(25.513099), 0.0},
    {single(0.000023), single(331.55), single(3.592518), 0.0},
}};

double planetaryTerms(const FastAstro& engine, double k, double T) {
    double sum = 0.0;
    for (const PlanetaryTerm& term : kPlanetary) {
        sum +=
            term.amplitude * sine(engine.ToDeg(term.base + term.perLunation * k + term.perCentury2 * T * T));
    }
    return sum;
}

} // namespace

double FastAstro::Phase(double T) const {
    const LunarArguments a = lunarArguments(T);
    const double i = 180.0 - a.D - single(6.289) * sine(a.Mp) + single(2.100) * sine(a.M) -
                     single(1.274) * sine(2.0 * a.D - a.Mp) - single(0.658) * sine(2.0 * a.D) -
                     single(0.214) * sine(2.0 * a.Mp) - single(0.110) * sine(a.D);
    return (1.0 + cosine(i)) / 2.0;
}

double FastAstro::MoonElongation(double julianDay) {
    MoonDecRA(julianDay);
    const double moon = MoonLambda(L_Moon);
    const EarthPosition earth = earthCompute.position(julianDay);
    const double inEcliptic = -earth.radius * std::cos(earth.latitude);
    const double x = inEcliptic * std::cos(earth.longitude);
    const double y = inEcliptic * std::sin(earth.longitude);
    const double sun = addWhileNegative(std::atan2(y, x) / kRadiansPerDegree, 360.0);
    return std::acos(std::cos(B_Moon) * cosine(sun - moon)) / kRadiansPerDegree;
}

double FastAstro::ToDeg(double degrees) const {
    const double turned = degrees + single(std::trunc(degrees / 360.0) * -360.0);
    return turned < 0.0 ? turned + 360.0 : turned;
}

double FastAstro::MoonPhaze(double decimalYear, int phase) const {
    const double lunations = (decimalYear - 2000.0) * single(12.3685);
    double k = std::trunc(lunations);
    if (lunations - k < -0.5) {
        k -= 1.0;
    }
    const double T = k / single(1236.85); // from the whole lunation
    const double fraction = lunationFraction(phase);
    if (fraction != 0.0) {
        k = single(k + fraction);
    }
    const double T2 = T * T;
    // Without the fraction .09765 of the epoch: every phase is 0.09765 day early. MoonDay.h puts it back.
    const double mean = 2451550.0 + single(29.530588853) * k + single(0.0001337) * T2 -
                        single(0.000000150) * T2 * T + single(0.00000000073) * T2 * T2;
    return mean + periodicTerms(phase, phaseArguments(*this, k, T)) + planetaryTerms(*this, k, T);
}

} // namespace zorel
