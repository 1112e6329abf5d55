// SPDX-License-Identifier: Apache-2.0
#include "commands/Commands.h"

#include "commands/CataloguePlaces.h"
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
Json cityJson(const City& city, bool home) {
    return Json{{"id", integerValue(city.cityId)},
                {"name", city.name},
                {"region", city.nameParent},
                {"country", languageInUse() == "tr" ? city.countryNameTr : city.countryNameEn},
                {"home", home}};
}

/// What stands for a city whose name the catalogue did not tell.
std::string namelessText(const Context& context, const City& city) {
    bool readable = false;
    const auto place = placeById(context.services, integerValue(city.cityId), readable);
    if (!readable) {
        throw unreadableCatalogue(context.services);
    }
    return place ? citySearchText(context.services, place->city) : tr("not in the catalogue");
}

void list(const Context& context, const HeadlessPane& pane) {
    TextTable table("lrl");
    Json cities = Json::array();
    for (const City* city : pane.cities()) {
        const bool home = city == pane.home();
        const std::string name =
            city->name.empty() ? namelessText(context, *city) : citySearchText(context.services, *city);
        table.add({home ? "*" : "", city->cityId, name},
                  home ? TextTable::Emphasis::bold : TextTable::Emphasis::none);
        cities.push_back(cityJson(*city, home));
    }
    if (context.options.json) {
        writeJson(context, Json{{"schema", "zorel/cities/1"}, {"cities", cities}});
    } else if (cities.empty()) {
        context.streams.out << noCitiesText() << '\n';
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
        throw CliError(Exit::badUse, tr("only places of the catalogue can be in the list"),
                       tr("find the nearest one with: zorel search NAME"));
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
        throw CliError(Exit::noResult, tr("{} is not in your list of cities", quote(context.argument())),
                       tr("zorel cities shows your cities; zorel cities add NAME adds one"));
    }
    const auto isAnother = [&](std::size_t row) {
        return cities[row]->cityId != cities[rows.front()]->cityId;
    };
    if (std::ranges::any_of(rows, isAnother)) {
        throw CliError(
            Exit::badUse, tr("several of your cities are called {}", printable(context.argument())),
            tr("give the id that zorel cities shows, or add the region or the country to the name"));
    }
    return rows.front();
}

Exit listAfterwards(const Context& context, const HeadlessPane& pane) {
    return showAfterwards(context, pane, [&] { list(context, pane); });
}

std::string changeOf(const City& city) {
    return tr("the change of {}", city.name.empty() ? city.cityId : city.name);
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
    const ActionResult result =
        pane.act([&](UserActions& actions) { return actions.addCity(integerValue(city.cityId)); });
    requireDone(result, changeOf(city));
    if (result.state == ActionState::alreadyListed) {
        context.note(tr("{} is in your list already", city.name));
    }
    return listAfterwards(context, pane);
}

Exit runCitiesHome(const Context& context) {
    HeadlessPane pane;
    const City city = *pane.cities()[wantedRow(context, pane)];
    requireDone(pane.act([&](UserActions& actions) { return actions.makeHome(integerValue(city.cityId)); }),
                changeOf(city));
    return listAfterwards(context, pane);
}

Exit runCitiesRemove(const Context& context) {
    HeadlessPane pane;
    const City city = *pane.cities()[wantedRow(context, pane)];
    requireDone(pane.act([&](UserActions& actions) { return actions.removeCity(integerValue(city.cityId)); }),
                changeOf(city));
    return listAfterwards(context, pane);
}

} // namespace zorel::cli
