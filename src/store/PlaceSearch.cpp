// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/FoldedName.h"
#include "store/CitySearch.h"
#include "store/NameResolution.h"

#include <unordered_set>

namespace zorel {

namespace {

City cityOf(const GlobalFuncs& glbFuncs, const NamedPlace& place) {
    City city(glbFuncs);
    city.name = place.name;
    city.nameParent = place.region;
    city.cityId = std::to_string(place.id);
    city.countryNameEn = place.countryEn;
    city.countryNameTr = place.countryTr;
    return city;
}

/// The text with each quote doubled: the statement then reads it as one quote.
std::string withDoubledQuotes(const std::string& text) {
    std::string doubled;
    for (const char c : text) {
        doubled.append(c == '\'' ? 2 : 1, c);
    }
    return doubled;
}

/// Moves the found cities behind those that are there already: beginnings first, none twice.
void append(std::vector<City>& cities, std::vector<City> found, const std::string& text) {
    std::unordered_set<std::string> ids;
    for (const City& city : cities) {
        ids.insert(city.cityId);
    }
    const std::string folded = foldedName(text);
    std::vector<bool> begins;
    for (const City& city : found) {
        begins.push_back(foldedName(city.name).starts_with(folded));
    }
    cities.reserve(cities.size() + found.size());
    for (const bool wanted : {true, false}) {
        for (std::size_t at = 0; at < found.size(); ++at) {
            if (begins[at] == wanted && !ids.contains(found[at].cityId)) {
                cities.push_back(std::move(found[at]));
            }
        }
    }
}

} // namespace

std::optional<std::vector<City>> searchPlaces(const GlobalFuncs& glbFuncs, const std::string& text) {
    const auto called = resolveName(glbFuncs, text);
    if (!called) {
        return std::nullopt;
    }
    std::vector<City> cities;
    for (const NamedPlace& place : called->places) {
        cities.push_back(cityOf(glbFuncs, place));
    }
    if (cities.empty() || foldedName(called->name) == foldedName(text)) {
        append(cities, searchCities(glbFuncs, withDoubledQuotes(text)), text);
    }
    return cities;
}

} // namespace zorel
