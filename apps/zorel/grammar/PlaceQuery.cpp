// SPDX-License-Identifier: Apache-2.0
#include "grammar/PlaceQuery.h"

#include "almanac/Scanner.h"
#include "terminal/CliError.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <vector>

namespace zorel::cli {

namespace {
constexpr std::size_t kLongestPlace = 200;
constexpr std::chrono::seconds kLargestOffset = std::chrono::hours(14);

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::vector<std::string_view> split(std::string_view text, std::string_view separators) {
    std::vector<std::string_view> parts;
    while (true) {
        const auto end = text.find_first_of(separators);
        parts.push_back(trimmed(text.substr(0, end)));
        if (end == std::string_view::npos) {
            return parts;
        }
        text.remove_prefix(end + 1);
    }
}

bool allDigits(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

/// The whole text as a finite decimal number.
std::optional<double> decimal(std::string_view text) {
    if (text.starts_with('+')) {
        text.remove_prefix(1);
    }
    double value = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value;
}

/// Degrees with an optional compass letter behind them; `minus` is the letter of the negative side.
std::optional<double> degrees(std::string_view text, char plus, char minus) {
    double sign = 1.0;
    if (!text.empty() && (text.back() == plus || text.back() == minus)) {
        sign = text.back() == minus ? -1.0 : 1.0;
        text.remove_suffix(1);
    }
    const auto value = decimal(trimmed(text));
    return value ? std::optional(sign * *value) : std::nullopt;
}

bool looksLikeCoordinates(std::string_view text) {
    return text.find(',') != std::string_view::npos && text.find_first_of("+-.0123456789") == 0;
}

double requireDegrees(std::string_view text, char plus, char minus, double largest) {
    const auto value = degrees(text, plus, minus);
    if (value && std::abs(*value) <= largest) {
        return *value;
    }
    throw CliError(Exit::badUse,
                   largest > 90.0
                       ? tr("longitude {} is not a number of degrees from -180 to 180", quote(text))
                       : tr("latitude {} is not a number of degrees from -90 to 90", quote(text)),
                   tr("write a point as 41.01,28.97 or 41.01,28.97,Europe/Istanbul"));
}

PlaceQuery coordinates(std::string_view text) {
    const auto parts = split(text, ",");
    if (parts.size() > 3) {
        throw CliError(Exit::badUse, tr("{} has too many commas for a point", quote(text)),
                       tr("write a point as LAT,LON or LAT,LON,ZONE with decimal points"));
    }
    PlaceByCoordinates point;
    point.latitude = requireDegrees(parts[0], 'N', 'S', 90.0);
    point.longitude = requireDegrees(parts[1], 'E', 'W', 180.0);
    if (parts.size() < 3 || parts[2].empty()) {
        return point;
    }
    if (const auto offset = parseOffset(parts[2])) {
        point.zone = *offset;
    } else {
        point.zone = std::string(parts[2]);
    }
    return point;
}

/// Figures without the comma of a point: "41.01 28.97", "-1".
bool isOnlyFigures(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789.+- ") == std::string_view::npos;
}

PlaceQuery byName(std::string_view text) {
    if (isOnlyFigures(text)) {
        throw CliError(Exit::badUse, tr("{} is neither a name nor a point", quote(text)),
                       tr("write a point as 41.01,28.97 or 41.01,28.97,Europe/Istanbul"));
    }
    if (text.find_first_not_of(" \t,/") == std::string_view::npos) {
        throw CliError(Exit::badUse, tr("the place is empty"),
                       tr("give a name, a catalogue id, or LAT,LON[,ZONE]"));
    }
    return PlaceByName{std::string(text)};
}

/// "HH", "HH:MM", "HHMM" or decimal hours.
std::optional<std::chrono::seconds> offsetSize(std::string_view text) {
    almanac::Scanner scan(text);
    const bool compact = text.size() == 4 && allDigits(text);
    const auto hour = compact ? scan.digits(2) : scan.number(24);
    if (hour && (compact || scan.take(':'))) {
        const auto minute = scan.digits(2);
        if (!minute || *minute > 59 || !scan.atEnd()) {
            return std::nullopt;
        }
        return std::chrono::hours(*hour) + std::chrono::minutes(*minute);
    }
    const auto size = decimal(text);
    if (!size || *size < 0.0 || *size > 24.0) {
        return std::nullopt;
    }
    return std::chrono::seconds(std::lround(*size * 3600.0));
}
} // namespace

std::optional<std::chrono::seconds> parseOffset(std::string_view text) {
    if (text == "Z" || text == "UTC" || text == "GMT") {
        return std::chrono::seconds(0);
    }
    if (text.starts_with("UTC") || text.starts_with("GMT")) {
        text.remove_prefix(3);
    }
    const bool west = text.starts_with('-');
    if (west || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    if (text.empty() || text.front() < '0' || text.front() > '9') {
        return std::nullopt;
    }
    const auto size = offsetSize(text);
    if (!size || *size > kLargestOffset) {
        return std::nullopt;
    }
    return west ? -*size : *size;
}

PlaceQuery parsePlaceQuery(std::string_view text) {
    const std::string_view place = trimmed(text);
    if (place.size() > kLongestPlace) {
        throw CliError(Exit::badUse, tr("the place {} is too long", quote(place)), tr("at most 200 bytes"));
    }
    if (allDigits(place)) {
        std::int32_t id = 0;
        if (std::from_chars(place.data(), place.data() + place.size(), id).ec != std::errc()) {
            throw CliError(Exit::badUse, tr("{} is too large for a catalogue id", quote(place)),
                           tr("find the id with: zorel search NAME"));
        }
        return PlaceById{id};
    }
    if (looksLikeCoordinates(place)) {
        return coordinates(place);
    }
    return byName(place);
}

} // namespace zorel::cli
