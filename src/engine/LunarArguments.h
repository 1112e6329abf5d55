// SPDX-License-Identifier: Apache-2.0
/// @file
/// Mean arguments of the lunar theory: Meeus, Astronomical Algorithms, 1st ed., ch. 45.
#pragma once

#include "engine/Single.h"

namespace zorel {

/// Angles [deg, not reduced].
struct LunarArguments {
    double Lp;         ///< longitude of the Moon
    double D;          ///< elongation
    double M;          ///< anomaly of the Sun
    double Mp;         ///< anomaly of the Moon
    double F;          ///< argument of latitude
    double A1, A2, A3; ///< of the terms by Venus, Jupiter and others
    double E;          ///< factor by the eccentricity of the Earth's orbit, 1 at J2000
};

/// @param T Julian centuries from J2000.
inline LunarArguments lunarArguments(double T) {
    const double T2 = T * T;
    const double T3 = T2 * T;
    const double T4 = T3 * T;
    LunarArguments a{};
    a.Lp = single(218.3164591) + single(481267.88134236) * T - single(0.0013268) * T2 + T3 / 538841.0 -
           T4 / 65194000.0;
    a.D = single(297.8502042) + single(445267.1115168) * T - single(0.0016300) * T2 + T3 / 545868.0 -
          T4 / 113065000.0;
    a.M = single(357.5291092) + single(35999.0502909) * T - single(0.0001536) * T2 + T3 / 24490000.0;
    a.Mp = single(134.9634114) + single(477198.8676313) * T + single(0.0089970) * T2 + T3 / 69699.0 -
           T4 / 14712000.0;
    a.F = single(93.2720993) + single(483202.0175273) * T - single(0.0034029) * T2 - T3 / 3526000.0 +
          T4 / single(863310000.0);
    a.A1 = single(119.75) + single(131.849) * T;
    a.A2 = single(53.09) + single(479264.290) * T;
    a.A3 = single(313.45) + single(481266.484) * T;
    a.E = 1.0 - single(0.002516) * T - single(0.0000074) * T2;
    return a;
}

} // namespace zorel
