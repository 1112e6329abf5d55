// SPDX-License-Identifier: Apache-2.0
/// @file
/// Heliocentric position of the Earth from the abridged VSOP87D series.
#pragma once

namespace zorel {

/// The Earth's heliocentric longitude, latitude and radius.
///
/// 195 terms in thirteen series, amplitudes, phases and frequencies held in single precision, cosines taken
/// in single precision. Source: Bretagnon & Francou, Astron. Astrophys. 202, 309 (1988); selection of terms
/// as in Meeus, Astronomical Algorithms, and Reda & Andreas, NREL/TP-560-34302. Holds no state.
class EarthCompute {
public:
    // At a Julian day of uniform time.

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
