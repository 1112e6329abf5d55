// SPDX-License-Identifier: Apache-2.0
#include "store/Database.h"

#include "store/CatalogueLike.h"
#include "store/DatabaseAuthorizer.h"

#include <algorithm>
#include <filesystem>
#include <sqlite3.h>
#include <system_error>
#include <thread>

namespace zorel {
namespace {

/// Steps of SQLite's machine between two looks at the budget, and the looks in it: some ten times the steps
/// of a search that reads every row of the catalogue.
constexpr int kStepsBetweenLooks = 100'000;
constexpr int kLooks = 500;
/// The same for the user database: enough for ten thousand cities. It may come from anywhere, and who reads
/// more rows than a person ever made works for a minute.
constexpr int kUserStepsBetweenLooks = 10'000;
constexpr int kUserLooks = 3;
/// No text that a person keeps is as long as this [bytes].
constexpr int kLongestUserValue = 1'000'000;
/// Places do not lie in the order of their ids: who reads them in that order would read each page forty times
/// (a gigabyte through the kernel). The table of places fits [KiB]. Not mapped into memory: that would save
/// no more, the pages would count all the same, and a file cut short meanwhile would end the program (SIGBUS)
/// instead of the statement.
constexpr const char* kHoldThePlaces = "PRAGMA cache_size = -32768";
/// No name is as long as this [bytes]; longer patterns make the comparison slow.
constexpr int kLongestPattern = 1'000;

struct Release {
    void operator()(void* memory) const { sqlite3_free(memory); }
};

/// A named pipe would hold the program, and a device may do so.
bool isRegularFile(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

/// Neither of our files has views: whoever put one there wants to have something computed.
void refuseViews(sqlite3* connection) {
    sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
}

/// Between two tries to get at a file that another program holds.
constexpr std::chrono::milliseconds kPause{10};

} // namespace

bool Statement::nextRow() {
    const int result = sqlite3_step(get());
    atEnd_ = result == SQLITE_DONE;
    return result == SQLITE_ROW;
}

std::string Statement::text(int column) const {
    const unsigned char* text = sqlite3_column_text(get(), column);
    return text != nullptr ? reinterpret_cast<const char*>(text) : "";
}

void Statement::finalize(sqlite3_stmt* statement) {
    sqlite3_finalize(statement);
}

void Database::close(sqlite3* connection) {
    sqlite3_close(connection);
}

/// Interrupts the statement when the budget is used up.
int Database::spendLook(void* limits) {
    return --static_cast<Limits*>(limits)->looks < 0 ? 1 : 0;
}

int Database::waitForOthers(void* limits, int /*tries*/) {
    if (std::chrono::steady_clock::now() >= static_cast<Limits*>(limits)->patience) {
        return 0;
    }
    std::this_thread::sleep_for(kPause);
    return 1;
}

Database::Database(sqlite3* connection, Deadline patience)
    : limits_(std::make_unique<Limits>(Limits{kLooks, patience})), connection_(connection, &close) {
    sqlite3_progress_handler(connection, kStepsBetweenLooks, &spendLook, limits_.get());
    sqlite3_busy_handler(connection, &waitForOthers, limits_.get());
    sqlite3_limit(connection, SQLITE_LIMIT_LIKE_PATTERN_LENGTH, kLongestPattern);
}

/// Out of memory there is no connection at all, otherwise one that must be closed.
std::optional<Database> Database::open(const std::string& path, int flags, Deadline patience) {
    sqlite3* connection = nullptr;
    const int result = sqlite3_open_v2(path.c_str(), &connection, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    if (result != SQLITE_OK) {
        close(connection);
        return std::nullopt;
    }
    return Database(connection, patience);
}

std::optional<Database> Database::openUser(const std::string& path, Deadline patience) {
    auto database = isRegularFile(path) ? open(path, SQLITE_OPEN_READWRITE, patience) : std::nullopt;
    if (database) {
        sqlite3* connection = database->connection_.get();
        database->limits_->looks = kUserLooks;
        sqlite3_progress_handler(connection, kUserStepsBetweenLooks, &spendLook, database->limits_.get());
        sqlite3_limit(connection, SQLITE_LIMIT_LENGTH, kLongestUserValue);
        refuseViews(connection);
        allowUserTables(connection);
    }
    return database;
}

std::optional<Database> Database::openCatalogue(const std::string& path, Reading reading) {
    auto database = isRegularFile(path) ? open(path, SQLITE_OPEN_READONLY) : std::nullopt;
    if (database) {
        if (reading == Reading::everyPlaceById) {
            static_cast<void>(database->execute(kHoldThePlaces)); // without it all is slower, not other
        }
        refuseViews(database->connection_.get());
        useCatalogueLike(database->connection_.get());
        allowCatalogueTables(database->connection_.get());
    }
    return database;
}

std::optional<Database> Database::openNew() {
    return open(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_MEMORY);
}

std::optional<std::string> Database::execute(const std::string& statements) const {
    char* text = nullptr;
    sqlite3_exec(connection_.get(), statements.c_str(), nullptr, nullptr, &text);
    const std::unique_ptr<char, Release> owner(text);
    return text != nullptr ? std::optional<std::string>(text) : std::nullopt;
}

Statement Database::prepare(const std::string& statement) const {
    sqlite3_stmt* prepared = nullptr;
    sqlite3_prepare_v2(connection_.get(), statement.c_str(), -1, &prepared, nullptr);
    return Statement(prepared);
}

bool Database::control(const char* statement) const {
    sqlite3_set_authorizer(connection_.get(), nullptr, nullptr);
    const bool done = sqlite3_exec(connection_.get(), statement, nullptr, nullptr, nullptr) == SQLITE_OK;
    allowUserTables(connection_.get());
    return done;
}

StoreResult Database::change(std::span<const std::string> statements) const {
    // Immediate: whoever reads first and writes then can be refused in between.
    if (!control("BEGIN IMMEDIATE")) {
        return trouble();
    }
    const bool ran =
        std::ranges::all_of(statements, [this](const std::string& statement) { return !execute(statement); });
    if (ran && control("COMMIT")) {
        return {StoreState::done, {}};
    }
    StoreResult result = trouble();
    static_cast<void>(control("ROLLBACK")); // what SQLite has rolled back itself cannot be rolled back again
    return result;
}

StoreResult Database::trouble() const {
    const int code = sqlite3_errcode(connection_.get());
    const bool busy = code == SQLITE_BUSY || code == SQLITE_LOCKED;
    return {busy ? StoreState::busy : StoreState::failed, sqlite3_errmsg(connection_.get())};
}

std::optional<std::string> Database::image() const {
    sqlite3_int64 size = 0;
    const std::unique_ptr<unsigned char, Release> bytes(
        sqlite3_serialize(connection_.get(), "main", &size, 0));
    if (bytes == nullptr) {
        return std::nullopt;
    }
    return std::string(reinterpret_cast<const char*>(bytes.get()), static_cast<std::size_t>(size));
}

} // namespace zorel
