// SPDX-License-Identifier: Apache-2.0
// The C interface, out of the shared library: what it answers, and that it says what the almanac says.
#include <zorel.h>

#include <zorel/almanac/Almanac.h>
#include <zorel/catalogue/Catalogue.h>

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cmath>
#include <limits>
#include <memory>
#include <string>

namespace {

using namespace std::chrono_literals;
using Times = std::array<zorel_time, ZOREL_KINDS>;

const std::string kBundle = ZOREL_BINARY_DIR "/share/zorel/Zorel.bundle";
constexpr zorel_date kDay{2026, 11, 22};

struct Free {
    void operator()(zorel_place* place) const { zorel_place_free(place); }
    void operator()(zorel_catalogue* catalogue) const { zorel_catalogue_close(catalogue); }
};
using OwnedPlace = std::unique_ptr<zorel_place, Free>;
using OwnedCatalogue = std::unique_ptr<zorel_catalogue, Free>;

OwnedCatalogue openedCatalogue() {
    zorel_catalogue* catalogue = nullptr;
    EXPECT_EQ(zorel_catalogue_open(kBundle.c_str(), &catalogue), ZOREL_OK);
    return OwnedCatalogue(catalogue);
}

OwnedPlace found(zorel_catalogue* catalogue, const char* name) {
    zorel_place* place = nullptr;
    EXPECT_EQ(zorel_catalogue_find(catalogue, name, &place), ZOREL_OK) << name;
    return OwnedPlace(place);
}

OwnedPlace point(double latitude, double longitude, const char* zone) {
    zorel_place* place = nullptr;
    EXPECT_EQ(zorel_place_at(latitude, longitude, zone, &place), ZOREL_OK);
    return OwnedPlace(place);
}

class CatalogueInC : public testing::Test {
protected:
    OwnedCatalogue cities = openedCatalogue();
};

TEST_F(CatalogueInC, FindsACityInAnySpelling) {
    for (const char* name : {"Istanbul", "İstanbul", "istanbul, turkey", "إسطنبول"}) {
        const OwnedPlace place = found(cities.get(), name);
        EXPECT_EQ(zorel_place_id(place.get()), 745044);
        EXPECT_STREQ(zorel_place_name(place.get()), "İstanbul");
        EXPECT_STREQ(zorel_place_country_code(place.get()), "TR");
        EXPECT_STREQ(zorel_place_zone(place.get()), "Europe/Istanbul");
        EXPECT_NEAR(zorel_place_latitude(place.get()), 41.01, 0.02);
        EXPECT_NEAR(zorel_place_longitude(place.get()), 28.95, 0.02);
    }
}

TEST_F(CatalogueInC, KnowsIds) {
    zorel_place* place = nullptr;
    ASSERT_EQ(zorel_catalogue_by_id(cities.get(), 745044, &place), ZOREL_OK);
    EXPECT_STREQ(zorel_place_region(place), "İstanbul");
    zorel_place_free(place);
    EXPECT_EQ(zorel_catalogue_by_id(cities.get(), 1, &place), ZOREL_NO_SUCH_PLACE);
}

TEST_F(CatalogueInC, SuggestsWhatMayHaveBeenMeant) {
    zorel_place* place = nullptr;
    EXPECT_EQ(zorel_catalogue_find(cities.get(), "Istanb", &place), ZOREL_NO_SUCH_PLACE);
    EXPECT_EQ(place, nullptr);
    std::array<zorel_place*, 3> similar{};
    std::size_t count = 0;
    ASSERT_EQ(zorel_catalogue_similar(cities.get(), "Istanb", similar.size(), similar.data(), &count),
              ZOREL_OK);
    ASSERT_GE(count, 1U);
    ASSERT_LE(count, similar.size());
    EXPECT_EQ(zorel_place_id(similar[0]), 745044);
    for (std::size_t i = 0; i < count; ++i) {
        zorel_place_free(similar[i]);
    }
    EXPECT_EQ(zorel_catalogue_similar(cities.get(), "Xqzwvx", similar.size(), similar.data(), &count),
              ZOREL_OK);
    EXPECT_EQ(count, 0U);
}

TEST_F(CatalogueInC, OpensTheOneInstalledWithTheLibrary) {
    zorel_catalogue* installed = nullptr;
    ASSERT_EQ(zorel_catalogue_open(nullptr, &installed), ZOREL_OK);
    const OwnedCatalogue owned(installed);
    EXPECT_EQ(zorel_place_id(found(installed, "Istanbul").get()), 745044);
}

TEST(CatalogueInCThatIsNoCatalogue, IsSaid) {
    zorel_catalogue* catalogue = nullptr;
    EXPECT_EQ(zorel_catalogue_open("/nowhere", &catalogue), ZOREL_NO_CATALOGUE);
    EXPECT_EQ(catalogue, nullptr);
    zorel_catalogue_close(nullptr);
}

TEST(CatalogueInCThatGoesAway, IsNotTakenForOneWithoutTheCity) {
    const auto folder = std::filesystem::temp_directory_path() / ("zorel_c_" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder / "database");
    const auto link = folder / "database/cities.sqlite";
    std::filesystem::create_symlink(kBundle + "/database/cities.sqlite", link);
    zorel_catalogue* catalogue = nullptr;
    ASSERT_EQ(zorel_catalogue_open(folder.c_str(), &catalogue), ZOREL_OK);
    const OwnedCatalogue owned(catalogue);
    std::filesystem::remove_all(folder);
    zorel_place* place = nullptr;
    EXPECT_EQ(zorel_catalogue_find(catalogue, "Istanbul", &place), ZOREL_NO_CATALOGUE);
    EXPECT_EQ(zorel_catalogue_by_id(catalogue, 745044, &place), ZOREL_NO_CATALOGUE);
    std::size_t count = 0;
    EXPECT_EQ(zorel_catalogue_similar(catalogue, "Istanb", 1, &place, &count), ZOREL_NO_CATALOGUE);
}

// Every field of every time is the almanac's, in cities with and without each of them.
TEST_F(CatalogueInC, TellsTheAlmanacsTimes) {
    const auto same = zorel::catalogue::Catalogue::open(kBundle);
    ASSERT_TRUE(same);
    std::size_t missing = 0;
    for (const char* name : {"Istanbul", "Mecca", "Oslo", "Longyearbyen", "Casablanca", "Apia"}) {
        const OwnedPlace place = found(cities.get(), name);
        const zorel::almanac::Almanac almanac(same->find(name)->place);
        for (const int month : {3, 6, 10, 12}) {
            const zorel_date date{2027, month, 21};
            const auto told = almanac.day(2027y / month / 21);
            Times times{};
            ASSERT_EQ(zorel_day(place.get(), date, times.data()), ZOREL_OK);
            for (std::size_t i = 0; i < times.size(); ++i) {
                const auto& expected = told.times[i];
                EXPECT_EQ(times[i].kind, static_cast<int>(i));
                EXPECT_STREQ(zorel_kind_key(static_cast<zorel_kind>(i)),
                             std::string(keyOf(expected.prayer)).c_str());
                ASSERT_EQ(times[i].absence == ZOREL_EXISTS, expected.exists()) << name << ' ' << i;
                EXPECT_EQ(times[i].corrections == 0, expected.why.corrections.none());
                if (expected.exists()) {
                    EXPECT_EQ(times[i].instant, expected.shown.time_since_epoch().count());
                    EXPECT_EQ(times[i].second_of_day, expected.local.timeOfDay.count());
                    EXPECT_EQ(times[i].offset, expected.local.offset.count());
                    EXPECT_EQ(times[i].date.day, static_cast<int>(unsigned(expected.local.date.day())));
                } else {
                    ++missing;
                    EXPECT_EQ(times[i].instant, 0);
                }
            }
        }
    }
    EXPECT_GT(missing, 0U);
}

TEST_F(CatalogueInC, NamesTheCorrectionsOfATime) {
    const OwnedPlace place = found(cities.get(), "Mecca");
    Times times{};
    ASSERT_EQ(zorel_day(place.get(), {2026, 5, 28}, times.data()), ZOREL_OK);
    std::uint32_t known = 0;
    for (int i = 0; zorel_correction_key(i) != nullptr; ++i) {
        known |= 1U << i;
    }
    EXPECT_STREQ(zorel_correction_key(0), "before_midnight");
    EXPECT_EQ(zorel_correction_key(-1), nullptr);
    for (const zorel_time& time : times) {
        EXPECT_EQ(time.corrections & ~known, 0U);
    }
    EXPECT_NE(times[ZOREL_SUN_AT_QIBLA].corrections, 0U);
}

TEST(PlaceInC, HasAClockByZoneOrOffset) {
    const OwnedPlace paris = point(48.8566, 2.3522, "Europe/Paris");
    zorel_place* fixed = nullptr;
    ASSERT_EQ(zorel_place_at_offset(48.8566, 2.3522, 3600, &fixed), ZOREL_OK);
    const OwnedPlace owned(fixed);
    Times summer{};
    Times fixedSummer{};
    ASSERT_EQ(zorel_day(paris.get(), {2026, 7, 1}, summer.data()), ZOREL_OK);
    ASSERT_EQ(zorel_day(fixed, {2026, 7, 1}, fixedSummer.data()), ZOREL_OK);
    EXPECT_EQ(summer[ZOREL_DHUHR].offset, 7200);
    EXPECT_EQ(fixedSummer[ZOREL_DHUHR].offset, 3600);
    EXPECT_STREQ(zorel_place_zone(fixed), "");
    EXPECT_STREQ(zorel_place_name(fixed), "");
    zorel_place* machine = nullptr;
    ASSERT_EQ(zorel_place_at(0.0, 0.0, nullptr, &machine), ZOREL_OK);
    zorel_place_free(machine);
}

TEST(PlaceInC, RefusesWhatIsNone) {
    zorel_place* place = nullptr;
    EXPECT_EQ(zorel_place_at(91.0, 0.0, "Europe/Paris", &place), ZOREL_OUT_OF_RANGE);
    EXPECT_EQ(zorel_place_at(0.0, -180.5, "Europe/Paris", &place), ZOREL_OUT_OF_RANGE);
    EXPECT_EQ(zorel_place_at(NAN, 0.0, "Europe/Paris", &place), ZOREL_BAD_ARGUMENT);
    EXPECT_EQ(zorel_place_at(0.0, 0.0, "Europe/Nowhere", &place), ZOREL_NO_SUCH_ZONE);
    EXPECT_EQ(zorel_place_at(0.0, 0.0, "../../etc/passwd", &place), ZOREL_NO_SUCH_ZONE);
    EXPECT_EQ(zorel_place_at_offset(0.0, 0.0, 14 * 3600 + 1, &place), ZOREL_OUT_OF_RANGE);
    EXPECT_EQ(zorel_place_at(0.0, 0.0, nullptr, nullptr), ZOREL_BAD_ARGUMENT);
    EXPECT_EQ(place, nullptr);
}

TEST(PlaceInC, ChangesItsTableOfPrecaution) {
    const OwnedPlace place = point(41.01, 28.95, "Europe/Istanbul");
    Times low{};
    Times high{};
    ASSERT_EQ(zorel_day(place.get(), kDay, low.data()), ZOREL_OK);
    ASSERT_EQ(zorel_place_set_temkin(place.get(), ZOREL_UP_TO_500_M), ZOREL_OK);
    ASSERT_EQ(zorel_day(place.get(), kDay, high.data()), ZOREL_OK);
    EXPECT_GT(high[ZOREL_MAGHRIB].instant, low[ZOREL_MAGHRIB].instant);
    EXPECT_EQ(zorel_place_set_temkin(place.get(), 7), ZOREL_BAD_ARGUMENT);
    EXPECT_EQ(zorel_place_set_temkin(nullptr, ZOREL_UP_TO_500_M), ZOREL_BAD_ARGUMENT);
}

TEST(DayInC, RefusesDatesThatDoNotExist) {
    const OwnedPlace place = point(41.01, 28.95, "Europe/Istanbul");
    Times times{};
    zorel_date hijri{};
    constexpr int kGreatest = std::numeric_limits<int>::max();
    for (const zorel_date& date : {zorel_date{2026, 2, 29},
                                   {2026, 13, 1},
                                   {2026, 0, 1},
                                   {2026, 1, 0},
                                   {1582, 12, 31},
                                   {9999, 1, 1},
                                   {2026, 257, 1},
                                   {2026, 1, 257},
                                   {kGreatest, kGreatest, kGreatest}}) {
        EXPECT_EQ(zorel_day(place.get(), date, times.data()), ZOREL_OUT_OF_RANGE);
        EXPECT_EQ(zorel_hijri(place.get(), date, &hijri), ZOREL_OUT_OF_RANGE);
    }
    EXPECT_EQ(zorel_day(place.get(), {1583, 1, 1}, times.data()), ZOREL_OK);
    EXPECT_EQ(zorel_day(place.get(), {9998, 12, 31}, times.data()), ZOREL_OK);
    EXPECT_EQ(zorel_day(place.get(), kDay, nullptr), ZOREL_BAD_ARGUMENT);
    EXPECT_EQ(zorel_day(nullptr, kDay, times.data()), ZOREL_BAD_ARGUMENT);
}

TEST(NextInC, IsTheNextOfTheSixTimes) {
    const OwnedPlace place = point(41.01, 28.95, "Europe/Istanbul");
    Times times{};
    ASSERT_EQ(zorel_day(place.get(), kDay, times.data()), ZOREL_OK);
    for (int kind = ZOREL_FAJR; kind < ZOREL_ISHA; ++kind) {
        zorel_time next{};
        ASSERT_EQ(zorel_next(place.get(), times.at(kind).instant, &next), ZOREL_OK);
        EXPECT_EQ(next.kind, kind + 1);
        EXPECT_EQ(next.instant, times.at(kind + 1).instant);
    }
    zorel_time next{};
    EXPECT_EQ(zorel_next(place.get(), std::numeric_limits<std::int64_t>::max(), &next), ZOREL_OUT_OF_RANGE);
    EXPECT_EQ(zorel_next(place.get(), std::numeric_limits<std::int64_t>::min(), &next), ZOREL_OUT_OF_RANGE);
    EXPECT_EQ(zorel_next(place.get(), 0, nullptr), ZOREL_BAD_ARGUMENT);
}

TEST(DirectionInC, LeadsToTheKaaba) {
    double bearing = 0.0;
    double distance = 0.0;
    ASSERT_EQ(zorel_qibla(point(41.01, 28.95, "Europe/Istanbul").get(), &bearing, &distance), ZOREL_OK);
    EXPECT_NEAR(bearing, 151.6, 0.1);
    EXPECT_NEAR(distance, 2400.0, 20.0);
    EXPECT_EQ(zorel_qibla(point(41.01, 28.95, nullptr).get(), nullptr, nullptr), ZOREL_OK);
    EXPECT_EQ(zorel_qibla(point(21.4225, 39.8262, "Asia/Riyadh").get(), &bearing, nullptr),
              ZOREL_NO_DIRECTION);
    EXPECT_EQ(zorel_qibla(nullptr, &bearing, nullptr), ZOREL_BAD_ARGUMENT);
}

// The month of Ramadan 1447 began on 18 or 19 February 2026.
TEST(HijriInC, IsTheDateOfTheDaylight) {
    const OwnedPlace place = point(41.01, 28.95, "Europe/Istanbul");
    zorel_date hijri{};
    ASSERT_EQ(zorel_hijri(place.get(), {2026, 3, 1}, &hijri), ZOREL_OK);
    EXPECT_EQ(hijri.year, 1447);
    EXPECT_EQ(hijri.month, 9);
    EXPECT_TRUE(hijri.day == 11 || hijri.day == 12) << hijri.day;
    EXPECT_EQ(zorel_hijri(place.get(), kDay, nullptr), ZOREL_BAD_ARGUMENT);
}

TEST(TextsInC, AreThereForEveryStatus) {
    for (int status = ZOREL_OK; status <= ZOREL_OUT_OF_MEMORY; ++status) {
        EXPECT_STRNE(zorel_status_text(status), zorel_status_text(-1));
    }
    EXPECT_EQ(zorel_kind_key(ZOREL_KINDS), nullptr);
    EXPECT_EQ(zorel_kind_key(-1), nullptr);
    EXPECT_STREQ(zorel_version(), "1.0.0");
}

TEST(NothingInC, HasEmptyTexts) {
    EXPECT_STREQ(zorel_place_name(nullptr), "");
    EXPECT_STREQ(zorel_place_region(nullptr), "");
    EXPECT_STREQ(zorel_place_country_code(nullptr), "");
    EXPECT_STREQ(zorel_place_zone(nullptr), "");
    EXPECT_EQ(zorel_place_id(nullptr), 0);
    EXPECT_EQ(zorel_place_latitude(nullptr), 0.0);
    EXPECT_EQ(zorel_place_longitude(nullptr), 0.0);
    zorel_place_free(nullptr);
    zorel_place* place = nullptr;
    EXPECT_EQ(zorel_catalogue_find(nullptr, "Istanbul", &place), ZOREL_BAD_ARGUMENT);
    EXPECT_EQ(zorel_catalogue_open(kBundle.c_str(), nullptr), ZOREL_BAD_ARGUMENT);
}

} // namespace
