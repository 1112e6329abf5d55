// SPDX-License-Identifier: Apache-2.0
/// @file
/// The sky over a place as a picture: horizon, the ways of Sun and Moon through the day, where they stand,
/// and the face of the Moon.
#pragma once

#include "grammar/Context.h"
#include "print/ShownPlace.h"

#include "almanac/Almanac.h"

#include <optional>
#include <string>
#include <vector>

namespace zorel::cli {

struct SkyChart {
    ShownPlace place;
    almanac::Sky sky;
    std::vector<almanac::SkyMoment> course; ///< of the day
    std::optional<double> qibla;            ///< [deg]
};

/// @param at the moment that is drawn.
[[nodiscard]] SkyChart skyChart(ShownPlace place, almanac::Instant at);

struct SkyFact {
    std::string name;
    std::string value;
};

/// What stands beside the picture: altitude, direction, rise, transit, set; of the Moon its light too.
[[nodiscard]] std::vector<SkyFact> sunFacts(const Context& context, const SkyChart& chart);
[[nodiscard]] std::vector<SkyFact> moonFacts(const Context& context, const SkyChart& chart);
/// The next four phases.
[[nodiscard]] std::vector<SkyFact> phaseFacts(const almanac::Sky& sky);
/// "21 November 2026, Saturday  15:04  UTC+03:00".
[[nodiscard]] std::string skySubtitle(const SkyChart& chart);
inline constexpr std::size_t kCompassPoints = 8;
/// "NE", clockwise from north by their number; the nearest to an azimuth [deg].
[[nodiscard]] std::string compassPoint(std::size_t eighth);
[[nodiscard]] std::string compassPoint(double azimuth);

/// A document of its own, light or dark as the reader's screen is.
[[nodiscard]] std::string skySvg(const Context& context, const SkyChart& chart);
/// The same in lines of `context.columns()` columns.
[[nodiscard]] std::string skyText(const Context& context, const SkyChart& chart);

} // namespace zorel::cli
