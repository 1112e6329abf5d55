// SPDX-License-Identifier: Apache-2.0
// Position of the Sun, sidereal time, horizontal coordinates, rise and set.
#include "engine/FastAstro.h"
#include "engine/series/EarthSeries.h"
#include "tests/engine/Places.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace zorel {
namespace {

double julianDay(std::int32_t year, std::int32_t month, std::int32_t day, std::int32_t hour = 0) {
    return AstroGlobalFuncs().CalculateJulianDay(year, month, day, hour, 0, 0);
}

TEST(EarthSeries, RowsOfTheThirteenSeries) {
    const std::size_t rows = kEarthL0.size() + kEarthL1.size() + kEarthL2.size() + kEarthL3.size() +
                             kEarthL4.size() + kEarthL5.size() + kEarthB0.size() + kEarthB1.size() +
                             kEarthR0.size() + kEarthR1.size() + kEarthR2.size() + kEarthR3.size() +
                             kEarthR4.size();
    EXPECT_EQ(rows, kEarthRows);
    EXPECT_EQ(rows, 195U);
    EXPECT_EQ(kEarthL0.size(), 64U);
    EXPECT_EQ(kEarthL1.size(), 34U);
    EXPECT_EQ(kEarthL2.size(), 20U);
    EXPECT_EQ(kEarthR0.size(), 40U);
}

TEST(EarthSeries, TellingRowsInSinglePrecision) {
    EXPECT_EQ(kEarthL0[0].amplitude, 175347040.0);
    EXPECT_EQ(kEarthL0[1].amplitude, 3341656.5);
    EXPECT_EQ(kEarthL0[1].phase, 4.669256687164307);
    EXPECT_EQ(kEarthL0[1].frequency, 6283.07568359375);
    EXPECT_EQ(kEarthL1[0].amplitude, 628331970560.0);
    EXPECT_EQ(kEarthB0[0].frequency, 84334.6640625);
    EXPECT_EQ(kEarthR0[1].amplitude, 1670699.625);
    EXPECT_EQ(kEarthL5[0].amplitude, 0.878000020980835);
    EXPECT_EQ(kEarthR4[0].phase, 2.5638439655303955);
}

TEST(EarthSeries, EveryValueIsASinglePrecisionNumber) {
    for (const EarthTerm& term : kEarthL0) {
        EXPECT_EQ(term.amplitude, static_cast<double>(static_cast<float>(term.amplitude)));
        EXPECT_EQ(term.phase, static_cast<double>(static_cast<float>(term.phase)));
        EXPECT_EQ(term.frequency, static_cast<double>(static_cast<float>(term.frequency)));
    }
}

TEST(Earth, NearPerihelionInEarlyJanuary) {
    EXPECT_NEAR(EarthCompute().EarthR(2451545.0), 0.983, 0.0005);
}

TEST(Earth, HeliocentricPositionOfReference) {
    // Reda & Andreas, NREL/TP-560-34302, appendix 5: 2003 October 17, 19:30:30 UT, JDE 2452930.313620.
    const EarthCompute earth;
    EXPECT_NEAR(std::fmod(earth.EarthL(2452930.313620) * 180.0 / M_PI, 360.0), 24.0182616917, 0.0001);
    EXPECT_NEAR(earth.EarthB(2452930.313620) * 180.0 / M_PI, -0.0001011219, 1e-6);
    EXPECT_NEAR(earth.EarthR(2452930.313620), 0.9965422974, 1e-6);
}

TEST(Sun, AccuratePositionOfReference) {
    // Meeus, Astronomical Algorithms, example 24.b: 1992 October 13.0 TD, apparent place.
    FastAstro engine;
    engine.SunDecRAAccurate(2448908.5);
    EXPECT_NEAR(engine.SunRA, (13.0 + 13.0 / 60.0 + 30.749 / 3600.0), 0.5 / 3600.0);
    EXPECT_NEAR(engine.SunDec, -(7.0 + 47.0 / 60.0 + 1.74 / 3600.0), 3.0 / 3600.0);
    EXPECT_NEAR(engine.SunDistance, 0.99760853, 1e-6);
}

TEST(Sun, DeclinationAtTheJuneSolstice) {
    FastAstro engine;
    engine.SunDecRAAccurate(julianDay(2024, 6, 20, 21));
    EXPECT_NEAR(engine.SunDec, 23.44, 0.01);
}

TEST(Sun, FastAndAccuratePositionsAgree) {
    FastAstro fast;
    FastAstro accurate;
    for (int step = 0; step < 1866; ++step) {
        const double day = julianDay(1990, 1, 1) + 13.7 * step; // to 2060
        fast.SunDecRA(day);
        accurate.SunDecRAAccurate(day);
        ASSERT_NEAR(fast.SunDec, accurate.SunDec, 0.01);
        ASSERT_LT(std::fabs(std::remainder(fast.SunRA - accurate.SunRA, 24.0)), 0.01 / 15.0);
        ASSERT_TRUE(fast.EclipticLongitude >= 0.0 && fast.EclipticLongitude <= 360.0);
    }
}

TEST(Sun, EquationOfTimeOfTheYear) {
    FastAstro engine;
    const auto minutes = [&engine](std::int32_t month, std::int32_t day) {
        engine.SunDecRAAccurate(julianDay(2024, month, day));
        return engine.EquationOfTime(julianDay(2024, month, day), engine.SunRA);
    };
    EXPECT_NEAR(minutes(2, 11), -14.2, 0.1);
    EXPECT_NEAR(minutes(11, 3), 16.45, 0.1);
    EXPECT_NEAR(minutes(4, 15), 0.0, 0.3);
    EXPECT_NEAR(minutes(3, 20), -7.4, 0.1) << "where right ascension wraps";
}

TEST(Sun, MeanLongitudeAndObliquity) {
    const FastAstro engine;
    EXPECT_NEAR(engine.Epsilon(0.0), 23.4377, 0.0005);
    EXPECT_NEAR(engine.SunL(0.0), 280.4664611816406, 1e-9);
    for (int step = 0; step < 318; ++step) {
        const double T = -40.0 + 0.377 * step;
        ASSERT_TRUE(engine.SunL(T) >= 0.0 && engine.SunL(T) < 360.0);
        ASSERT_LT(std::fabs(engine.DeltaPSI(T)), 20.0 / 3600.0);
    }
}

TEST(SiderealTime, OfReference) {
    // Meeus, example 11.a: 1987 April 10, 0 h UT: mean sidereal time 13h 10m 46.3668s.
    const FastAstro engine;
    const double expected = 13.0 + 10.0 / 60.0 + 46.3668 / 3600.0;
    EXPECT_NEAR(engine.LM_Sidereal_Time(2446895.5, 0.0) + 24.0, expected, 0.5 / 3600.0);
    EXPECT_NEAR(engine.LMST(46895.0, 0.0) + 24.0, expected, 0.1 / 3600.0);
    EXPECT_NEAR(engine.LMST(46895.0, 15.0) + 24.0, expected + 1.0, 0.1 / 3600.0);
}

TEST(SiderealTime, IsNegativeForEarlyDates) {
    EXPECT_LT(FastAstro().LM_Sidereal_Time(julianDay(1950, 6, 1), 0.0), 0.0);
    EXPECT_GT(FastAstro().LM_Sidereal_Time(julianDay(2050, 6, 1), 0.0), 0.0);
}

TEST(Horizontal, GreenwichHourAngleFollowsTheEquationOfTime) {
    FastAstro engine;
    const double day = julianDay(2024, 11, 3);
    engine.SunDecRAAccurate(day);
    const double equation = engine.EquationOfTime(day, engine.SunRA);
    EXPECT_NEAR(engine.ComputeGHA(3, 11, 2024, 0.0), 180.0 + equation / 4.0, 0.05);
    EXPECT_NEAR(engine.ComputeGHA(3, 11, 2024, 18.0), 90.0 + equation / 4.0, 0.05);
}

TEST(Horizontal, AltitudeAndAzimuthAtTheMeridianAndSixHoursLater) {
    FastAstro engine;
    engine.SetLatLon(40.0, 30.0);
    EXPECT_NEAR(engine.SunAltitude(10.0, -30.0), 60.0, 1e-4);
    EXPECT_NEAR(engine.SunAzimuth(10.0, -30.0, 60.0), 180.0, 0.05);
    EXPECT_GT(engine.SunAzimuth(10.0, 30.0, engine.SunAltitude(10.0, 30.0)), 180.0) << "afternoon: west";
    EXPECT_LT(engine.SunAzimuth(10.0, -90.0, engine.SunAltitude(10.0, -90.0)), 180.0) << "morning: east";
}

TEST(Horizontal, SineAndAltitudeOfTheSameSun) {
    const FastAstro engine;
    const double sine = engine.SinElev(2460000.5, 41.0, -29.0, 12.0, 3.0);
    EXPECT_NEAR(std::sin(engine.SunElev(2460000.5, 41.0, -29.0, 12.0, 3.0) * M_PI / 180.0), sine, 1e-7);
}

TEST(Horizontal, RefractionAtTheHorizonAndAbove) {
    const FastAstro engine;
    EXPECT_NEAR(engine.Refract(0.0) * 60.0, 29.0, 0.5);
    EXPECT_NEAR(engine.Refract(45.0) * 60.0, 1.0, 0.05);
}

TEST(Quad, RootsAndExtreme) {
    FastAstro engine;
    EXPECT_EQ(engine.Quad(-1.0, 2.0, 0.0), 1);
    EXPECT_NEAR(engine.Zero1, 0.0, 1e-12) << "the root inside takes the first place";
    EXPECT_EQ(engine.Quad(0.75, 0.75, -0.25), 2);
    EXPECT_NEAR(engine.Zero1, -0.5, 1e-12);
    EXPECT_NEAR(engine.Zero2, 0.5, 1e-12);
    EXPECT_NEAR(engine.YE, -0.25, 1e-12);
    const double before = engine.DX;
    EXPECT_EQ(engine.Quad(3.0, 3.0, 2.0), 0);
    EXPECT_EQ(engine.DX, before) << "no root: fields stay";
}

TEST(RiseAndSet, OfAnOrdinaryDay) {
    // Greenwich, the day of the equinox: declination 0.05 degrees, equation of time -7.4 minutes; with the
    // centre 50' below the horizon the hour angle is 91.4 degrees: rise 06:02, set 18:13.
    FastAstro engine;
    engine.SetLatLon(51.4779, 0.0);
    engine.SunRiseSet(20, 3, 2024);
    EXPECT_NEAR(engine.UTRise, 6.0 + 2.0 / 60.0, 1.0 / 60.0);
    EXPECT_NEAR(engine.UTSet, 18.0 + 13.0 / 60.0, 1.0 / 60.0);
    EXPECT_TRUE(engine.Rise && engine.Sett);
}

TEST(RiseAndSet, NoneInThePolarDayAndNight) {
    FastAstro engine;
    engine.SetLatLon(70.0, 25.0);
    for (const std::int32_t month : {6, 12}) {
        engine.SunRiseSet(21, month, 2024);
        EXPECT_EQ(engine.UTRise, -1.0);
        EXPECT_EQ(engine.UTSet, -1.0);
        EXPECT_FALSE(engine.Rise || engine.Sett);
    }
}

TEST(RiseAndSet, AnEasternSunriseIsCountedFromTheDayBefore) {
    FastAstro engine;
    engine.SetLatLon(-36.85, 174.76); // Auckland
    engine.iPlace.timeZone = 12.0;
    engine.SunRiseSet(1, 4, 2024);
    EXPECT_GT(engine.UTRise, 17.0);
    EXPECT_LT(engine.UTRise, 20.0);
    engine.iPlace.timeZone = 13.0;
    engine.SunRiseSet(1, 1, 2024);
    EXPECT_NEAR(engine.UTRise, 17.05, 0.1);
}

TEST(RiseAndSet, TransitFollowsLongitudeAndEquationOfTime) {
    FastAstro engine;
    engine.SetLatLon(41.0, 29.0);
    SunDetails sun;
    sun.rightAscension = 20.0;
    engine.SunRiseSetTrans({2024, 1, 21, 0, 0, 0, 0.0}, sun);
    EXPECT_EQ(sun.transit, 12.0 - sun.equationOfTime / 60.0 - 29.0 / 15.0);
    EXPECT_EQ(sun.rise, engine.UTRise);
    EXPECT_EQ(sun.set, engine.UTSet);
}

TEST(Zone, HalfHoursAreTruncated) {
    FastAstro engine;
    engine.SetCurrentDate(1, 1, 2024);
    engine.SetPlace(28.6, 77.2, 5.5, 0, 0, 0, 0, 0, 0, 0);
    double time = 6.0;
    engine.SetLocalTime(time, {2024, 1, 1, 0, 0, 0, 0.0});
    EXPECT_EQ(time, 11.0);
    DateTimeRecord record{2024, 1, 1, 3, 30, 0, 0.0};
    engine.SetUniversalTime(record);
    EXPECT_EQ(record, (DateTimeRecord{2023, 12, 31, 22, 30, 0, 0.0}));
}

TEST(Zone, AMissingTimeStaysMissing) {
    FastAstro engine;
    engine.iPlace.timeZone = 3.0;
    double time = -1.0;
    engine.SetLocalTime(time, {2024, 1, 1, 0, 0, 0, 0.0});
    EXPECT_EQ(time, -1.0);
}

TEST(Zone, DaysRollOverMonthsAndYears) {
    const FastAstro engine;
    DateTimeRecord record{2024, 12, 31, 10, 20, 30, 0.0};
    engine.SetLocalTimeManual(record, 1);
    EXPECT_EQ(record, (DateTimeRecord{2025, 1, 1, 10, 20, 30, 0.0}));
    engine.SetLocalTimeManual(record, -366);
    EXPECT_EQ(record, (DateTimeRecord{2024, 1, 1, 10, 20, 30, 0.0}));
}

TEST(Sun, NoInputBreaksIt) {
    const double infinity = std::numeric_limits<double>::infinity();
    FastAstro engine;
    for (const double x : {std::nan(""), infinity, -infinity, 1e300, -1e18}) {
        engine.SunDecRA(x);
        engine.SunDecRAAccurate(x);
        (void)engine.EquationOfTime(x, x);
        (void)engine.GM_Sidereal_Time(x);
        (void)engine.LM_Sidereal_Time(x, x);
        (void)engine.LMST(x, x);
        (void)engine.ComputeGHA(2147483647, 2147483647, -2147483647 - 1, x);
        engine.SetLatLon(x, x);
        engine.iPlace.timeZone = x;
        engine.iPlace.dstShift = x;
        engine.SunRiseSet(2147483647, 2147483647, 2147483647);
        DateTimeRecord record{2147483647, 1, 1, -2147483647, 0, 0, 0.0};
        engine.SetUniversalTime(record);
        EXPECT_FALSE(engine.Rise && engine.Sett && std::isfinite(x) && std::fabs(x) < 1e10);
    }
}

} // namespace
} // namespace zorel
