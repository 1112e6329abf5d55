// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "common/GlobalFuncs.h"
#include "store/Database.h"
#include "store/DatabaseFunctions.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <sqlite3.h>

namespace zorel::test {

/// A data folder without a database, and a second, plain way to look into one.
class DatabaseFixture : public testing::Test {
protected:
    [[nodiscard]] const std::string& path() const { return database_.userDBPath(); }
    [[nodiscard]] std::string log() const { return readFile(locations_.folder.path("SettingsLog.txt")); }

    /// The rows of a query, columns joined by "|", rows by a line end; "(failed)" when it cannot be run.
    [[nodiscard]] std::string rows(const std::string& query) const {
        sqlite3* connection = nullptr;
        sqlite3_open_v2(path().c_str(), &connection, SQLITE_OPEN_READONLY, nullptr);
        const std::unique_ptr<sqlite3, int (*)(sqlite3*)> owner(connection, &sqlite3_close);
        std::string text;
        const int result = sqlite3_exec(connection, query.c_str(), &appendRow, &text, nullptr);
        return result == SQLITE_OK ? text : "(failed)";
    }

    /// Runs statements past the program's own limits.
    void runFreely(const std::string& statements) const {
        sqlite3* connection = nullptr;
        ASSERT_EQ(sqlite3_open(path().c_str(), &connection), SQLITE_OK);
        const std::unique_ptr<sqlite3, int (*)(sqlite3*)> owner(connection, &sqlite3_close);
        ASSERT_EQ(sqlite3_exec(connection, statements.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << statements;
    }

    TemporaryLocations locations_;
    GlobalFuncs functions_;
    DatabaseFunctions database_{functions_};

private:
    static int appendRow(void* text, int columns, char** values, char** /*names*/) {
        auto& rows = *static_cast<std::string*>(text);
        for (int column = 0; column < columns; ++column) {
            rows += values[column] != nullptr ? values[column] : "NULL";
            rows += column + 1 < columns ? "|" : "\n";
        }
        return 0;
    }
};

} // namespace zorel::test
