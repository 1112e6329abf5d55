// SPDX-License-Identifier: Apache-2.0
/// @file
/// The World Magnetic Model 2025: the Earth's main field and its change, degree and order 12, epoch 2025.0.
#pragma once

#include "almanac/Time.h"

namespace zorel::almanac {

/// First and last day of the model's validity.
inline constexpr Date kWmmFrom{std::chrono::year{2024}, std::chrono::November, std::chrono::day{13}};
inline constexpr Date kWmmTo{std::chrono::year{2029}, std::chrono::December, std::chrono::day{31}};
inline constexpr double kWmmEpoch = 2025.0; ///< [decimal year]

/// The field in the frame of a place on the WGS 84 ellipsoid [nT].
struct FieldVector {
    double north = 0.0;
    double east = 0.0;
    double down = 0.0;

    [[nodiscard]] double horizontal() const;
    [[nodiscard]] double total() const;
    [[nodiscard]] double inclination() const; ///< [deg] positive downward
    [[nodiscard]] double declination() const; ///< [deg] east positive; 0 without a horizontal field
};

/// The field of the model.
///
/// At a pole of the Earth north is the limit along the meridian of the longitude given. Not modelled: crust,
/// ionosphere, magnetosphere. All 100 published test values are met: components within 0.001 nT, angles to
/// both printed digits. Numbers that are not finite give a field that is not.
/// @param date [decimal year]. @param latitude geodetic [deg]. @param longitude [deg] east positive.
/// @param height above the ellipsoid [km], -1 to 850.
[[nodiscard]] FieldVector wmm2025(double date, double latitude, double longitude, double height);

/// 0 h of a date as the models count it: the year and its elapsed part.
[[nodiscard]] double decimalYear(Date date);

/// Standard error of the model's declination where its horizontal field is this strong [nT], by the model's
/// report: sqrt(0.26^2 + (5417 / horizontal)^2) [deg], at most 180.
[[nodiscard]] double wmmUncertainty(double horizontal);

} // namespace zorel::almanac
