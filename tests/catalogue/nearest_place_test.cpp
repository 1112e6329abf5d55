// SPDX-License-Identifier: Apache-2.0
#include "store/NearestPlace.h"

#include "platform/foundation/NumberText.h"
#include "platform/foundation/SquareDegree.h"
#include "tests/catalogue/Fixture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

namespace zorel {
namespace {

class Nearest : public testing::Test {
protected:
    std::string nameAt(double latitude, double longitude, double within = 200.0) {
        const auto nearest = nearestPlace(real_.glbFuncs, latitude, longitude, within);
        return nearest && nearest->place ? nearest->place->city.name : "";
    }
    test::RealCatalogue real_;
};

TEST_F(Nearest, APlaceIsNearestToItself) {
    const auto place = nearestPlace(real_.glbFuncs, 41.01384, 28.94966, 1.0);
    ASSERT_TRUE(place && place->place);
    EXPECT_EQ(place->place->city.cityId, "745044");
    EXPECT_EQ(place->place->timeZone, "Europe/Istanbul");
    EXPECT_LT(place->distance, 0.001);
}

constexpr double kRadian = 3.14159265358979323846 / 180.0;

struct Point {
    double latitude;
    double longitude;
};

double distanceTo(const Point& one, const Point& other) {
    const double cosine = std::sin(one.latitude * kRadian) * std::sin(other.latitude * kRadian) +
                          std::cos(one.latitude * kRadian) * std::cos(other.latitude * kRadian) *
                              std::cos((one.longitude - other.longitude) * kRadian);
    return 6371.0088 * std::acos(std::min(cosine, 1.0));
}

/// Every place, one after the other.
TEST_F(Nearest, IsTheSameAsAmongAllPlaces) {
    std::vector<Point> places;
    forEachPlace(real_.glbFuncs, 0, [&](const CataloguePlace& place) {
        places.push_back({doubleValue(place.city.latitude), doubleValue(place.city.longitude)});
        return true;
    });
    std::mt19937 random(11);
    const auto between = [&](double low, double high) {
        return low + (high - low) * static_cast<double>(random()) / 4294967296.0;
    };
    std::vector<Point> points{{-16.9, 179.98}, {-16.9, -179.98}, {78.2, 15.6}, {82.5, -62.3}, {-90.0, 0.0}};
    for (int i = 0; i < 200; ++i) {
        points.push_back({between(-60.0, 85.0), between(-180.0, 180.0)});
    }
    int found = 0;
    for (const Point& point : points) {
        double best = 1e9;
        for (const Point& place : places) {
            best = std::min(best, distanceTo(point, place));
        }
        const auto nearest = nearestPlace(real_.glbFuncs, point.latitude, point.longitude, 200.0);
        ASSERT_TRUE(nearest);
        ASSERT_EQ(nearest->place.has_value(), best <= 200.0) << point.latitude << ' ' << point.longitude;
        if (nearest->place) {
            EXPECT_NEAR(nearest->distance, best, 0.01) << point.latitude << ' ' << point.longitude;
            ++found;
        }
    }
    EXPECT_GT(found, 50);
}

TEST_F(Nearest, TheMeridianOfTheDateLineIsNoBorder) {
    // Waiyevo on Taveuni, Fiji, lies on it.
    EXPECT_NE(nameAt(-16.8, 179.999), "");
    EXPECT_EQ(nameAt(-16.8, 179.999), nameAt(-16.8, -179.999));
}

TEST_F(Nearest, ThereIsNoneWhereNobodyLives) {
    EXPECT_EQ(nameAt(0.0, -30.0), "");
    EXPECT_EQ(nameAt(41.01384, 28.0, 1.0), "");
    EXPECT_EQ(nameAt(90.0, 0.0), "");
}

TEST(NearestWithoutACatalogue, CannotBeToldFromThatThereIsNone) {
    const test::TemporaryFolder folder;
    GlobalFuncs glbFuncs;
    glbFuncs.appBundlePath = folder.path();
    EXPECT_FALSE(nearestPlace(glbFuncs, 41.0, 29.0, 200.0));
    test::writeFile(folder.path("database/cities.sqlite"), std::string(4096, 'x'));
    EXPECT_FALSE(nearestPlace(glbFuncs, 41.0, 29.0, 200.0));
}

TEST(SquareDegree, CountsEastwardsThenNorthwards) {
    EXPECT_EQ(squareDegree(-90.0, -180.0), 0);
    EXPECT_EQ(squareDegree(-89.5, -179.5), 0);
    EXPECT_EQ(squareDegree(-90.0, -178.9), 1);
    EXPECT_EQ(squareDegree(-90.0, 179.9), 359);
    EXPECT_EQ(squareDegree(-89.0, -180.0), 360);
    EXPECT_EQ(squareDegree(0.0, 0.0), 90 * 360 + 180);
    EXPECT_EQ(squareDegree(-0.001, -0.001), 89 * 360 + 179);
    EXPECT_EQ(squareDegree(90.0, 179.9), 64'799);
    EXPECT_EQ(squareDegree(50.0, 180.0), squareDegree(50.0, -180.0));
}

} // namespace
} // namespace zorel
