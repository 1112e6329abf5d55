// SPDX-License-Identifier: Apache-2.0
/// @file
/// From a place of the catalogue to one whose times can be told.
#pragma once

#include "almanac/Place.h"
#include "store/CatalogueLookup.h"

namespace zorel {

/// The place with its precaution table, its height (0 where the catalogue knows none) and its clock.
[[nodiscard]] almanac::Place almanacPlace(const CataloguePlace& place);

} // namespace zorel
