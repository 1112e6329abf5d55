// SPDX-License-Identifier: Apache-2.0
/// @file
/// The city search of the catalogue, shared by the search screen and the command line.
#pragma once

#include "store/City.h"

#include <optional>
#include <string>
#include <vector>

namespace zorel {

class GlobalFuncs;

/// What the search's statement gives of a place. Thousands are found at once, so it is a good deal smaller
/// than a City, which is made of the one that is chosen (cityOf).
struct FoundCity {
    std::string name;
    std::string nameParent; ///< region
    std::string cityId;     ///< catalogue id
    std::string countryId;
    std::string countryNameEn;
    std::string countryNameTr;
};

/// A City of which only what was found is set.
[[nodiscard]] City cityOf(const Bundle& bundle, const FoundCity& found);

/// Every catalogue city whose searchable name contains `text`, in catalogue order (large places first). Fewer
/// than three characters find nothing. A catalogue that cannot be read, or a text that breaks the statement,
/// finds nothing.
[[nodiscard]] std::vector<FoundCity> searchCities(const Bundle& bundle, const std::string& text);

/// The places that a text finds for a person at a terminal, the best first: places that are called so, in the
/// order of resolveName() (with region or country behind the name, only these); then places whose shown name
/// begins with the text; then the others of searchCities(); larger ones first among each. One or two
/// characters find only what is called so. A quote is an ordinary character here. countryId is not filled for
/// all.
/// @return nothing when the catalogue cannot be read
[[nodiscard]] std::optional<std::vector<FoundCity>> searchPlaces(const Bundle& bundle,
                                                                 const std::string& text);

/// "Name / Country" when the region has the city's name, else "Name / Region / Country"; the country in
/// Turkish when the language is Turkish, else in English. Another spelling by which the city was found stands
/// behind its name: "Köln — Cologne / North Rhine-Westphalia / Germany".
[[nodiscard]] std::string citySearchText(const GlobalFuncs& glbFuncs, const FoundCity& city,
                                         const std::string& spelling = "");
[[nodiscard]] std::string citySearchText(const GlobalFuncs& glbFuncs, const City& city);

} // namespace zorel
