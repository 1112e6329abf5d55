// SPDX-License-Identifier: Apache-2.0
/// @file
/// The numbers that the catalogue's tables use to refer to each other.
#pragma once

#include "tools/build-catalogue/Sources.h"

#include <compare>
#include <map>
#include <vector>

namespace zorel::catalogue {

/// One row of the regions' table: a region as far as its places share a clock. A region that several clocks
/// cross is several rows.
struct RegionClock {
    std::size_t region = 0; ///< position in Sources
    double gmt = 0.0;       ///< standard offset [h]
    DstRule rule;

    // NOLINTNEXTLINE(modernize-use-nullptr): clang-tidy takes the generated comparison with 0 for a pointer.
    friend auto operator<=>(const RegionClock&, const RegionClock&) = default;
};

/// Numbers from 1, in the order of the keys, so that the same data gives the same numbers.
struct Numbering {
    std::map<DstRule, std::int32_t> rules; ///< "no rule" is 1
    std::map<RegionClock, std::int32_t> regionClocks;
    std::vector<std::int32_t> largestPlaceOfZone; ///< place id for each zone of Sources; 0 without a place

    explicit Numbering(const Sources& sources);
    [[nodiscard]] static RegionClock regionClock(const Sources& sources, const PlacedPlace& entry);
};

} // namespace zorel::catalogue
