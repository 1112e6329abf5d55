// SPDX-License-Identifier: Apache-2.0
// The magnetic field against the official test values of the World Magnetic Model 2025, and what people are
// told of it.
#include "almanac/Magnetic.h"
#include "almanac/Wmm.h"

#include "almanac/series/Wmm2025.h"
#include "engine/MagneticVariation.h"
#include "tests/engine/Steps.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <limits>
#include <locale>
#include <sstream>
#include <string>
#include <vector>

namespace zorel::almanac {
namespace {

using namespace std::chrono_literals;
using zorel::testing::steps;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct TestValue {
    double date, height, latitude, longitude, X, Y, Z, H, F, inclination, declination;
};

std::vector<TestValue> testValues() {
    std::ifstream file(ZOREL_SOURCE_DIR "/tests/data/wmm2025/test_values.tsv");
    std::string line;
    std::getline(file, line);
    std::vector<TestValue> values;
    while (std::getline(file, line)) {
        std::istringstream stream(line);
        stream.imbue(std::locale::classic());
        TestValue v{};
        stream >> v.date >> v.height >> v.latitude >> v.longitude >> v.X >> v.Y >> v.Z >> v.H >> v.F >>
            v.inclination >> v.declination;
        EXPECT_FALSE(stream.fail()) << line;
        values.push_back(v);
    }
    return values;
}

double apart(double a, double b) {
    return std::fabs(std::remainder(a - b, 360.0));
}

/// Largest differences from the test values.
struct Worst {
    double north = 0.0; // [nT], and of what contains it: H and F
    double east = 0.0;
    double down = 0.0;
    double angle = 0.0; // [deg]

    void add(const FieldVector& field, const TestValue& v) {
        north = std::max({north, std::fabs(field.north - v.X), std::fabs(field.horizontal() - v.H),
                          std::fabs(field.total() - v.F)});
        east = std::max(east, std::fabs(field.east - v.Y));
        down = std::max(down, std::fabs(field.down - v.Z));
        angle = std::max(
            {angle, apart(field.inclination(), v.inclination), apart(field.declination(), v.declination)});
    }
};

// The components are printed with six digits, the angles with two. The northward ones (alone) are up to
// 0.0007 nT away from the sum of the series, which was taken with exact fractions for comparison too.
TEST(Wmm, AllHundredTestValuesComeOut) {
    const std::vector<TestValue> values = testValues();
    ASSERT_EQ(values.size(), 100U);
    Worst worst;
    for (const TestValue& v : values) {
        worst.add(wmm2025(v.date, v.latitude, v.longitude, v.height), v);
    }
    std::printf("100 test values: X, H, F within %.1e nT, Y %.1e, Z %.1e, angles within %.5f degrees\n",
                worst.north, worst.east, worst.down, worst.angle);
    EXPECT_LE(worst.north, 0.001);
    EXPECT_LE(worst.east, 0.51e-6);
    EXPECT_LE(worst.down, 4e-6);
    EXPECT_LE(worst.angle, 0.00501);
}

TEST(Wmm, CoefficientsAreOrderedAndNoneIsMissing) {
    std::size_t row = 0;
    for (int n = 1; n <= 12; ++n) {
        for (int m = 0; m <= n; ++m, ++row) {
            ASSERT_EQ(kWmm2025[row].n, n);
            ASSERT_EQ(kWmm2025[row].m, m);
        }
        ASSERT_EQ(kWmm2025[row - static_cast<std::size_t>(n) - 1].h, 0.0); // order 0 has no sine
    }
    EXPECT_EQ(row, kWmm2025.size());
    EXPECT_EQ(row, kWmm2025Rows);
}

TEST(Wmm, APoleIsTheLimitAlongTheMeridian) {
    for (const double pole : {-90.0, 90.0}) {
        for (const double longitude : steps(-180.0, 180.0, 45.0)) {
            const FieldVector at = wmm2025(2026.5, pole, longitude, 0.0);
            const FieldVector beside = wmm2025(2026.5, pole * (1.0 - 1e-9), longitude, 0.0);
            ASSERT_NEAR(at.north, beside.north, 1e-3);
            ASSERT_NEAR(at.east, beside.east, 1e-3);
            ASSERT_NEAR(at.down, beside.down, 1e-3);
            // The field itself is one: another meridian only turns the frame.
            const FieldVector first = wmm2025(2026.5, pole, 0.0, 0.0);
            ASSERT_NEAR(at.horizontal(), first.horizontal(), 1e-6);
            ASSERT_LT(apart(at.declination(), first.declination() + (pole > 0.0 ? longitude : -longitude)),
                      1e-6);
        }
    }
}

TEST(Wmm, LongitudesRepeatAfterATurn) {
    const FieldVector east = wmm2025(2027.0, -18.0, 180.0, 0.0);
    const FieldVector west = wmm2025(2027.0, -18.0, -180.0, 0.0);
    EXPECT_NEAR(east.declination(), west.declination(), 1e-9);
    EXPECT_NEAR(east.total(), west.total(), 1e-6);
}

TEST(Wmm, NumbersThatAreNotFiniteGiveNoField) {
    for (const double x : {std::nan(""), kInfinity, -kInfinity}) {
        EXPECT_FALSE(std::isfinite(wmm2025(2026.0, x, 0.0, 0.0).horizontal()));
        EXPECT_FALSE(std::isfinite(wmm2025(2026.0, 0.0, x, 0.0).horizontal()));
        EXPECT_FALSE(std::isfinite(wmm2025(x, 0.0, 0.0, 0.0).horizontal()));
    }
}

TEST(DecimalYear, CountsTheDaysOfTheYear) {
    EXPECT_EQ(decimalYear(2025y / 1 / 1), 2025.0);
    EXPECT_DOUBLE_EQ(decimalYear(2025y / 7 / 2), 2025.0 + 182.0 / 365.0);
    EXPECT_DOUBLE_EQ(decimalYear(2024y / 11 / 13), 2024.0 + 317.0 / 366.0);
    EXPECT_DOUBLE_EQ(decimalYear(2028y / 12 / 31), 2028.0 + 365.0 / 366.0);
}

TEST(Magnetic, WmmFromItsFirstDayToItsLast) {
    const auto at = [](Date date) { return magneticAt(41.0082, 28.9784, 40.0, date).value(); };
    EXPECT_EQ(at(2024y / 11 / 12).model, "IGRF-11");
    EXPECT_EQ(at(2024y / 11 / 13).model, "WMM2025");
    EXPECT_EQ(at(2029y / 12 / 31).model, "WMM2025");
    EXPECT_EQ(at(2030y / 1 / 1).model, "IGRF-11");
    const Magnetic now = at(2026y / 11 / 21);
    EXPECT_EQ(now.epoch, 2025.0);
    EXPECT_NEAR(now.validFrom, 2024.866, 0.001);
    EXPECT_EQ(now.validTo, 2030.0);
    EXPECT_FALSE(now.extrapolated);
    EXPECT_EQ(now.declination, wmm2025(decimalYear(2026y / 11 / 21), 41.0082, 28.9784, 0.04).declination());
}

TEST(Magnetic, OtherYearsAreTheEnginesOwn) {
    for (const auto& [date, extrapolated] :
         {std::pair{Date(2012y / 6 / 1), false}, {Date(2024y / 6 / 1), true}, {Date(1980y / 2 / 29), true}}) {
        const Magnetic found = magneticAt(-33.87, 151.2, 58.0, date).value();
        MagneticVariation engine;
        const auto month = static_cast<std::int32_t>(static_cast<unsigned>(date.month()));
        const auto day = static_cast<std::int32_t>(static_cast<unsigned>(date.day()));
        EXPECT_EQ(found.declination, engine.getMagneticVariation(day, month, static_cast<int>(date.year()),
                                                                 -33.87, 151.2, 58.0));
        EXPECT_EQ(found.horizontalIntensity, engine.iHorizontalIntensity);
        EXPECT_EQ(found.extrapolated, extrapolated);
        EXPECT_EQ(found.validFrom, 2010.0);
        EXPECT_EQ(found.validTo, 2015.0);
        EXPECT_FALSE(found.uncertainty);
    }
}

TEST(Magnetic, TheUncertaintyGrowsTowardsThePoles) {
    EXPECT_NEAR(wmmUncertainty(30000.0), std::sqrt(0.26 * 0.26 + std::pow(5417.0 / 30000.0, 2)), 1e-12);
    EXPECT_NEAR(wmmUncertainty(5417.0), 1.0332, 1e-4);
    EXPECT_EQ(wmmUncertainty(1.0), 180.0);
    const auto at = [](double latitude) {
        return *magneticAt(latitude, 20.0, 0.0, 2027y / 3 / 1)->uncertainty;
    };
    EXPECT_NEAR(at(0.0), 0.31, 0.02);
    EXPECT_GT(at(70.0), at(50.0));
}

TEST(Magnetic, AnswersEverywhereOnTheEarth) {
    for (const double latitude : steps(-90.0, 90.0, 7.5)) {
        for (const double longitude : steps(-180.0, 180.0, 22.5)) {
            const auto found = magneticAt(latitude, longitude, 0.0, 2026y / 11 / 21);
            ASSERT_TRUE(found) << latitude << ' ' << longitude;
            ASSERT_LE(std::fabs(found->declination), 180.0);
            ASSERT_GE(*found->uncertainty, 0.26);
            ASSERT_LE(*found->uncertainty, 180.0);
        }
    }
}

/// The place where the model's field is vertical, by Newton's steps on its horizontal components.
std::array<double, 2> magneticPole(double latitude, double longitude) {
    constexpr double step = 1e-5;
    const auto field = [](double phi, double lambda) { return wmm2025(2026.0, phi, lambda, 0.0); };
    for (int i = 0; i < 50; ++i) {
        const FieldVector here = field(latitude, longitude);
        const FieldVector north = field(latitude + step, longitude);
        const FieldVector east = field(latitude, longitude + step);
        const double a = (north.north - here.north) / step;
        const double b = (east.north - here.north) / step;
        const double c = (north.east - here.east) / step;
        const double d = (east.east - here.east) / step;
        const double determinant = a * d - b * c;
        latitude -= (d * here.north - b * here.east) / determinant;
        longitude -= (a * here.east - c * here.north) / determinant;
    }
    return {latitude, longitude};
}

TEST(Magnetic, AtTheMagneticPoleThereIsNoDirectionToTrust) {
    const auto [latitude, longitude] = magneticPole(85.7, 139.0);
    EXPECT_NEAR(latitude, 85.7, 0.5);
    EXPECT_NEAR(longitude, 139.0, 6.0);
    const FieldVector there = wmm2025(2026.0, latitude, longitude, 0.0);
    EXPECT_LT(there.horizontal(), 1e-3);
    const auto told = magneticAt(latitude, longitude, 0.0, 2026y / 1 / 1);
    EXPECT_TRUE(!told || *told->uncertainty == 180.0);
    EXPECT_EQ(*magneticAt(latitude - 0.1, longitude, 0.0, 2026y / 1 / 1)->uncertainty < 180.0, true);
}

TEST(Magnetic, RefusesWhatIsNoPlaceOrDate) {
    for (const Date date : {Date(2012y / 1 / 1), Date(2026y / 1 / 1)}) {
        EXPECT_FALSE(magneticAt(std::nan(""), 0.0, 0.0, date));
        EXPECT_FALSE(magneticAt(90.5, 0.0, 0.0, date));
        EXPECT_FALSE(magneticAt(0.0, kInfinity, 0.0, date));
        EXPECT_FALSE(magneticAt(0.0, 0.0, std::nan(""), date));
        EXPECT_FALSE(magneticAt(0.0, 0.0, 1e12, date)); // no field is left so far out
    }
    EXPECT_FALSE(magneticAt(0.0, 0.0, 0.0, 2026y / 2 / 30));
    EXPECT_FALSE(magneticAt(0.0, 0.0, 0.0, 1500y / 1 / 1));
}

// The sea stands at most 107 m from the ellipsoid.
TEST(Magnetic, HeightAboveTheSeaInsteadOfTheEllipsoidMattersLittle) {
    double farthest = 0.0;
    for (const double latitude : steps(-89.0, 89.0, 2.0)) {
        for (const double longitude : steps(-180.0, 178.0, 2.0)) {
            const FieldVector sea = wmm2025(2026.9, latitude, longitude, 0.0);
            if (sea.horizontal() > 6000.0) {
                const FieldVector other = wmm2025(2026.9, latitude, longitude, 0.107);
                farthest = std::max(farthest, apart(sea.declination(), other.declination()));
            }
        }
    }
    std::printf("107 m of height: declination within %.5f degrees\n", farthest);
    EXPECT_LT(farthest, 0.003);
    EXPECT_GT(farthest, 0.0);
}

TEST(MagneticBearing, StaysInOneTurn) {
    EXPECT_DOUBLE_EQ(magneticBearing(2.7, 2.0), 0.7);
    EXPECT_NEAR(magneticBearing(358.7, -2.0), 0.7, 1e-9); // 360.7 until it is turned back
    EXPECT_NEAR(magneticBearing(0.3, 0.5), 359.8, 1e-9);
    EXPECT_EQ(magneticBearing(10.0, 10.0), 0.0);
    EXPECT_EQ(magneticBearing(350.0, -10.0), 0.0);
    EXPECT_EQ(magneticBearing(0.0, 1e-20), 0.0); // 360 by rounding
    EXPECT_NEAR(magneticBearing(359.0, -180.0), 179.0, 1e-9);
    EXPECT_NEAR(magneticBearing(1.0, 180.0), 181.0, 1e-9);
    for (const double bearing : steps(0.0, 359.5, 0.5)) {
        for (const double declination : steps(-180.0, 180.0, 7.3)) {
            const double found = magneticBearing(bearing, declination);
            ASSERT_TRUE(found >= 0.0 && found < 360.0) << bearing << ' ' << declination;
        }
    }
}

} // namespace
} // namespace zorel::almanac
