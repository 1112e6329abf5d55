// SPDX-License-Identifier: Apache-2.0
#include "engine/SunAtQibla.h"

#include "engine/FastAstro.h"
#include "tests/engine/Places.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace zorel {
namespace {

constexpr double kRadian = M_PI / 180.0;

double bearing(double latitude, double longitude) {
    return QiblaBearing(FastAstro().KibleAcisi(latitude, longitude));
}

/// Initial course of the great circle to the Kaaba (21.4327 north in the engine's constant, 39.82 east)
/// [deg].
double greatCircle(double latitude, double longitude) {
    const double target = std::atan(0.39249985828970657);
    const double dL = (39.82 - longitude) * kRadian;
    const double phi = latitude * kRadian;
    const double y = std::sin(dL) * std::cos(target);
    const double x = std::cos(phi) * std::sin(target) - std::sin(phi) * std::cos(target) * std::cos(dL);
    return std::fmod(std::atan2(y, x) / kRadian + 360.0, 360.0);
}

double apart(double a, double b) {
    return std::fabs(std::remainder(a - b, 360.0));
}

TEST(Qibla, BearingOfKnownPlaces) {
    EXPECT_NEAR(bearing(51.5, -0.13), 119.0, 0.1);   // London
    EXPECT_NEAR(bearing(41.0, 29.0), 151.6, 0.2);    // Istanbul
    EXPECT_NEAR(bearing(40.71, -74.0), 58.5, 0.2);   // New York
    EXPECT_NEAR(bearing(-6.2, 106.8), 295.1, 0.2);   // Jakarta
    EXPECT_NEAR(bearing(-33.87, 151.2), 277.5, 0.2); // Sydney
}

TEST(Qibla, BearingIsTheGreatCircleNearlyEverywhere) {
    testing::Random random(3);
    int close = 0;
    for (int i = 0; i < 2000; ++i) {
        const double latitude = random.between(-89.0, 89.0);
        const double longitude = random.between(-180.0, 180.0);
        const double found = bearing(latitude, longitude);
        ASSERT_TRUE(found >= 0.0 && found < 360.0);
        close += apart(found, greatCircle(latitude, longitude)) < 0.01 ? 1 : 0;
    }
    EXPECT_EQ(close, 2000);
}

TEST(Qibla, TheMeridianOfTheKaabaTakesNoAdjustment) {
    const double longitude = 39.81999969482422;
    EXPECT_EQ(FastAstro().KibleAcisi(50.0, longitude).q1, 0.0);
    EXPECT_EQ(FastAstro().KibleAcisi(-50.0, longitude).q1, -0.0);
}

/// Azimuth of the Sun from north [deg], by vectors, at a local hour.
double sunAzimuth(const testing::PlaceDay& p, double hour) {
    FastAstro sun;
    const double julianDay =
        sun.astroGlobalFuncs.CalculateJulianDay(p.year, p.month, p.day, 0, 0, 0) + (hour - p.timeZone) / 24.0;
    sun.SunDecRAAccurate(julianDay);
    // IAU 1982 sidereal time.
    const double d = julianDay - 2451545.0;
    const double H = (280.46061837 + 360.98564736629 * d - sun.SunRA * 15.0 + p.longitude) * kRadian;
    const double phi = p.latitude * kRadian;
    const double delta = sun.SunDec * kRadian;
    const double east = -std::cos(delta) * std::sin(H);
    const double north = std::cos(phi) * std::sin(delta) - std::sin(phi) * std::cos(delta) * std::cos(H);
    return std::fmod(std::atan2(east, north) / kRadian + 360.0, 360.0);
}

std::vector<SunAtQiblaInstant> instants(const testing::PlaceDay& p) {
    return SunAtQibla(p.latitude, p.longitude, p.timeZone, p.year, p.month, p.day);
}

TEST(SunAtQibla, EachInstantHasTheSunInTheBearing) {
    testing::Random random(5);
    int found = 0;
    for (int i = 0; i < 400; ++i) {
        testing::PlaceDay p = testing::anyPlaceDay(random, 80.0);
        p.year = random.whole(1950, 2050);
        for (const SunAtQiblaInstant& instant : instants(p)) {
            ++found;
            ASSERT_TRUE(instant.hour >= 0.0 && instant.hour < 24.0);
            ASSERT_EQ(instant.visible, instant.altitude > -50.0 / 60.0);
            const double slack = 0.1 + 0.05 / std::cos(std::min(89.0, std::fabs(instant.altitude)) * kRadian);
            ASSERT_LT(apart(sunAzimuth(p, instant.hour), bearing(p.latitude, p.longitude)), slack)
                << p.latitude << ' ' << p.longitude << ' ' << p.year << '-' << p.month << '-' << p.day;
        }
    }
    EXPECT_GT(found, 350);
}

TEST(SunAtQibla, NoCrossingIsMissed) {
    testing::Random random(6);
    for (int i = 0; i < 60; ++i) {
        testing::PlaceDay p = testing::anyPlaceDay(random, 75.0);
        p.year = random.whole(1950, 2050);
        const double target = bearing(p.latitude, p.longitude);
        std::size_t crossings = 0;
        double before = std::remainder(sunAzimuth(p, 0.0) - target, 360.0);
        for (int step = 1; step < 1200; ++step) {
            const double after = std::remainder(sunAzimuth(p, 0.02 * step) - target, 360.0);
            crossings += before * after < 0.0 && std::fabs(before) < 90.0 && std::fabs(after) < 90.0 ? 1 : 0;
            before = after;
        }
        ASSERT_GE(instants(p).size() + 1, crossings + 1) << p.latitude << ' ' << p.longitude;
        ASSERT_LE(instants(p).size(), crossings + 1);
    }
}

TEST(SunAtQibla, TheSunOverTheKaabaShowsTheQiblaEverywhere) {
    // Twice a year the Sun culminates over the Kaaba: 28 May 2024 at 9:18 UT and 15 July 2024 at 9:27 UT.
    struct Event {
        std::int32_t month;
        std::int32_t day;
        double hour;
    };
    for (const Event& event : {Event{5, 28, 9.0 + 18.0 / 60.0}, Event{7, 15, 9.0 + 27.0 / 60.0}}) {
        for (const auto& [latitude, longitude] :
             {std::pair{51.5, -0.13}, {41.0, 29.0}, {28.6, 77.2}, {-1.3, 36.8}}) {
            bool shown = false;
            for (const SunAtQiblaInstant& instant :
                 SunAtQibla(latitude, longitude, 0.0, 2024, event.month, event.day)) {
                shown = shown || (std::fabs(instant.hour - event.hour) < 3.0 / 60.0 && instant.visible);
            }
            EXPECT_TRUE(shown) << latitude << ' ' << longitude;
        }
    }
}

TEST(SunAtQibla, TheLocalDayIsThatOfTheZone) {
    const auto at = [](double zone) { return SunAtQibla(41.0, 29.0, zone, 2024, 4, 17); };
    ASSERT_FALSE(at(2.0).empty());
    EXPECT_NEAR(at(3.0).front().hour, at(2.0).front().hour + 1.0, 1.0 / 60.0);
}

TEST(SunAtQibla, NoBearingNoInstant) {
    EXPECT_TRUE(SunAtQibla(21.4225, 39.8262, 3.0, 2024, 5, 28).empty());
    EXPECT_TRUE(SunAtQibla(-21.4225, -140.1738, -9.0, 2024, 5, 28).empty());
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double x : {std::nan(""), infinity, -infinity}) {
        EXPECT_TRUE(SunAtQibla(x, 29.0, 3.0, 2024, 1, 1).empty());
        EXPECT_TRUE(SunAtQibla(41.0, x, 3.0, 2024, 1, 1).empty());
        EXPECT_TRUE(SunAtQibla(41.0, 29.0, x, 2024, 1, 1).empty());
    }
    (void)SunAtQibla(90.0, 0.0, 0.0, 2147483647, 1, 1);
    (void)SunAtQibla(-90.0, 0.0, 1e9, -2147483647, 1, 1);
}

} // namespace
} // namespace zorel
