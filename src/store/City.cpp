// SPDX-License-Identifier: Apache-2.0
#include "store/City.h"

#include "almanac/Prayer.h"
#include "platform/foundation/NumberText.h"
#include "store/CatalogueRow.h"

#include <cstddef>

namespace zorel {

namespace {

/// The id follows at the end.
constexpr const char* kDetailsOfCity =
    "SELECT C.NAME, CP.NAME, CC.NAMEEN, CC.NAMETR, C.LAT, C.LON, CP.GMT, D.DST,"
    "                           D.STARTMONTH, D.STARTDAY, D.STOPMONTH, D.STOPDAY, D.HOUR, C.TEMKIN"
    "                           FROM CITY_PARENT CP, CITY C, DST D, COUNTRY CC"
    "                           WHERE CP.PARENT = C.PARENT"
    "                           AND   CC.CID = CP.CID"
    "                           AND   CP.DSTID = D.DSTID"
    "                           AND   C.ID=";

} // namespace

void City::getAllCityInfo(City& city) const {
    const auto catalogue = Database::openCatalogue(cataloguePath(*bundle_));
    if (!catalogue) {
        return;
    }
    Statement row = catalogue->prepare(kDetailsOfCity + std::to_string(integerValue(city.cityId)));
    if (row.nextRow()) {
        readCityDetails(row, *bundle_, city);
    }
}

double City::getRelevantPrayerTime(std::int32_t prayerId) const {
    const auto prayer = almanac::prayerOfId(prayerId);
    return prayer ? aNamazVakitleri.times.at(static_cast<std::size_t>(identityOf(*prayer).position)) : 0.0;
}

void City::changeTemkin() {
    temkin = integerValue(temkin) == 0 ? "1" : "0";
}

} // namespace zorel
