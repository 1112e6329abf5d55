// SPDX-License-Identifier: Apache-2.0
/// @file
/// Why a search has found a place.
#pragma once

#include "store/CitySearch.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zorel {

/// Which of a place's spellings a text has found: the one that is the text, else one that begins with it,
/// else one that contains it; the first among equals. Empty when the shown name itself contains the text,
/// accents and the like aside, and when no spelling does.
/// @param spellings joined by "|", as the catalogue keeps them
[[nodiscard]] std::string matchedSpelling(std::string_view name, std::string_view spellings,
                                          std::string_view text);

/// What a search result says besides its name, region and country.
struct FoundDetails {
    std::string spelling;        ///< matchedSpelling()
    std::int64_t population = 0; ///< 0 = unknown
};

/// The details of found cities, one for each; those of a city that cannot be read are empty.
[[nodiscard]] std::vector<FoundDetails>
detailsOfFound(const Bundle& bundle, std::span<const FoundCity> cities, std::string_view text);

} // namespace zorel
