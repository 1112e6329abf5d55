// SPDX-License-Identifier: Apache-2.0
/// @file
/// The whole way from the source folder to the catalogue file.
#pragma once

#include "tools/build-catalogue/Problems.h"
#include "tools/build-catalogue/Progress.h"

#include <cstddef>
#include <string>

namespace zorel::catalogue {

/// Rows that were written.
struct BuildCounts {
    std::size_t places = 0;
    std::size_t countries = 0;
};

/// Reads `sourceFolder`, checks it, and writes `outputPath`. With faulty data nothing is written and
/// `problems` says why; an older file then stays as it was. The same source gives the same bytes.
/// @throws OutputError when the output cannot be written
BuildCounts buildCatalogue(const std::string& sourceFolder, const std::string& outputPath, Problems& problems,
                           Progress& progress);

} // namespace zorel::catalogue
