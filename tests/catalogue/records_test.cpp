// SPDX-License-Identifier: Apache-2.0
#include "tools/build-catalogue/Records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorel::catalogue {
namespace {

using testing::ElementsAre;

template <typename Record>
std::optional<Record> parse(std::vector<std::string_view> fields, const TsvLayout& layout,
                            std::optional<Record> (*parser)(const TsvRow&, Problems&), Problems& problems) {
    EXPECT_EQ(fields.size(), layout.columns.size());
    return parser({layout.file, 7, fields}, problems);
}

std::vector<std::string_view> placeFields() {
    return {"745044",   "İstanbul", "Istanbul", "Stambul",         "TR",      "34",
            "41.01384", "28.94966", "39",       "Europe/Istanbul", "15701602"};
}

/// The faults of a place whose one field is replaced.
std::vector<std::string> faultsOfPlace(std::size_t column, std::string_view value) {
    auto fields = placeFields();
    fields[column] = value;
    Problems problems;
    const auto place = parse(fields, kPlaces, parsePlace, problems);
    EXPECT_EQ(place.has_value(), problems.empty());
    return problems.lines();
}

TEST(Records, ReadsAPlace) {
    Problems problems;
    const auto place = parse(placeFields(), kPlaces, parsePlace, problems);
    ASSERT_TRUE(place);
    EXPECT_EQ(place->id, 745044);
    EXPECT_EQ(place->name, "İstanbul");
    EXPECT_EQ(place->latitude, 41.01384);
    EXPECT_EQ(place->longitude, 28.94966);
    EXPECT_EQ(place->elevation, 39);
    EXPECT_EQ(place->population, 15701602);
    EXPECT_EQ(place->line, 7U);
}

TEST(Records, APlaceMayLackWhatIsOptional) {
    for (const std::size_t column : {2U, 3U, 5U, 8U}) {
        EXPECT_TRUE(faultsOfPlace(column, "").empty()) << column;
    }
    auto fields = placeFields();
    fields[8] = "";
    Problems problems;
    EXPECT_EQ(parse(fields, kPlaces, parsePlace, problems)->elevation, std::nullopt);
}

TEST(Records, LatitudeOutsideItsRangeHintsAtExchangedAxes) {
    EXPECT_THAT(faultsOfPlace(6, "121.5"),
                ElementsAre("places.tsv:7: latitude 121.5 is outside -90 to 90 (are latitude and longitude "
                            "exchanged?)"));
    EXPECT_TRUE(faultsOfPlace(6, "-90").empty());
    EXPECT_TRUE(faultsOfPlace(6, "90").empty());
}

TEST(Records, FaultsOfAPlaceNameTheirFile) {
    EXPECT_THAT(faultsOfPlace(0, "0"), ElementsAre("places.tsv:7: geonameid 0 is outside 1 to 2147483647"));
    EXPECT_THAT(faultsOfPlace(0, "3000000000"),
                ElementsAre("places.tsv:7: geonameid 3000000000 is outside 1 to 2147483647"));
    EXPECT_THAT(faultsOfPlace(0, " 5"), ElementsAre("places.tsv:7: geonameid \" 5\" is not a whole number"));
    EXPECT_THAT(faultsOfPlace(1, ""), ElementsAre("places.tsv:7: name is missing"));
    EXPECT_THAT(faultsOfPlace(4, ""), ElementsAre("places.tsv:7: country is missing"));
    EXPECT_THAT(faultsOfPlace(7, "-180.5"),
                ElementsAre("places.tsv:7: longitude -180.5 is outside -180 to 180"));
    EXPECT_THAT(faultsOfPlace(8, "9999"),
                ElementsAre("places.tsv:7: elevation 9999 is outside -500 to 6000"));
    EXPECT_THAT(faultsOfPlace(9, ""), ElementsAre("places.tsv:7: zone is missing"));
    EXPECT_THAT(faultsOfPlace(10, "-1"),
                ElementsAre("places.tsv:7: population -1 is outside 0 to 100000000"));
}

TEST(Records, NumbersHaveOneFormOnly) {
    for (const std::string_view text :
         {"nan", "inf", "1e1", "41,5", "0x29", "+41", "41.5.", "", "41 ", "--1"}) {
        EXPECT_EQ(faultsOfPlace(6, text).size(), 1U) << text;
    }
    EXPECT_EQ(faultsOfPlace(10, "99999999999999999999").size(), 1U);
    EXPECT_EQ(faultsOfPlace(10, "1.5").size(), 1U);
}

std::vector<std::string_view> zoneFields() {
    return {"Europe/Zurich",
            "1",
            "1",
            "2",
            "35",
            "9",
            "35",
            "1",
            "yes",
            "0",
            "0",
            "0",
            "0",
            "0",
            "2",
            "35",
            "9",
            "35",
            "12",
            "",
            "",
            ""};
}

/// A zone that is not exact: 61 wrong days in 2026, 72 in 2027.
std::optional<Zone> inexactZone(std::string_view first, std::string_view last, std::string_view gmt,
                                Problems& problems) {
    auto fields = zoneFields();
    fields[8] = "no";
    fields[9] = "61";
    fields[10] = "72";
    fields[19] = first;
    fields[20] = last;
    fields[21] = gmt;
    return parse(fields, kZones, parseZone, problems);
}

bool isFaultyZone(std::size_t column, std::string_view value) {
    auto fields = zoneFields();
    fields[column] = value;
    Problems problems;
    parse(fields, kZones, parseZone, problems);
    return !problems.empty();
}

TEST(Records, ReadsAZone) {
    Problems problems;
    const auto zone = parse(zoneFields(), kZones, parseZone, problems);
    ASSERT_TRUE(zone);
    EXPECT_EQ(zone->name, "Europe/Zurich");
    EXPECT_EQ(zone->gmt, 1.0);
    EXPECT_EQ(zone->rule, (DstRule{1, 2, 35, 9, 35, 1}));
}

TEST(Records, AZoneKeepsToItsRanges) {
    EXPECT_TRUE(isFaultyZone(1, "-12.5"));
    EXPECT_FALSE(isFaultyZone(1, "14"));
    EXPECT_TRUE(isFaultyZone(2, "2"));
    EXPECT_TRUE(isFaultyZone(3, "12"));
    EXPECT_TRUE(isFaultyZone(4, "66")) << "there is no eighth weekday";
    EXPECT_TRUE(isFaultyZone(6, "-1"));
    EXPECT_TRUE(isFaultyZone(7, "3"));
}

TEST(Records, ARuleIsThereOrNot) {
    EXPECT_TRUE(isFaultyZone(2, "0")) << "fields of a rule without a rule";
    EXPECT_TRUE(isFaultyZone(7, "0")) << "a rule that shifts nothing";
}

TEST(Records, AZoneIsExactWhenItsSourceSaysSo) {
    Problems problems;
    EXPECT_TRUE(parse(zoneFields(), kZones, parseZone, problems)->exact);
    EXPECT_FALSE(inexactZone("", "", "", problems)->exact);
    EXPECT_TRUE(isFaultyZone(8, ""));
    EXPECT_TRUE(isFaultyZone(8, "perhaps"));
}

TEST(Records, ADepartureThatExplainsAllWrongDaysMakesAZoneExact) {
    Problems problems;
    const auto zone = inexactZone("2026-11-01", "2027-03-13", "-4", problems);
    ASSERT_TRUE(zone && zone->departure);
    EXPECT_TRUE(zone->exact);
    EXPECT_EQ(zone->departure->first, std::chrono::sys_days(std::chrono::year(2026) / 11 / 1));
    EXPECT_EQ(zone->departure->last, std::chrono::sys_days(std::chrono::year(2027) / 3 / 13));
    EXPECT_EQ(zone->departure->gmt, -4.0);
    EXPECT_FALSE(inexactZone("2026-11-02", "2027-03-13", "-4", problems)->exact);
    EXPECT_FALSE(inexactZone("2026-11-01", "2027-03-14", "-4", problems)->exact);
    EXPECT_FALSE(inexactZone("2026-11-01", "2030-01-01", "-4", problems)->exact);
    EXPECT_TRUE(problems.empty());
}

TEST(Records, ADepartureIsWhole) {
    Problems problems;
    EXPECT_FALSE(inexactZone("2026-11-01", "", "-4", problems));
    EXPECT_FALSE(inexactZone("2026-11-01", "2027-03-13", "", problems));
    EXPECT_FALSE(inexactZone("2026-11-31", "2027-03-13", "-4", problems));
    EXPECT_FALSE(inexactZone("2026-11-1", "2027-03-13", "-4", problems));
    EXPECT_FALSE(inexactZone("2027-03-14", "2027-03-13", "-4", problems));
    EXPECT_THAT(problems.lines(),
                ElementsAre("zones.tsv:7: departlast \"\" is not a day such as 2026-11-01",
                            "zones.tsv:7: departlast is before departfirst",
                            "zones.tsv:7: departgmt \"\" is not a decimal number",
                            "zones.tsv:7: departfirst \"2026-11-31\" is not a day such as 2026-11-01",
                            "zones.tsv:7: departfirst \"2026-11-1\" is not a day such as 2026-11-01",
                            "zones.tsv:7: departlast is before departfirst"));
}

TEST(Records, NamesOfCountriesAndRegionsAreNeeded) {
    Problems problems;
    EXPECT_FALSE(parse<Country>({"TR", "", "Türkiye"}, kCountries, parseCountry, problems));
    EXPECT_FALSE(parse<Country>({"TR", "Türkiye", ""}, kCountries, parseCountry, problems));
    EXPECT_FALSE(parse<Region>({"TR", "34", "", "1"}, kRegions, parseRegion, problems));
    EXPECT_THAT(problems.lines(),
                ElementsAre("countries.tsv:7: name_en is missing", "countries.tsv:7: name_tr is missing",
                            "regions.tsv:7: name is missing"));
    EXPECT_TRUE(parse<Region>({"TR", "", "Türkiye", "1"}, kRegions, parseRegion, problems));
}

TEST(Records, ACreditNeedsItsLineButNoNotice) {
    Problems problems;
    EXPECT_TRUE(parse<Credit>({"zones", "tz", "2026f", "public domain", "From tz.", ""}, kCredits,
                              parseCredit, problems));
    EXPECT_FALSE(
        parse<Credit>({"zones", "tz", "2026f", "public domain", "", ""}, kCredits, parseCredit, problems));
    EXPECT_THAT(problems.lines(), ElementsAre("credits.tsv:7: credit is missing"));
}

} // namespace
} // namespace zorel::catalogue
