// SPDX-License-Identifier: Apache-2.0
#include "engine/Single.h"

#include "engine/EarthCompute.h"
#include "engine/series/EarthSeries.h"
#include "tests/engine/Places.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace zorel {
namespace {

TEST(Single, SineAndCosineRoundAsTheTrueValuesDo) {
    testing::Random random(8);
    for (const double limit : {0.01, 4.0, 200.0, 2.9e6}) {
        for (int i = 0; i < 100000; ++i) {
            const double x = single(random.between(-limit, limit));
            ASSERT_EQ(cosSingle(x), single(std::cos(x))) << x;
            ASSERT_EQ(sinSingle(x), single(std::sin(x))) << x;
        }
    }
}

TEST(Single, ArgumentsAreRoundedFirst) {
    EXPECT_EQ(cosSingle(1.0 + 1e-10), cosSingle(1.0));
    EXPECT_EQ(sinSingle(0.1), single(std::sin(static_cast<double>(0.1F))));
}

TEST(Single, ZeroAndSignedZero) {
    EXPECT_EQ(cosSingle(0.0), 1.0);
    EXPECT_EQ(cosSingle(-0.0), 1.0);
    EXPECT_EQ(sinSingle(0.0), 0.0);
    EXPECT_EQ(sinSingle(1e-30), single(1e-30));
}

TEST(Single, LargeAndOddNumbers) {
    for (const double x : {3.0e6, -5.0e9, 1e30}) {
        EXPECT_EQ(cosSingle(x), single(std::cos(single(x))));
        EXPECT_EQ(sinSingle(x), single(std::sin(single(x))));
    }
    EXPECT_TRUE(std::isnan(cosSingle(std::nan(""))));
    EXPECT_TRUE(std::isnan(sinSingle(std::numeric_limits<double>::infinity())));
    EXPECT_TRUE(std::isnan(cosSingle(1e300))) << "infinite in single precision";
}

/// The sum term by term, as the book has it.
template <std::size_t Rows> double plainSum(const std::array<EarthTerm, Rows>& series, double tau) {
    double sum = 0.0;
    for (const EarthTerm& term : series) {
        sum += term.amplitude * cosSingle(term.phase + term.frequency * tau);
    }
    return sum;
}

TEST(Single, SumsTwoAtATimeHaveTheBitsOfSumsOneByOne) {
    const EarthCompute earth;
    for (int step = 0; step < 1748; ++step) {
        const double tau = -12.0 + 0.01373 * step;
        ASSERT_EQ(earth._L0(tau), plainSum(kEarthL0, tau));
        ASSERT_EQ(earth._L3(tau), plainSum(kEarthL3, tau));
        ASSERT_EQ(earth._B0(tau), plainSum(kEarthB0, tau));
        ASSERT_EQ(earth._R1(tau), plainSum(kEarthR1, tau));
    }
    EXPECT_EQ(earth._L0(500.0), plainSum(kEarthL0, 500.0));
    EXPECT_TRUE(std::isnan(earth._L0(std::nan(""))));
}

} // namespace
} // namespace zorel
