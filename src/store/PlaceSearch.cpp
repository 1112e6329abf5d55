// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/FoldedName.h"
#include "store/CitySearch.h"
#include "store/NameResolution.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>

namespace zorel {

namespace {

FoundCity foundCity(const NamedPlace& place) {
    return {place.name, place.region, std::to_string(place.id), "", place.countryEn, place.countryTr};
}

/// The text with each quote doubled: the statement then reads it as one quote.
std::string withDoubledQuotes(const std::string& text) {
    std::string doubled;
    for (const char c : text) {
        doubled.append(c == '\'' ? 2 : 1, c);
    }
    return doubled;
}

/// Whether a name, folded, begins with the folded text. Plain letters fold to themselves and tell it of most
/// names.
bool begins(std::string_view name, std::string_view folded) {
    for (std::size_t at = 0; at < folded.size(); ++at) {
        const char letter = static_cast<char>(at < name.size() ? name[at] | 0x20 : '\0');
        if (letter < 'a' || letter > 'z') {
            return foldedName(name).starts_with(folded);
        }
        if (letter != folded[at]) {
            return false;
        }
    }
    return true;
}

/// Moves the found cities behind those that are there already: beginnings first, none twice.
void append(std::vector<FoundCity>& cities, std::vector<FoundCity> found, const std::string& text) {
    std::unordered_set<std::string> ids;
    for (const FoundCity& city : cities) {
        ids.insert(city.cityId);
    }
    const std::string folded = foldedName(text);
    std::vector<FoundCity> others;
    for (FoundCity& city : found) {
        if (!ids.contains(city.cityId)) {
            (begins(city.name, folded) ? cities : others).push_back(std::move(city));
        }
    }
    std::ranges::move(others, std::back_inserter(cities));
}

} // namespace

std::optional<std::vector<FoundCity>> searchPlaces(const Bundle& bundle, const std::string& text) {
    const auto called = resolveName(bundle, text);
    if (!called) {
        return std::nullopt;
    }
    std::vector<FoundCity> cities;
    for (const NamedPlace& place : called->places) {
        cities.push_back(foundCity(place));
    }
    if (cities.empty() || foldedName(called->name) == foldedName(text)) {
        append(cities, searchCities(bundle, withDoubledQuotes(text)), text);
    }
    return cities;
}

} // namespace zorel
