// SPDX-License-Identifier: Apache-2.0
#include "store/CatalogueLookup.h"

#include "common/Bundle.h"
#include "platform/foundation/NumberText.h"
#include "store/CatalogueRow.h"
#include "store/TimeZoneNames.h"

#include <sqlite3.h>
#include <string>

namespace zorel {

namespace {

constexpr const char* kPlaces =
    "SELECT C.NAME, CP.NAME, CC.NAMEEN, CC.NAMETR, C.LAT, C.LON, CP.GMT, D.DST, D.STARTMONTH, D.STARTDAY, "
    "D.STOPMONTH, D.STOPDAY, D.HOUR, C.TEMKIN, C.ID, CP.CID, CC.CODE, Z.NAME, C.ELEVATION, C.POPULATION, "
    "Z.EXACT, Z.DEPARTFIRST, Z.DEPARTLAST, Z.DEPARTGMT, "
    "(SELECT T.EDITION FROM CREDITS T WHERE T.PART = 'time zones') "
    "FROM CITY C, CITY_PARENT CP, COUNTRY CC, DST D, ZONE Z "
    "WHERE CP.PARENT = C.PARENT AND CC.CID = CP.CID AND D.DSTID = CP.DSTID AND Z.ZONE = C.ZONE "
    "AND C.ID >= ?1 ORDER BY C.ID";

/// What the zone's row says of the clock beyond the rule.
void readClock(const Statement& row, CataloguePlace& place) {
    const auto day = [&row](int column) {
        return std::chrono::sys_days(std::chrono::days(integerValue(row.text(column))));
    };
    place.ruleIsExact = row.text(20) == "1";
    if (!row.text(21).empty()) {
        place.departure = ZoneDeparture{day(21), day(22), doubleValue(row.text(23))};
    }
    place.zoneEdition = row.text(24);
}

CataloguePlace readPlace(const Statement& row, const Bundle& bundle) {
    CataloguePlace place{City(bundle), row.text(16), row.text(17), std::nullopt, 0, "", false, std::nullopt};
    readClock(row, place);
    readCityDetails(row, bundle, place.city);
    place.city.cityId = row.text(14);
    place.city.countryId = row.text(15);
    if (const std::string elevation = row.text(18); !elevation.empty()) {
        place.elevation = integerValue(elevation);
    }
    place.population = integerValue(row.text(19));
    return place;
}

/// The places from an id on, in the order of their ids.
Statement placesFrom(const Database& catalogue, std::int32_t firstId) {
    Statement rows = catalogue.prepare(kPlaces);
    sqlite3_bind_int(rows.get(), 1, firstId);
    return rows;
}

/// Id of the largest place of the zone of that very name.
std::optional<std::int32_t> largestPlaceId(const Database& catalogue, const std::string& timeZone) {
    Statement zone = catalogue.prepare("SELECT Z.LARGEST FROM ZONE Z WHERE Z.NAME = ?1");
    sqlite3_bind_text(zone.get(), 1, timeZone.c_str(), -1, SQLITE_TRANSIENT);
    if (!zone.nextRow()) {
        return std::nullopt;
    }
    return integerValue(zone.text(0));
}

/// The zone's name in the catalogue when it is listed under another of its names.
std::optional<std::string> listedName(const Database& catalogue, const std::string& timeZone) {
    const std::string canonical = canonicalTimeZone(timeZone);
    Statement zones = catalogue.prepare("SELECT Z.NAME FROM ZONE Z");
    while (!canonical.empty() && zones.nextRow()) {
        const std::string name = zones.text(0);
        if (canonicalTimeZone(name) == canonical) {
            return name;
        }
    }
    return std::nullopt;
}

} // namespace

bool forEachPlace(const Bundle& bundle, std::int32_t firstId,
                  const std::function<bool(const CataloguePlace&)>& take) {
    const auto catalogue = Database::openCatalogue(cataloguePath(bundle), Database::Reading::everyPlaceById);
    if (!catalogue) {
        return false;
    }
    Statement rows = placesFrom(*catalogue, firstId);
    while (rows.nextRow()) {
        if (!take(readPlace(rows, bundle))) {
            return true;
        }
    }
    return rows.isAtEnd();
}

std::optional<CataloguePlace> placeById(const Bundle& bundle, std::int32_t id) {
    bool ignored = false;
    return placeById(bundle, id, ignored);
}

std::optional<CataloguePlace> placeById(const Bundle& bundle, std::int32_t id, bool& readable) {
    const auto catalogue = Database::openCatalogue(cataloguePath(bundle));
    readable = catalogue.has_value();
    if (!catalogue) {
        return std::nullopt;
    }
    Statement rows = placesFrom(*catalogue, id);
    if (!rows.nextRow()) {
        readable = rows.isAtEnd();
        return std::nullopt;
    }
    CataloguePlace place = readPlace(rows, bundle);
    return integerValue(place.city.cityId) == id ? std::optional(std::move(place)) : std::nullopt;
}

std::optional<CataloguePlace> largestPlaceOfTimeZone(const Bundle& bundle, std::string_view timeZone) {
    const auto catalogue = Database::openCatalogue(cataloguePath(bundle));
    if (!catalogue) {
        return std::nullopt;
    }
    const std::string name(timeZone);
    auto id = largestPlaceId(*catalogue, name);
    if (!id) {
        id = largestPlaceId(*catalogue, listedName(*catalogue, name).value_or(""));
    }
    return id ? placeById(bundle, *id) : std::nullopt;
}

std::vector<CatalogueCredit> catalogueCredits(const Bundle& bundle) {
    std::vector<CatalogueCredit> credits;
    const auto catalogue = Database::openCatalogue(cataloguePath(bundle));
    if (!catalogue) {
        return credits;
    }
    Statement rows =
        catalogue->prepare("SELECT PART, SOURCE, EDITION, LICENCE, CREDIT, LICENCETEXT FROM CREDITS");
    while (rows.nextRow()) {
        credits.push_back(
            {rows.text(0), rows.text(1), rows.text(2), rows.text(3), rows.text(4), rows.text(5)});
    }
    return credits;
}

} // namespace zorel
