// SPDX-License-Identifier: Apache-2.0
#include "tools/build-catalogue/RowReader.h"

#include <charconv>
#include <fmt/format.h>

namespace zorel::catalogue {

namespace {

/// The whole text as a number, or nothing.
template <typename Number, typename... Format>
std::optional<Number> wholeNumber(std::string_view text, Format... format) {
    Number value{};
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value, format...);
    if (error != std::errc{} || stop != end) {
        return std::nullopt;
    }
    return value;
}

/// "2026-11-01", or nothing.
std::optional<std::chrono::sys_days> dayOf(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') {
        return std::nullopt;
    }
    const auto year = wholeNumber<int>(text.substr(0, 4));
    const auto month = wholeNumber<unsigned>(text.substr(5, 2));
    const auto day = wholeNumber<unsigned>(text.substr(8, 2));
    if (!year || !month || !day) {
        return std::nullopt;
    }
    const std::chrono::year_month_day date{std::chrono::year(*year), std::chrono::month(*month),
                                           std::chrono::day(*day)};
    return date.ok() ? std::optional<std::chrono::sys_days>(date) : std::nullopt;
}

} // namespace

void RowReader::fault(std::string_view text) {
    good_ = false;
    problems_.add(row_.file, row_.line, text);
}

std::string_view RowReader::text(std::size_t column, std::string_view what) {
    if (row_.fields[column].empty()) {
        fault(fmt::format("{} is missing", what));
    }
    return row_.fields[column];
}

std::int64_t RowReader::integer(std::size_t column, std::string_view what, std::int64_t least,
                                std::int64_t most) {
    const std::string_view field = row_.fields[column];
    const auto value = wholeNumber<std::int64_t>(field);
    if (!value) {
        fault(fmt::format("{} \"{}\" is not a whole number", what, field));
        return least;
    }
    if (*value < least || *value > most) {
        fault(fmt::format("{} {} is outside {} to {}", what, field, least, most));
        return least;
    }
    return *value;
}

double RowReader::decimal(std::size_t column, std::string_view what, double least, double most,
                          std::string_view hint) {
    const std::string_view field = row_.fields[column];
    const auto value = wholeNumber<double>(field, std::chars_format::fixed);
    if (!value) {
        fault(fmt::format("{} \"{}\" is not a decimal number", what, field));
        return least;
    }
    if (!(*value >= least && *value <= most)) {
        fault(fmt::format("{} {} is outside {} to {}{}", what, field, least, most, hint));
        return least;
    }
    return *value;
}

std::chrono::sys_days RowReader::day(std::size_t column, std::string_view what) {
    const auto day = dayOf(row_.fields[column]);
    if (!day) {
        fault(fmt::format("{} \"{}\" is not a day such as 2026-11-01", what, row_.fields[column]));
    }
    return day.value_or(std::chrono::sys_days{});
}

} // namespace zorel::catalogue
