// SPDX-License-Identifier: Apache-2.0
/// @file
/// The direction of the Kaaba between true and magnetic north, as a rose of bearings.
#pragma once

#include "grammar/Context.h"
#include "print/ShownPlace.h"

#include "almanac/Almanac.h"

#include <optional>
#include <string>
#include <vector>

namespace zorel::cli {

struct Compass {
    ShownPlace place;
    almanac::Date date{};
    almanac::Qibla qibla;
    std::optional<almanac::Magnetic> magnetic;
    std::optional<double> magneticBearing; ///< [deg]; nothing at the Kaaba and at a magnetic pole
};

[[nodiscard]] Compass compassOf(ShownPlace place, almanac::Date date);

/// "151.6°", never "360.0°".
[[nodiscard]] std::string bearingText(double degrees);
/// A bearing rounded to some decimals, below 360.
[[nodiscard]] double roundedBearing(double degrees, int decimals);
/// "6.0° east ± 0.3°".
[[nodiscard]] std::string declinationText(const almanac::Magnetic& magnetic);
/// " ± 0.3°"; empty for a model that does not say.
[[nodiscard]] std::string uncertaintyText(const almanac::Magnetic& magnetic);
/// That the compass is useless here, or unreliable, by the makers of the model; empty where it can be relied
/// on.
[[nodiscard]] std::string fieldWarning(const almanac::Magnetic& magnetic);

/// A document of its own, light or dark as the reader's screen is.
[[nodiscard]] std::string roseSvg(const Context& context, const Compass& compass);
/// The rose in lines of at most `context.columns()` columns, without figures.
[[nodiscard]] std::string roseText(const Context& context, const Compass& compass);

} // namespace zorel::cli
