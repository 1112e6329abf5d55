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

} // namespace zorel::catalogue
