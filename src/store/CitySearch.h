// SPDX-License-Identifier: Apache-2.0
/// @file
/// The city search of the catalogue, shared by the search screen and the command line.
#pragma once

#include "store/City.h"

#include <optional>
#include <string>
#include <vector>

namespace zorel {

/// Every catalogue city whose searchable name contains `text`, in catalogue order (large places first). Fewer
/// than three characters find nothing. A catalogue that cannot be read, or a text that breaks the statement,
/// finds nothing. Filled: name, nameParent, cityId, countryId, countryNameEn, countryNameTr.
[[nodiscard]] std::vector<City> searchCities(const GlobalFuncs& glbFuncs, const std::string& text);

/// The places that a text finds for a person at a terminal, the best first: places that are called so, in the
/// order of resolveName() (with region or country behind the name, only these); then places whose shown name
/// begins with the text; then the others of searchCities(); larger ones first among each. One or two
/// characters find only what is called so. A quote is an ordinary character here. Filled as by
/// searchCities(), countryId aside.
/// @return nothing when the catalogue cannot be read
[[nodiscard]] std::optional<std::vector<City>> searchPlaces(const GlobalFuncs& glbFuncs,
                                                            const std::string& text);

/// "Name / Country" when the region has the city's name, else "Name / Region / Country"; the country in
/// Turkish when the language is Turkish, else in English. Another spelling by which the city was found stands
/// behind its name: "Köln — Cologne / North Rhine-Westphalia / Germany".
[[nodiscard]] std::string citySearchText(const GlobalFuncs& glbFuncs, const City& city,
                                         const std::string& spelling = "");

} // namespace zorel
