// SPDX-License-Identifier: Apache-2.0
#include "store/UserDatabaseFile.h"

#include "platform/foundation/Files.h"
#include "platform/foundation/Locations.h"
#include "store/Database.h"

#include <filesystem>
#include <fmt/format.h>
#include <vector>

namespace zorel {
namespace {

constexpr const char* kCities =
    "  CREATE TABLE USER_CITY (   ID           INTEGER NOT NULL,  SETASHOME    INTEGER NOT NULL)";

constexpr const char* kAlarms =
    "  CREATE TABLE USER_ALARMS (   TIMEID       INTEGER NOT NULL,  MINUTE       INTEGER NOT NULL,"
    "  ACTIVE       INTEGER NOT NULL,  MELODYTIME   INTEGER NULL,  MELODYNAME   VARCHAR(200) NULL,"
    "  PRAYTIME     DOUBLE NULL,  EVENTID      VARCHAR(200) NULL,"
    "  CONSTRAINT PK_USER_ALARMS PRIMARY KEY(TIMEID) )";

constexpr const char* kSettings =
    "  CREATE TABLE USER_SETTINGS (   SETTINGID    INTEGER NOT NULL,  PARAM1       INTEGER NULL,"
    "  PARAM2       INTEGER NULL,  PARAM3       INTEGER NULL,  PARAM4       INTEGER NULL,"
    "  PARAM5       INTEGER NULL,  PARAM6       INTEGER NULL,  PARAM7       INTEGER NULL,"
    "  PARAM8       INTEGER NULL,  PARAM9       INTEGER NULL,  PARAM10      VARCHAR(200) NULL,"
    "  PARAM11      VARCHAR(200) NULL,  PARAM12      VARCHAR(200) NULL,  PARAM13      VARCHAR(200) NULL,"
    "  PARAM14      VARCHAR(200) NULL,  CONSTRAINT PK_USER_SETTINGS PRIMARY KEY(SETTINGID) )";

UserSchema makeSchema() {
    UserSchema schema{kCities, kAlarms, {}, kSettings};
    int timeId = 0;
    for (std::string& row : schema.alarmRows) {
        row = fmt::format("INSERT INTO USER_ALARMS (TIMEID,MINUTE,ACTIVE) VALUES ({}, 0, 0)", ++timeId);
    }
    return schema;
}

std::vector<std::string> statementsInOrder(const UserSchema& schema) {
    std::vector<std::string> statements{schema.cities, schema.alarms};
    statements.insert(statements.end(), schema.alarmRows.begin(), schema.alarmRows.end());
    statements.push_back(schema.settings);
    return statements;
}

} // namespace

const UserSchema& userSchema() {
    static const UserSchema schema = makeSchema();
    return schema;
}

std::string createUserDatabase(const std::string& path) {
    const std::string folder = std::filesystem::path(path).parent_path();
    createDirectoryAtPath(folder);
    sweepTemporaryFiles(folder);
    const auto database = Database::openNew();
    if (!database) {
        return {};
    }
    for (const std::string& statement : statementsInOrder(userSchema())) {
        if (const auto error = database->execute(statement)) {
            return *error;
        }
    }
    if (const auto image = database->image()) {
        static_cast<void>(createFile(path, *image));
    }
    return {};
}

} // namespace zorel
