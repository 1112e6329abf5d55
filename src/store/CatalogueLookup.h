// SPDX-License-Identifier: Apache-2.0
/// @file
/// Further questions to the city catalogue: a place by its id, by its time zone, and all places one
/// after the other. A catalogue that cannot be read has no places.
#pragma once

#include "store/City.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorel {

/// Days on which the clock of a zone keeps another offset than the rule of its places says.
struct ZoneDeparture {
    std::chrono::sys_days first;
    std::chrono::sys_days last; ///< inclusive
    double offset = 0.0;        ///< [h] east positive
};

/// A place with everything the catalogue knows of it.
struct CataloguePlace {
    City city;                             ///< as getAllCityInfo fills it, with its ids
    std::string countryCode;               ///< ISO 3166-1 alpha-2, or XK
    std::string timeZone;                  ///< IANA name
    std::optional<std::int32_t> elevation; ///< [m]
    std::int64_t population = 0;           ///< 0 = unknown
    std::string zoneEdition;  ///< of the tz database that the clock's rule was made from ("2026f")
    bool ruleIsExact = false; ///< the rule, departure included, is right from 2026-12-01 to 2030-12-31
    std::optional<ZoneDeparture> departure;
};

/// @param id catalogue id.
[[nodiscard]] std::optional<CataloguePlace> placeById(const Bundle& bundle, std::int32_t id);
/// @param readable out: whether the catalogue could be read; if so and there is no answer, it has no such
/// place.
[[nodiscard]] std::optional<CataloguePlace> placeById(const Bundle& bundle, std::int32_t id, bool& readable);

/// The place with the most inhabitants in a time zone ("Asia/Kolkata"); nothing for a zone without places.
/// Former names of a zone ("Asia/Calcutta") are understood.
[[nodiscard]] std::optional<CataloguePlace> largestPlaceOfTimeZone(const Bundle& bundle,
                                                                   std::string_view timeZone);

/// Hands over every place with an id of at least `firstId`, in the order of ids, until `take` answers false.
/// One place is held at a time. False when the catalogue could not be read so far.
bool forEachPlace(const Bundle& bundle, std::int32_t firstId,
                  const std::function<bool(const CataloguePlace&)>& take);

/// Where a part of the catalogue's data comes from, and its licence.
struct CatalogueCredit {
    std::string part;
    std::string source;
    std::string edition;
    std::string licence;
    std::string credit;      ///< the line to show
    std::string licenceText; ///< the notice to keep; may be empty
};

/// The credits of the catalogue, in its order.
[[nodiscard]] std::vector<CatalogueCredit> catalogueCredits(const Bundle& bundle);

} // namespace zorel
