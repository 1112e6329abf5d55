// SPDX-License-Identifier: Apache-2.0
#include "common/GlobalFuncs.h"
#include "platform/foundation/NumberText.h"
#include "store/CatalogueLookup.h"
#include "store/CatalogueRow.h"
#include "store/CitySearch.h"

#include <algorithm>
#include <array>
#include <sqlite3.h>
#include <unordered_map>

namespace zorel {

namespace {

/// How well a place's name fits the text; the smaller the better.
enum Fit : int { exact = 0, begins = 1, contains = 2 };

constexpr char kSeparator = '|'; // between the spellings of a place
/// A city of this size [inhabitants] is meant before a village that fits the text better.
constexpr std::int32_t kLargeCity = 500'000;

/// What may stand before a name without being a part of it. The catalogue keeps "Medina" only as "Al Medina"
/// and "Cologne" only as "Lungsod ng Cologne", because a search finds the one within the other.
constexpr std::array<std::string_view, 12> kBeforeNames = {
    "al ", "al-", "el ", "el-", "la ", "le ", "il ", "o ", "ad ", "city of ", "kota ", "lungsod ng "};

std::string asciiLowerCase(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return lower;
}

std::string_view withoutArticle(std::string_view spelling) {
    for (const std::string_view article : kBeforeNames) {
        if (spelling.starts_with(article)) {
            return spelling.substr(article.size());
        }
    }
    return spelling;
}

/// Fit of one spelling; both in lower case. In a large city's name, leading whole words count as the name
/// ("Mecca City"), and any other part as its beginning.
Fit fitOfSpelling(std::string_view spelling, std::string_view name, bool large) {
    const std::string_view bare = withoutArticle(spelling);
    if (spelling == name || bare == name) {
        return exact;
    }
    if (spelling.starts_with(name) || bare.starts_with(name)) {
        const bool wholeWords = (bare.starts_with(name) ? bare : spelling)[name.size()] == ' ';
        return large && wholeWords ? exact : begins;
    }
    return large ? begins : contains;
}

/// The best fit among the spellings of a place.
Fit bestFit(std::string_view spellings, std::string_view name, bool large) {
    Fit best = contains;
    while (!spellings.empty()) {
        const std::size_t end = spellings.find(kSeparator);
        best = std::min(best, fitOfSpelling(spellings.substr(0, end), name, large));
        spellings.remove_prefix(end == std::string_view::npos ? spellings.size() : end + 1);
    }
    return best;
}

/// Fits of the cities that a search has found, by id.
std::unordered_map<std::string, Fit> fits(const GlobalFuncs& glbFuncs, const std::string& name,
                                          const std::vector<City>& cities) {
    std::unordered_map<std::string, Fit> result;
    const auto catalogue = Database::openCatalogue(cataloguePath(glbFuncs));
    if (!catalogue) {
        return result;
    }
    const std::string lower = asciiLowerCase(name);
    Statement row = catalogue->prepare("SELECT C.NAMESRC, C.POPULATION FROM CITY C WHERE C.ID = ?1");
    for (const City& city : cities) {
        sqlite3_reset(row.get());
        sqlite3_bind_int(row.get(), 1, integerValue(city.cityId));
        if (row.nextRow()) {
            const bool large = integerValue(row.text(1)) >= kLargeCity;
            result[city.cityId] = bestFit(asciiLowerCase(row.text(0)), lower, large);
        }
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
    const auto fitOf = fits(glbFuncs, name, cities);
    const auto fit = [&](const City& city) {
        const auto found = fitOf.find(city.cityId);
        return found == fitOf.end() ? contains : found->second;
    };
    std::ranges::stable_sort(cities, {}, fit);
    cities.erase(cities.begin() + static_cast<std::ptrdiff_t>(std::min(most, cities.size())), cities.end());
    return cities;
}

} // namespace zorel
