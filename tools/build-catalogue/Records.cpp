// SPDX-License-Identifier: Apache-2.0
#include "tools/build-catalogue/Records.h"

#include "tools/build-catalogue/RowReader.h"

#include <array>

namespace zorel::catalogue {

namespace {

using Names = std::string_view;

constexpr std::array<Names, 3> kCountryColumns{"country", "name_en", "name_tr"};
constexpr std::array<Names, 4> kRegionColumns{"country", "admin1", "name", "places"};
constexpr std::array<Names, 19> kZoneColumns{
    "zone",          "gmt",         "dst",          "startmonth", "startday", "stopmonth", "stopday",
    "hour",          "exact",       "days2026",     "days2027",   "days2028", "days2029",  "days2030",
    "lawstartmonth", "lawstartday", "lawstopmonth", "lawstopday", "places"};
constexpr std::array<Names, 11> kPlaceColumns{"geonameid", "name",   "asciiname", "alternates",
                                              "country",   "admin1", "latitude",  "longitude",
                                              "elevation", "zone",   "population"};
constexpr std::array<Names, 6> kCreditColumns{"part",    "source", "edition",
                                              "licence", "credit", "licence_file"};

constexpr std::int64_t kLargestId = 2147483647; // ids are read as 32-bit numbers
constexpr std::int64_t kLastDayCode = 65;       // the last Saturday
constexpr std::string_view kSwapHint = " (are latitude and longitude exchanged?)";

std::int32_t smallNumber(RowReader& reader, std::size_t column, std::string_view what, std::int64_t most) {
    return static_cast<std::int32_t>(reader.integer(column, what, 0, most));
}

DstRule parseRule(RowReader& reader) {
    DstRule rule;
    rule.dst = smallNumber(reader, 2, "dst", 1);
    rule.startMonth = smallNumber(reader, 3, "startmonth", 11);
    rule.startDay = smallNumber(reader, 4, "startday", kLastDayCode);
    rule.stopMonth = smallNumber(reader, 5, "stopmonth", 11);
    rule.stopDay = smallNumber(reader, 6, "stopday", kLastDayCode);
    rule.hour = smallNumber(reader, 7, "hour", 2);
    if (rule.dst == 0 && rule != DstRule{}) {
        reader.fault("dst is 0 but the rule's other fields are not");
    }
    if (rule.dst == 1 && rule.hour == 0) {
        reader.fault("dst is 1 but the shift is 0 hours");
    }
    return rule;
}

std::optional<std::int32_t> parseElevation(RowReader& reader) {
    if (reader.optionalText(8).empty()) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(reader.integer(8, "elevation", -500, 6000));
}

template <typename Record> std::optional<Record> whenGood(const RowReader& reader, const Record& record) {
    return reader.good() ? std::optional<Record>(record) : std::nullopt;
}

} // namespace

const TsvLayout kCountries{"countries.tsv", kCountryColumns};
const TsvLayout kRegions{"regions.tsv", kRegionColumns};
const TsvLayout kZones{"zones.tsv", kZoneColumns};
const TsvLayout kPlaces{"places.tsv", kPlaceColumns};
const TsvLayout kCredits{"credits.tsv", kCreditColumns};

std::optional<Country> parseCountry(const TsvRow& row, Problems& problems) {
    RowReader reader(row, problems);
    const Country country{reader.text(0, "country"), reader.text(1, "name_en"), reader.text(2, "name_tr")};
    return whenGood(reader, country);
}

std::optional<Region> parseRegion(const TsvRow& row, Problems& problems) {
    RowReader reader(row, problems);
    const Region region{reader.text(0, "country"), reader.optionalText(1), reader.text(2, "name")};
    return whenGood(reader, region);
}

std::optional<Zone> parseZone(const TsvRow& row, Problems& problems) {
    RowReader reader(row, problems);
    Zone zone;
    zone.name = reader.text(0, "zone");
    zone.gmt = reader.decimal(1, "gmt", -12.0, 14.0);
    zone.rule = parseRule(reader);
    return whenGood(reader, zone);
}

std::optional<Place> parsePlace(const TsvRow& row, Problems& problems) {
    RowReader reader(row, problems);
    Place place;
    place.id = static_cast<std::int32_t>(reader.integer(0, "geonameid", 1, kLargestId));
    place.name = reader.text(1, "name");
    place.asciiName = reader.optionalText(2);
    place.alternates = reader.optionalText(3);
    place.country = reader.text(4, "country");
    place.admin1 = reader.optionalText(5);
    place.latitude = reader.decimal(6, "latitude", -90.0, 90.0, kSwapHint);
    place.longitude = reader.decimal(7, "longitude", -180.0, 180.0);
    place.elevation = parseElevation(reader);
    place.zone = reader.text(9, "zone");
    place.population = reader.integer(10, "population", 0, 100'000'000);
    place.line = row.line;
    return whenGood(reader, place);
}

std::optional<Credit> parseCredit(const TsvRow& row, Problems& problems) {
    RowReader reader(row, problems);
    const Credit credit{reader.text(0, "part"),    reader.text(1, "source"), reader.text(2, "edition"),
                        reader.text(3, "licence"), reader.text(4, "credit"), reader.optionalText(5)};
    return whenGood(reader, credit);
}

} // namespace zorel::catalogue
