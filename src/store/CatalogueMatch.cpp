// SPDX-License-Identifier: Apache-2.0
#include "common/GlobalFuncs.h"
#include "store/CatalogueLookup.h"
#include "store/CatalogueRow.h"
#include "store/CitySearch.h"

#include <algorithm>
#include <sqlite3.h>
#include <unordered_map>

namespace zorel {

namespace {

/// How well a place's name fits the text; the smaller the better.
enum Fit : int { exact = 0, begins = 1, contains = 2 };

constexpr char kSeparator = '|'; // between the spellings of a place

std::string asciiLowerCase(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return lower;
}

/// The best fit of `name` among the spellings; both in lower case.
Fit bestFit(std::string_view spellings, std::string_view name) {
    Fit best = contains;
    while (!spellings.empty()) {
        const std::size_t end = spellings.find(kSeparator);
        const std::string_view spelling = spellings.substr(0, end);
        if (spelling == name) {
            return exact;
        }
        best = spelling.starts_with(name) ? begins : best;
        spellings.remove_prefix(end == std::string_view::npos ? spellings.size() : end + 1);
    }
    return best;
}

std::unordered_map<std::string, Fit> fits(const GlobalFuncs& glbFuncs, const std::string& name) {
    std::unordered_map<std::string, Fit> result;
    const auto catalogue = Database::openCatalogue(cataloguePath(glbFuncs));
    if (!catalogue) {
        return result;
    }
    const std::string lower = asciiLowerCase(name);
    Statement rows = catalogue->prepare("SELECT C.ID, C.NAMESRC FROM CITY C WHERE C.NAMESRC LIKE '%' || ?1 || '%'");
    sqlite3_bind_text(rows.get(), 1, name.c_str(), -1, SQLITE_TRANSIENT);
    while (rows.nextRow()) {
        result[rows.text(0)] = bestFit(asciiLowerCase(rows.text(1)), lower);
    }
    return result;
}

/// The text with each quote doubled: the statement then reads it as one quote.
std::string withDoubledQuotes(const std::string& text) {
    std::string doubled;
    for (const char c : text) {
        doubled.append(c == '\'' ? 2 : 1, c);
    }
    return doubled;
}

} // namespace

std::vector<City> matchPlaces(const GlobalFuncs& glbFuncs, const std::string& name, std::size_t most) {
    std::vector<City> cities = searchCities(glbFuncs, withDoubledQuotes(name));
    const auto fitOf = fits(glbFuncs, name);
    const auto fit = [&](const City& city) {
        const auto found = fitOf.find(city.cityId);
        return found == fitOf.end() ? contains : found->second;
    };
    std::ranges::stable_sort(cities, {}, fit);
    cities.erase(cities.begin() + static_cast<std::ptrdiff_t>(std::min(most, cities.size())), cities.end());
    return cities;
}

} // namespace zorel
