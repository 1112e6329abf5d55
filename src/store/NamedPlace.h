// SPDX-License-Identifier: Apache-2.0
/// @file
/// A place of the catalogue as far as people tell it from others.
#pragma once

#include <cstdint>
#include <string>

namespace zorel {

/// A place with its names.
struct NamedPlace {
    std::int32_t id = 0; ///< catalogue id
    std::string name;    ///< as shown
    std::string region;
    std::string regionCode; ///< usual short code ("TX"); most regions have none
    std::int32_t countryNumber = 0;
    std::string countryCode; ///< ISO 3166-1 alpha-2, or XK
    std::string countryEn;
    std::string countryTr;
    std::int64_t population = 0; ///< 0 = unknown
    bool otherSpelling = false;  ///< found by a spelling that is not the shown name
    bool looseSpelling = false;  ///< by one that has apostrophes besides ("Kozan'" for "Kozan")
};

} // namespace zorel
