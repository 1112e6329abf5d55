// SPDX-License-Identifier: Apache-2.0
// Every day of three years in the largest place of every zone, and at every whole degree of latitude. Prints
// what was swept.
#include "tests/almanac/sweep/Sweep.h"

#include <cstdio>
#include <gtest/gtest.h>

namespace zorel::almanac {
namespace {

using namespace std::chrono_literals;

void sweepAll(const char* title, const std::vector<tests::SweptPlace>& places) {
    tests::Sweep sweep;
    for (const tests::SweptPlace& place : places) {
        sweep.go(place, 2026y / 1 / 1, 2028y / 12 / 31, 1);
    }
    std::printf("%s\n", title);
    sweep.tally().print();
    EXPECT_EQ(sweep.violations().text(), "");
    EXPECT_EQ(sweep.tally().days, static_cast<int>(places.size()) * 1096);
}

TEST(Sweep, HoldsInTheLargestPlaceOfEveryZone) {
    sweepAll("The largest place of every zone, every day of 2026 to 2028", tests::largestPlaces());
}

TEST(Sweep, HoldsAtEveryLatitude) {
    sweepAll("Every whole degree of latitude to 88, every day of 2026 to 2028", tests::latitudeGrid(1.0));
}

} // namespace
} // namespace zorel::almanac
