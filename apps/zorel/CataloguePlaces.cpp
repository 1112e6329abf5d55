// SPDX-License-Identifier: Apache-2.0
#include "CataloguePlaces.h"

#include "CliError.h"

#include "common/GlobalFuncs.h"
#include "platform/foundation/Locations.h"
#include "platform/foundation/NumberText.h"

#include <fmt/format.h>

namespace zorel::cli {

Place placeOf(const CataloguePlace& row) {
    const City& city = row.city;
    RuleClock rule;
    rule.gmt = doubleValue(city.GMT);
    rule.dst = integerValue(city.DST);
    rule.startMonth = integerValue(city.startMonth);
    rule.startDay = integerValue(city.startDay);
    rule.stopMonth = integerValue(city.stopMonth);
    rule.stopDay = integerValue(city.stopDay);
    rule.shift = integerValue(city.hour);
    Place place;
    place.id = integerValue(city.cityId);
    place.name = city.name;
    place.region = city.nameParent;
    place.countryEn = city.countryNameEn;
    place.countryTr = city.countryNameTr;
    place.latitude = doubleValue(city.latitude);
    place.longitude = doubleValue(city.longitude);
    place.highTemkin = integerValue(city.temkin) == 1;
    place.elevation = row.elevation.value_or(0);
    place.zoneName = row.timeZone;
    place.clock = ZoneClock(rule);
    return place;
}

void requireCatalogue(const GlobalFuncs& services) {
    const std::string path = services.appBundlePath + "/database/cities.sqlite";
    if (!fileExistsAtPath(path))
        throw CliError(Exit::dataTrouble, fmt::format("no city catalogue at {}", path),
                       "name the folder that holds the catalogue and the language files with --bundle DIR");
}

} // namespace zorel::cli
