// SPDX-License-Identifier: Apache-2.0
/// @file
/// A connection to one of the two databases and a prepared statement on it, closed when they go out of scope.
#pragma once

#include "store/StoreState.h"

#include <chrono>
#include <memory>
#include <optional>
#include <span>
#include <string>

struct sqlite3;
struct sqlite3_stmt;

namespace zorel {

/// A prepared statement. One that could not be prepared has no rows.
class Statement {
public:
    explicit Statement(sqlite3_stmt* statement) : statement_(statement, &finalize) {}

    [[nodiscard]] bool isPrepared() const { return statement_ != nullptr; }
    /// Moves to the next row; false after the last one and on failure.
    [[nodiscard]] bool nextRow();
    /// After nextRow() answered false: whether there are no more rows, rather than trouble.
    [[nodiscard]] bool isAtEnd() const { return atEnd_; }
    [[nodiscard]] sqlite3_stmt* get() const { return statement_.get(); }
    /// Text of a column of the current row as SQLite renders it; NULL is empty.
    [[nodiscard]] std::string text(int column) const;

private:
    static void finalize(sqlite3_stmt* statement);
    std::unique_ptr<sqlite3_stmt, void (*)(sqlite3_stmt*)> statement_;
    bool atEnd_ = false;
};

/// A connection, used by one thread at a time. What a statement may do on it is limited by SQLite's
/// authorizer to what the program itself does, so that text put into a statement unescaped cannot reach
/// another file. A refused statement fails with an error text, and so does one that runs far longer than a
/// search of the whole catalogue, or, on the user database, than reading ten thousand rows. Views are
/// refused. Only regular files are opened.
class Database {
public:
    using Deadline = std::chrono::steady_clock::time_point;

    /// The user database, read and written (only read when the file or its folder forbids writing):
    /// statements may read and change its three tables and create them; nothing else. Nothing when the file
    /// is missing or cannot be opened. @param patience until when a statement is tried again that another
    /// program's transaction keeps from the file; at once refused unless it lies ahead.
    [[nodiscard]] static std::optional<Database> openUser(const std::string& path,
                                                          Deadline patience = Deadline::min());
    /// How much of the catalogue is going to be read.
    enum class Reading {
        some,
        everyPlaceById ///< the table of places is held in memory meanwhile, some 25 MB
    };
    /// The city catalogue, read only: statements may select from its tables and compare with LIKE.
    [[nodiscard]] static std::optional<Database> openCatalogue(const std::string& path,
                                                               Reading reading = Reading::some);

    /// A new empty database in memory: statements may do everything.
    [[nodiscard]] static std::optional<Database> openNew();

    /// Runs a statement, or several separated by semicolons, up to the first that fails; its error text, or
    /// nothing.
    [[nodiscard]] std::optional<std::string> execute(const std::string& statements) const;
    [[nodiscard]] Statement prepare(const std::string& statement) const;
    /// Runs the statements in one transaction: all of them take effect, or none.
    [[nodiscard]] StoreResult change(std::span<const std::string> statements) const;
    /// How the latest call of this connection failed: busy or failed, with SQLite's words.
    [[nodiscard]] StoreResult trouble() const;

    /// The bytes of a database from openNew() as a file holds them.
    [[nodiscard]] std::optional<std::string> image() const;

private:
    /// What the statements of a connection may spend.
    struct Limits {
        int looks = 0;     ///< that are left
        Deadline patience; ///< with other programs
    };

    Database(sqlite3* connection, Deadline patience);
    static std::optional<Database> open(const std::string& path, int flags,
                                        Deadline patience = Deadline::min());
    static void close(sqlite3* connection);
    static int spendLook(void* limits);
    static int waitForOthers(void* limits, int tries);
    /// Begins or ends a transaction, which no other statement may.
    [[nodiscard]] bool control(const char* statement) const;

    std::unique_ptr<Limits> limits_;
    std::unique_ptr<sqlite3, void (*)(sqlite3*)> connection_;
};

} // namespace zorel
