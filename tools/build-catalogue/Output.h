// SPDX-License-Identifier: Apache-2.0
/// @file
/// An SQLite file that appears under its name only when it is complete.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace zorel::catalogue {

/// The output cannot be written.
class OutputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A new database beside the place where it is to stand. Destroyed before commit(), it leaves nothing behind
/// and an older file untouched.
class Output {
public:
    /// @throws OutputError, as every function here does
    explicit Output(std::string path);
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;
    ~Output();

    /// Runs statements without results.
    void execute(const std::string& statements);
    /// Brings everything to the disk and gives the file its name.
    void commit();
    [[nodiscard]] sqlite3* handle() const { return database_; }

private:
    void close();

    std::string path_;
    std::string temporary_;
    sqlite3* database_ = nullptr;
};

/// A prepared INSERT. Bind the values in order, then insert().
class Insertion {
public:
    Insertion(Output& output, const std::string& statement);
    Insertion(const Insertion&) = delete;
    Insertion& operator=(const Insertion&) = delete;
    ~Insertion();

    /// The text must stay as it is until insert().
    Insertion& text(std::string_view value);
    Insertion& integer(std::int64_t value);
    Insertion& integerOrNull(const std::optional<std::int32_t>& value);
    /// Stored as an integer when it is whole.
    Insertion& number(double value);
    void insert();

private:
    void check(int result) const;

    Output& output_;
    sqlite3_stmt* statement_ = nullptr;
    int next_ = 1;
};

} // namespace zorel::catalogue
