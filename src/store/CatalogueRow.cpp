// SPDX-License-Identifier: Apache-2.0
#include "store/CatalogueRow.h"

#include "common/Bundle.h"
#include "platform/foundation/NumberText.h"

#include <algorithm>
#include <fmt/format.h>

namespace zorel {

std::string coordinateText(const Statement& row, int column, const Bundle& bundle) {
    return bundle.getFloatStr(bundle.Decrypt(row.text(column)));
}

std::string cataloguePath(const Bundle& bundle) {
    return fmt::format("{}/database/{}", bundle.appBundlePath, "cities.sqlite");
}

void readCityDetails(const Statement& row, const Bundle& bundle, City& city) {
    city.name = row.text(0);
    city.nameParent = row.text(1);
    city.countryNameEn = row.text(2);
    city.countryNameTr = row.text(3);
    city.latitude = coordinateText(row, 4, bundle);
    city.longitude = coordinateText(row, 5, bundle);
    city.GMT = row.text(6);
    city.DST = row.text(7);
    city.startMonth = row.text(8);
    city.startDay = row.text(9);
    city.stopMonth = row.text(10);
    city.stopDay = row.text(11);
    city.hour = row.text(12);
    city.temkin = row.text(13);
}

std::size_t placeCount(const Database& catalogue) {
    // Rows are numbered from 1 as they were inserted, and none is ever removed.
    Statement last = catalogue.prepare("SELECT C.ROWID FROM CITY C ORDER BY C.ROWID DESC LIMIT 1");
    return last.nextRow() ? static_cast<std::size_t>(std::max(integerValue(last.text(0)), 0)) : 0;
}

} // namespace zorel
