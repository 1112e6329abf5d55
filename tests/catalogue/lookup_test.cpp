// SPDX-License-Identifier: Apache-2.0
#include "store/CatalogueLookup.h"

#include "tests/catalogue/Fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class Lookup : public testing::Test {
protected:
    test::RealCatalogue real_;
};

TEST_F(Lookup, APlaceHasEverything) {
    const auto place = placeById(real_.glbFuncs, 745044);
    ASSERT_TRUE(place);
    EXPECT_EQ(place->city.cityId, "745044");
    EXPECT_EQ(place->city.name, "İstanbul");
    EXPECT_EQ(place->city.latitude, "41.013840");
    EXPECT_EQ(place->city.longitude, "28.949660");
    EXPECT_EQ(place->city.GMT, "3");
    EXPECT_EQ(place->city.DST, "0");
    EXPECT_EQ(place->countryCode, "TR");
    EXPECT_EQ(place->timeZone, "Europe/Istanbul");
    EXPECT_EQ(place->elevation, 39);
    EXPECT_EQ(place->population, 15'701'602);
}

TEST_F(Lookup, APlaceKnowsHowFarItsClockRuleCanBeTrusted) {
    const auto istanbul = placeById(real_.glbFuncs, 745044);
    EXPECT_TRUE(istanbul->ruleIsExact);
    EXPECT_FALSE(istanbul->departure);
    EXPECT_EQ(istanbul->zoneEdition, "2026f");
    EXPECT_FALSE(largestPlaceOfTimeZone(real_.glbFuncs, "Australia/Sydney")->ruleIsExact);
    const auto havana = largestPlaceOfTimeZone(real_.glbFuncs, "America/Havana");
    ASSERT_TRUE(havana->departure);
    EXPECT_TRUE(havana->ruleIsExact);
    EXPECT_EQ(havana->departure->first, std::chrono::sys_days(std::chrono::year(2026) / 11 / 1));
    EXPECT_EQ(havana->departure->last, std::chrono::sys_days(std::chrono::year(2027) / 3 / 13));
    EXPECT_EQ(havana->departure->offset, -4.0);
}

TEST_F(Lookup, UnknownIdsHaveNoPlace) {
    for (const int id : {0, -1, 745043, 2147483647}) {
        EXPECT_FALSE(placeById(real_.glbFuncs, id)) << id;
    }
}

TEST_F(Lookup, TheLargestPlaceOfAZone) {
    EXPECT_EQ(largestPlaceOfTimeZone(real_.glbFuncs, "Asia/Kolkata")->city.name, "Mumbai");
    EXPECT_EQ(largestPlaceOfTimeZone(real_.glbFuncs, "Asia/Calcutta")->city.name, "Mumbai");
    EXPECT_EQ(largestPlaceOfTimeZone(real_.glbFuncs, "Europe/Berlin")->city.name, "Berlin");
    EXPECT_EQ(largestPlaceOfTimeZone(real_.glbFuncs, "Europe/Kiev")->timeZone, "Europe/Kyiv");
    EXPECT_FALSE(largestPlaceOfTimeZone(real_.glbFuncs, "Etc/UTC"));
    EXPECT_FALSE(largestPlaceOfTimeZone(real_.glbFuncs, "No/Where"));
    EXPECT_FALSE(largestPlaceOfTimeZone(real_.glbFuncs, "x' OR 1=1 --"));
}

TEST_F(Lookup, AllPlacesComeInTheOrderOfTheirIds) {
    std::size_t count = 0;
    int last = 0;
    bool ordered = true;
    forEachPlace(real_.glbFuncs, 1, [&](const CataloguePlace& place) {
        const int id = std::stoi(place.city.cityId);
        ordered = ordered && id > last;
        last = id;
        ++count;
        return true;
    });
    EXPECT_EQ(count, 146'487U);
    EXPECT_TRUE(ordered);
}

TEST_F(Lookup, TheWalkBeginsAndStopsWhereItIsTold) {
    std::vector<std::string> ids;
    forEachPlace(real_.glbFuncs, 745043, [&](const CataloguePlace& place) {
        ids.push_back(place.city.cityId);
        return ids.size() < 3;
    });
    ASSERT_THAT(ids, SizeIs(3));
    EXPECT_EQ(ids[0], "745044");
}

TEST_F(Lookup, WithoutACatalogueThereAreNoPlaces) {
    real_.glbFuncs.appBundlePath = "/nowhere";
    EXPECT_FALSE(placeById(real_.glbFuncs, 745044));
    EXPECT_FALSE(largestPlaceOfTimeZone(real_.glbFuncs, "Europe/Istanbul"));
    EXPECT_THAT(catalogueCredits(real_.glbFuncs), IsEmpty());
}

TEST_F(Lookup, CreditsTravelWithTheCatalogue) {
    const auto credits = catalogueCredits(real_.glbFuncs);
    ASSERT_THAT(credits, SizeIs(3));
    EXPECT_EQ(credits[0].credit,
              "Contains data from GeoNames (geonames.org), licensed under CC BY 4.0, modified.");
    EXPECT_THAT(credits[1].licenceText, HasSubstr("UNICODE LICENSE V3"));
    EXPECT_EQ(credits[2].edition, "2026f");
}

} // namespace
} // namespace zorel
