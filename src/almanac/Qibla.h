// SPDX-License-Identifier: Apache-2.0
/// @file
/// The direction of the Kaaba (21.4225 N, 39.8262 E), and when the Sun shows it.
///
/// The bearing is that of the great circle on the sphere. On the ellipsoid the geodesic differs by up to 0.2
/// degrees; the direction in which a person turns is the great circle's by convention. FastAstro::KibleAcisi
/// stays beside it: its Kaaba lies at 21.43 N, 39.82 E, a kilometre away, which is fine from afar (0.1
/// degrees at 600 km) and wrong nearby.
#pragma once

#include "almanac/Sky.h"

#include "engine/Api.h"

#include <optional>
#include <vector>

namespace zorel::almanac {

inline constexpr double kKaabaLatitude = 21.4225;  ///< [deg]
inline constexpr double kKaabaLongitude = 39.8262; ///< [deg]

/// True bearing, clockwise from north, [0, 360) [deg]; at a pole from the meridian of the longitude given.
/// Nothing within 20 m of the Kaaba and of its antipode, for a latitude beyond the poles and for numbers that
/// are not finite.
[[nodiscard]] ZOREL_API std::optional<double> qiblaBearing(double latitude, double longitude);
/// To the Kaaba along the great circle, on a sphere of 6371.0088 km [km].
[[nodiscard]] ZOREL_API double qiblaDistance(double latitude, double longitude);

/// When the Sun stands in the direction of the Kaaba.
struct SunAtQibla {
    SkyEvent at;           ///< to the nearest minute
    ExactInstant exact{};  ///< within 20 s of the truth where the Sun crosses the circle at an angle
    double altitude = 0.0; ///< of the Sun's centre, without refraction [deg]
};

struct Qibla {
    std::optional<double> bearing;    ///< [deg] true, see qiblaBearing
    double distance = 0.0;            ///< [km], see qiblaDistance
    std::vector<SunAtQibla> instants; ///< of the local date with the Sun above the horizon, in order
};

} // namespace zorel::almanac
