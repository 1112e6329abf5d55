// SPDX-License-Identifier: Apache-2.0
/// @file
/// Geocentric position of the Moon from the truncated ELP-2000/82 series.
#pragma once

#include "engine/Api.h"

namespace zorel {

/// The Moon's apparent place: 60 terms in longitude and distance, 60 in latitude, nutation truncated to 31
/// terms. Every term goes through single-precision sines. Holds no state. Source: Meeus, Astronomical
/// Algorithms, 1st ed., ch. 45 (Moon) and 21 (nutation).
///
/// Accuracy: within 0.005 degree and 1 km at Meeus's example 45.a (1992), which sums the same terms; nutation
/// within 0.005 arc second at his example 21.a (1987).
class ZOREL_API MoonCompute {
public:
    // Functions of angles in degrees, in single precision.

    /// An angle brought into [0, 360).
    [[nodiscard]] double PutIn360(double degrees) const;
    [[nodiscard]] double Cos_Deg(double degrees) const;
    [[nodiscard]] double Sin_Deg(double degrees) const;
    [[nodiscard]] double Tan_Deg(double degrees) const;
    [[nodiscard]] double ArcSin_Deg(double x) const;
    [[nodiscard]] double ArcTan2_Deg(double y, double x) const;

    // Positions at a Julian day of uniform time.

    /// @param deltaPsi out: nutation in longitude [deg]. @param epsilon out: mean obliquity of the ecliptic
    /// [deg], within 0.006 arc second of the IAU polynomial from 1600 to 2400.
    void Calc_Epsilon_Phi(double julianDay, double& deltaPsi, double& epsilon) const;
    /// Ecliptic to equatorial coordinates. @param lambda in: ecliptic longitude [deg]; out: the apparent one,
    /// nutation added. @param beta ecliptic latitude [deg].
    /// @param rightAscension out [deg], (-180, 180]. @param declination out [deg].
    void Calc_Geocentric(double julianDay, double& lambda, double beta, double& rightAscension,
                         double& declination) const;
    /// @param declination out [deg]. @param rightAscension out [h], not negative. @param distance out [km].
    void Moon_Coordinate(double julianDay, double& declination, double& rightAscension,
                         double& distance) const;
};

} // namespace zorel
