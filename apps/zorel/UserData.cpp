// SPDX-License-Identifier: Apache-2.0
#include "UserData.h"

#include "CliError.h"

#include "platform/foundation/Locations.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <filesystem>
#include <memory>

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
    if (!createDirectoryAtPath(folder))
        throw CliError(Exit::dataTrouble, fmt::format("cannot make the folder {}", folder),
                       "check its permissions, or name another one with --data-dir DIR");
}

void requireReadableUserData() {
    static_cast<void>(homeCityId());
}

std::int32_t homeCityId() {
    const std::string path = databasePath();
    if (isMissing(path))
        return 0;
    sqlite3* opened = nullptr;
    const int code = sqlite3_open_v2(path.c_str(), &opened, SQLITE_OPEN_READONLY, nullptr);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> database(opened, sqlite3_close);
    sqlite3_stmt* prepared = nullptr;
    if (code != SQLITE_OK || sqlite3_prepare_v2(opened, "SELECT ID, SETASHOME FROM USER_CITY", -1, &prepared,
                                                nullptr) != SQLITE_OK)
        throw CliError(Exit::dataTrouble, fmt::format("cannot read your cities in {}", path),
                       "check its permissions; a broken file can be moved away to begin anew");
    const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> rows(prepared, sqlite3_finalize);
    std::int32_t first = 0;
    while (sqlite3_step(prepared) == SQLITE_ROW) {
        const std::int32_t id = sqlite3_column_int(prepared, 0);
        if (sqlite3_column_int(prepared, 1) == 1)
            return id;
        first = first == 0 ? id : first;
    }
    return first;
}

std::string storingHint() {
    return fmt::format("check that {} can be written and its disk has room", Locations::current().data);
}

} // namespace zorel::cli
