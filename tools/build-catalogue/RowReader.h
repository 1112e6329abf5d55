// SPDX-License-Identifier: Apache-2.0
/// @file
/// Fields of one line as checked values.
#pragma once

#include "tools/build-catalogue/TsvFile.h"

#include <chrono>
#include <cstdint>

namespace zorel::catalogue {

/// Reads the fields of a row; each fault is added to the problems with the row's file and line.
class RowReader {
public:
    RowReader(const TsvRow& row, Problems& problems) : row_(row), problems_(problems) {}

    /// False as soon as one field was faulty.
    [[nodiscard]] bool good() const { return good_; }
    /// Empty when the field may be missing and is.
    [[nodiscard]] std::string_view optionalText(std::size_t column) const { return row_.fields[column]; }
    [[nodiscard]] std::string_view text(std::size_t column, std::string_view what);
    /// A whole number from `least` to `most`; `least` when it is faulty.
    [[nodiscard]] std::int64_t integer(std::size_t column, std::string_view what, std::int64_t least,
                                       std::int64_t most);
    /// A decimal number (digits and one point) from `least` to `most`; `least` when it is faulty.
    [[nodiscard]] double decimal(std::size_t column, std::string_view what, double least, double most,
                                 std::string_view hint = "");
    /// A day of the form 2026-11-01.
    [[nodiscard]] std::chrono::sys_days day(std::size_t column, std::string_view what);
    void fault(std::string_view text);

private:
    const TsvRow& row_;
    Problems& problems_;
    bool good_ = true;
};

} // namespace zorel::catalogue
