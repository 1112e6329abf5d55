// SPDX-License-Identifier: Apache-2.0
#include "tests/catalogue/Fixture.h"
#include "tools/build-catalogue/Sources.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorel::catalogue {
namespace {

using test::SourceFolder;
using testing::ElementsAre;
using testing::HasSubstr;

std::vector<std::string> faultsOf(const SourceFolder& folder) {
    Problems problems;
    static_cast<void>(Sources::read(folder.path(), problems));
    return problems.lines();
}

TEST(Sources, ReadsACorrectFolder) {
    const SourceFolder folder;
    Problems problems;
    const Sources sources = Sources::read(folder.path(), problems);
    EXPECT_THAT(problems.lines(), ElementsAre());
    ASSERT_EQ(sources.places.size(), 4U);
    EXPECT_EQ(sources.countries[sources.places[1].country].nameTr, "İsviçre");
    EXPECT_EQ(sources.regions[sources.places[1].region].name, "Zurich");
    EXPECT_EQ(sources.zones[sources.places[1].zone].name, "Europe/Zurich");
    ASSERT_EQ(sources.credits.size(), 1U);
    EXPECT_EQ(sources.credits[0].licenceText, "Keep this notice.\n");
}

TEST(Sources, LargestPlacesComeFirstAndTheOrderOfEqualsStays) {
    const SourceFolder folder;
    folder.addPlace("8\tOva Bir\t\t\tTR\t\t39\t-0.5\t\tEurope/Istanbul\t0\n"
                    "9\tOva İki\t\t\tTR\t\t39\t-0.5\t\tEurope/Istanbul\t400000");
    Problems problems;
    const Sources sources = Sources::read(folder.path(), problems);
    std::vector<std::int32_t> ids;
    for (const PlacedPlace& entry : sources.places) {
        ids.push_back(entry.place.id);
    }
    EXPECT_THAT(ids, ElementsAre(745044, 9, 2657896, 100, 7, 8));
}

TEST(Sources, NamesUnknownReferencesByLine) {
    const SourceFolder folder;
    folder.addPlace("8\tA\t\t\tXX\t\t1\t1\t\tEurope/Istanbul\t0\n"
                    "9\tB\t\t\tTR\t99\t1\t1\t\tEurope/Istanbul\t0\n"
                    "10\tC\t\t\tTR\t34\t41\t29\t\tAsia/Nowhere\t0");
    EXPECT_THAT(faultsOf(folder), ElementsAre("places.tsv:6: unknown country \"XX\"",
                                              "places.tsv:6: unknown region \"\" of country \"XX\"",
                                              "places.tsv:7: unknown region \"99\" of country \"TR\"",
                                              "places.tsv:8: unknown time zone \"Asia/Nowhere\""));
}

TEST(Sources, NamesDuplicates) {
    const SourceFolder folder;
    folder.addPlace("745044\tA\t\t\tTR\t34\t41\t29\t\tEurope/Istanbul\t0");
    folder.write("countries.tsv", "country\tname_en\tname_tr\nCH\ta\tb\nTR\ta\tb\nTR\tc\td\n");
    EXPECT_THAT(faultsOf(folder), ElementsAre("countries.tsv:4: \"TR\" is there twice",
                                              "places.tsv:6: id 745044 is there twice"));
}

TEST(Sources, ARegionNeedsItsCountry) {
    const SourceFolder folder;
    folder.write("regions.tsv", "country\tadmin1\tname\tplaces\nCH\tZH\tZurich\t1\nTR\t34\tİstanbul\t2\n"
                                "TR\t\tTürkiye\t1\nQQ\t1\tNowhere\t1\nCH\tZH\tAgain\t1\n");
    EXPECT_THAT(faultsOf(folder),
                ElementsAre("regions.tsv:5: unknown country \"QQ\"", "regions.tsv:6: \"CH\" is there twice"));
}

TEST(Sources, EveryFileIsNeeded) {
    for (const char* name :
         {"countries.tsv", "country_names.tsv", "regions.tsv", "region_codes.tsv", "zones.tsv", "places.tsv",
          "alternates_exact.tsv", "alternates_more.tsv", "credits.tsv"}) {
        const SourceFolder folder;
        std::filesystem::remove(folder.path() + "/" + name);
        const auto faults = faultsOf(folder);
        ASSERT_FALSE(faults.empty()) << name;
        EXPECT_THAT(faults, testing::Contains(HasSubstr(std::string(name) + ": cannot be read")));
    }
}

TEST(Sources, FurtherNamesNeedTheirPlaceCountryAndRegion) {
    const SourceFolder folder;
    folder.write("alternates_more.tsv", "geonameid\tnames\n745044\tA\n11\tB\nx\tC\n7\t\n");
    folder.write("country_names.tsv", "country\tnames\nXX\tA\n");
    folder.write("region_codes.tsv", "country\tadmin1\tcode\nTR\t99\tA\nXX\t1\tB\n");
    EXPECT_THAT(faultsOf(folder), ElementsAre("country_names.tsv:2: unknown country \"XX\"",
                                              "region_codes.tsv:2: unknown region \"99\" of country \"TR\"",
                                              "region_codes.tsv:3: unknown region \"1\" of country \"XX\"",
                                              "alternates_more.tsv:3: unknown place 11",
                                              "alternates_more.tsv:4: geonameid \"x\" is not a whole number",
                                              "alternates_more.tsv:5: names is missing"));
}

TEST(Sources, AnAnnouncedNoticeIsNeeded) {
    const SourceFolder folder;
    std::filesystem::remove(folder.path() + "/NOTICE.txt");
    EXPECT_THAT(faultsOf(folder), ElementsAre("credits.tsv:2: \"NOTICE.txt\" cannot be read"));
}

} // namespace
} // namespace zorel::catalogue
