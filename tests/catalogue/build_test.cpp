// SPDX-License-Identifier: Apache-2.0
#include "store/CatalogueLookup.h"
#include "store/City.h"
#include "tests/catalogue/Fixture.h"
#include "tools/build-catalogue/Build.h"
#include "tools/build-catalogue/Output.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorel::catalogue {
namespace {

using testing::ElementsAre;

/// A catalogue built from the small folder, in a bundle of its own.
class Build : public testing::Test {
protected:
    Build() {
        std::filesystem::create_directories(bundle_.path("database"));
        glbFuncs_.appBundlePath = bundle_.path();
    }
    bool build(const std::string& output) {
        Problems problems;
        Progress progress(true);
        counts_ = buildCatalogue(sources_.path(), output, problems, progress);
        return problems.empty();
    }
    std::string output() const { return bundle_.path("database/cities.sqlite"); }
    std::size_t filesInOutputFolder() const {
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(bundle_.path("database")), {}));
    }
    City cityOf(const std::string& id) {
        City city(glbFuncs_);
        city.cityId = id;
        city.getAllCityInfo(city);
        return city;
    }

    test::TemporaryLocations locations_;
    test::SourceFolder sources_;
    test::TemporaryFolder bundle_;
    GlobalFuncs glbFuncs_;
    BuildCounts counts_;
};

TEST_F(Build, WritesEveryPlace) {
    ASSERT_TRUE(build(output()));
    EXPECT_EQ(counts_.places, 4U);
    EXPECT_EQ(counts_.countries, 2U);
    EXPECT_EQ(filesInOutputFolder(), 1U) << "no temporary file stays";
}

TEST_F(Build, ACityHasAllItsDetails) {
    ASSERT_TRUE(build(output()));
    const City city = cityOf("2657896");
    EXPECT_EQ(city.name, "Zürich");
    EXPECT_EQ(city.nameParent, "Zurich");
    EXPECT_EQ(city.countryNameEn, "Switzerland");
    EXPECT_EQ(city.countryNameTr, "İsviçre");
    EXPECT_EQ(city.latitude, "47.366670");
    EXPECT_EQ(city.longitude, "8.550000");
    EXPECT_EQ(city.GMT, "1");
    EXPECT_THAT((std::vector<std::string>{city.DST, city.startMonth, city.startDay, city.stopMonth,
                                          city.stopDay, city.hour}),
                ElementsAre("1", "2", "35", "9", "35", "1"));
    EXPECT_EQ(city.temkin, "1");
}

TEST_F(Build, ElevationDecidesTheClass) {
    ASSERT_TRUE(build(output()));
    EXPECT_EQ(cityOf("745044").temkin, "0");
    EXPECT_EQ(cityOf("100").temkin, "0") << "unknown elevation";
    EXPECT_EQ(cityOf("7").temkin, "1") << "375 m";
    EXPECT_EQ(cityOf("7").longitude, "-0.500000");
    EXPECT_EQ(cityOf("7").DST, "0");
}

TEST_F(Build, ARegionWithTwoClocksIsTwoRows) {
    sources_.addPlace("9\tSınır\t\t\tTR\t34\t41.5\t29.5\t\tEurope/Zurich\t5");
    ASSERT_TRUE(build(output()));
    EXPECT_EQ(cityOf("9").GMT, "1");
    EXPECT_EQ(cityOf("745044").GMT, "3");
    EXPECT_EQ(cityOf("9").nameParent, cityOf("745044").nameParent);
}

TEST_F(Build, TheSameSourceGivesTheSameBytes) {
    ASSERT_TRUE(build(output()));
    ASSERT_TRUE(build(bundle_.path("again.sqlite")));
    const std::string bytes = test::readFile(output());
    EXPECT_GT(bytes.size(), 10'000U);
    EXPECT_TRUE(bytes == test::readFile(bundle_.path("again.sqlite")));
}

TEST_F(Build, FaultyDataLeavesTheOlderFile) {
    ASSERT_TRUE(build(output()));
    const std::string before = test::readFile(output());
    sources_.addPlace("9\tA\t\t\tTR\t34\t95\t29\t\tEurope/Istanbul\t0");
    EXPECT_FALSE(build(output()));
    EXPECT_TRUE(test::readFile(output()) == before);
    EXPECT_EQ(filesInOutputFolder(), 1U);
}

TEST_F(Build, ReplacesAnOlderFile) {
    test::writeFile(output(), "something else");
    ASSERT_TRUE(build(output()));
    EXPECT_EQ(cityOf("7").name, "Ova");
}

TEST_F(Build, AnOutputThatCannotBeWrittenIsAnError) {
    EXPECT_THROW(build(bundle_.path("missing/cities.sqlite")), OutputError);
    std::filesystem::create_directories(bundle_.path("folder/inside"));
    EXPECT_THROW(build(bundle_.path("folder")), OutputError);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(bundle_.path()), {}), 2)
        << "nothing is left over";
}

TEST_F(Build, LookupsOfTheSmallCatalogue) {
    ASSERT_TRUE(build(output()));
    EXPECT_EQ(largestPlaceOfTimeZone(glbFuncs_, "Europe/Istanbul")->city.name, "İstanbul");
    EXPECT_EQ(largestPlaceOfTimeZone(glbFuncs_, "Turkey")->city.name, "İstanbul")
        << "another name of the zone";
    EXPECT_FALSE(largestPlaceOfTimeZone(glbFuncs_, "Asia/Tokyo"));
    EXPECT_FALSE(largestPlaceOfTimeZone(glbFuncs_, ""));
    const auto credits = catalogueCredits(glbFuncs_);
    ASSERT_EQ(credits.size(), 1U);
    EXPECT_EQ(credits[0].credit, "By the survey.");
    EXPECT_EQ(credits[0].licenceText, "Keep this notice.\n");
}

} // namespace
} // namespace zorel::catalogue
