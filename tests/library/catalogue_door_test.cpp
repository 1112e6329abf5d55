// SPDX-License-Identifier: Apache-2.0
// The library's doors as a program sees them: only its public headers are included.
#include <zorel/almanac/Almanac.h>
#include <zorel/catalogue/Catalogue.h>

#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;
using zorel::almanac::Almanac;
using zorel::almanac::Prayer;
using zorel::catalogue::Catalogue;

const std::string kBundle = ZOREL_BINARY_DIR "/share/zorel/Zorel.bundle";

class CatalogueDoor : public testing::Test {
protected:
    std::optional<Catalogue> cities = Catalogue::open(kBundle);
};

TEST_F(CatalogueDoor, FindsACityInAnySpelling) {
    ASSERT_TRUE(cities);
    for (const char* name : {"Istanbul", "İstanbul", "istanbul, turkey", "إسطنبول"}) {
        const auto city = cities->find(name);
        ASSERT_TRUE(city) << name;
        EXPECT_EQ(city->id, 745044);
        EXPECT_EQ(city->countryCode, "TR");
        EXPECT_EQ(city->place.clock.zoneName(), "Europe/Istanbul");
    }
}

TEST_F(CatalogueDoor, TakesNoPartOfANameForTheName) {
    ASSERT_TRUE(cities);
    EXPECT_FALSE(cities->find("Istanb"));
    const auto similar = cities->similar("Istanb", 3);
    ASSERT_FALSE(similar.empty());
    EXPECT_EQ(similar.front().id, 745044);
    EXPECT_LE(similar.size(), 3U);
}

TEST_F(CatalogueDoor, KnowsIds) {
    ASSERT_TRUE(cities);
    EXPECT_EQ(cities->byId(745044)->population, cities->find("Istanbul")->population);
    EXPECT_FALSE(cities->byId(1));
}

TEST_F(CatalogueDoor, LeadsToTheAlmanac) {
    ASSERT_TRUE(cities);
    const auto day = Almanac(cities->find("Istanbul")->place).day(2026y / 11 / 21);
    EXPECT_EQ(day[Prayer::maghrib].local.timeOfDay, 17h + 49min);
}

TEST_F(CatalogueDoor, IsClosedWhereThereIsNoCatalogue) {
    EXPECT_FALSE(Catalogue::open("/nowhere"));
    EXPECT_FALSE(Catalogue::open(ZOREL_SOURCE_DIR "/resources/Zorel.bundle"));
}

TEST_F(CatalogueDoor, MovesWithItsPlaces) {
    ASSERT_TRUE(cities);
    Catalogue moved = *std::move(cities);
    EXPECT_TRUE(moved.find("Ankara"));
}

} // namespace
