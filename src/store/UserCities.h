// SPDX-License-Identifier: Apache-2.0
/// @file
/// The user's list of cities as it is stored, and which of them is the home city.
#pragma once

#include "platform/foundation/NumberText.h"
#include "store/StoreState.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace zorel {

/// A row of USER_CITY, its columns as SQLite renders them.
struct UserCity {
    std::string cityId;    ///< catalogue id
    std::string setAsHome; ///< "1": marked as home
};

struct UserCities {
    std::vector<UserCity> rows; ///< in the order of the list
    StoreResult result;         ///< done: every row was read
};

/// Reads the list of a user database, under its lock. Nothing is made or changed.
[[nodiscard]] UserCities storedUserCities(const std::string& path);

/// Whether the row of a city (a UserCity or a City) says that it is the home city.
[[nodiscard]] bool isMarkedAsHome(const auto& city) {
    return integerValue(city.setAsHome) == 1;
}

/// Position of the home city in a list: the first that is marked, else the first of all; nothing for an empty
/// list.
[[nodiscard]] std::optional<std::size_t> homePosition(const auto& cities) {
    if (cities.empty()) {
        return std::nullopt;
    }
    const auto marked =
        std::find_if(cities.begin(), cities.end(), [](const auto& city) { return isMarkedAsHome(city); });
    return marked == cities.end() ? 0 : static_cast<std::size_t>(marked - cities.begin());
}

} // namespace zorel
