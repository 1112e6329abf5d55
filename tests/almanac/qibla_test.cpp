// SPDX-License-Identifier: Apache-2.0
// The bearing of the Kaaba and the instants at which the Sun shows it.
#include "almanac/Almanac.h"

#include "engine/FastAstro.h"
#include "tests/engine/Places.h"
#include "tests/engine/Steps.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>

namespace zorel::almanac {
namespace {

using namespace std::chrono_literals;
using zorel::testing::Random;
using zorel::testing::steps;
using Vector = std::array<double, 3>;

constexpr double kDegree = std::numbers::pi / 180.0;

double apart(double a, double b) {
    return std::fabs(std::remainder(a - b, 360.0));
}

Vector point(double latitude, double longitude) {
    const double phi = latitude * kDegree;
    const double lambda = longitude * kDegree;
    return {std::cos(phi) * std::cos(lambda), std::cos(phi) * std::sin(lambda), std::sin(phi)};
}

double dot(const Vector& a, const Vector& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

/// Course of the great circle to the Kaaba, by vectors: its components towards north and east of the place.
double course(double latitude, double longitude) {
    const double phi = latitude * kDegree;
    const double lambda = longitude * kDegree;
    const Vector north{-std::sin(phi) * std::cos(lambda), -std::sin(phi) * std::sin(lambda), std::cos(phi)};
    const Vector east{-std::sin(lambda), std::cos(lambda), 0.0};
    const Vector here = point(latitude, longitude);
    Vector way = point(kKaabaLatitude, kKaabaLongitude);
    for (std::size_t i = 0; i < 3; ++i) {
        way[i] -= here[i]; // the chord: short beside the Kaaba, so that no digits are lost
    }
    return std::fmod(std::atan2(dot(way, east), dot(way, north)) / kDegree + 360.0, 360.0);
}

/// A point at a distance [km] and a direction [deg] from another, on the sphere.
struct Point {
    double latitude, longitude;
};

Point away(Point from, double kilometres, double direction) {
    const double d = kilometres / 6371.0088;
    const double phi = from.latitude * kDegree;
    const double sine =
        std::sin(phi) * std::cos(d) + std::cos(phi) * std::sin(d) * std::cos(direction * kDegree);
    const double east = std::sin(direction * kDegree) * std::sin(d) * std::cos(phi);
    const double longitude = from.longitude + std::atan2(east, std::cos(d) - std::sin(phi) * sine) / kDegree;
    return {std::asin(sine) / kDegree, longitude > 180.0 ? longitude - 360.0 : longitude};
}

constexpr Point kKaaba{kKaabaLatitude, kKaabaLongitude};
constexpr Point kAntipode{-kKaabaLatitude, kKaabaLongitude - 180.0};

TEST(QiblaBearing, IsTheGreatCircleAllOverTheWorld) {
    double farthest = 0.0;
    for (const double latitude : steps(-90.0, 90.0, 1.0)) {
        for (const double longitude : steps(-180.0, 180.0, 1.0)) {
            const auto found = qiblaBearing(latitude, longitude);
            ASSERT_TRUE(found) << latitude << ' ' << longitude;
            ASSERT_TRUE(*found >= 0.0 && *found < 360.0);
            farthest = std::max(farthest, apart(*found, course(latitude, longitude)));
        }
    }
    std::printf("65341 places: bearing within %.2g degrees of the great circle\n", farthest);
    EXPECT_LT(farthest, 1e-6);
}

TEST(QiblaBearing, IsTheGreatCircleBesideTheKaabaAndItsAntipode) {
    double farthest = 0.0;
    for (const double distance : {0.1, 0.2, 0.5, 1.0, 1.1, 2.0, 5.0, 20.0}) {
        for (const double direction : steps(0.0, 359.0, 1.0)) {
            const Point here = away(kKaaba, distance, direction);
            const auto found = qiblaBearing(here.latitude, here.longitude);
            ASSERT_TRUE(found);
            ASSERT_NEAR(qiblaDistance(here.latitude, here.longitude), distance, 1e-6);
            farthest = std::max(farthest, apart(*found, course(here.latitude, here.longitude)));
            // So near, the way there is the way back.
            ASSERT_LT(apart(*found, direction + 180.0), 0.1) << distance << ' ' << direction;
            const Point there = away(kAntipode, distance, direction);
            const auto opposite = qiblaBearing(there.latitude, there.longitude);
            ASSERT_TRUE(opposite);
            // All great circles meet at the antipode; the shortest way leads straight on from it.
            ASSERT_LT(apart(*opposite, direction), 0.1) << distance << ' ' << direction;
        }
    }
    std::printf("100 m to 20 km from the Kaaba: bearing within %.2g degrees of the great circle\n", farthest);
    EXPECT_LT(farthest, 1e-6);
}

TEST(QiblaBearing, OfMecca) {
    // The city's position in the catalogue, 0.46 km from the Kaaba.
    EXPECT_NEAR(qiblaBearing(21.42664, 39.82563).value(), 172.6, 0.1);
    EXPECT_NEAR(qiblaDistance(21.42664, 39.82563), 0.464, 0.001);
}

TEST(QiblaBearing, OfKnownPlaces) {
    EXPECT_NEAR(qiblaBearing(51.5, -0.13).value(), 119.0, 0.1);
    EXPECT_NEAR(qiblaBearing(41.0, 29.0).value(), 151.6, 0.2);
    EXPECT_NEAR(qiblaBearing(40.71, -74.0).value(), 58.5, 0.2);
    EXPECT_NEAR(qiblaBearing(-6.2, 106.8).value(), 295.1, 0.2);
    EXPECT_NEAR(qiblaBearing(-33.87, 151.2).value(), 277.5, 0.2);
}

TEST(QiblaBearing, HardlyDiffersFromTheEnginesFarAway) {
    Random random(3);
    for (int i = 0; i < 2000; ++i) {
        const double latitude = random.between(-89.0, 89.0);
        const double longitude = random.between(-180.0, 180.0);
        const double distance = qiblaDistance(latitude, longitude);
        if (distance > 1000.0 && distance < 19000.0) {
            const double engine = 360.0 - FastAstro().KibleAcisi(latitude, longitude).q1;
            ASSERT_LT(apart(qiblaBearing(latitude, longitude).value(), engine), 0.1);
        }
    }
}

TEST(QiblaBearing, NothingAtTheKaabaAndItsAntipode) {
    EXPECT_FALSE(qiblaBearing(kKaaba.latitude, kKaaba.longitude));
    EXPECT_FALSE(qiblaBearing(kAntipode.latitude, kAntipode.longitude));
    for (const double direction : steps(0.0, 350.0, 10.0)) {
        for (const Point& centre : {kKaaba, kAntipode}) {
            const Point inside = away(centre, 0.0195, direction);
            const Point outside = away(centre, 0.0205, direction);
            EXPECT_FALSE(qiblaBearing(inside.latitude, inside.longitude));
            EXPECT_TRUE(qiblaBearing(outside.latitude, outside.longitude));
        }
    }
}

TEST(QiblaBearing, OnTheMeridianItIsNorthOrSouth) {
    EXPECT_EQ(qiblaBearing(60.0, kKaabaLongitude), 180.0);
    EXPECT_EQ(qiblaBearing(-60.0, kKaabaLongitude), 0.0);
    // Beyond the antipode's parallel the way leads over the south pole.
    EXPECT_NEAR(qiblaBearing(-60.0, kKaabaLongitude - 180.0).value(), 180.0, 1e-9);
    EXPECT_LT(apart(qiblaBearing(60.0, kKaabaLongitude - 180.0).value(), 0.0), 1e-9);
}

TEST(QiblaBearing, TheDateLineIsNoSeam) {
    for (const double latitude : steps(-80.0, 80.0, 5.0)) {
        EXPECT_NEAR(qiblaBearing(latitude, 180.0).value(), qiblaBearing(latitude, -180.0).value(), 1e-9);
        EXPECT_LT(apart(qiblaBearing(latitude, 179.999).value(), qiblaBearing(latitude, -179.999).value()),
                  0.01);
    }
}

TEST(QiblaBearing, AtThePolesItCountsFromTheMeridianGiven) {
    EXPECT_NEAR(qiblaBearing(90.0, 0.0).value(), 180.0 - kKaabaLongitude, 1e-9);
    EXPECT_NEAR(qiblaBearing(90.0, kKaabaLongitude).value(), 180.0, 1e-9);
    EXPECT_NEAR(qiblaBearing(-90.0, 0.0).value(), kKaabaLongitude, 1e-9);
    EXPECT_NEAR(qiblaDistance(90.0, 123.0), 6371.0088 * (90.0 - kKaabaLatitude) * kDegree, 1e-6);
}

TEST(QiblaBearing, RefusesWhatIsNoPlace) {
    for (const double x :
         {std::nan(""), std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()}) {
        EXPECT_FALSE(qiblaBearing(x, 29.0));
        EXPECT_FALSE(qiblaBearing(41.0, x));
    }
    EXPECT_FALSE(qiblaBearing(90.1, 0.0));
}

// With the Sun

Place placeAt(double latitude, double longitude, const char* zone) {
    return {
        .name = "", .latitude = latitude, .longitude = longitude, .clock = PlaceClock::ofZone(zone).value()};
}

/// Azimuth of the Sun [deg] by the engine's accurate theory and vectors of this test.
double sunAzimuth(const Place& place, ExactInstant instant) {
    const double julianDay = 2440587.5 + static_cast<double>(instant.time_since_epoch().count()) / 86400000.0;
    FastAstro sun;
    sun.SunDecRAAccurate(julianDay);
    const double sidereal = 280.46061837 + 360.98564736629 * (julianDay - 2451545.0);
    const Vector there = point(sun.SunDec, sun.SunRA * 15.0 - sidereal);
    const double phi = place.latitude * kDegree;
    const double lambda = place.longitude * kDegree;
    const Vector north{-std::sin(phi) * std::cos(lambda), -std::sin(phi) * std::sin(lambda), std::cos(phi)};
    const Vector east{-std::sin(lambda), std::cos(lambda), 0.0};
    return std::fmod(std::atan2(dot(there, east), dot(there, north)) / kDegree + 360.0, 360.0);
}

const Place kFarPlaces[] = {
    placeAt(41.0082, 28.9784, "Europe/Istanbul"), placeAt(-43.95, -176.56, "Pacific/Chatham"),
    placeAt(-13.83, -171.77, "Pacific/Apia"),     placeAt(21.31, -157.86, "Pacific/Honolulu"),
    placeAt(35.69, 139.69, "Asia/Tokyo"),         placeAt(27.7, 85.3, "Asia/Kathmandu"),
    placeAt(21.42664, 39.82563, "Asia/Riyadh"),   placeAt(64.15, -21.94, "Atlantic/Reykjavik"),
    placeAt(1.87, -157.43, "Pacific/Kiritimati"), placeAt(40.71, -74.01, "America/New_York"),
};

TEST(SunAtQibla, EachInstantHasTheSunInTheBearingOnTheDate) {
    int found = 0;
    for (const Place& place : kFarPlaces) {
        const Almanac almanac(place);
        for (Date date = 2027y / 1 / 1; date.year() == 2027y; date = addDays(date, 3)) {
            const Qibla qibla = almanac.qibla(date);
            ASSERT_EQ(qibla.bearing, qiblaBearing(place.latitude, place.longitude));
            for (const SunAtQibla& instant : qibla.instants) {
                ++found;
                ASSERT_EQ(place.clock.dateAt(std::chrono::floor<std::chrono::seconds>(instant.exact)), date);
                ASSERT_GT(instant.altitude, -50.0 / 60.0);
                const double slack = 0.02 + 0.02 / std::cos(std::min(89.5, instant.altitude) * kDegree);
                ASSERT_LT(apart(sunAzimuth(place, instant.exact), *qibla.bearing), slack)
                    << place.clock.zoneName() << ' ' << isoDate(date);
                ASSERT_EQ(instant.at.local, place.clock.localTime(instant.at.instant));
                ASSERT_LE(std::chrono::abs(instant.at.instant - instant.exact), 30s);
            }
        }
    }
    EXPECT_GT(found, 500);
}

TEST(SunAtQibla, TheSunOverTheKaabaShowsItOnHalfTheEarth) {
    // 28 May 2027 at 9:18 UT and 16 July 2027 at 9:27 UT.
    for (const Instant event : {Instant(std::chrono::sys_days(2027y / 5 / 28)) + 9h + 18min,
                                Instant(std::chrono::sys_days(2027y / 7 / 16)) + 9h + 27min}) {
        for (const Place& place :
             {placeAt(51.5, -0.13, "Europe/London"), placeAt(41.0, 29.0, "Europe/Istanbul"),
              placeAt(28.6, 77.2, "Asia/Kolkata"), placeAt(-1.3, 36.8, "Africa/Nairobi")}) {
            bool shown = false;
            for (const SunAtQibla& instant : Almanac(place).qibla(place.clock.dateAt(event)).instants) {
                shown = shown || std::chrono::abs(instant.at.instant - event) <= 3min;
            }
            EXPECT_TRUE(shown) << place.clock.zoneName();
        }
    }
}

TEST(SunAtQibla, NoneAtTheKaabaAndForWhatIsNoPlaceOrDate) {
    const Place kaaba = placeAt(kKaabaLatitude, kKaabaLongitude, "Asia/Riyadh");
    const Qibla there = Almanac(kaaba).qibla(2027y / 5 / 28);
    EXPECT_FALSE(there.bearing);
    EXPECT_TRUE(there.instants.empty());
    EXPECT_EQ(there.distance, 0.0);
    Place nowhere = kFarPlaces[0];
    nowhere.latitude = std::nan("");
    EXPECT_FALSE(Almanac(nowhere).qibla(2027y / 5 / 28).bearing);
    const Qibla noDate = Almanac(kFarPlaces[0]).qibla(2027y / 2 / 30);
    EXPECT_TRUE(noDate.bearing);
    EXPECT_TRUE(noDate.instants.empty());
}

} // namespace
} // namespace zorel::almanac
