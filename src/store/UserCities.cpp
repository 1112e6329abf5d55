// SPDX-License-Identifier: Apache-2.0
#include "store/UserCities.h"

#include "store/UserRows.h"

namespace zorel {

UserCities storedUserCities(const std::string& path) {
    const UserReader reader(path);
    UserCities cities;
    cities.result = reader.forEachRow("SELECT ID, SETASHOME FROM USER_CITY", [&](const Statement& row) {
        cities.rows.push_back({row.text(0), row.text(1)});
    });
    return cities;
}

} // namespace zorel
