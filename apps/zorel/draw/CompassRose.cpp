// SPDX-License-Identifier: Apache-2.0
#include "draw/CompassRose.h"

#include <fmt/format.h>

#include <cmath>

namespace zorel::cli {

namespace {
constexpr double kUseless = 2000.0;    ///< [nT]
constexpr double kUnreliable = 6000.0; ///< [nT]
} // namespace

Compass compassOf(ShownPlace place, almanac::Date date) {
    const almanac::Almanac almanac(place.place);
    Compass compass{std::move(place), date, almanac.qibla(date), almanac.magnetic(date), std::nullopt};
    if (compass.qibla.bearing && compass.magnetic) {
        compass.magneticBearing =
            almanac::magneticBearing(*compass.qibla.bearing, compass.magnetic->declination);
    }
    return compass;
}

double roundedBearing(double degrees, int decimals) {
    const double scale = std::pow(10.0, decimals);
    const double rounded = std::round(degrees * scale) / scale;
    return rounded >= 360.0 ? 0.0 : rounded;
}

std::string bearingText(double degrees) {
    return fmt::format("{:.1f}°", roundedBearing(degrees, 1));
}

std::string uncertaintyText(const almanac::Magnetic& magnetic) {
    return magnetic.uncertainty ? fmt::format(" ± {:.1f}°", *magnetic.uncertainty) : std::string();
}

std::string declinationText(const almanac::Magnetic& magnetic) {
    return (magnetic.declination < 0.0 ? tr("{:.1f}° west", -magnetic.declination)
                                       : tr("{:.1f}° east", magnetic.declination)) +
           uncertaintyText(magnetic);
}

std::string fieldWarning(const almanac::Magnetic& magnetic) {
    if (magnetic.horizontalIntensity >= kUnreliable) {
        return {};
    }
    return magnetic.horizontalIntensity < kUseless
               ? tr("the Earth's field stands almost upright here: a compass is useless")
               : tr("the Earth's field is weak here: a compass is unreliable");
}

} // namespace zorel::cli
