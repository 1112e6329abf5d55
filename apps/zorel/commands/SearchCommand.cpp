// SPDX-License-Identifier: Apache-2.0
#include "commands/Commands.h"

#include "commands/CataloguePlaces.h"
#include "commands/NameChoice.h"
#include "grammar/PlaceQuery.h"
#include "print/DayJson.h"

#include "platform/foundation/NumberText.h"
#include "platform/foundation/Utf8.h"
#include "store/CitySearch.h"
#include "store/MatchedSpelling.h"

#include <fmt/format.h>

#include <algorithm>
#include <span>

namespace zorel::cli {

namespace {
constexpr std::size_t kShortestPart = 3;

/// What is found, and what is shown of it.
struct Found {
    std::vector<FoundCity> cities;
    std::vector<FoundDetails> details; ///< of the first ones, which are shown
};

std::string numberText(std::int64_t number) {
    // translators: what stands between thousands: 146,000; a blank that does not break where it is a blank
    const std::string separator = trIn("between thousands", ",");
    std::string digits = std::to_string(number);
    for (auto at = static_cast<std::ptrdiff_t>(digits.size()) - 3; at > 0; at -= 3) {
        digits.insert(static_cast<std::size_t>(at), separator);
    }
    return digits;
}

Json orNull(const std::string& text) {
    return text.empty() ? Json(nullptr) : Json(text);
}

Json cityJson(const Context& context, const FoundCity& city, const FoundDetails& details) {
    return Json{{"id", integerValue(city.cityId)},
                {"name", city.name},
                {"spelling", orNull(details.spelling)},
                {"region", city.nameParent},
                {"country", languageInUse() == "tr" ? city.countryNameTr : city.countryNameEn},
                {"population", details.population == 0 ? Json(nullptr) : Json(details.population)},
                {"text", citySearchText(context.services, city, details.spelling)}};
}

void printText(const Context& context, const Found& found) {
    TextTable table("rlr");
    for (std::size_t i = 0; i < found.details.size(); ++i) {
        const auto& [spelling, population] = found.details[i];
        table.add({found.cities[i].cityId, citySearchText(context.services, found.cities[i], spelling),
                   population == 0 ? "" : numberText(population)});
    }
    context.streams.out << table.text(context.style);
    if (found.details.size() < found.cities.size()) {
        context.note(trPlural("{1} of {0} place; --limit 0 prints all",
                              "{1} of {0} places; --limit 0 prints all", found.cities.size(),
                              found.details.size()));
    }
}

void printJson(const Context& context, const Found& found) {
    Json results = Json::array();
    for (std::size_t i = 0; i < found.details.size(); ++i) {
        results.push_back(cityJson(context, found.cities[i], found.details[i]));
    }
    writeJson(context,
              Json{{"schema", "zorel/search/1"}, {"found", found.cities.size()}, {"places", results}});
}

Found find(const Context& context, const std::string& text) {
    requireCatalogue(context.services);
    auto cities = searchPlaces(context.services, text);
    if (!cities) {
        throw unreadableCatalogue(context.services);
    }
    if (cities->empty() && charactersOf(text).size() < kShortestPart) {
        throw CliError(Exit::badUse,
                       tr("no place is called {}, and it is too short for a part of a name", printable(text)),
                       tr("type three characters or more"));
    }
    const auto limit = static_cast<std::size_t>(context.options.limit);
    const std::size_t shown = limit == 0 ? cities->size() : std::min(limit, cities->size());
    auto details = detailsOfFound(context.services, std::span(*cities).first(shown), text);
    return {*std::move(cities), std::move(details)};
}
} // namespace

Exit runSearch(const Context& context) {
    const PlaceQuery query = parsePlaceQuery(context.argument());
    const auto* wanted = std::get_if<PlaceByName>(&query);
    if (wanted == nullptr) {
        throw CliError(Exit::badUse, tr("{} is not a name", quote(context.argument())),
                       tr("search for a part of a place's name"));
    }
    const Found found = find(context, wanted->text);
    if (context.options.json) {
        printJson(context, found);
    } else if (found.cities.empty()) {
        throw CliError(Exit::noResult, nothingCalled(context, wanted->text));
    } else {
        printText(context, found);
    }
    return found.cities.empty() ? Exit::noResult : Exit::ok;
}

} // namespace zorel::cli
