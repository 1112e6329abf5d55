// SPDX-License-Identifier: Apache-2.0
/// @file
/// The place of the catalogue nearest to a point.
#pragma once

#include "store/CatalogueLookup.h"

#include <optional>

namespace zorel {

struct NearestPlace {
    std::optional<CataloguePlace> place; ///< nothing when none lies within the distance
    double distance = 0.0;               ///< along the great circle, on a sphere of 6371.0088 km [km]
};

/// The nearest place of the catalogue that lies within a distance; nothing when the catalogue cannot be read.
/// @param latitude [deg] north positive. @param longitude [deg] east positive. @param within [km]
[[nodiscard]] std::optional<NearestPlace> nearestPlace(const Bundle& bundle, double latitude,
                                                       double longitude, double within);

} // namespace zorel
