// SPDX-License-Identifier: Apache-2.0
/// @file
/// What the PLACE argument of the command line says, before anything is looked up.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace zorel::cli {

/// A row of the catalogue: "745044".
struct PlaceById {
    std::int32_t id = 0;
};

/// A name as it was typed, with region or country or without: "Paris", "Paris, Texas", "Paris Texas".
struct PlaceByName {
    std::string text;
};

/// A time zone as it was written: nothing, an offset, or an IANA name.
using ZoneQuery = std::variant<std::monostate, std::chrono::seconds, std::string>;

/// A point of the Earth: "41.01,28.97", "41.01,28.97,Europe/Istanbul", "41.01N,28.97E,+3".
struct PlaceByCoordinates {
    double latitude = 0.0;  ///< [deg] north positive, -90 to 90
    double longitude = 0.0; ///< [deg] east positive, -180 to 180
    ZoneQuery zone;
};

using PlaceQuery = std::variant<PlaceById, PlaceByName, PlaceByCoordinates>;

/// Reads the argument. @throws CliError (bad use) when it is empty, longer than 200 bytes, or a point outside
/// the Earth; never touches a file.
[[nodiscard]] PlaceQuery parsePlaceQuery(std::string_view text);

/// "+3", "-03:30", "+0545", "5.5", "UTC+3", "Z" and the like, -14 to +14 hours; nothing when it is no offset.
[[nodiscard]] std::optional<std::chrono::seconds> parseOffset(std::string_view text);

} // namespace zorel::cli
