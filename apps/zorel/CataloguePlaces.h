// SPDX-License-Identifier: Apache-2.0
/// @file
/// Places of the catalogue as the command line uses them.
#pragma once

#include "Place.h"

#include "store/CatalogueLookup.h"

namespace zorel::cli {

/// Numbers from the catalogue's texts.
[[nodiscard]] Place placeOf(const CataloguePlace& row);
/// @throws CliError (data trouble) when there is no catalogue file in the bundle.
void requireCatalogue(const GlobalFuncs& services);

} // namespace zorel::cli
