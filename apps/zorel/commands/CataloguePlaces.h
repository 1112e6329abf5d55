// SPDX-License-Identifier: Apache-2.0
/// @file
/// Places of the catalogue as the command line uses them.
#pragma once

#include "print/ShownPlace.h"
#include "terminal/CliError.h"

#include "store/CatalogueLookup.h"

namespace zorel::cli {

[[nodiscard]] ShownPlace shownPlace(const CataloguePlace& row);
/// The trouble that the catalogue is there but cannot be read.
[[nodiscard]] CliError unreadableCatalogue(const Bundle& services);
/// @throws CliError (data trouble) when there is no catalogue file in the bundle.
void requireCatalogue(const Bundle& services);

} // namespace zorel::cli
