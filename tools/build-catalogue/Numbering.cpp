// SPDX-License-Identifier: Apache-2.0
#include "tools/build-catalogue/Numbering.h"

namespace zorel::catalogue {

namespace {

template <typename Key> void numberFromOne(std::map<Key, std::int32_t>& numbers) {
    std::int32_t next = 0;
    for (auto& [key, number] : numbers) {
        number = ++next;
    }
}

} // namespace

RegionClock Numbering::regionClock(const Sources& sources, const PlacedPlace& entry) {
    const Zone& zone = sources.zones[entry.zone];
    return {entry.region, zone.gmt, zone.rule};
}

Numbering::Numbering(const Sources& sources) : largestPlaceOfZone(sources.zones.size(), 0) {
    rules[DstRule{}] = 0;
    for (const Zone& zone : sources.zones) {
        rules[zone.rule] = 0;
    }
    for (const PlacedPlace& entry : sources.places) {
        regionClocks[regionClock(sources, entry)] = 0;
        if (largestPlaceOfZone[entry.zone] == 0) {
            largestPlaceOfZone[entry.zone] = entry.place.id;
        }
    }
    numberFromOne(rules);
    numberFromOne(regionClocks);
}

} // namespace zorel::catalogue
