// SPDX-License-Identifier: Apache-2.0
#include "print/PlaceText.h"

#include "platform/foundation/Utf8.h"
#include "words/Language.h"

#include <fmt/format.h>

#include <cmath>

namespace zorel::cli {

const std::string& countryName(const ShownPlace& place) {
    return languageInUse() == "tr" ? place.countryTr : place.countryEn;
}

std::string pointText(double latitude, double longitude) {
    return fmt::format("{:.4f} {}, {:.4f} {}", std::abs(latitude), latitude < 0.0 ? 'S' : 'N',
                       std::abs(longitude), longitude < 0.0 ? 'W' : 'E');
}

std::string distanceText(double kilometres) {
    return fmt::format("{:.{}f} km", kilometres, kilometres < 9.95 ? 1 : 0);
}

std::string placeText(const ShownPlace& place) {
    const std::string& name = place.place.name;
    if (place.id == 0) {
        return pointText(place.place.latitude, place.place.longitude);
    }
    if (place.region.empty() || place.region == name) {
        return cleanText(fmt::format("{} / {}", name, countryName(place)));
    }
    return cleanText(fmt::format("{} / {} / {}", name, place.region, countryName(place)));
}

} // namespace zorel::cli
