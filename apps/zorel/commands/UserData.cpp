// SPDX-License-Identifier: Apache-2.0
#include "commands/UserData.h"

#include "terminal/CliError.h"

#include "platform/foundation/Locations.h"
#include "platform/foundation/NumberText.h"
#include "store/UserCities.h"

#include <fmt/format.h>

namespace zorel::cli {

namespace {
std::string databasePath() {
    return Locations::current().data + "/user.sqlite";
}

} // namespace

void makeDataDir() {
    const std::string& folder = Locations::current().data;
    if (!createDirectoryAtPath(folder)) {
        throw CliError(Exit::dataTrouble, fmt::format("cannot make the folder {}", folder),
                       "check its permissions, or name another one with --data-dir DIR");
    }
}

void requireReadableUserData() {
    static_cast<void>(homeCityId());
}

std::int32_t homeCityId() {
    const std::string path = databasePath();
    const UserCities cities = storedUserCities(path);
    if (cities.result.state == StoreState::busy) {
        throw CliError(Exit::dataTrouble, cities.result.reason, "try again");
    }
    if (cities.result.state == StoreState::failed) {
        throw CliError(Exit::dataTrouble,
                       fmt::format("cannot read your cities in {}: {}", path, cities.result.reason),
                       "check its permissions; a broken file can be moved away to begin anew");
    }
    const auto home = homePosition(cities.rows);
    return home ? integerValue(cities.rows[*home].cityId) : 0;
}

std::string storingHint() {
    return fmt::format("check that {} can be written and its disk has room", Locations::current().data);
}

} // namespace zorel::cli
