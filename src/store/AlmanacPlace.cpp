// SPDX-License-Identifier: Apache-2.0
#include "store/AlmanacPlace.h"

#include "platform/foundation/NumberText.h"

#include <optional>

namespace zorel {

namespace {

std::optional<almanac::ClockDeparture> departureOf(const CataloguePlace& place) {
    if (!place.departure) {
        return std::nullopt;
    }
    const ZoneDeparture& days = *place.departure;
    return almanac::ClockDeparture{almanac::Date(days.first), almanac::Date(days.last), days.offset};
}

almanac::ClockRule ruleOf(const CataloguePlace& place) {
    const City& city = place.city;
    return {.standard = doubleValue(city.GMT),
            .saving = integerValue(city.DST) == 1,
            .startMonth = integerValue(city.startMonth),
            .startDay = integerValue(city.startDay),
            .stopMonth = integerValue(city.stopMonth),
            .stopDay = integerValue(city.stopDay),
            .exact = place.ruleIsExact,
            .departure = departureOf(place)};
}

} // namespace

almanac::Place almanacPlace(const CataloguePlace& place) {
    const City& city = place.city;
    const bool high = integerValue(city.temkin) == 1;
    return {.name = city.name,
            .latitude = doubleValue(city.latitude),
            .longitude = doubleValue(city.longitude),
            .temkin = high ? almanac::Temkin::upTo500m : almanac::Temkin::upTo250m,
            .height = static_cast<double>(place.elevation.value_or(0)),
            .clock = almanac::PlaceClock::ofPlace(place.timeZone, ruleOf(place), place.zoneEdition)};
}

} // namespace zorel
