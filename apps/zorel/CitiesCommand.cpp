// SPDX-License-Identifier: Apache-2.0
#include "Commands.h"

#include "DayJson.h"
#include "Pane.h"
#include "PlaceResolver.h"
#include "UserData.h"

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

void list(const Context& context, const Pane& pane) {
    TextTable table("lrl");
    Json cities = Json::array();
    for (const City* city : pane.cities()) {
        const bool home = city == pane.home();
        table.add({home ? "*" : "", city->cityId, citySearchText(context.services, *city)},
                  home ? TextTable::Emphasis::bold : TextTable::Emphasis::none);
        cities.push_back(cityJson(context, *city, home));
    }
    if (context.options.json)
        writeJson(context, Json{{"schema", "zorel/cities/1"}, {"cities", cities}});
    else if (cities.empty())
        context.streams.out << context.word(Word::noCities) << '\n';
    else
        context.streams.out << table.text(context.style);
}

/// The catalogue city that the argument means.
City wantedCity(const Context& context) {
    const std::int32_t id = resolvePlace(context).id;
    const auto row = id == 0 ? std::nullopt : placeById(context.services, id);
    if (!row)
        throw CliError(Exit::badUse, "only places of the catalogue can be in the list",
                       "find the nearest one with: zorel search NAME");
    return row->city;
}

/// The row of the list that the argument means: by id, or by a name that belongs to one of the listed cities.
std::size_t wantedRow(const Context& context, const Pane& pane) {
    const auto cities = pane.cities();
    const auto rowOf = [&](const std::string& id) {
        return static_cast<std::size_t>(
            std::find_if(cities.begin(), cities.end(), [&](const City* city) { return city->cityId == id; }) -
            cities.begin());
    };
    const PlaceQuery query = parsePlaceQuery(context.argument());
    if (const auto* byId = std::get_if<PlaceById>(&query)) {
        if (rowOf(std::to_string(byId->id)) < cities.size())
            return rowOf(std::to_string(byId->id));
    } else if (const auto* byName = std::get_if<PlaceByName>(&query)) {
        for (const City& match : citiesByName(context, *byName)) {
            if (rowOf(match.cityId) < cities.size())
                return rowOf(match.cityId);
        }
    }
    throw CliError(Exit::noResult, fmt::format("{} is not in your list of cities", quote(context.argument())),
                   "zorel cities shows your cities; zorel cities add NAME adds one");
}

bool isListed(const Pane& pane, const std::string& id) {
    const auto cities = pane.cities();
    return std::any_of(cities.begin(), cities.end(), [&](const City* city) { return city->cityId == id; });
}

/// The pane only logs what it could not store.
void requireStored(bool stored, const std::string& name) {
    if (!stored)
        throw CliError(Exit::dataTrouble, fmt::format("the change of {} could not be stored", name),
                       storingHint());
}
} // namespace

Exit runCities(const Context& context) {
    const Pane pane;
    list(context, pane);
    return Exit::ok;
}

Exit runCitiesAdd(const Context& context) {
    const City city = wantedCity(context);
    Pane pane;
    if (isListed(pane, city.cityId))
        context.note(fmt::format("{} is in your list already", city.name));
    else
        pane.add(city);
    requireStored(isListed(pane, city.cityId), city.name);
    list(context, pane);
    return Exit::ok;
}

Exit runCitiesHome(const Context& context) {
    Pane pane;
    const City city = *pane.cities()[wantedRow(context, pane)];
    pane.makeHome(integerValue(city.cityId));
    requireStored(homeCityId() == integerValue(city.cityId), city.name);
    list(context, pane);
    return Exit::ok;
}

Exit runCitiesRemove(const Context& context) {
    Pane pane;
    const std::size_t row = wantedRow(context, pane);
    const City city = *pane.cities()[row];
    pane.remove(row);
    requireStored(!isListed(pane, city.cityId), city.name);
    list(context, pane);
    return Exit::ok;
}

} // namespace zorel::cli
