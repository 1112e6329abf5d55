// SPDX-License-Identifier: Apache-2.0
// Source files of the catalogue: every byte sequence is either read or named as faulty, and a place that is
// read can be searched and has a position on the Earth.
#include "tools/build-catalogue/Coordinates.h"
#include "tools/build-catalogue/Records.h"
#include "tools/build-catalogue/SearchName.h"

#include <cstdlib>
#include <fmt/format.h>
#include <fmt/ranges.h>

namespace {

using namespace zorel::catalogue;

/// A file with its right header and the given lines.
template <typename Take> void readLines(std::string_view lines, const TsvLayout& layout, Take take) {
    Problems problems;
    const std::string text = fmt::format("{}\n{}", fmt::join(layout.columns, "\t"), lines);
    TsvFile::fromText(text, layout).forEachRow(problems, [&](const TsvRow& row) {
        const std::size_t before = problems.count();
        if (!take(row, problems) && problems.count() == before) {
            std::abort();
        }
    });
}

bool usePlace(const TsvRow& row, Problems& problems) {
    const auto place = parsePlace(row, problems);
    if (!place) {
        return false;
    }
    const std::string search =
        searchableName({place->name, place->asciiName, {place->alternates}, true, true});
    if (!search.starts_with(place->name) || encipheredCoordinate(place->latitude).size() < 12 ||
        encipheredCoordinate(place->longitude).size() < 12) {
        std::abort();
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view lines(reinterpret_cast<const char*>(data), size);
    readLines(lines, kPlaces, usePlace);
    readLines(lines, kZones,
              [](const auto& row, auto& problems) { return parseZone(row, problems).has_value(); });
    readLines(lines, kRegions,
              [](const auto& row, auto& problems) { return parseRegion(row, problems).has_value(); });
    readLines(lines, kRegionCodes,
              [](const auto& row, auto& problems) { return parseRegionCode(row, problems).has_value(); });
    readLines(lines, kMoreSpellings,
              [](const auto& row, auto& problems) { return parseSpellings(row, problems).has_value(); });
    readLines(lines, kCountryNames,
              [](const auto& row, auto& problems) { return parseCountryNames(row, problems).has_value(); });
    readLines(lines, kCountries,
              [](const auto& row, auto& problems) { return parseCountry(row, problems).has_value(); });
    return 0;
}
