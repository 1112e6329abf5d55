// SPDX-License-Identifier: Apache-2.0
#include "Commands.h"

#include "DayJson.h"
#include "PlaceResolver.h"

#include "platform/foundation/NumberText.h"
#include "store/CitySearch.h"

#include <fmt/format.h>

#include <algorithm>

namespace zorel::cli {

namespace {
Json cityJson(const Context& context, const City& city) {
    return Json{{"id", integerValue(city.cityId)},
                {"name", city.name},
                {"region", city.nameParent},
                {"country", context.language == Language::turkish ? city.countryNameTr : city.countryNameEn},
                {"text", citySearchText(context.services, city)}};
}

void printText(const Context& context, const std::vector<City>& cities, std::size_t shown) {
    TextTable table("rl");
    for (std::size_t i = 0; i < shown; ++i)
        table.add({cities[i].cityId, citySearchText(context.services, cities[i])});
    context.streams.out << table.text(context.style);
    if (shown < cities.size())
        context.note(fmt::format("{} of {} places; --limit 0 prints all", shown, cities.size()));
}

void printJson(const Context& context, const std::vector<City>& cities, std::size_t shown) {
    Json results = Json::array();
    for (std::size_t i = 0; i < shown; ++i)
        results.push_back(cityJson(context, cities[i]));
    writeJson(context, Json{{"schema", "zorel/search/1"}, {"found", cities.size()}, {"places", results}});
}
} // namespace

Exit runSearch(const Context& context) {
    const PlaceQuery query = parsePlaceQuery(context.argument());
    const auto* wanted = std::get_if<PlaceByName>(&query);
    if (wanted == nullptr)
        throw CliError(Exit::badUse, fmt::format("{} is not a name", quote(context.argument())),
                       "search for a part of a place's name");
    const auto cities = citiesByName(context, *wanted);
    const auto limit = static_cast<std::size_t>(context.options.limit);
    const std::size_t shown = limit == 0 ? cities.size() : std::min(limit, cities.size());
    if (context.options.json)
        printJson(context, cities, shown);
    else
        printText(context, cities, shown);
    if (cities.empty() && !context.options.json)
        context.streams.err << fmt::format("zorel: {} {}\n", context.word(Word::noPlaceFound),
                                           quote(context.argument()));
    return cities.empty() ? Exit::noResult : Exit::ok;
}

} // namespace zorel::cli
