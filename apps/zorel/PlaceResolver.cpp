// SPDX-License-Identifier: Apache-2.0
#include "PlaceResolver.h"

#include "CataloguePlaces.h"

#include "platform/foundation/Locale.h"
#include "platform/foundation/Locations.h"
#include "platform/foundation/NumberText.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <algorithm>
#include <memory>

namespace zorel::cli {

namespace {
constexpr std::size_t kMostMatches = 2000;
constexpr std::size_t kMostNamed = 5;
constexpr std::size_t kShortestName = 3;

std::string folded(const std::string& text) {
    return lowerCase(text);
}

bool containsFolded(const std::string& text, const std::string& wantedFolded) {
    return folded(text).find(wantedFolded) != std::string::npos;
}

bool liesWithin(const City& city, const std::string& part) {
    const std::string wanted = folded(part);
    return containsFolded(city.nameParent, wanted) || containsFolded(city.countryNameEn, wanted) ||
           containsFolded(city.countryNameTr, wanted);
}

bool liesWithinAll(const City& city, const std::vector<std::string>& parts) {
    return std::all_of(parts.begin(), parts.end(),
                       [&](const std::string& part) { return liesWithin(city, part); });
}

std::string cityText(const City& city, Language language) {
    Place place;
    place.id = integerValue(city.cityId);
    place.name = city.name;
    place.region = city.nameParent;
    place.countryEn = city.countryNameEn;
    place.countryTr = city.countryNameTr;
    return fmt::format("{} ({})", placeText(place, language), place.id);
}

Place placeOfId(const Context& context, std::int32_t id) {
    requireCatalogue(context.services);
    const auto row = placeById(context.services, id);
    if (!row)
        throw CliError(Exit::noResult, fmt::format("no place has the catalogue id {}", id),
                       "find the id with: zorel search NAME");
    return placeOf(*row);
}

/// Places of the very same name as the one taken are worth a word, others are not.
void tellAboutOthers(const Context& context, const std::vector<City>& matches) {
    std::vector<std::string> others;
    for (std::size_t i = 1; i < matches.size() && others.size() < kMostNamed; ++i) {
        if (folded(matches[i].name) == folded(matches[0].name))
            others.push_back(cityText(matches[i], context.language));
    }
    if (!others.empty())
        context.note(fmt::format("taken: {}; also: {}", cityText(matches[0], context.language),
                                 fmt::join(others, "; ")));
}

Place placeOfName(const Context& context, const PlaceByName& wanted) {
    const auto matches = citiesByName(context, wanted);
    if (matches.empty())
        throw CliError(
            Exit::noResult, fmt::format("no place {} in the catalogue", quote(context.argument())),
            "try another spelling or a part of the name (zorel search TEXT), or give LAT,LON,ZONE");
    tellAboutOthers(context, matches);
    return placeOfId(context, integerValue(matches.front().cityId));
}

ZoneClock clockOf(const ZoneQuery& zone) {
    if (const auto* offset = std::get_if<std::chrono::seconds>(&zone))
        return ZoneClock(FixedClock{*offset});
    const auto* name = std::get_if<std::string>(&zone);
    return ZoneClock(NamedClock{name == nullptr ? std::string() : *name});
}

Place placeOfPoint(const PlaceByCoordinates& point) {
    Place place;
    place.latitude = point.latitude;
    place.longitude = point.longitude;
    place.clock = clockOf(point.zone);
    place.zoneName =
        std::holds_alternative<std::monostate>(point.zone) ? systemZoneName() : place.clock.zoneName();
    return place;
}

Place defaultPlace(const Context& context) {
    if (const std::int32_t id = homeCityId(); id != 0)
        return placeOfId(context, id);
    requireCatalogue(context.services);
    const std::string zone = systemZoneName();
    const auto largest = largestPlaceOfTimeZone(context.services, zone);
    if (!largest)
        throw CliError(Exit::badUse, "no place was given and there is no home city",
                       "give a place (zorel today Ankara) or choose one for good: zorel cities add Ankara");
    context.note(
        fmt::format("no home city yet, so the largest place of {} is taken; choose yours with: zorel cities "
                    "add NAME",
                    zone));
    return placeOf(*largest);
}

struct Resolve {
    const Context& context;
    Place operator()(const PlaceById& wanted) const { return placeOfId(context, wanted.id); }
    Place operator()(const PlaceByName& wanted) const { return placeOfName(context, wanted); }
    Place operator()(const PlaceByCoordinates& wanted) const { return placeOfPoint(wanted); }
};
} // namespace

std::vector<City> citiesByName(const Context& context, const PlaceByName& wanted) {
    if (displayWidth(wanted.name) < kShortestName)
        throw CliError(Exit::badUse, fmt::format("{} is too short for a name", quote(wanted.name)),
                       "type three characters or more");
    requireCatalogue(context.services);
    auto matches = matchPlaces(context.services, wanted.name, kMostMatches);
    std::erase_if(matches, [&](const City& city) { return !liesWithinAll(city, wanted.within); });
    return matches;
}

Place resolvePlace(const Context& context) {
    Place place = context.options.words.empty()
                      ? defaultPlace(context)
                      : std::visit(Resolve{context}, parsePlaceQuery(context.argument()));
    if (context.options.temkin != 0)
        place.highTemkin = context.options.temkin == 500;
    return place;
}

std::int32_t homeCityId() {
    const std::string path = Locations::current().data + "/user.sqlite";
    sqlite3* opened = nullptr;
    const int code = sqlite3_open_v2(path.c_str(), &opened, SQLITE_OPEN_READONLY, nullptr);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> database(opened, sqlite3_close);
    sqlite3_stmt* prepared = nullptr;
    if (code != SQLITE_OK || sqlite3_prepare_v2(opened, "SELECT ID, SETASHOME FROM USER_CITY", -1, &prepared,
                                                nullptr) != SQLITE_OK)
        return 0;
    const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> rows(prepared, sqlite3_finalize);
    std::int32_t first = 0;
    while (sqlite3_step(prepared) == SQLITE_ROW) {
        const std::int32_t id = sqlite3_column_int(prepared, 0);
        if (sqlite3_column_int(prepared, 1) == 1)
            return id;
        first = first == 0 ? id : first;
    }
    return first;
}

} // namespace zorel::cli
