// SPDX-License-Identifier: Apache-2.0
// From a row of the catalogue to a place whose times can be told.
#include "store/AlmanacPlace.h"

#include "common/GlobalFuncs.h"

#include <gtest/gtest.h>

namespace zorel {
namespace {

using namespace std::chrono_literals;

class AlmanacPlaceTest : public testing::Test {
protected:
    AlmanacPlaceTest() {
        place.city.name = "Havana";
        place.city.latitude = "23.133020";
        place.city.longitude = "-82.383040";
        place.city.GMT = "-5";
        place.city.DST = "1";
        place.city.startMonth = "2";
        place.city.startDay = "32";
        place.city.stopMonth = "10";
        place.city.stopDay = "31";
        place.city.temkin = "1";
    }

    GlobalFuncs funcs;
    CataloguePlace place{City(funcs), "CU", "", std::nullopt, 0, "2026f", false, std::nullopt};
};

TEST_F(AlmanacPlaceTest, HasThePositionAndThePrecaution) {
    EXPECT_EQ(almanacPlace(place).name, "Havana");
    EXPECT_EQ(almanacPlace(place).latitude, 23.13302);
    EXPECT_EQ(almanacPlace(place).longitude, -82.38304);
    EXPECT_EQ(almanacPlace(place).temkin, almanac::Temkin::upTo500m);
    EXPECT_EQ(almanacPlace(place).height, 0.0);
    place.city.temkin = "0";
    place.elevation = 24;
    EXPECT_EQ(almanacPlace(place).temkin, almanac::Temkin::upTo250m);
    EXPECT_EQ(almanacPlace(place).height, 24.0);
}

TEST_F(AlmanacPlaceTest, LivesByItsRuleWithoutAZone) {
    const almanac::PlaceClock clock = almanacPlace(place).clock;
    EXPECT_EQ(clock.offsetOn(2027y / 1 / 15), -5h);
    EXPECT_EQ(clock.offsetOn(2027y / 7 / 15), -4h);
    EXPECT_EQ(clock.noticeOn(2027y / 7 / 15), almanac::ClockNotice::ruleOnly);
}

TEST_F(AlmanacPlaceTest, KnowsTheDaysOnWhichTheClockDepartsFromTheRule) {
    place.ruleIsExact = true;
    place.departure = ZoneDeparture{2026y / 11 / 1, 2027y / 3 / 13, -4.0};
    const almanac::PlaceClock clock = almanacPlace(place).clock;
    EXPECT_EQ(clock.offsetOn(2027y / 1 / 15), -4h);
    EXPECT_EQ(clock.offsetOn(2028y / 1 / 15), -5h);
}

TEST_F(AlmanacPlaceTest, LivesByTheZoneOfTheCatalogue) {
    place.timeZone = "America/Havana";
    place.zoneEdition = "2000a";
    const almanac::PlaceClock clock = almanacPlace(place).clock;
    EXPECT_EQ(clock.zoneName(), "America/Havana");
    EXPECT_EQ(clock.sourceOn(2025y / 7 / 15), almanac::ClockSource::zoneData);
}

} // namespace
} // namespace zorel
