// SPDX-License-Identifier: Apache-2.0
#include "tools/build-catalogue/Records.h"

#include "tools/build-catalogue/RowReader.h"

#include <algorithm>
#include <array>

namespace zorel::catalogue {

namespace {

using Names = std::string_view;

constexpr std::array<Names, 3> kCountryColumns{"country", "name_en", "name_tr"};
constexpr std::array<Names, 2> kCountryNameColumns{"country", "names"};
constexpr std::array<Names, 4> kRegionColumns{"country", "admin1", "name", "places"};
constexpr std::array<Names, 3> kRegionCodeColumns{"country", "admin1", "code"};
constexpr std::array<Names, 22> kZoneColumns{
    "zone",     "gmt",         "dst",           "startmonth",  "startday",     "stopmonth",
    "stopday",  "hour",        "exact",         "days2026",    "days2027",     "days2028",
    "days2029", "days2030",    "lawstartmonth", "lawstartday", "lawstopmonth", "lawstopday",
    "places",   "departfirst", "departlast",    "departgmt"};
constexpr std::array<Names, 11> kPlaceColumns{"geonameid", "name",   "asciiname", "alternates",
                                              "country",   "admin1", "latitude",  "longitude",
                                              "elevation", "zone",   "population"};
constexpr std::array<Names, 2> kSpellingColumns{"geonameid", "names"};
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

std::optional<Departure> parseDeparture(RowReader& reader) {
    if (reader.optionalText(19).empty() && reader.optionalText(20).empty() &&
        reader.optionalText(21).empty()) {
        return std::nullopt;
    }
    const Departure departure{reader.day(19, "departfirst"), reader.day(20, "departlast"),
                              reader.decimal(21, "departgmt", -12.0, 14.0)};
    if (departure.last < departure.first) {
        reader.fault("departlast is before departfirst");
    }
    return departure;
}

/// Whether the departure has as many days of each year as the rule has wrong ones.
bool explainsWrongDays(RowReader& reader, const Departure& departure) {
    bool explains = true;
    for (int i = 0; i < 5; ++i) {
        const std::chrono::year year(2026 + i);
        const std::chrono::sys_days first = std::max(departure.first, std::chrono::sys_days(year / 1 / 1));
        const std::chrono::sys_days last = std::min(departure.last, std::chrono::sys_days(year / 12 / 31));
        const std::int64_t days = std::max<std::int64_t>((last - first).count() + 1, 0);
        explains &= reader.integer(static_cast<std::size_t>(9 + i), "days of a year", 0, 366) == days;
    }
    return explains;
}

bool parseExact(RowReader& reader, const std::optional<Departure>& departure) {
    const std::string_view exact = reader.text(8, "exact");
    if (exact != "yes" && exact != "no") {
        reader.fault("exact is neither yes nor no");
    }
    return exact == "yes" || (departure && explainsWrongDays(reader, *departure));
}

std::int32_t parseId(RowReader& reader) {
    return static_cast<std::int32_t>(reader.integer(0, "geonameid", 1, kLargestId));
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
const TsvLayout kCountryNames{"country_names.tsv", kCountryNameColumns};
const TsvLayout kRegions{"regions.tsv", kRegionColumns};
const TsvLayout kRegionCodes{"region_codes.tsv", kRegionCodeColumns};
const TsvLayout kZones{"zones.tsv", kZoneColumns};
const TsvLayout kPlaces{"places.tsv", kPlaceColumns};
const TsvLayout kExactSpellings{"alternates_exact.tsv", kSpellingColumns};
const TsvLayout kMoreSpellings{"alternates_more.tsv", kSpellingColumns};
const TsvLayout kCredits{"credits.tsv", kCreditColumns};

std::optional<Country> parseCountry(const TsvRow& row, Problems& problems) {
    RowReader reader(row, problems);
    const Country country{
        reader.text(0, "country"), reader.text(1, "name_en"), reader.text(2, "name_tr"), {}};
    return whenGood(reader, country);
}

std::optional<CountryNames> parseCountryNames(const TsvRow& row, Problems& problems) {
    RowReader reader(row, problems);
    const CountryNames names{reader.text(0, "country"), reader.text(1, "names")};
    return whenGood(reader, names);
}

std::optional<Region> parseRegion(const TsvRow& row, Problems& problems) {
    RowReader reader(row, problems);
    const Region region{reader.text(0, "country"), reader.optionalText(1), reader.text(2, "name"), {}};
    return whenGood(reader, region);
}

std::optional<RegionCode> parseRegionCode(const TsvRow& row, Problems& problems) {
    RowReader reader(row, problems);
    const RegionCode code{reader.text(0, "country"), reader.text(1, "admin1"), reader.text(2, "code")};
    return whenGood(reader, code);
}

std::optional<Zone> parseZone(const TsvRow& row, Problems& problems) {
    RowReader reader(row, problems);
    Zone zone;
    zone.name = reader.text(0, "zone");
    zone.gmt = reader.decimal(1, "gmt", -12.0, 14.0);
    zone.rule = parseRule(reader);
    zone.departure = parseDeparture(reader);
    zone.exact = parseExact(reader, zone.departure);
    return whenGood(reader, zone);
}

std::optional<Place> parsePlace(const TsvRow& row, Problems& problems) {
    RowReader reader(row, problems);
    Place place;
    place.id = parseId(reader);
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

std::optional<Spellings> parseSpellings(const TsvRow& row, Problems& problems) {
    RowReader reader(row, problems);
    const Spellings spellings{parseId(reader), reader.text(1, "names")};
    return whenGood(reader, spellings);
}

std::optional<Credit> parseCredit(const TsvRow& row, Problems& problems) {
    RowReader reader(row, problems);
    const Credit credit{reader.text(0, "part"),    reader.text(1, "source"), reader.text(2, "edition"),
                        reader.text(3, "licence"), reader.text(4, "credit"), reader.optionalText(5)};
    return whenGood(reader, credit);
}

} // namespace zorel::catalogue
