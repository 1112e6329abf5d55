// SPDX-License-Identifier: Apache-2.0
/// @file
/// What the queries of the city catalogue share.
#pragma once

#include "store/City.h"
#include "store/Database.h"

#include <cstddef>
#include <string>

namespace zorel {

/// "cities.sqlite" in the "database" folder of the bundle.
[[nodiscard]] std::string cataloguePath(const Bundle& bundle);

/// Sets what a catalogue row says of a city from its first fourteen columns: name, region, country in English
/// and in Turkish, latitude and longitude (deciphered, in decimal degrees), GMT, the six fields of the
/// daylight-saving rule, temkin.
void readCityDetails(const Statement& row, const Bundle& bundle, City& city);

/// A coordinate, deciphered, as decimal text.
[[nodiscard]] std::string coordinateText(const Statement& row, int column, const Bundle& bundle);

/// Number of places of a catalogue; 0 when it cannot be read.
[[nodiscard]] std::size_t placeCount(const Database& catalogue);

} // namespace zorel
