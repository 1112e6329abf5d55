// SPDX-License-Identifier: Apache-2.0
#include "commands/Commands.h"

#include "commands/HeadlessPane.h"
#include "commands/PlaceResolver.h"
#include "commands/UserData.h"
#include "print/DayJson.h"

#include "platform/foundation/NumberText.h"
#include "store/CatalogueLookup.h"
#include "store/CitySearch.h"

#include <fmt/format.h>

#include <algorithm>

namespace zorel::cli {

namespace {
Json cityJson(const Context& context, const City& city, bool home) {
    return Json{{"id", integerValue(city.cityId)},
                {"name", city.name},
                {"region", city.nameParent},
                {"country", context.language == Language::turkish ? city.countryNameTr : city.countryNameEn},
                {"home", home}};
}

void list(const Context& context, const HeadlessPane& pane) {
    TextTable table("lrl");
    Json cities = Json::array();
    for (const City* city : pane.cities()) {
        const bool home = city == pane.home();
        table.add({home ? "*" : "", city->cityId, citySearchText(context.services, *city)},
                  home ? TextTable::Emphasis::bold : TextTable::Emphasis::none);
        cities.push_back(cityJson(context, *city, home));
    }
    if (context.options.json) {
        writeJson(context, Json{{"schema", "zorel/cities/1"}, {"cities", cities}});
    } else if (cities.empty()) {
        context.streams.out << context.word(Word::noCities) << '\n';
    } else {
        context.streams.out << table.text(context.style);
    }
}

/// The catalogue city that the argument means.
City wantedCity(const Context& context) {
    const bool isPoint = std::holds_alternative<PlaceByCoordinates>(parsePlaceQuery(context.argument()));
    const auto row =
        isPoint ? std::nullopt : placeById(context.services, resolvePlace(context, Telling::always).id);
    if (!row) {
        throw CliError(Exit::badUse, "only places of the catalogue can be in the list",
                       "find the nearest one with: zorel search NAME");
    }
    return row->city;
}

/// Ids of the places that the argument means: the one of an id, or all that have the name.
std::vector<std::string> wantedIds(const Context& context) {
    std::vector<std::string> ids;
    const PlaceQuery query = parsePlaceQuery(context.argument());
    if (const auto* byId = std::get_if<PlaceById>(&query)) {
        ids.push_back(std::to_string(byId->id));
    } else if (const auto* byName = std::get_if<PlaceByName>(&query)) {
        for (const NamedPlace& place : resolveNameOrFail(context, byName->text).places) {
            ids.push_back(std::to_string(place.id));
        }
    }
    return ids;
}

/// The row of the list that the argument means: by id, or by a name that one of the listed cities has.
std::size_t wantedRow(const Context& context, const HeadlessPane& pane) {
    const auto ids = wantedIds(context);
    const auto cities = pane.cities();
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row < cities.size(); ++row) {
        if (std::ranges::find(ids, cities[row]->cityId) != ids.end()) {
            rows.push_back(row);
        }
    }
    if (rows.empty()) {
        throw CliError(Exit::noResult,
                       fmt::format("{} is not in your list of cities", quote(context.argument())),
                       "zorel cities shows your cities; zorel cities add NAME adds one");
    }
    const auto isAnother = [&](std::size_t row) {
        return cities[row]->cityId != cities[rows.front()]->cityId;
    };
    if (std::ranges::any_of(rows, isAnother)) {
        throw CliError(Exit::badUse,
                       fmt::format("several of your cities are called {}", printable(context.argument())),
                       "give the id that zorel cities shows, or add the region or the country to the name");
    }
    return rows.front();
}

bool isListed(const HeadlessPane& pane, const std::string& id) {
    const auto cities = pane.cities();
    return std::any_of(cities.begin(), cities.end(), [&](const City* city) { return city->cityId == id; });
}

/// The pane only logs what it could not store.
void requireStored(bool stored, const std::string& name) {
    if (!stored) {
        throw CliError(Exit::dataTrouble, fmt::format("the change of {} could not be stored", name),
                       storingHint());
    }
}
} // namespace

Exit runCities(const Context& context) {
    const HeadlessPane pane;
    list(context, pane);
    return Exit::ok;
}

Exit runCitiesAdd(const Context& context) {
    const City city = wantedCity(context);
    HeadlessPane pane;
    if (isListed(pane, city.cityId)) {
        context.note(fmt::format("{} is in your list already", city.name));
    } else {
        pane.add(city);
    }
    requireStored(isListed(pane, city.cityId), city.name);
    list(context, pane);
    return Exit::ok;
}

Exit runCitiesHome(const Context& context) {
    HeadlessPane pane;
    const City city = *pane.cities()[wantedRow(context, pane)];
    pane.makeHome(integerValue(city.cityId));
    requireStored(homeCityId() == integerValue(city.cityId), city.name);
    list(context, pane);
    return Exit::ok;
}

Exit runCitiesRemove(const Context& context) {
    HeadlessPane pane;
    const std::size_t row = wantedRow(context, pane);
    const City city = *pane.cities()[row];
    pane.remove(row);
    requireStored(!isListed(pane, city.cityId), city.name);
    list(context, pane);
    return Exit::ok;
}

} // namespace zorel::cli
