// SPDX-License-Identifier: Apache-2.0
#include "engine/Single.h"

#include "engine/EarthCompute.h"
#include "engine/Processor.h"
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

void expectPlainSums(double tau) {
    const EarthCompute earth;
    ASSERT_EQ(earth._L0(tau), plainSum(kEarthL0, tau)) << tau;
    ASSERT_EQ(earth._L1(tau), plainSum(kEarthL1, tau)) << tau;
    ASSERT_EQ(earth._L2(tau), plainSum(kEarthL2, tau)) << tau;
    ASSERT_EQ(earth._L3(tau), plainSum(kEarthL3, tau)) << tau;
    ASSERT_EQ(earth._L4(tau), plainSum(kEarthL4, tau)) << tau;
    ASSERT_EQ(earth._L5(tau), plainSum(kEarthL5, tau)) << tau;
    ASSERT_EQ(earth._B0(tau), plainSum(kEarthB0, tau)) << tau;
    ASSERT_EQ(earth._B1(tau), plainSum(kEarthB1, tau)) << tau;
    ASSERT_EQ(earth._R0(tau), plainSum(kEarthR0, tau)) << tau;
    ASSERT_EQ(earth._R1(tau), plainSum(kEarthR1, tau)) << tau;
    ASSERT_EQ(earth._R2(tau), plainSum(kEarthR2, tau)) << tau;
    ASSERT_EQ(earth._R3(tau), plainSum(kEarthR3, tau)) << tau;
    ASSERT_EQ(earth._R4(tau), plainSum(kEarthR4, tau)) << tau;
}

TEST(Single, SumsOfManyTermsAtOnceHaveTheBitsOfSumsOneByOne) {
    for (const bool avx2 : {false, true}) {
        allowAvx2(avx2);
        for (int step = 0; step < 1748; ++step) {
            expectPlainSums(-12.0 + 0.01373 * step);
        }
        for (const double tau : {29.99, -29.99, 30.01, -30.01, 500.0, -1e6}) {
            expectPlainSums(tau); // from 30 on each term goes its own way
        }
        EXPECT_TRUE(std::isnan(EarthCompute()._L0(std::nan(""))));
    }
}

TEST(Processor, Avx2IsUsedOnlyWhileItIsAllowed) {
    const bool there = usesAvx2();
    allowAvx2(false);
    EXPECT_FALSE(usesAvx2());
    allowAvx2(true);
    EXPECT_EQ(usesAvx2(), there) << "at first it is allowed";
}

} // namespace
} // namespace zorel
