// SPDX-License-Identifier: Apache-2.0
/// @file
/// The catalogue's tables and their rows.
#pragma once

#include "tools/build-catalogue/Output.h"
#include "tools/build-catalogue/Sources.h"

#include <cstddef>
#include <functional>

namespace zorel::catalogue {

/// Elevation from which a place counts as high: nearer to 500 m than to 250 m [m].
inline constexpr std::int32_t kHighPlace = 375;
/// Population from which Latin names have their Turkish upper-case form in the search text.
inline constexpr std::int64_t kLargePlace = 100'000;

/// Told now and then how many places are written.
using PlacesWritten = std::function<void(std::size_t)>;

/// Writes all tables. Places are inserted in the order of `sources`: the city search has no order of its own
/// and scans them as they were inserted.
/// @throws OutputError
void writeTables(Output& output, const Sources& sources, const PlacesWritten& written);

} // namespace zorel::catalogue
