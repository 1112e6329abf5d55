// SPDX-License-Identifier: Apache-2.0
#include "tools/build-catalogue/Output.h"

#include "platform/foundation/Files.h"

#include <cmath>
#include <filesystem>
#include <fmt/format.h>
#include <sqlite3.h>
#include <unistd.h>

namespace zorel::catalogue {

namespace {

[[noreturn]] void fail(const std::string& path, std::string_view reason) {
    throw OutputError(fmt::format("{}: {}", path, reason));
}

} // namespace

Output::Output(std::string path)
    : path_(std::move(path)), temporary_(fmt::format("{}.{}.part", path_, ::getpid())) {
    std::error_code ignored;
    std::filesystem::remove(temporary_, ignored);
    if (sqlite3_open_v2(temporary_.c_str(), &database_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE,
                        nullptr) != SQLITE_OK) {
        const std::string reason = sqlite3_errmsg(database_);
        close();
        fail(path_, reason);
    }
}

Output::~Output() {
    close();
    if (!temporary_.empty()) {
        std::error_code ignored;
        std::filesystem::remove(temporary_, ignored);
    }
}

void Output::close() {
    sqlite3_close_v2(database_);
    database_ = nullptr;
}

void Output::execute(const std::string& statements) {
    if (sqlite3_exec(database_, statements.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
        fail(path_, sqlite3_errmsg(database_));
    }
}

void Output::commit() {
    close();
    if (const std::error_code error = replaceFileWith(path_, temporary_)) {
        fail(path_, error.message());
    }
    temporary_.clear();
}

Insertion::Insertion(Output& output, const std::string& statement) : output_(output) {
    check(sqlite3_prepare_v2(output.handle(), statement.c_str(), -1, &statement_, nullptr));
}

Insertion::~Insertion() {
    sqlite3_finalize(statement_);
}

void Insertion::check(int result) const {
    if (result != SQLITE_OK && result != SQLITE_DONE) {
        throw OutputError(sqlite3_errmsg(output_.handle()));
    }
}

Insertion& Insertion::text(std::string_view value) {
    check(sqlite3_bind_text64(statement_, next_++, value.data(), value.size(), SQLITE_STATIC, SQLITE_UTF8));
    return *this;
}

Insertion& Insertion::integer(std::int64_t value) {
    check(sqlite3_bind_int64(statement_, next_++, value));
    return *this;
}

Insertion& Insertion::integerOrNull(const std::optional<std::int32_t>& value) {
    check(value ? sqlite3_bind_int(statement_, next_, *value) : sqlite3_bind_null(statement_, next_));
    ++next_;
    return *this;
}

Insertion& Insertion::number(double value) {
    if (std::trunc(value) == value) {
        return integer(static_cast<std::int64_t>(value));
    }
    check(sqlite3_bind_double(statement_, next_++, value));
    return *this;
}

void Insertion::insert() {
    check(sqlite3_step(statement_));
    check(sqlite3_reset(statement_));
    next_ = 1;
}

} // namespace zorel::catalogue
