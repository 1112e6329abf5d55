// SPDX-License-Identifier: Apache-2.0
// The way of Sun and Moon over a place, and the side of the Moon that is lit.
#include "almanac/Almanac.h"
#include "almanac/Degrees.h"
#include "tests/almanac/Days.h"

#include <cmath>
#include <gtest/gtest.h>

namespace zorel::almanac {
namespace {

using namespace std::chrono_literals;
using std::chrono::sys_days;
using tests::placeIn;

double apart(double one, double two) {
    return std::abs(std::remainder(one - two, 360.0));
}

// The lit side

TEST(LitSide, LooksAtTheSun) {
    const Standing moon{30.0, 180.0};
    EXPECT_NEAR(litSide({60.0, 180.0}, moon), 0.0, 1e-9);    // above it
    EXPECT_NEAR(litSide({-10.0, 180.0}, moon), 180.0, 1e-9); // below it
    EXPECT_GT(litSide({10.0, 240.0}, moon), 90.0);           // set to the right
    EXPECT_LT(litSide({10.0, 240.0}, moon), 180.0);
    EXPECT_NEAR(litSide({0.0, 270.0}, {0.0, 180.0}), 90.0, 1e-9);
    EXPECT_NEAR(litSide({0.0, 90.0}, {0.0, 180.0}), 270.0, 1e-9);
    EXPECT_NEAR(litSide({0.0, 10.0}, {0.0, 350.0}), 90.0, 1e-9); // over north
}

/// The same by the equatorial coordinates: position angle of the bright limb less the parallactic angle.
double litSideByRightAscension(const Sky& sky, double latitude) {
    const double sunDeclination = sky.sun.declination * kRadian;
    const double moonDeclination = sky.moon.declination * kRadian;
    const double aside = (sky.sun.rightAscension - sky.moon.rightAscension) * 15.0 * kRadian;
    const double limb =
        std::atan2(std::cos(sunDeclination) * std::sin(aside),
                   std::sin(sunDeclination) * std::cos(moonDeclination) -
                       std::cos(sunDeclination) * std::sin(moonDeclination) * std::cos(aside));
    const double hourAngle = (sky.moon.siderealTime - sky.moon.rightAscension) * 15.0 * kRadian;
    const double parallactic =
        std::atan2(std::sin(hourAngle), std::tan(latitude * kRadian) * std::cos(moonDeclination) -
                                            std::sin(moonDeclination) * std::cos(hourAngle));
    return bearingOf((parallactic - limb) / kRadian);
}

TEST(LitSide, IsTheBrightLimbLessTheParallacticAngle) {
    int compared = 0;
    for (const double latitude : {-60.0, -33.9, 0.0, 21.4, 41.0, 66.0}) {
        const Almanac almanac(placeIn(latitude, 28.97, "UTC"));
        for (Instant instant = sys_days(2026y / 11 / 1); instant < sys_days(2027y / 1 / 1);
             instant += 11h + 7min) {
            const Sky sky = almanac.sky(instant);
            if (sky.moon.elongation < 30.0 || sky.moon.elongation > 150.0 ||
                sky.moon.apparentAltitude > 80.0) {
                continue;
            }
            EXPECT_LT(apart(sky.litSide, litSideByRightAscension(sky, latitude)), 2.5)
                << latitude << ' ' << isoDateTime(sky.at);
            ++compared;
        }
    }
    EXPECT_GT(compared, 300);
}

TEST(LitSide, OfTheFirstQuarterIsRightInTheNorthAndLeftInTheSouth) {
    // 17 November 2026, 11:48 UT: first quarter. It culminates around 18 h by the local Sun.
    const auto atTransit = [](const Place& place) {
        const Almanac almanac(place);
        return almanac.sky(almanac.moon(2026y / 11 / 17).events.transit->instant).litSide;
    };
    EXPECT_LT(apart(atTransit(placeIn(51.5, 0.0, "Europe/London")), 90.0), 25.0);
    EXPECT_LT(apart(atTransit(placeIn(-33.9, 151.2, "Australia/Sydney")), 270.0), 25.0);
}

TEST(LitSide, OfAYoungMoonAtTheEquatorIsBelow) {
    // Two days after the new Moon of 9 November 2026, half an hour after sunset in Quito.
    const Sky sky = Almanac(placeIn(-0.2, -78.5, "America/Guayaquil"))
                        .sky(Instant(sys_days(2026y / 11 / 11)) + 23h + 30min);
    EXPECT_GT(sky.moon.apparentAltitude, 0.0);
    EXPECT_LT(apart(sky.litSide, 180.0), 35.0);
}

// The course of a day

TEST(Course, IsThatOfTheSkyFromMidnightToMidnight) {
    const Place place = placeIn(41.01, 28.97, "Europe/Istanbul");
    const Almanac almanac(place);
    const std::vector<SkyMoment> course = almanac.course(2026y / 11 / 21, 10min);
    ASSERT_EQ(course.size(), 145U);
    EXPECT_EQ(course.front().instant, place.clock.instantOf(2026y / 11 / 21, 0h));
    EXPECT_EQ(course.back().instant - course.front().instant, 24h);
    for (std::size_t i = 0; i < course.size(); i += 29) {
        const Sky sky = almanac.sky(course[i].instant);
        EXPECT_EQ(course[i].sun.altitude, sky.sun.altitude);
        EXPECT_EQ(course[i].sun.azimuth, sky.sun.azimuth);
        EXPECT_EQ(course[i].moon.altitude, sky.moon.apparentAltitude);
        EXPECT_EQ(course[i].moon.azimuth, sky.moon.azimuth);
    }
}

TEST(Course, MovesAsTheSkyDoes) {
    for (const double latitude : {-89.0, -45.0, 0.0, 23.0, 66.0, 89.9}) {
        const auto course = Almanac(placeIn(latitude, 10.0, "UTC")).course(2026y / 6 / 21, 5min);
        for (std::size_t i = 1; i < course.size(); ++i) {
            // Five minutes turn the sky by 1.25 degrees.
            EXPECT_LT(std::abs(course[i].sun.altitude - course[i - 1].sun.altitude), 1.3) << latitude;
            EXPECT_LT(std::abs(course[i].moon.altitude - course[i - 1].moon.altitude), 1.3) << latitude;
            EXPECT_GE(course[i].moon.azimuth, 0.0);
            EXPECT_LT(course[i].moon.azimuth, 360.0);
        }
    }
}

TEST(Course, FollowsTheLengthOfTheDay) {
    const Almanac oslo(placeIn(59.91, 10.75, "Europe/Oslo"));
    EXPECT_EQ(oslo.course(2026y / 10 / 25, 1h).size(), 26U);
    EXPECT_EQ(oslo.course(2026y / 3 / 29, 1h).size(), 24U);
}

TEST(Course, IsEmptyWhereThereIsNone) {
    EXPECT_TRUE(Almanac(placeIn(91.0, 0.0, "UTC")).course(2026y / 6 / 21, 1h).empty());
    EXPECT_TRUE(Almanac(placeIn(41.0, 0.0, "UTC")).course(1500y / 6 / 21, 1h).empty());
    EXPECT_TRUE(Almanac(placeIn(41.0, 0.0, "UTC")).course(2026y / 6 / 21, 0s).empty());
}

} // namespace
} // namespace zorel::almanac
