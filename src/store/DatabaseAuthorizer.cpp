// SPDX-License-Identifier: Apache-2.0
#include "store/DatabaseAuthorizer.h"

#include <algorithm>
#include <array>
#include <span>
#include <sqlite3.h>

namespace zorel {
namespace {

/// Names of tables are the same in capitals and small letters.
bool isOneOf(const char* name, std::span<const char* const> names) {
    return std::ranges::any_of(names, [name](const char* one) { return sqlite3_stricmp(name, one) == 0; });
}

/// One request of the statement compiler: the action's code and its two arguments (sqlite3.h tells which).
struct Request {
    int action = 0;
    const char* first = nullptr;
    const char* second = nullptr;
    const char* database = nullptr;

    /// Of a table that a statement names without one of its columns, SQLite does not tell the database.
    [[nodiscard]] bool isOnTableOf(std::span<const char* const> tables) const {
        return (database == nullptr || isOneOf(database, std::array{"main"})) && isOneOf(first, tables);
    }
};

constexpr std::array kUserTables = {"USER_CITY", "USER_ALARMS", "USER_SETTINGS"};
constexpr std::array kCatalogueTables = {"CITY",    "CITY_PARENT", "COUNTRY",       "DST",         "ZONE",
                                         "CREDITS", "SPELLING",    "SQUARE_DEGREE", "COUNTRY_NAME"};
/// The table of contents, which SQLite itself writes when a table is created.
constexpr std::array kSchemaTable = {"sqlite_master"};

bool userMay(const Request& request) {
    switch (request.action) {
    case SQLITE_SELECT:
        return true;
    case SQLITE_READ:
    case SQLITE_INSERT:
    case SQLITE_UPDATE:
        return request.isOnTableOf(kUserTables) || request.isOnTableOf(kSchemaTable);
    case SQLITE_DELETE:
    case SQLITE_CREATE_TABLE:
        return request.isOnTableOf(kUserTables);
    default:
        return false;
    }
}

bool catalogueMay(const Request& request) {
    switch (request.action) {
    case SQLITE_SELECT:
        return true;
    case SQLITE_READ:
        return request.isOnTableOf(kCatalogueTables);
    case SQLITE_FUNCTION:
        return isOneOf(request.second, std::array{"like"});
    default:
        return false;
    }
}

template <bool (*May)(const Request&)>
int answer(void* /*context*/, int action, const char* first, const char* second, const char* database,
           const char* /*triggerOrView*/) {
    return May({action, first, second, database}) ? SQLITE_OK : SQLITE_DENY;
}

} // namespace

void allowUserTables(sqlite3* connection) {
    sqlite3_set_authorizer(connection, &answer<userMay>, nullptr);
}

void allowCatalogueTables(sqlite3* connection) {
    sqlite3_set_authorizer(connection, &answer<catalogueMay>, nullptr);
}

} // namespace zorel
