// SPDX-License-Identifier: Apache-2.0
// A sample of the sweep: every zone, few days.
#include "tests/almanac/sweep/Sweep.h"

#include <gtest/gtest.h>

namespace zorel::almanac {
namespace {

using namespace std::chrono_literals;

TEST(SweepSample, HoldsInTheLargestPlaceOfEveryZone) {
    tests::Sweep sweep;
    const auto places = tests::largestPlaces();
    ASSERT_EQ(places.size(), 391U);
    int shift = 0;
    for (const tests::SweptPlace& place : places) {
        sweep.go(place, addDays(2026y / 1 / 1, shift++ % 61), 2028y / 12 / 31, 61);
    }
    EXPECT_EQ(sweep.violations().text(), "");
    EXPECT_GT(sweep.tally().days, 6500);
}

TEST(SweepSample, HoldsAtEveryLatitude) {
    tests::Sweep sweep;
    int shift = 0;
    for (const tests::SweptPlace& place : tests::latitudeGrid(1.75)) {
        sweep.go(place, addDays(2026y / 1 / 1, shift++ % 37), 2028y / 12 / 31, 37);
    }
    EXPECT_EQ(sweep.violations().text(), "");
    EXPECT_GT(sweep.tally().days, 2900);
}

} // namespace
} // namespace zorel::almanac
