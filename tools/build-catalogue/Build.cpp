// SPDX-License-Identifier: Apache-2.0
#include "tools/build-catalogue/Build.h"

#include "tools/build-catalogue/Output.h"
#include "tools/build-catalogue/Sources.h"
#include "tools/build-catalogue/Tables.h"

namespace zorel::catalogue {

BuildCounts buildCatalogue(const std::string& sourceFolder, const std::string& outputPath, Problems& problems,
                           Progress& progress) {
    progress.step("Reading and checking the places");
    const Sources sources = Sources::read(sourceFolder, problems);
    if (!problems.empty()) {
        return {};
    }
    progress.step("Writing the catalogue");
    Output output(outputPath);
    writeTables(output, sources, [&](std::size_t done) { progress.advance(done, sources.places.size()); });
    output.commit();
    return {sources.places.size(), sources.countries.size()};
}

} // namespace zorel::catalogue
