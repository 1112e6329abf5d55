// SPDX-License-Identifier: Apache-2.0
/// @file
/// The source data of the catalogue, line by line, checked. Texts point into the files that were read.
#pragma once

#include "tools/build-catalogue/TsvFile.h"

#include <chrono>
#include <compare>
#include <cstdint>
#include <optional>
#include <string_view>

namespace zorel::catalogue {

struct Country {
    std::string_view code; ///< ISO 3166-1 alpha-2, or XK
    std::string_view nameEn;
    std::string_view nameTr;
    std::string_view names{}; ///< further ones, of CountryNames
};

/// What a country is called besides, in many languages.
struct CountryNames {
    std::string_view country;
    std::string_view names; ///< separated by commas
};

/// First-level administrative region.
struct Region {
    std::string_view country;
    std::string_view admin1; ///< may be empty: the region is then named after its country
    std::string_view name;
    std::string_view code{}; ///< of RegionCode; most have none
};

/// The short code by which people know a region ("TX", "ON", "NSW").
struct RegionCode {
    std::string_view country;
    std::string_view admin1;
    std::string_view code;
};

/// Daylight-saving rule: months from 0; a day code below 31 is a day of the month from 0, 31 + 5 * weekday +
/// n the n-th weekday (0 = Sunday, n = 4 the last); all 0 without a rule.
struct DstRule {
    std::int32_t dst = 0; ///< 1: there is a rule
    std::int32_t startMonth = 0;
    std::int32_t startDay = 0;
    std::int32_t stopMonth = 0;
    std::int32_t stopDay = 0;
    std::int32_t hour = 0; ///< shift [h]

    // NOLINTNEXTLINE(modernize-use-nullptr): clang-tidy takes the generated comparison with 0 for a pointer.
    friend auto operator<=>(const DstRule&, const DstRule&) = default;
};

/// Days on which a zone's clock keeps another offset than its rule says.
struct Departure {
    std::chrono::sys_days first;
    std::chrono::sys_days last; ///< inclusive
    double gmt = 0.0;           ///< offset [h, east positive]
};

struct Zone {
    std::string_view name; ///< IANA name
    double gmt = 0.0;      ///< standard offset [h, east positive]
    DstRule rule;
    bool exact = false; ///< rule and departure are right on every day that the source counts
    std::optional<Departure> departure;
};

/// A populated place.
struct Place {
    std::int32_t id = 0; ///< GeoNames id
    std::string_view name;
    std::string_view asciiName;  ///< empty when it is the name
    std::string_view alternates; ///< separated by commas
    std::string_view country;
    std::string_view admin1;
    double latitude = 0.0;                 ///< [deg, north positive]
    double longitude = 0.0;                ///< [deg, east positive]
    std::optional<std::int32_t> elevation; ///< [m]
    std::string_view zone;
    std::int64_t population = 0; ///< 0 = unknown
    std::size_t line = 0;        ///< in its file, from 1
};

/// Further spellings of a place.
struct Spellings {
    std::int32_t id = 0;    ///< GeoNames id
    std::string_view names; ///< separated by commas
};

/// Where a part of the data comes from, and under which licence.
struct Credit {
    std::string_view part;
    std::string_view source;
    std::string_view edition;
    std::string_view licence;
    std::string_view credit;      ///< the line to show
    std::string_view licenceFile; ///< file of the source folder with the notice to keep; may be empty
};

extern const TsvLayout kCountries;
extern const TsvLayout kCountryNames;
extern const TsvLayout kRegions;
extern const TsvLayout kRegionCodes;
extern const TsvLayout kZones;
extern const TsvLayout kPlaces;
extern const TsvLayout kExactSpellings;
extern const TsvLayout kMoreSpellings;
extern const TsvLayout kCredits;

// Each gives nothing when the line is faulty, after adding its faults to `problems`.
[[nodiscard]] std::optional<Country> parseCountry(const TsvRow& row, Problems& problems);
[[nodiscard]] std::optional<CountryNames> parseCountryNames(const TsvRow& row, Problems& problems);
[[nodiscard]] std::optional<Region> parseRegion(const TsvRow& row, Problems& problems);
[[nodiscard]] std::optional<RegionCode> parseRegionCode(const TsvRow& row, Problems& problems);
[[nodiscard]] std::optional<Zone> parseZone(const TsvRow& row, Problems& problems);
[[nodiscard]] std::optional<Place> parsePlace(const TsvRow& row, Problems& problems);
[[nodiscard]] std::optional<Spellings> parseSpellings(const TsvRow& row, Problems& problems);
[[nodiscard]] std::optional<Credit> parseCredit(const TsvRow& row, Problems& problems);

} // namespace zorel::catalogue
