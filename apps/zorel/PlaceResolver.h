// SPDX-License-Identifier: Apache-2.0
/// @file
/// From the PLACE argument to a place.
#pragma once

#include "Context.h"
#include "Place.h"
#include "PlaceQuery.h"

#include "store/City.h"

#include <vector>

namespace zorel::cli {

/// The place that the argument names; without one the home city, else the largest place of the system's time
/// zone. Says on the error stream which place was taken when several have its name.
/// @throws CliError: no result (nothing found), bad use, data trouble (no catalogue).
[[nodiscard]] Place resolvePlace(const Context& context);

/// Every catalogue city that fits a name, best first.
/// @throws CliError: bad use (fewer than three characters), data trouble (no catalogue).
[[nodiscard]] std::vector<City> citiesByName(const Context& context, const PlaceByName& wanted);

} // namespace zorel::cli
