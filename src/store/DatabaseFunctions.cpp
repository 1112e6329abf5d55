// SPDX-License-Identifier: Apache-2.0
#include "store/DatabaseFunctions.h"

#include "common/GlobalFuncs.h"
#include "platform/foundation/Locations.h"
#include "platform/foundation/NumberText.h"
#include "store/Database.h"
#include "store/UserDatabaseFile.h"
#include "store/UserLock.h"

#include <fmt/format.h>
#include <optional>
#include <sqlite3.h>

namespace zorel {
namespace {

constexpr std::string_view kFileName = "user.sqlite";

/// UTF-8 text of a column, or nullptr for NULL, a missing column and a missing statement.
const char* columnText(sqlite3_stmt* statement, int column) {
    return reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
}

} // namespace

DatabaseFunctions::DatabaseFunctions(const GlobalFuncs& glbFuncs)
    : glbFuncs_(glbFuncs), userDBPath_(fmt::format("{}/{}", Locations::current().data, kFileName)) {}

void DatabaseFunctions::generateUserDatabaseFile() {
    if (glbFuncs_.fileExists(userDBPath_)) {
        return;
    }
    const std::string error = createUserDatabase(userDBPath_);
    if (!error.empty()) {
        logTrouble({}, error);
    }
}

void DatabaseFunctions::logTrouble(std::string_view operation, const std::string& reason) {
    trouble_ = reason;
    glbFuncs_.NSLogToFile(operation.empty() ? reason : fmt::format("Error in {} : {}", operation, reason));
}

/// Opens the user database; a failure is logged under the operation's name.
std::optional<Database> DatabaseFunctions::openOrLog(std::string_view operation) {
    if (!glbFuncs_.fileExists(userDBPath_)) {
        logTrouble(operation, "DB file not exists");
        return std::nullopt;
    }
    auto database = Database::openUser(userDBPath_, UserLock::patience(userDBPath_));
    if (!database) {
        logTrouble(operation, "DB not opened");
    }
    return database;
}

/// Runs a statement; an error text is logged as it is.
bool DatabaseFunctions::executeOrLog(const Database& database, const std::string& statement) {
    const auto error = database.execute(statement);
    if (error) {
        logTrouble({}, *error);
    }
    return !error;
}

bool DatabaseFunctions::executeSQL(const std::string& statement) {
    const auto database = openOrLog("executeSQL");
    return database && executeOrLog(*database, statement);
}

bool DatabaseFunctions::executeArrayOfSQL(std::span<const std::string> statements) {
    const auto database = openOrLog("executeArrayOfSQL");
    bool anySucceeded = false;
    if (database) {
        for (const std::string& statement : statements) {
            anySucceeded = executeOrLog(*database, statement) || anySucceeded;
        }
    }
    return anySucceeded;
}

std::int32_t DatabaseFunctions::asInteger(sqlite3_stmt* statement, int column) const {
    const char* text = columnText(statement, column);
    return text != nullptr ? integerValue(text) : 0;
}

bool DatabaseFunctions::asBoolean(sqlite3_stmt* statement, int column) const {
    return asInteger(statement, column) > 0;
}

double DatabaseFunctions::asFloat(sqlite3_stmt* statement, int column) const {
    const char* text = columnText(statement, column);
    return text != nullptr ? doubleValue(text) : 0.0;
}

std::string DatabaseFunctions::asString(sqlite3_stmt* statement, int column) const {
    const char* text = columnText(statement, column);
    return text != nullptr ? text : "";
}

} // namespace zorel
