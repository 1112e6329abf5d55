// SPDX-License-Identifier: Apache-2.0
/// @file
/// A place whose times can be computed: its position, its clock, its precaution table.
#pragma once

#include "Words.h"
#include "ZoneClock.h"

#include <cstdint>
#include <string>

namespace zorel::cli {

struct Place {
    std::int32_t id = 0; ///< catalogue id; 0 for a point given by coordinates
    std::string name;
    std::string region;
    std::string countryEn;
    std::string countryTr;
    double latitude = 0.0;   ///< [deg] north positive
    double longitude = 0.0;  ///< [deg] east positive
    bool highTemkin = false; ///< true: the 500 m precaution table, false: the 250 m one
    double elevation = 0.0;  ///< [m], 0 when unknown
    std::string zoneName;    ///< IANA name, empty when unknown
    ZoneClock clock;

    [[nodiscard]] const std::string& country(Language language) const {
        return language == Language::turkish ? countryTr : countryEn;
    }
};

/// "Ankara / Turkey", "Paris / Texas / United States" or "41.0100 N, 28.9700 E".
[[nodiscard]] std::string placeText(const Place& place, Language language);
/// "41.0100 N, 28.9700 E".
[[nodiscard]] std::string pointText(double latitude, double longitude);

} // namespace zorel::cli
