// SPDX-License-Identifier: Apache-2.0
#include "engine/SunAtBearing.h"

#include "engine/FastAstro.h"
#include "tests/engine/Places.h"
#include "tests/engine/Steps.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>
#include <initializer_list>
#include <limits>
#include <utility>

namespace zorel {
namespace {

constexpr double kRadian = M_PI / 180.0;

/// Of the engine's qibla, clockwise from north, [0, 360) [deg].
double bearing(double latitude, double longitude) {
    return std::fmod(720.0 - FastAstro().KibleAcisi(latitude, longitude).q1, 360.0);
}

/// Initial course of the great circle to the Kaaba (21.43 north in the engine's constant, 39.82 east)
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

double midnightOf(const testing::PlaceDay& p) {
    return AstroGlobalFuncs().CalculateJulianDay(p.year, p.month, p.day, 0, 0, 0) - p.timeZone / 24.0;
}

SunAtBearingInstants instants(const testing::PlaceDay& p) {
    return SunAtBearing(p.latitude, p.longitude, bearing(p.latitude, p.longitude), midnightOf(p), 0.0, 24.0);
}

TEST(SunAtBearing, EachInstantHasTheSunInTheBearing) {
    testing::Random random(5);
    int found = 0;
    for (int i = 0; i < 400; ++i) {
        testing::PlaceDay p = testing::anyPlaceDay(random, 80.0);
        p.year = random.whole(1950, 2050);
        for (const SunAtBearingInstant& instant : instants(p)) {
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

TEST(SunAtBearing, NoCrossingIsMissed) {
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

TEST(SunAtBearing, TheSunOverTheKaabaShowsTheQiblaEverywhere) {
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
            for (const SunAtBearingInstant& instant :
                 instants({latitude, longitude, 0.0, 2024, event.month, event.day})) {
                shown = shown || (std::fabs(instant.hour - event.hour) < 3.0 / 60.0 && instant.visible);
            }
            EXPECT_TRUE(shown) << latitude << ' ' << longitude;
        }
    }
}

TEST(SunAtBearing, TheHoursCountFromTheBeginning) {
    const auto at = [](double zone) { return instants({41.0, 29.0, zone, 2024, 4, 17}); };
    ASSERT_FALSE(at(2.0).empty());
    EXPECT_NEAR(at(3.0)[0].hour, at(2.0)[0].hour + 1.0, 1.0 / 3600.0);
}

TEST(SunAtBearing, ASpanHasWhatItsPartsHave) {
    testing::Random random(12);
    int found = 0;
    for (int i = 0; i < 200; ++i) {
        const double latitude = random.between(-89.0, 89.0);
        const double longitude = random.between(-180.0, 180.0);
        const double direction = random.between(0.0, 360.0);
        const double start = random.between(2458849.5, 2462502.5);
        const auto over = [&](double from, double to) {
            return SunAtBearing(latitude, longitude, direction, start, from, to);
        };
        const auto whole = over(-1.0, 47.0);
        ASSERT_EQ(whole.size(), over(-1.0, 10.0).size() + over(10.0, 22.0).size() + over(22.0, 47.0).size())
            << latitude << ' ' << longitude << ' ' << direction << ' ' << start;
        for (std::size_t k = 1; k < whole.size(); ++k) {
            ASSERT_LT(whole[k - 1].hour, whole[k].hour);
        }
        found += static_cast<int>(whole.size());
    }
    EXPECT_GT(found, 300);
}

/// How the two ways of solving it differ over a grid of the world.
struct Agreement {
    int days = 0;
    int onlyOne = 0;           // days on which the number of instants differs
    int onlyOneClear = 0;      // those of them on which no instant lies near the edge of a day or a grazing
    double farthest = 0.0;     // [s]
    double farthestFlat = 0.0; // [s], of those within half an hour of grazing
};

/// The two crossings of a circle of which one may be on the other side: close together where the Sun grazes.
bool grazes(double latitude, double direction, double declination) {
    const double c = std::sin(direction * kRadian) * std::cos(latitude * kRadian) *
                     std::tan(declination * kRadian) /
                     std::hypot(std::cos(direction * kRadian),
                                std::sin(direction * kRadian) * std::sin(latitude * kRadian));
    return std::fabs(c) > 0.98;
}

bool nearAnEdge(const SunAtBearingInstants& list, double from, double to) {
    for (const SunAtBearingInstant& instant : list) {
        if (instant.hour < from + 0.02 || instant.hour > to - 0.02) {
            return true;
        }
    }
    return false;
}

void compare(FastAstro& engine, double latitude, double longitude, std::int32_t month, std::int32_t day,
             Agreement& sum) {
    const double zone = std::round(longitude / 15.0);
    const double direction = bearing(latitude, longitude);
    const double midnight = AstroGlobalFuncs().CalculateJulianDay(2027, month, day, 0, 0, 0);
    const SunInfoForPray sun = engine.SunInformationForPray(day, month, 2027);
    const auto exact = SunAtBearing(latitude, longitude, direction, midnight, -zone, 24.0 - zone);
    const auto quick = SunAtBearing(latitude, longitude, direction, sun, -zone, 24.0 - zone);
    const bool flat = grazes(latitude, direction, sun.declinationToday());
    ++sum.days;
    if (exact.size() != quick.size()) {
        ++sum.onlyOne;
        sum.onlyOneClear +=
            flat || nearAnEdge(exact, -zone, 24.0 - zone) || nearAnEdge(quick, -zone, 24.0 - zone) ? 0 : 1;
        return;
    }
    for (std::size_t i = 0; i < exact.size(); ++i) {
        double& farthest = flat ? sum.farthestFlat : sum.farthest;
        farthest = std::max(farthest, std::fabs(exact[i].hour - quick[i].hour) * 3600.0);
    }
}

TEST(SunAtBearing, TheQuickWayAgreesAllOverTheWorld) {
    Agreement sum;
    FastAstro engine;
    for (const double latitude : testing::steps(-85.0, 85.0, 5.0)) {
        for (const double longitude : testing::steps(-179.0, 180.0, 11.0)) {
            for (std::int32_t month = 1; month <= 12; ++month) {
                compare(engine, latitude, longitude, month, 1 + (month * 7) % 28, sum);
            }
        }
    }
    RecordProperty("days", sum.days);
    std::printf("%d days, %d differ in number (%d of them clear), farthest %.2f s (near grazing %.1f s)\n",
                sum.days, sum.onlyOne, sum.onlyOneClear, sum.farthest, sum.farthestFlat);
    EXPECT_GT(sum.days, 10000);
    EXPECT_EQ(sum.onlyOneClear, 0);
    EXPECT_LT(sum.onlyOne, sum.days / 2000);
    EXPECT_LT(sum.farthest, 20.0);
}

TEST(SunAtBearing, RefusesWhatIsNoPlaceOrSpan) {
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double x : {std::nan(""), infinity, -infinity}) {
        EXPECT_TRUE(SunAtBearing(x, 29.0, 151.0, 2460000.5, 0.0, 24.0).empty());
        EXPECT_TRUE(SunAtBearing(41.0, x, 151.0, 2460000.5, 0.0, 24.0).empty());
        EXPECT_TRUE(SunAtBearing(41.0, 29.0, x, 2460000.5, 0.0, 24.0).empty());
        EXPECT_TRUE(SunAtBearing(41.0, 29.0, 151.0, x, 0.0, 24.0).empty());
        EXPECT_TRUE(SunAtBearing(41.0, 29.0, 151.0, 2460000.5, x, 24.0).empty());
        EXPECT_TRUE(SunAtBearing(41.0, 29.0, 151.0, 2460000.5, 0.0, x).empty());
    }
    EXPECT_FALSE(SunAtBearing(41.0, 29.0, 151.0, 2460000.5, 0.0, kLongestBearingSpan).empty());
    EXPECT_TRUE(SunAtBearing(41.0, 29.0, 151.0, 2460000.5, 0.0, kLongestBearingSpan + 1.0).empty());
    EXPECT_TRUE(SunAtBearing(41.0, 29.0, 151.0, 2460000.5, 24.0, 0.0).empty());
}

TEST(SunAtBearing, TheEquatorsOwnCircleHasNoCrossing) {
    // The Sun would run along it, not across.
    EXPECT_TRUE(SunAtBearing(0.0, 29.0, 90.0, 2460000.5, 0.0, 24.0).empty());
}

TEST(SunAtBearingInstants, KeepTheirOrderAndNoDoubles) {
    SunAtBearingInstants list;
    for (const double hour : {5.0, 1.0, 9.0, 5.0001, 3.0, 0.9999, 7.0, 2.0, 4.0, 6.0, 8.0}) {
        list.add({hour, 10.0, true});
    }
    ASSERT_EQ(list.size(), 8U); // full
    for (std::size_t i = 1; i < list.size(); ++i) {
        EXPECT_GT(list[i].hour, list[i - 1].hour + 0.5);
    }
    EXPECT_EQ(list[0].hour, 1.0);
}

TEST(Qibla, TheRememberedOneIsThatOfThePlace) {
    FastAstro engine;
    for (const auto& [latitude, longitude] : std::initializer_list<std::pair<double, double>>{
             {41.0, 29.0}, {41.0, 29.0}, {-33.9, 29.0}, {-33.9, 18.4}, {0.0, 18.4}, {-0.0, 18.4}}) {
        engine.SetCurrentDate(17, 4, 2024);
        engine.SetPlace(latitude, longitude, 2.0, 0, 0, 0, 0, 0, 0, 0);
        const QiblaRecord expected = FastAstro().KibleAcisi(latitude, longitude);
        const QiblaRecord today = engine.CalculatePrayTimes().qibla;
        EXPECT_EQ(today.q0, expected.q0) << latitude << ' ' << longitude;
        EXPECT_EQ(today.q1, expected.q1) << latitude << ' ' << longitude;
        engine.iPlace.longitude += 1.0; // the record is the caller's too
        engine.CalculateNextPrayTimes();
        EXPECT_EQ(engine.iPlace.qibla.q1, FastAstro().KibleAcisi(latitude, longitude + 1.0).q1);
    }
}

} // namespace
} // namespace zorel
