// SPDX-License-Identifier: Apache-2.0
/// @file
/// When the Sun shows the direction of the qibla.
#pragma once

#include "engine/Records.h"

#include <cstdint>
#include <vector>

namespace zorel {

/// True bearing of the qibla, clockwise from north, [0, 360) [deg].
[[nodiscard]] double QiblaBearing(const QiblaRecord& qibla);

/// An instant at which the Sun's azimuth equals the bearing of the qibla.
struct SunAtQiblaInstant {
    double hour = 0.0;     ///< decimal hours of the local day, [0, 24)
    double altitude = 0.0; ///< of the Sun's centre, without refraction [deg]
    bool visible = false;  ///< the Sun is above the horizon (its centre above -50', as for rise and set)
};

/// The instants of a local day, in order: none, one or two, seldom more (a day can begin and end with one).
///
/// Solves the vertical circle of the qibla for the Sun's hour angle; right in both hemispheres, in the
/// tropics and near the poles. Within 20 s of the truth where the Sun crosses the circle at an angle, 1800 to
/// 2200; neither delta-T nor the Sun's parallax is modelled. At the Kaaba, at its antipode and for numbers
/// that are not finite there is no bearing and the answer is empty.
/// @param latitude [deg]. @param longitude [deg] east positive. @param timeZone [h] east of Greenwich, with
/// any daylight saving that is in force.
[[nodiscard]] std::vector<SunAtQiblaInstant> SunAtQibla(double latitude, double longitude, double timeZone,
                                                        std::int32_t year, std::int32_t month,
                                                        std::int32_t day);

} // namespace zorel
