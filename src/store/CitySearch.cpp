// SPDX-License-Identifier: Apache-2.0
#include "store/CitySearch.h"

#include "common/GlobalFuncs.h"
#include "store/CatalogueRow.h"

#include <algorithm>
#include <fmt/format.h>

namespace zorel {

namespace {

/// The text as typed and then kSearchEnd follow.
constexpr const char* kSearch = "SELECT C.NAME, CP.NAME, C.ID, CP.CID, CC.NAMEEN, CC.NAMETR"
                                "                     FROM CITY C, CITY_PARENT CP, COUNTRY CC"
                                "                     WHERE C.PARENT = CP.PARENT"
                                "                     AND   CP.CID = CC.CID"
                                "                     AND   C.NAMESRC LIKE '%";
constexpr const char* kSearchEnd = "%'";

constexpr std::ptrdiff_t kFewestCharacters = 3;
/// No three characters are in more names; what is not used of the room costs nothing.
constexpr std::size_t kMostUsualHits = 8'192;

/// Characters of UTF-8 text: every byte but continuation bytes begins one.
std::ptrdiff_t characterCount(const std::string& text) {
    return std::count_if(text.begin(), text.end(), [](char byte) { return (byte & 0xC0) != 0x80; });
}

FoundCity foundCity(const Statement& row) {
    return {row.text(0), row.text(1), row.text(2), row.text(3), row.text(4), row.text(5)};
}

/// All rows of a search. A search yields a place at most once: more rows than places mean that the text has
/// changed the meaning of the statement, and then nothing is found.
std::vector<FoundCity> foundCities(Statement& rows, std::size_t places) {
    std::vector<FoundCity> cities;
    cities.reserve(std::min(places, kMostUsualHits));
    while (rows.nextRow()) {
        if (cities.size() == places) {
            return {};
        }
        cities.push_back(foundCity(rows));
    }
    return cities;
}

} // namespace

City cityOf(const Bundle& bundle, const FoundCity& found) {
    City city(bundle);
    city.name = found.name;
    city.nameParent = found.nameParent;
    city.cityId = found.cityId;
    city.countryId = found.countryId;
    city.countryNameEn = found.countryNameEn;
    city.countryNameTr = found.countryNameTr;
    return city;
}

std::vector<FoundCity> searchCities(const Bundle& bundle, const std::string& text) {
    if (characterCount(text) < kFewestCharacters) {
        return {};
    }
    const auto catalogue = Database::openCatalogue(cataloguePath(bundle));
    if (!catalogue) {
        return {};
    }
    Statement rows = catalogue->prepare(kSearch + text + kSearchEnd);
    return foundCities(rows, placeCount(*catalogue));
}

std::string citySearchText(const GlobalFuncs& glbFuncs, const FoundCity& city, const std::string& spelling) {
    const std::string& country = glbFuncs.languageId == 0 ? city.countryNameTr : city.countryNameEn;
    const std::string name = spelling.empty() ? city.name : fmt::format("{} — {}", city.name, spelling);
    if (city.name == city.nameParent) {
        return fmt::format("{} / {}", name, country);
    }
    return fmt::format("{} / {} / {}", name, city.nameParent, country);
}

std::string citySearchText(const GlobalFuncs& glbFuncs, const City& city) {
    return citySearchText(glbFuncs, FoundCity{city.name, city.nameParent, city.cityId, city.countryId,
                                              city.countryNameEn, city.countryNameTr});
}

} // namespace zorel
