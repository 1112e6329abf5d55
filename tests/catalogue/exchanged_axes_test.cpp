// SPDX-License-Identifier: Apache-2.0
#include "tests/catalogue/Fixture.h"
#include "tools/build-catalogue/Sources.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorel::catalogue {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Faults of a region at 41 north, 29 east, in which one more place has the given position.
std::vector<std::string> faultsWith(double latitude, double longitude) {
    const test::SourceFolder folder;
    folder.addPlace(fmt::format("8\tYeni\t\t\tTR\t34\t{}\t{}\t\tEurope/Istanbul\t0", latitude, longitude));
    Problems problems;
    static_cast<void>(Sources::read(folder.path(), problems));
    return problems.lines();
}

TEST(ExchangedAxes, FindsAnExchangedPlace) {
    EXPECT_THAT(
        faultsWith(28.9, 41.0),
        ElementsAre("places.tsv:6: Yeni lies 15 degrees from the middle of its region: latitude 28.9 and "
                    "longitude 41 look exchanged"));
}

TEST(ExchangedAxes, LeavesRemotePlacesAlone) {
    EXPECT_THAT(faultsWith(41.1, 28.8), IsEmpty());
    EXPECT_THAT(faultsWith(36.0, 20.0), IsEmpty()) << "far off, but not nearer with its axes exchanged";
    EXPECT_THAT(faultsWith(39.5, 30.5), IsEmpty()) << "too near to be sure";
}

TEST(ExchangedAxes, ThinksAcrossTheDateLine) {
    const test::SourceFolder folder;
    folder.setPlaces("1\tA\t\t\tTR\t34\t-17\t179.9\t\tEurope/Istanbul\t0\n"
                     "2\tB\t\t\tTR\t34\t-17\t-179.9\t\tEurope/Istanbul\t0\n"
                     "3\tC\t\t\tTR\t34\t-17\t179.8\t\tEurope/Istanbul\t0\n");
    Problems problems;
    static_cast<void>(Sources::read(folder.path(), problems));
    EXPECT_THAT(problems.lines(), IsEmpty());
}

} // namespace
} // namespace zorel::catalogue
