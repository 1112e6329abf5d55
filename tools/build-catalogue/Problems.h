// SPDX-License-Identifier: Apache-2.0
/// @file
/// What is wrong with the source data, by file and line.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zorel::catalogue {

/// Collects the faults of the source files. The first twenty are kept word for word, the others only counted.
class Problems {
public:
    /// `line` counts from 1; 0 stands for the file as a whole.
    void add(std::string_view file, std::size_t line, std::string_view text);
    [[nodiscard]] bool empty() const { return count_ == 0; }
    [[nodiscard]] std::size_t count() const { return count_; }
    /// "places.tsv:17: latitude 95 is outside -90 to 90", in the order found.
    [[nodiscard]] const std::vector<std::string>& lines() const { return lines_; }

private:
    std::vector<std::string> lines_;
    std::size_t count_ = 0;
};

} // namespace zorel::catalogue
