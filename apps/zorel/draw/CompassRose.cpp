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

std::string declinationText(const Context& context, const almanac::Magnetic& magnetic) {
    return fmt::format("{:.1f}° {}{}", std::abs(magnetic.declination),
                       context.word(magnetic.declination < 0.0 ? Word::west : Word::east),
                       uncertaintyText(magnetic));
}

std::string_view fieldWarning(const Context& context, const almanac::Magnetic& magnetic) {
    if (magnetic.horizontalIntensity >= kUnreliable) {
        return {};
    }
    return context.word(magnetic.horizontalIntensity < kUseless ? Word::compassUseless
                                                                : Word::compassUnreliable);
}

} // namespace zorel::cli
