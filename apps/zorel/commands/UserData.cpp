// SPDX-License-Identifier: Apache-2.0
#include "commands/UserData.h"

#include "terminal/CliError.h"

#include "platform/foundation/Locations.h"
#include "platform/foundation/NumberText.h"
#include "store/UserCities.h"

#include <fmt/format.h>

#include <filesystem>

namespace zorel::cli {

namespace {
std::string databasePath() {
    return Locations::current().data + "/user.sqlite";
}

bool isMissing(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::status(path, ignored).type() == std::filesystem::file_type::not_found;
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
    if (isMissing(path)) {
        return 0;
    }
    const UserCities cities = storedUserCities(path);
    if (!cities.complete) {
        throw CliError(Exit::dataTrouble, fmt::format("cannot read your cities in {}", path),
                       "check its permissions; a broken file can be moved away to begin anew");
    }
    const auto home = homePosition(cities.rows);
    return home ? integerValue(cities.rows[*home].cityId) : 0;
}

std::string storingHint() {
    return fmt::format("check that {} can be written and its disk has room", Locations::current().data);
}

} // namespace zorel::cli
