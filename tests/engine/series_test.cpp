// SPDX-License-Identifier: Apache-2.0
// The generated tables are what the generator makes of the source data now.
#include "engine/series/EarthSeries.h"
#include "engine/series/Igrf11.h"
#include "engine/series/MoonLatitudeSeries.h"
#include "engine/series/MoonLongitudeSeries.h"
#include "engine/series/MoonPhaseSeries.h"
#include "engine/series/NutationSeries.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

namespace zorel {
namespace {

std::size_t sourceRows(const std::string& name) {
    std::ifstream file(ZOREL_SOURCE_DIR "/resources/series/" + name);
    std::string line;
    std::size_t rows = 0;
    while (std::getline(file, line)) {
        rows += line.empty() || line[0] == '#' ? 0 : 1;
    }
    return rows;
}

TEST(Series, GeneratingAgainChangesNothing) {
    EXPECT_EQ(std::system("python3 " ZOREL_SOURCE_DIR "/tools/generate_series.py --check"), 0);
}

TEST(Series, RowCountsAreThoseOfTheSources) {
    EXPECT_EQ(kEarthRows, sourceRows("earth.tsv"));
    EXPECT_EQ(kNutation.size(), sourceRows("nutation.tsv"));
    EXPECT_EQ(kMoonLongitude.size(), sourceRows("moon_lr.tsv"));
    EXPECT_EQ(kMoonLatitude.size(), sourceRows("moon_b.tsv"));
    EXPECT_EQ(kMoonPhaseNew.size() + kMoonPhaseFull.size() + kMoonPhaseQuarter.size(),
              sourceRows("moon_phases.tsv"));
    EXPECT_EQ(kIgrf11.size(), sourceRows("igrf11.tsv"));
}

TEST(Series, ChecksumsAreOfTheirKind) {
    for (const std::string_view checksum : {kEarthSha256, kNutationSha256, kMoonLongitudeSha256,
                                            kMoonLatitudeSha256, kMoonPhaseSha256, kIgrf11Sha256}) {
        EXPECT_EQ(checksum.size(), 64U);
        EXPECT_EQ(checksum.find_first_not_of("0123456789abcdef"), std::string_view::npos);
    }
}

} // namespace
} // namespace zorel
