// SPDX-License-Identifier: Apache-2.0
/// @file
/// The place whose times the alarms follow.
#pragma once

#include "almanac/Place.h"
#include "store/CatalogueLookup.h"
#include "store/UserCities.h"

#include <cstdint>
#include <optional>
#include <string>

namespace zorel {

class GlobalFuncs;

enum class HomeState : std::uint8_t {
    none,                ///< the list of cities is empty
    known,               ///< its times can be told
    notInCatalogue,      ///< the catalogue does not have the city (any more)
    unreadableCatalogue, ///< there is no catalogue, or it cannot be read
};

struct HomePlace {
    HomeState state = HomeState::none;
    std::int32_t cityId = 0;             ///< catalogue id; 0 without a home city
    std::optional<almanac::Place> place; ///< when known
    std::optional<CataloguePlace> row;   ///< of the catalogue, when known
    std::string reason;                  ///< why it is not known, for people; empty when known or none
};

/// The home city of a list that was read completely.
[[nodiscard]] HomePlace homePlaceOf(const GlobalFuncs& glbFuncs, const std::vector<UserCity>& cities);

} // namespace zorel
