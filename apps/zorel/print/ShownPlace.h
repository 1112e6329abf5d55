// SPDX-License-Identifier: Apache-2.0
/// @file
/// A place as the command line shows it: the almanac's, and what is only said about it.
#pragma once

#include "almanac/Place.h"

#include <cstdint>
#include <optional>
#include <string>

namespace zorel::cli {

/// The place of the catalogue whose clock serves for a point that was given without one.
struct ClockOwner {
    std::int32_t id = 0; ///< in the catalogue
    std::string name;
    double distance = 0.0; ///< from the point [km]
};

struct ShownPlace {
    almanac::Place place;
    std::int32_t id = 0; ///< catalogue id; 0 for a point given by coordinates
    std::string region;
    std::string countryEn;
    std::string countryTr;
    std::string zoneEdition; ///< of the tz database that the catalogue's clock rules were made from
    std::optional<ClockOwner> clockOwner;
    bool meridianClock = false; ///< the clock is that of the meridian, because none is known

    [[nodiscard]] const almanac::PlaceClock& clock() const { return place.clock; }
};

} // namespace zorel::cli
