// SPDX-License-Identifier: Apache-2.0
/// @file
/// Magnetic declination for people: the World Magnetic Model 2025 from 13 November 2024 to the end of 2029,
/// the International Geomagnetic Reference Field (IGRF-11, MagneticVariation of the engine) on other dates.
///
/// Not modelled: crustal anomalies, iron nearby, daily variation and storms; `uncertainty` covers the first
/// and the last in the mean. Accuracy: all official test values of the World Magnetic Model within 0.01
/// degree; IGRF-11 in the years of the other model is off by 0.3 degrees in the middle and by some degrees in
/// the worst places.
#pragma once

#include "almanac/Time.h"

#include "engine/Api.h"

#include <optional>
#include <string_view>

namespace zorel::almanac {

struct Magnetic {
    double declination = 0.0; ///< [deg] east positive: true bearing = magnetic bearing + declination
    /// One standard error [deg], by the report of the model, at most 180; nothing for IGRF-11, which tells
    /// none.
    std::optional<double> uncertainty;
    double horizontalIntensity = 0.0; ///< [nT]; below 2000 a compass is useless, below 6000 unreliable
    std::string_view model;           ///< "WMM2025" or "IGRF-11"
    double epoch = 0.0;               ///< of the model [decimal year]
    double validFrom = 0.0;           ///< [decimal year]
    double validTo = 0.0;             ///< [decimal year]
    bool extrapolated = false;        ///< the date lies outside the validity: the error grows with every year
};

/// The declination on a date.
///
/// At a pole of the Earth it is counted from the meridian of the longitude given. Nothing where the field has
/// no direction (less than 0.0001 nT of it is horizontal: the very point of a magnetic pole) and for a
/// latitude beyond the poles, a date out of range or numbers that are not finite.
/// @param latitude [deg]. @param longitude [deg] east positive. @param height above the sea [m]. The models
/// ask for the height above the ellipsoid, which differs by up to 107 m; where a compass is of use (6000 nT
/// and more) that is worth less than 0.003 degrees.
[[nodiscard]] ZOREL_API std::optional<Magnetic> magneticAt(double latitude, double longitude, double height,
                                                           Date date);

/// A bearing by the compass, [0, 360) [deg].
[[nodiscard]] ZOREL_API double magneticBearing(double trueBearing, double declination);

} // namespace zorel::almanac
