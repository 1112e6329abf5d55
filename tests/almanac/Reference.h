// SPDX-License-Identifier: Apache-2.0
/// @file
/// The reference events of resources/reference, and other tab-separated tables of the project, for tests.
#pragma once

#include "almanac/Time.h"

#include <charconv>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace zorel::almanac::tests {

using Row = std::vector<std::string>;

/// The rows of a table below resources, without its heading; empty when there is no such table.
inline std::vector<Row> tableRows(const std::string& name) {
    std::ifstream file(std::string(ZOREL_SOURCE_DIR "/resources/") + name);
    std::vector<Row> rows;
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        Row& row = rows.emplace_back();
        std::istringstream cells(line);
        for (std::string cell; std::getline(cells, cell, '\t');) {
            row.push_back(cell);
        }
    }
    return rows;
}

inline double number(std::string_view text) {
    double value = 0.0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

inline Date dateOfText(std::string_view text) {
    using namespace std::chrono;
    const auto part = [&](std::size_t at, std::size_t length) {
        return static_cast<int>(number(text.substr(at, length)));
    };
    return year(part(0, 4)) / part(5, 2) / part(8, 2);
}

/// "2026-01-01T10:07:36.909Z" or "2026-01-01T10:07Z".
inline ExactInstant instantOfText(std::string_view text) {
    using namespace std::chrono;
    const double secondOfMinute = text.size() > 18 ? number(text.substr(17, text.size() - 18)) : 0.0;
    return sys_days(dateOfText(text)) + hours(static_cast<int>(number(text.substr(11, 2)))) +
           minutes(static_cast<int>(number(text.substr(14, 2)))) +
           milliseconds(static_cast<int>(secondOfMinute * 1000.0 + 0.5));
}

/// Hours after 0:00 of a date in universal time.
inline double hoursAfter(Date date, ExactInstant instant) {
    return static_cast<double>((instant - std::chrono::sys_days(date)).count()) / 3'600'000.0;
}

} // namespace zorel::almanac::tests
