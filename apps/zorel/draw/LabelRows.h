// SPDX-License-Identifier: Apache-2.0
/// @file
/// Names below the marks of a line of characters.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zorel::cli {

/// Sets names at columns, on as many rows as it takes for none to touch another.
class LabelRows {
public:
    /// @param width columns of a row; a name that would stand out is moved to the left.
    explicit LabelRows(std::size_t width) : width_(width) {}

    /// Names come in the order of their columns.
    void add(std::size_t column, std::string_view name);
    /// Each row behind `indent`, with a line feed.
    [[nodiscard]] std::string text(std::string_view indent) const;

private:
    struct Row {
        std::string text;
        std::size_t used = 0; ///< columns
    };

    std::size_t width_;
    std::vector<Row> rows_;
};

} // namespace zorel::cli
