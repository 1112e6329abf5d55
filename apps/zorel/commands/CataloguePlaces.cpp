// SPDX-License-Identifier: Apache-2.0
#include "commands/CataloguePlaces.h"

#include "common/GlobalFuncs.h"
#include "platform/foundation/Locations.h"
#include "platform/foundation/NumberText.h"
#include "store/AlmanacPlace.h"

#include <fmt/format.h>

namespace zorel::cli {

ShownPlace shownPlace(const CataloguePlace& row) {
    ShownPlace place;
    place.place = almanacPlace(row);
    place.id = integerValue(row.city.cityId);
    place.region = row.city.nameParent;
    place.countryEn = row.city.countryNameEn;
    place.countryTr = row.city.countryNameTr;
    place.zoneEdition = row.zoneEdition;
    return place;
}

CliError unreadableCatalogue(const Bundle& services) {
    return {Exit::dataTrouble,
            tr("cannot read the city catalogue {}/database/cities.sqlite", services.appBundlePath),
            tr("install it again, or name the folder of another one with --bundle DIR")};
}

void requireCatalogue(const Bundle& services) {
    const std::string path = services.appBundlePath + "/database/cities.sqlite";
    if (!fileExistsAtPath(path)) {
        throw CliError(
            Exit::dataTrouble, tr("no city catalogue at {}", path),
            tr("name the folder that holds the catalogue and the language files with --bundle DIR"));
    }
}

} // namespace zorel::cli
