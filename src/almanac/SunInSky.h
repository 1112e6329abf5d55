// SPDX-License-Identifier: Apache-2.0
/// @file
/// What the Sun really does over a place: the almanac's own judge of the engine's times, and the source of
/// those that the engine cannot give.
#pragma once

#include "almanac/Time.h"

#include "engine/FastAstro.h"

#include <array>

namespace zorel::almanac {

/// The two halves of a solar day: up from the lowest point to the highest, and down again.
enum class HalfDay : std::uint8_t { morning, evening };

/// An event of a half day.
struct SunCrossing {
    double hour = 0.0;   ///< [h] of universal time after 0:00 of the date; without one, where the Sun comes
                         ///< nearest to it
    bool occurs = false; ///< a normal answer either way
};

/// One solar day of a place: the one whose local mean noon falls on a date. Position of the Sun by
/// EarthCompute (apparent place, delta-T applied) at three instants, in between by parabolas; each event by a
/// bracketed search over the half day, from its lowest to its highest point.
///
/// Accuracy: 0.0015 degree of altitude against resources/reference (geocentric for limb and shadow), which is
/// 1.5 s, and up to 14 s where the Sun moves almost level (66 degrees). Latitudes to 89.5 degrees; nearer to
/// the poles an event may be missed.
class SunInSky {
public:
    /// @param engine computes the Sun; its position of the Sun is overwritten. @param latitude, longitude
    /// [deg]. @param date counted by the local mean time of the place.
    SunInSky(FastAstro& engine, double latitude, double longitude, Date date);

    /// Upper transit [h].
    [[nodiscard]] double transit() const { return transit_; }
    /// The Sun's centre stands at an altitude [deg]: topocentric, without refraction.
    [[nodiscard]] SunCrossing centre(double altitude, HalfDay half) const;
    /// The upper limb stands on the horizon by the standard refraction (altitude of the centre -50').
    [[nodiscard]] SunCrossing limb(HalfDay half) const;
    /// In the afternoon a staff throws a shadow longer than that of noon, taken with the declination of the
    /// instant, by a number of its lengths.
    [[nodiscard]] SunCrossing shadow(int staffs) const;
    [[nodiscard]] bool risesAndSets() const;
    /// Altitude of the centre, topocentric, without refraction [deg].
    [[nodiscard]] double altitude(double hour) const;

private:
    /// A value through three instants.
    struct Parabola {
        std::array<double, 3> at{};
        [[nodiscard]] double operator()(double step) const;
    };

    [[nodiscard]] double step(double hour) const;
    [[nodiscard]] double declination(double hour) const; // [deg]
    [[nodiscard]] double hourAngle(double hour) const;   // [deg]
    [[nodiscard]] double sine(double hour) const;        // of the geocentric altitude
    [[nodiscard]] double turningPoint(double near) const;
    template <class Height> [[nodiscard]] SunCrossing find(HalfDay half, const Height& height) const;

    double latitude_;
    double longitude_;
    double sinLatitude_;
    double cosLatitude_;
    double middle_; // hour of the middle one of the three instants
    Parabola declination_;
    Parabola equation_; // of time [h]
    double parallax_;   // horizontal [deg]
    double transit_;
    double lowestBefore_;
    double highest_;
    double lowestAfter_;
};

} // namespace zorel::almanac
