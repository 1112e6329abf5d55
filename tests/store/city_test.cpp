// SPDX-License-Identifier: Apache-2.0
#include "store/City.h"

#include "common/GlobalFuncs.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace zorel {
namespace {

/// A catalogue of one place with a region, a country and a rule.
class CityTest : public testing::Test {
protected:
    CityTest() {
        glbFuncs_.appBundlePath = bundle_.path();
        std::filesystem::create_directories(bundle_.path("database"));
        sqlite3* database = nullptr;
        sqlite3_open(bundle_.path("database/cities.sqlite").c_str(), &database);
        sqlite3_exec(database,
                     "CREATE TABLE CITY (ID, NAME, NAMESRC, PARENT, LAT TEXT, LON TEXT, TEMKIN);"
                     "CREATE TABLE CITY_PARENT (PARENT, NAME, CID, GMT, DSTID);"
                     "CREATE TABLE COUNTRY (CID, NAMEEN, NAMETR);"
                     "CREATE TABLE DST (DSTID, DST, STARTMONTH, STARTDAY, STOPMONTH, STOPDAY, HOUR);"
                     "INSERT INTO CITY VALUES (42, 'Alpha', 'Alpha', 1, '00', '00', 1);"
                     "INSERT INTO CITY VALUES (43, 'Nodst', 'Nodst', 2, '00', '00', 1);"
                     "INSERT INTO CITY_PARENT VALUES (1, 'Region', 9, -3.5, 5), (2, 'Other', 9, 1, 6);"
                     "INSERT INTO COUNTRY VALUES (9, 'Land', 'Ülke');"
                     "INSERT INTO DST VALUES (5, 1, 2, 35, 9, 36, 1);",
                     nullptr, nullptr, nullptr);
        sqlite3_close(database);
    }
    City filled(const std::string& id) {
        City city(glbFuncs_);
        city.cityId = id;
        city.getAllCityInfo(city);
        return city;
    }

    test::TemporaryLocations locations_;
    test::TemporaryFolder bundle_;
    GlobalFuncs glbFuncs_;
    City city_{glbFuncs_};
};

TEST_F(CityTest, FillsItselfFromTheCatalogue) {
    const City city = filled("42");
    EXPECT_EQ(city.name, "Alpha");
    EXPECT_EQ(city.nameParent, "Region");
    EXPECT_EQ(city.countryNameEn, "Land");
    EXPECT_EQ(city.countryNameTr, "Ülke");
    EXPECT_EQ(city.latitude, "0.000000");
    EXPECT_EQ(city.longitude, "0.000000");
    EXPECT_EQ(city.GMT, "-3.5");
    EXPECT_EQ(city.DST, "1");
    EXPECT_EQ(city.startMonth, "2");
    EXPECT_EQ(city.startDay, "35");
    EXPECT_EQ(city.stopMonth, "9");
    EXPECT_EQ(city.stopDay, "36");
    EXPECT_EQ(city.hour, "1");
    EXPECT_EQ(city.temkin, "1");
    EXPECT_EQ(city.cityId, "42");
    EXPECT_EQ(city.countryId, "") << "only the search fills it";
}

TEST_F(CityTest, FillsAnotherCityThanItself) {
    City other(glbFuncs_);
    other.cityId = "42";
    city_.getAllCityInfo(other);
    EXPECT_EQ(other.name, "Alpha");
    EXPECT_EQ(city_.name, "");
}

TEST_F(CityTest, WithoutACatalogueRowItStaysAsItIs) {
    City city(glbFuncs_);
    city.name = "mine";
    for (const char* id : {"", "41", "-1", "x", "99999999999", "42; DROP TABLE CITY"}) {
        city.cityId = id;
        if (city.cityId.starts_with("42")) {
            continue;
        }
        city.getAllCityInfo(city);
        EXPECT_EQ(city.name, "mine") << id;
    }
    EXPECT_EQ(filled("42; DROP TABLE CITY").name, "Alpha") << "the id is a number";
    EXPECT_EQ(filled("43").name, "") << "a place without its rule is no row";
}

TEST_F(CityTest, WithoutACatalogueItStaysEmptyAndSilent) {
    glbFuncs_.appBundlePath = "/nowhere";
    EXPECT_EQ(filled("42").name, "");
    EXPECT_FALSE(std::filesystem::exists("/nowhere/database/cities.sqlite"));
}

TEST_F(CityTest, PrayerIdsMapToTheTimes) {
    for (std::size_t index = 0; index < city_.aNamazVakitleri.times.size(); ++index) {
        city_.aNamazVakitleri.times[index] = 100.0 + static_cast<double>(index);
    }
    const std::pair<int, double> expected[] = {{200, 100}, {201, 101}, {202, 102}, {203, 103}, {204, 104},
                                               {205, 105}, {206, 108}, {207, 106}, {208, 109}};
    for (const auto& [prayerId, time] : expected) {
        EXPECT_EQ(city_.getRelevantPrayerTime(prayerId), time) << prayerId;
    }
}

TEST_F(CityTest, OtherPrayerIdsAreZero) {
    city_.aNamazVakitleri.times.fill(5.0);
    for (const int prayerId : {209, 199, 0, -1, 2147483647, -2147483647 - 1}) {
        EXPECT_EQ(city_.getRelevantPrayerTime(prayerId), 0.0) << prayerId;
    }
}

TEST_F(CityTest, TemkinToggles) {
    const std::pair<const char*, const char*> expected[] = {{"0", "1"}, {"1", "0"},  {"2", "0"}, {"", "1"},
                                                            {"x", "1"}, {"-1", "0"}, {" 3", "0"}};
    for (const auto& [before, after] : expected) {
        city_.temkin = before;
        city_.changeTemkin();
        EXPECT_EQ(city_.temkin, after) << before;
    }
}

TEST_F(CityTest, RecordsAreCopiedInAndOut) {
    PrayerTimes times;
    times.times[3] = 15.25;
    times.ezani[15] = 7.5;
    times.latitudeLowered = true;
    city_.setPrayerTimes(times);
    times.times[3] = 0.0;
    EXPECT_EQ(city_.aNamazVakitleri.times[3], 15.25);
    EXPECT_EQ(city_.aNamazVakitleri.ezani[15], 7.5);
    EXPECT_TRUE(city_.aNamazVakitleri.latitudeLowered);

    WidgetAstroInfo info;
    info.moonset = 4.5;
    info.moonAltitudeAtSunset = -1650.0;
    city_.setSomeAstroIfo(info);
    info.moonset = 0.0;
    EXPECT_EQ(city_.getSomeAstroInfo().moonset, 4.5);
    EXPECT_EQ(city_.getSomeAstroInfo().moonAltitudeAtSunset, -1650.0);

    city_.setQiblaAngle(151.5);
    city_.setMagneticVariation(-5.25);
    EXPECT_EQ(city_.getQiblaAngle(), 151.5);
    EXPECT_EQ(city_.getMagneticVariation(), -5.25);
}

} // namespace
} // namespace zorel
