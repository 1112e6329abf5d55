// SPDX-License-Identifier: Apache-2.0
#include "store/UserCities.h"

#include "store/Database.h"

namespace zorel {

UserCities storedUserCities(const std::string& path) {
    const auto database = Database::openUser(path);
    if (!database) {
        return {};
    }
    UserCities cities;
    Statement rows = database->prepare("SELECT ID, SETASHOME FROM USER_CITY");
    while (rows.nextRow()) {
        cities.rows.push_back({rows.text(0), rows.text(1)});
    }
    cities.complete = rows.isAtEnd();
    return cities;
}

} // namespace zorel
