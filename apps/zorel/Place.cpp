// SPDX-License-Identifier: Apache-2.0
#include "Place.h"

#include <fmt/format.h>

#include <cmath>

namespace zorel::cli {

std::string pointText(double latitude, double longitude) {
    return fmt::format("{:.4f} {}, {:.4f} {}", std::abs(latitude), latitude < 0.0 ? 'S' : 'N',
                       std::abs(longitude), longitude < 0.0 ? 'W' : 'E');
}

std::string placeText(const Place& place, Language language) {
    if (place.id == 0)
        return pointText(place.latitude, place.longitude);
    if (place.region.empty() || place.region == place.name)
        return fmt::format("{} / {}", place.name, place.country(language));
    return fmt::format("{} / {} / {}", place.name, place.region, place.country(language));
}

} // namespace zorel::cli
