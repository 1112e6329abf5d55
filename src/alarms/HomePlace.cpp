// SPDX-License-Identifier: Apache-2.0
#include "alarms/HomePlace.h"

#include "common/GlobalFuncs.h"
#include "store/AlmanacPlace.h"
#include "words/Tr.h"

#include <fmt/format.h>

namespace zorel {

HomePlace homePlaceOf(const GlobalFuncs& glbFuncs, const std::vector<UserCity>& cities) {
    const auto position = homePosition(cities);
    if (!position) {
        return {};
    }
    HomePlace home;
    home.cityId = integerValue(cities[*position].cityId);
    bool readable = false;
    home.row = placeById(glbFuncs, home.cityId, readable);
    if (home.row) {
        home.state = HomeState::known;
        home.place = almanacPlace(*home.row);
    } else if (readable) {
        home.state = HomeState::notInCatalogue;
        home.reason = tr("the catalogue has no city {}", home.cityId);
    } else {
        home.state = HomeState::unreadableCatalogue;
        home.reason = tr("the catalogue {}/database/cities.sqlite cannot be read", glbFuncs.appBundlePath);
    }
    return home;
}

} // namespace zorel
