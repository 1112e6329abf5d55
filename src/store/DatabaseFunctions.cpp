// SPDX-License-Identifier: Apache-2.0
#include "store/DatabaseFunctions.h"

#include "common/GlobalFuncs.h"
#include "platform/foundation/Locations.h"
#include "platform/foundation/NumberText.h"
#include "store/Database.h"
#include "store/UserDatabaseFile.h"

#include <fmt/format.h>
#include <optional>
#include <sqlite3.h>

namespace zorel {
namespace {

constexpr std::string_view kFileName = "user.sqlite";

/// Opens the user database; a failure is logged under the operation's name.
std::optional<Database> openOrLog(const GlobalFuncs& glbFuncs, const std::string& path,
                                  std::string_view operation) {
    if (!glbFuncs.fileExists(path)) {
        glbFuncs.NSLogToFile(fmt::format("Error in {} : DB file not exists", operation));
        return std::nullopt;
    }
    auto database = Database::openUser(path);
    if (!database) {
        glbFuncs.NSLogToFile(fmt::format("Error in {} : DB not opened", operation));
    }
    return database;
}

/// Runs a statement; an error text is logged as it is.
bool executeOrLog(const GlobalFuncs& glbFuncs, const Database& database, const std::string& statement) {
    const auto error = database.execute(statement);
    if (error) {
        glbFuncs.NSLogToFile(*error);
    }
    return !error;
}

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
        glbFuncs_.NSLogToFile(error);
    }
}

bool DatabaseFunctions::executeSQL(const std::string& statement) {
    const auto database = openOrLog(glbFuncs_, userDBPath_, "executeSQL");
    return database && executeOrLog(glbFuncs_, *database, statement);
}

bool DatabaseFunctions::executeArrayOfSQL(std::span<const std::string> statements) {
    const auto database = openOrLog(glbFuncs_, userDBPath_, "executeArrayOfSQL");
    bool anySucceeded = false;
    if (database) {
        for (const std::string& statement : statements) {
            anySucceeded = executeOrLog(glbFuncs_, *database, statement) || anySucceeded;
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
