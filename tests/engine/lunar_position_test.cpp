// SPDX-License-Identifier: Apache-2.0
// The Moon's position by both theories, nutation, topocentric corrections.
#include "engine/FastAstro.h"
#include "engine/MoonCompute.h"
#include "engine/Single.h"
#include "tests/engine/Places.h"
#include "tests/engine/Steps.h"

#include <cmath>
#include <gtest/gtest.h>
#include <utility>

namespace zorel {
namespace {

constexpr double kPiExact = 3.14159265358979323846;

struct Position {
    double declination = 0.0;
    double rightAscension = 0.0;
    double distance = 0.0;
};

Position fullPosition(double julianDay) {
    Position p;
    MoonCompute{}.Moon_Coordinate(julianDay, p.declination, p.rightAscension, p.distance);
    return p;
}

/// Angle between two directions [deg].
double separation(double ra1, double dec1, double ra2, double dec2) {
    const double radians = kPiExact / 180.0;
    const double c =
        std::sin(dec1 * radians) * std::sin(dec2 * radians) +
        std::cos(dec1 * radians) * std::cos(dec2 * radians) * std::cos((ra1 - ra2) * 15.0 * radians);
    return std::acos(std::min(1.0, c)) / radians;
}

TEST(MoonCompute, BringsAnglesIntoOneTurn) {
    const MoonCompute moon;
    EXPECT_EQ(moon.PutIn360(-30.0), 330.0);
    EXPECT_EQ(moon.PutIn360(720.0), 0.0);
    EXPECT_EQ(moon.PutIn360(359.9), 359.9);
    EXPECT_EQ(moon.PutIn360(-360.0), 0.0);
    EXPECT_EQ(moon.PutIn360(0.0), 0.0);
    EXPECT_NEAR(moon.PutIn360(1e9 + 0.25), std::fmod(1e9 + 0.25, 360.0), 1e-6);
    EXPECT_NEAR(moon.PutIn360(-1e9), 360.0 - std::fmod(1e9, 360.0), 1e-6);
}

// Arguments and results are single precision: the nearest float or the one beside it.
TEST(MoonCompute, TakesItsTrigonometryInSinglePrecision) {
    const MoonCompute moon;
    for (const double degrees : testing::steps(-720.0, 720.0, 0.37)) {
        const auto angle =
            static_cast<double>(static_cast<float>(moon.PutIn360(degrees) * 0.01745329238474369));
        for (const auto& [value, exact] : {std::pair{moon.Sin_Deg(degrees), std::sin(angle)},
                                           std::pair{moon.Cos_Deg(degrees), std::cos(angle)}}) {
            ASSERT_EQ(value, static_cast<double>(static_cast<float>(value)));
            ASSERT_NEAR(value, exact, 6e-8 * std::fabs(exact) + 1e-12) << degrees;
        }
        const double tangent = std::tan(angle);
        ASSERT_NEAR(moon.Tan_Deg(degrees), tangent, 1.2e-7 * std::fabs(tangent) + 1e-12);
    }
    EXPECT_NEAR(moon.ArcSin_Deg(0.5), 30.0, 1e-4);
    EXPECT_NEAR(moon.ArcSin_Deg(-1.0), -90.0, 1e-4);
    EXPECT_NEAR(moon.ArcTan2_Deg(0.0, -1.0), 180.0, 1e-4);
    EXPECT_NEAR(moon.ArcTan2_Deg(-1.0, 0.0), -90.0, 1e-4);
}

TEST(MoonCompute, ObliquityIsTheMeanOne) {
    const MoonCompute moon;
    for (const double julianDay : testing::steps(2305447.5, 2597641.5, 997.25)) { // 1600 to 2400
        double psi = 0.0;
        double epsilon = 0.0;
        moon.Calc_Epsilon_Phi(julianDay, psi, epsilon);
        const double T = (julianDay - 2451545.0) / 36525.0;
        const double mean = (84381.448 - 46.815 * T - 0.00059 * T * T + 0.001813 * T * T * T) / 3600.0;
        EXPECT_NEAR(epsilon, mean, 0.006 / 3600.0);
        EXPECT_LT(std::fabs(psi), 20.0 / 3600.0);
    }
}

// Meeus, Astronomical Algorithms, example 21.a, where all 63 terms of the book are summed.
TEST(MoonCompute, NutationOf1987April10) {
    double psi = 0.0;
    double epsilon = 0.0;
    MoonCompute{}.Calc_Epsilon_Phi(2446895.5, psi, epsilon);
    EXPECT_NEAR(psi * 3600.0, -3.788, 0.005);
    EXPECT_NEAR(epsilon, 23.0 + 26.0 / 60.0 + 27.407 / 3600.0, 0.005 / 3600.0);
}

// Meeus, example 45.a; the engine's single-precision coefficients cost a few thousandths of a degree.
TEST(MoonCompute, MoonOf1992April12) {
    const Position p = fullPosition(2448724.5);
    EXPECT_NEAR(p.rightAscension * 15.0, 134.688470, 0.005);
    EXPECT_NEAR(p.declination, 13.768368, 0.005);
    EXPECT_NEAR(p.distance, 368409.7, 1.0);
}

TEST(MoonCompute, ApparentLongitudeIsWrittenBack) {
    double lambda = -30.0;
    double rightAscension = 0.0;
    double declination = 0.0;
    double psi = 0.0;
    double epsilon = 0.0;
    const MoonCompute moon;
    moon.Calc_Epsilon_Phi(2451545.0, psi, epsilon);
    moon.Calc_Geocentric(2451545.0, lambda, 0.0, rightAscension, declination);
    EXPECT_DOUBLE_EQ(lambda, 330.0 + psi);
    EXPECT_LT(rightAscension, 0.0);
    EXPECT_GT(rightAscension, -180.0);
    EXPECT_LT(declination, 0.0);
}

TEST(MoonCompute, StaysInItsBoundsFor800Years) {
    for (const double julianDay : testing::steps(2305447.5, 2597641.5, 61.37)) {
        const Position p = fullPosition(julianDay);
        ASSERT_GE(p.rightAscension, 0.0) << julianDay;
        ASSERT_LT(p.rightAscension, 24.0) << julianDay;
        ASSERT_LT(std::fabs(p.declination), 28.9) << julianDay;
        ASSERT_GT(p.distance, 356300.0) << julianDay;
        ASSERT_LT(p.distance, 406800.0) << julianDay;
    }
}

TEST(MoonPosition, BothTheoriesAgree) {
    FastAstro engine;
    for (const double julianDay : testing::steps(2415020.5, 2488069.5, 17.61)) { // 1900 to 2100
        engine.MoonDecRA(julianDay);
        // The short series keeps the equinox of date but the obliquity of J2000.
        const Position p = fullPosition(julianDay);
        ASSERT_LT(
            separation(engine.MoonRA, engine.MoonDec, p.rightAscension, p.distance > 0 ? p.declination : 0.0),
            0.15)
            << julianDay;
        ASSERT_GE(engine.MoonRA, 0.0);
        ASSERT_LT(engine.MoonRA, 24.0);
        ASSERT_GE(engine.MoonGHA, 0.0);
        ASSERT_LE(engine.MoonGHA, 360.0);
        ASSERT_NEAR(engine.MoonDistance(julianDay), p.distance, 1500.0);
    }
}

TEST(MoonPosition, FullTheoryFillsTheFieldsOfTheEngine) {
    FastAstro engine;
    engine.MoonDecRAAccurate(2448724.5);
    const Position p = fullPosition(2448724.5);
    EXPECT_EQ(engine.MoonDec, p.declination);
    EXPECT_EQ(engine.MoonRA, p.rightAscension);
    EXPECT_EQ(engine.MoonDist, p.distance);
    EXPECT_NEAR(engine.MoonGHA, 65.7532, 0.001);
}

TEST(MoonPosition, SiderealTimeOfTheMoonIsThatOfTheSun) {
    FastAstro engine;
    engine.SetLatLon(41.0, 28.9784);
    for (const double julianDay : testing::steps(2451544.5, 2470000.0, 123.456)) {
        const double moon = engine.MoonSideRealTime(julianDay) / 3600.0;
        const double sun = engine.LM_Sidereal_Time(julianDay, -28.9784);
        ASSERT_NEAR(std::remainder(moon - sun, 24.0), 0.0, 0.0005) << julianDay;
    }
}

TEST(Topocentric, GeocentricLatitudeAtPolesAndEquator) {
    FastAstro engine;
    for (const double latitude : {90.0, -90.0, 0.0}) {
        engine.SetLatLon(latitude, 0.0);
        engine.CalculateTLong();
        EXPECT_NEAR(engine.tLat, latitude, 1e-6);
    }
    EXPECT_EQ(engine.tLat, 0.0);
    EXPECT_EQ(engine.trho, 1.0);
    engine.SetLatLon(45.0, 0.0);
    engine.CalculateTLong();
    EXPECT_NEAR(engine.tLat, 44.8076, 1e-3);
    EXPECT_NEAR(engine.trho, 0.998327, 1e-4);
}

TEST(Topocentric, GeocentricLatitudeIsANumberEverywhere) {
    FastAstro engine;
    for (const double latitude : testing::steps(-90.0, 90.0, 0.0371)) {
        engine.SetLatLon(latitude, 0.0);
        engine.CalculateTLong();
        ASSERT_TRUE(std::isfinite(engine.tLat)) << latitude;
        ASSERT_LE(std::fabs(engine.tLat), std::fabs(latitude) + 1e-6);
    }
    engine.SetLatLon(1e-9, 0.0);
    engine.CalculateTLong();
    EXPECT_TRUE(std::isfinite(engine.tLat));
}

TEST(Topocentric, FarBodiesHaveNoParallax) {
    FastAstro engine;
    engine.SetLatLon(41.0, 29.0);
    engine.CalculateTLong();
    double rightAscension = 1.25;
    double declination = -0.5;
    engine.DiurnalParallax(rightAscension, declination, 2.0, 1758.9);
    EXPECT_EQ(rightAscension, 1.25);
    EXPECT_EQ(declination, -0.5);
    engine.DiurnalParallax(rightAscension, declination, 2.0, 1.0);
    EXPECT_NE(rightAscension, 1.25);
    EXPECT_NEAR(rightAscension, 1.25, 5e-5); // 8.8 arc seconds at most
}

TEST(Topocentric, ParallaxOfTheMoonAtTheHorizonIsAboutADegree) {
    FastAstro engine;
    engine.SetLatLon(0.0, 0.0);
    engine.CalculateTLong();
    double rightAscension = 0.0; // six hours from the meridian
    double declination = 0.0;
    engine.DiurnalParallax(rightAscension, declination, kPiExact / 2.0, 384400.0 / 149597872.0);
    const double shift = std::remainder(rightAscension, 2.0 * kPiExact) * 180.0 / kPiExact;
    EXPECT_NEAR(shift, -0.95, 0.01);
    EXPECT_NEAR(engine.MoonParallax(0.0, 384400.0), 0.95, 0.01);
    EXPECT_NEAR(engine.MoonParallax(90.0, 384400.0), 0.0, 1e-6);
}

TEST(Topocentric, AberrationTakesTheSineBeforeTheAscensionMoves) {
    FastAstro engine;
    engine.SetLatLon(30.0, 0.0);
    engine.CalculateTLong();
    const double k =
        static_cast<double>(1.5472e-6F) * engine.trho * std::cos(engine.tLat * kRadiansPerDegree);
    double rightAscension = 1.0;
    double declination = 0.4;
    engine.DiurnalAberration(rightAscension, declination, 2.0);
    EXPECT_EQ(rightAscension, 1.0 + k * std::cos(1.0) / std::cos(0.4));
    EXPECT_EQ(declination, 0.4 + k * std::sin(1.0) * std::sin(0.4));
}

TEST(Topocentric, AzimuthIsEastBeforeTheMeridianAndWestAfter) {
    FastAstro engine;
    engine.SetLatLon(41.0, 0.0);
    EXPECT_LT(engine.MoonAzimuth(5.0, 300.0, 20.0), 180.0);
    EXPECT_GT(engine.MoonAzimuth(5.0, 60.0, 20.0), 180.0);
    EXPECT_NEAR(engine.MoonAzimuth(5.0, 300.0, 20.0) + engine.MoonAzimuth(5.0, 60.0, 20.0), 360.0, 1e-9);
}

TEST(Topocentric, LongitudeIsLiftedAboveZero) {
    const FastAstro engine;
    EXPECT_NEAR(engine.MoonLambda(1.0), 57.29578, 1e-5);
    EXPECT_NEAR(engine.MoonLambda(-1.0), 302.70422, 1e-5);
    EXPECT_GE(engine.MoonLambda(-1e7), 0.0);
    EXPECT_GT(engine.MoonLambda(7.0), 360.0); // only lifted, never lowered
}

// The two altitudes of the information record come from different theories and differ by the parallax.
TEST(Topocentric, ApparentAltitudeIsLowerByTheParallax) {
    testing::Random random(7);
    for (int i = 0; i < 300; ++i) {
        FastAstro engine;
        const DateTimeRecord record{random.whole(1990, 2060), random.whole(1, 12), random.whole(1, 28),
                                    random.whole(0, 23),      random.whole(0, 59), 0};
        engine.SetLatLon(random.between(-65.0, 65.0), random.between(-180.0, 180.0));
        const double julianDay = engine.astroGlobalFuncs.JulianDay(record);
        const double apparent = engine.MoonAppAltitude(record);
        const double geocentric =
            engine.SunElev(julianDay, engine.Lat, -engine.Lon, engine.MoonDec, engine.MoonRA);
        ASSERT_LT(apparent, geocentric + 0.02);
        ASSERT_GT(apparent, geocentric - 1.1);
    }
}

} // namespace
} // namespace zorel
