// SPDX-License-Identifier: Apache-2.0
/// @file
/// The city search of the catalogue, shared by the search screen and the command line.
#pragma once

#include "store/City.h"

#include <string>
#include <vector>

namespace zorel {

/// Every catalogue city whose searchable name contains `text`, in catalogue order (large places first). Fewer
/// than three characters find nothing. A catalogue that cannot be read, or a text that breaks the statement,
/// finds nothing. Filled: name, nameParent, cityId, countryId, countryNameEn, countryNameTr.
[[nodiscard]] std::vector<City> searchCities(const GlobalFuncs& glbFuncs, const std::string& text);

/// "Name / Country" when the region has the city's name, else "Name / Region / Country"; the country in
/// Turkish when the language is Turkish, else in English.
[[nodiscard]] std::string citySearchText(const GlobalFuncs& glbFuncs, const City& city);

} // namespace zorel
