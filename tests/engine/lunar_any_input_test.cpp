// SPDX-License-Identifier: Apache-2.0
// Every lunar operation returns for every input: no crash, no endless loop, no undefined behaviour.
#include "engine/FastAstro.h"
#include "engine/MagneticVariation.h"
#include "engine/Turns.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace zorel {
namespace {

using Limits = std::numeric_limits<std::int32_t>;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

constexpr std::array<double, 13> kNumbers{0.0,   -0.0,  1.0,    -90.0, 90.0,      2451545.0, 1e9,
                                          -1e18, 1e300, -1e300, kNan,  kInfinity, -kInfinity};
constexpr std::array<std::int32_t, 9> kWholes{
    0, 1, -1, 13, -4000, 9999, 100000, Limits::min(), Limits::max()};

DateTimeRecord wildRecord(std::size_t i) {
    const auto at = [i](std::size_t step) { return kWholes[(i * step + step) % kWholes.size()]; };
    return {at(1), at(2), at(4), at(5), at(7), at(8)};
}

TEST(AnyInput, PositionsReturn) {
    FastAstro engine;
    const MoonCompute moon;
    double a = 0.0;
    double b = 0.0;
    double c = 0.0;
    for (const double x : kNumbers) {
        moon.Calc_Epsilon_Phi(x, a, b);
        moon.Moon_Coordinate(x, a, b, c);
        a = x;
        moon.Calc_Geocentric(x, a, x, b, c);
        engine.MoonDecRA(x);
        engine.MoonDecRAAccurate(x);
        engine.SetLatLon(x, -x);
        engine.CalculateTLong();
        engine.MoonTrueAltitude(x);
        a = b = x;
        engine.DiurnalAberration(a, b, x);
        engine.DiurnalParallax(a, b, x, x);
        engine.MoonAltitudeAzimuth(a, b);
        (void)engine.MoonElongation(x);
        (void)engine.MoonDistance(x);
        (void)engine.SinElev2(x, x, x, x, x);
        for (const double y : kNumbers) {
            (void)moon.ArcTan2_Deg(x, y);
            (void)engine.MoonParallax(x, y);
            (void)engine.MoonAzimuth(x, y, x);
        }
    }
    SUCCEED();
}

TEST(AnyInput, AnglesAreReducedOrNotANumber) {
    const FastAstro engine;
    const MoonCompute moon;
    for (const double x : kNumbers) {
        const double lifted = addWhileNegative(x, 24.0);
        EXPECT_TRUE(lifted >= 0.0 || std::isnan(lifted)) << x;
        const double reduced = moon.PutIn360(x);
        EXPECT_TRUE(reduced >= 0.0 || std::isnan(reduced)) << x;
        EXPECT_TRUE(engine.MoonLambda(x) >= 0.0 || std::isnan(engine.MoonLambda(x))) << x;
        (void)engine.ToDeg(x);
        (void)engine.Phase(x);
        for (int phase = -1; phase <= 4; ++phase) {
            (void)engine.MoonPhaze(x, phase);
        }
    }
}

TEST(AnyInput, SearchesReturnForEveryPlaceAndZone) {
    for (const double latitude : kNumbers) {
        for (const double zone : kNumbers) {
            FastAstro engine;
            engine.SetLatLon(latitude, zone);
            engine.iPlace.timeZone = zone;
            engine.MoonRiseTime(15, 6, 2026);
            engine.MoonSetTime(15, 6, 2026);
            EXPECT_TRUE(engine.MoonRise == kNoLunarEvent || std::isfinite(engine.MoonRise));
            engine.SetCurrentDateTime({2026, 6, 15});
            (void)engine.getSomeInfoForZorelWidget();
        }
    }
}

TEST(AnyInput, RecordsReturnForEveryDate) {
    FastAstro engine;
    engine.SetPlace(41.0, 29.0, 3.0, 1, 2, 35, 9, 35, 1, 0);
    for (std::size_t i = 0; i < 60; ++i) {
        const DateTimeRecord record = wildRecord(i);
        MoonDirectionInfo direction;
        MoonCrescentInfo crescent;
        SunDirectionInfo sun;
        SunCrescentInfo sunCrescent;
        engine.MoonInformation(record, 41.0, 29.0);
        engine.MoonInformationForDirection(record, direction);
        engine.MoonInformationforCrescent(record, engine.iPlace, crescent);
        engine.SunInformation(record, 41.0, 29.0);
        engine.SunInformationForDirection(record, sun);
        engine.SunInformationForCrescent(record, sunCrescent);
        engine.MoonTransTime(record.day, record.month, record.year);
        engine.MoonRiseSet(record.day, record.month, record.year, record.hour);
        engine.SetCurrentDateTime(record);
        (void)engine.getSomeInfoForZorelWidget();
    }
    SUCCEED();
}

TEST(AnyInput, HijriDatesReturnForEveryDate) {
    FastAstro engine;
    for (const double zone : {0.0, 14.0, -12.0, kNan, 1e300}) {
        engine.iPlace.timeZone = zone;
        for (std::size_t i = 0; i < 60; ++i) {
            DateTimeRecord record = wildRecord(i);
            AllCalendarRecord all;
            engine.ConvertAllCalendar(record, all);
            (void)engine.astroGlobalFuncs.GregJulToHicri(record.day, record.month, record.year);
            engine.GetCrescentDate(record);
        }
    }
    for (const double x : kNumbers) {
        (void)engine.astroGlobalFuncs.JulianToHicri(x);
    }
    SUCCEED();
}

TEST(AnyInput, HijriDatesOfAllYearsReturn) {
    FastAstro engine;
    for (std::int32_t year = -4000; year <= 9999; year += 37) {
        HijriDate date;
        engine.RealGregJulToHicri(15, 6, year, date);
        EXPECT_GE(date.day, -1) << year;
        EXPECT_LE(date.day, 31) << year;
    }
}

TEST(AnyInput, MagneticFieldReturns) {
    MagneticVariation field;
    for (const double x : kNumbers) {
        for (const std::int32_t n : kWholes) {
            (void)field.getMagneticVariation(n, n, n, x, -x, x);
            (void)field.getMagneticVariation2(n, n, n, n, n, n, n, n, n, x);
            (void)field.Declination(2012, 1, 1, x, x, x);
            field.ExtraPSH(x, 2010.0, n, n, MagneticVariation::kDateSet);
            field.SHVAL3(0, x, x, x, n, MagneticVariation::kNextYearSet);
        }
    }
    SUCCEED();
}

} // namespace
} // namespace zorel
