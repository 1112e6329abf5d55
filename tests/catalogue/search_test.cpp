// SPDX-License-Identifier: Apache-2.0
#include "store/CitySearch.h"

#include "store/CatalogueLookup.h"
#include "tests/catalogue/Fixture.h"

#include <gtest/gtest.h>

namespace zorel {
namespace {

class Search : public testing::Test {
protected:
    std::vector<FoundCity> search(const std::string& text) { return searchCities(real_.glbFuncs, text); }
    std::size_t found(const std::string& text) { return search(text).size(); }
    test::RealCatalogue real_;
};

TEST_F(Search, FillsWhatTheListShows) {
    const auto cities = search("Zürich");
    ASSERT_FALSE(cities.empty());
    const FoundCity& city = cities[0];
    EXPECT_EQ(city.name, "Zürich");
    EXPECT_EQ(city.nameParent, "Zurich");
    EXPECT_EQ(city.cityId, "2657896");
    EXPECT_EQ(city.countryNameEn, "Switzerland");
    EXPECT_EQ(city.countryNameTr, "İsviçre");
    EXPECT_NE(city.countryId, "");
    EXPECT_EQ(cityOf(real_.glbFuncs, city).countryId, city.countryId);
    EXPECT_EQ(cityOf(real_.glbFuncs, city).latitude, "") << "only getAllCityInfo asks for more";
}

TEST_F(Search, NeedsThreeCharacters) {
    EXPECT_EQ(found(""), 0U);
    EXPECT_EQ(found("Yo"), 0U);
    EXPECT_EQ(found("Şa"), 0U) << "two characters in three bytes";
    EXPECT_FALSE(search("Şam").empty());
}

TEST_F(Search, TwoCharactersRunNoQuery) {
    // Two characters that are in many names find nothing.
    EXPECT_FALSE(search("an ").empty());
    EXPECT_EQ(found("an"), 0U);
}

TEST_F(Search, AQuoteMakesTheStatementFail) {
    EXPECT_EQ(found("N'Djamena"), 0U);
    EXPECT_EQ(found("'''"), 0U);
}

TEST_F(Search, WildcardsAreLetters) {
    for (const char* text : {"%%%", "___", "a%b", "Ist_nbul", "Ist%bul", "***", "???"}) {
        EXPECT_EQ(found(text), 0U) << text;
    }
}

TEST_F(Search, TextIsNeitherTrimmedNorFolded) {
    EXPECT_EQ(found(" London  "), 0U);
    EXPECT_FALSE(search("LONDON").empty()) << "LIKE folds ASCII letters";
    EXPECT_EQ(found("łÓDŹ"), 0U) << "and no others";
}

TEST_F(Search, TextThatReachesForOtherTablesFindsNothing) {
    for (const char* text : {
             "x' UNION SELECT name, sql, 1, 1, 1, 1 FROM sqlite_master --",
             "x' UNION SELECT load_extension('x'), 1, 1, 1, 1, 1 --",
             "x' UNION SELECT hex(randomblob(1000000000)), 1, 1, 1, 1, 1 --",
             "x' UNION SELECT * FROM pragma_database_list --",
             "x' UNION WITH RECURSIVE c(x) AS (VALUES(1) UNION ALL SELECT x+1 FROM c) SELECT x,1,1,1,1,1 "
             "FROM c --",
         }) {
        EXPECT_EQ(found(text), 0U) << text;
    }
}

TEST_F(Search, ASecondStatementIsNeverRun) {
    const std::string file = real_.glbFuncs.appBundlePath + "/database/cities.sqlite";
    const std::string before = test::readFile(file);
    const std::string other = real_.locations.folder.path("other.sqlite");
    EXPECT_LT(found("xqz'; DROP TABLE CITY; --"), 1U);
    EXPECT_LT(found("xqz'; ATTACH '" + other + "' AS o; CREATE TABLE o.t (x); --"), 1U);
    EXPECT_FALSE(std::filesystem::exists(other));
    EXPECT_TRUE(test::readFile(file) == before);
    EXPECT_EQ(found("Reykjavik"), 1U);
}

TEST_F(Search, TextThatTurnsTheJoinLooseComesToAnEnd) {
    EXPECT_EQ(found("x' OR 1=1 --"), 0U) << "more rows than places";
    EXPECT_EQ(found("x' OR C.NAME='y' AND CP.NAME='y' --"), 0U) << "cut off";
}

TEST_F(Search, LongAndOddTextFindsNothing) {
    EXPECT_EQ(found(std::string(3'000'000, 'a')), 0U);
    EXPECT_EQ(found(std::string(40'000, '%') + "zzqq"), 0U);
    EXPECT_EQ(found(std::string("ab\0cd", 5)), 0U);
    EXPECT_EQ(found("\xFF\xFE\xFD\xFC"), 0U);
}

TEST_F(Search, AMissingOrForeignCatalogueFindsNothing) {
    const test::TemporaryFolder folder;
    real_.glbFuncs.appBundlePath = folder.path();
    EXPECT_EQ(found("London"), 0U);
    EXPECT_FALSE(std::filesystem::exists(folder.path("database/cities.sqlite"))) << "none is made";
    for (const std::string& bytes :
         {std::string(), std::string("not a database at all"), std::string(20'000, 'x')}) {
        test::writeFile(folder.path("database/cities.sqlite"), bytes);
        EXPECT_EQ(found("London"), 0U);
        EXPECT_FALSE(searchPlaces(real_.glbFuncs, "London")) << "unreadable, which is not the same as none";
        EXPECT_EQ(test::readFile(folder.path("database/cities.sqlite")), bytes) << "left as it is";
    }
}

TEST_F(Search, ATruncatedCatalogueNeverCrashes) {
    const std::string whole = test::readFile(real_.glbFuncs.appBundlePath + "/database/cities.sqlite");
    const test::TemporaryFolder folder;
    real_.glbFuncs.appBundlePath = folder.path();
    for (const std::size_t size : {100U, 8'192U, 100'000U, 5'000'001U}) {
        test::writeFile(folder.path("database/cities.sqlite"), whole.substr(0, size));
        EXPECT_EQ(found("xqzzy"), 0U);
        City city(real_.glbFuncs);
        city.cityId = "745044";
        city.getAllCityInfo(city);
        EXPECT_TRUE(city.name.empty() || city.name == "İstanbul") << size;
    }
}

TEST_F(Search, TheListShowsTheRegionWhenItHasAnotherName) {
    City city(real_.glbFuncs);
    city.name = "Ereğli";
    city.nameParent = "Konya";
    city.countryNameEn = "Germany";
    city.countryNameTr = "Almanya";
    real_.glbFuncs.languageId = 1;
    EXPECT_EQ(citySearchText(real_.glbFuncs, city), "Ereğli / Konya / Germany");
    city.nameParent = city.name;
    EXPECT_EQ(citySearchText(real_.glbFuncs, city), "Ereğli / Germany");
    real_.glbFuncs.languageId = 0;
    EXPECT_EQ(citySearchText(real_.glbFuncs, city), "Ereğli / Almanya");
    real_.glbFuncs.languageId = 3;
    EXPECT_EQ(citySearchText(real_.glbFuncs, city), "Ereğli / Germany");
}

} // namespace
} // namespace zorel
