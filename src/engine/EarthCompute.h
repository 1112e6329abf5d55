// SPDX-License-Identifier: Apache-2.0
/// @file
/// Heliocentric position of the Earth from the abridged VSOP87D series.
#pragma once

#include "engine/Api.h"

namespace zorel {

struct EarthPosition {
    double longitude = 0.0; ///< heliocentric [rad], not reduced
    double latitude = 0.0;  ///< heliocentric [rad]
    double radius = 0.0;    ///< [au]
};

/// The Earth's heliocentric longitude, latitude and radius.
///
/// 195 terms in thirteen series, amplitudes, phases and frequencies held in single precision, cosines taken
/// in single precision. Source: Bretagnon & Francou, Astron. Astrophys. 202, 309 (1988); selection of terms
/// as in Meeus, Astronomical Algorithms, and Reda & Andreas, NREL/TP-560-34302. Holds no state.
///
/// Accuracy: at the example of Reda & Andreas (2003) within 0.0001 degree in longitude, 1e-6 degree in
/// latitude and 1e-6 au.
class ZOREL_API EarthCompute {
public:
    // At a Julian day of uniform time.

    /// All three at once, for the price of one of those below.
    [[nodiscard]] EarthPosition position(double julianDay) const;
    /// @return heliocentric longitude [rad], not reduced.
    [[nodiscard]] double EarthL(double julianDay) const;
    /// @return heliocentric latitude [rad].
    [[nodiscard]] double EarthB(double julianDay) const;
    /// @return radius vector [au].
    [[nodiscard]] double EarthR(double julianDay) const;

    // Sums of one series [1e-8 rad or 1e-8 au]; tau in Julian millennia from J2000.
    [[nodiscard]] double _L0(double tau) const;
    [[nodiscard]] double _L1(double tau) const;
    [[nodiscard]] double _L2(double tau) const;
    [[nodiscard]] double _L3(double tau) const;
    [[nodiscard]] double _L4(double tau) const;
    [[nodiscard]] double _L5(double tau) const;
    [[nodiscard]] double _B0(double tau) const;
    [[nodiscard]] double _B1(double tau) const;
    [[nodiscard]] double _R0(double tau) const;
    [[nodiscard]] double _R1(double tau) const;
    [[nodiscard]] double _R2(double tau) const;
    [[nodiscard]] double _R3(double tau) const;
    [[nodiscard]] double _R4(double tau) const;
};

} // namespace zorel
