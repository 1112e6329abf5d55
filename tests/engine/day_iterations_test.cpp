// SPDX-License-Identifier: Apache-2.0
// Nine iterations side by side give the bits of nine iterations one by one, and so does what is kept for
// them.
#include "engine/DayIterations.h"
#include "engine/Processor.h"
#include "engine/Single.h"
#include "tests/engine/Places.h"

#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <set>
#include <vector>

namespace zorel {
namespace {

using testing::Random;

std::vector<std::uint64_t> bitsOf(const DayIterationResults& results) {
    std::vector<std::uint64_t> bits;
    for (const IterationResult& result : results) {
        for (const double value : {result.time, result.altitude}) {
            bits.push_back(std::isnan(value) ? 0 : std::bit_cast<std::uint64_t>(value));
        }
        bits.push_back(static_cast<std::uint64_t>(result.rounds) * 4U + (result.answer ? 2U : 0U) +
                       (result.converged ? 1U : 0U));
    }
    return bits;
}

void expectSame(const DayIterationInput& day, const SunInfoForPray& info) {
    const std::vector<std::uint64_t> expected = bitsOf(iterateOneByOne(day, info));
    for (const bool avx2 : {false, true}) {
        allowAvx2(avx2);
        ASSERT_EQ(bitsOf(iterateSideBySide(day, info)), expected)
            << day.latitude.degrees << ' ' << day.longitudeTerm << ' ' << day.timeZone << ' '
            << info.declinationToday() << ' ' << info.declinationTomorrow();
    }
}

DayIterationInput anyDay(Random& random) {
    const double longitude = random.between(-180.0, 180.0);
    return {IterationLatitude(random.between(-90.0, 90.0)), -longitude / 15.0, random.between(0.0, 0.5),
            longitude / 15.0 + random.between(-3.0, 3.0)};
}

/// Declinations a day apart, rising and falling, and equations of time [h].
SunInfoForPray anySun(Random& random) {
    SunInfoForPray info;
    info.field[0] = random.between(-23.5, 23.5);
    info.field[2] = info.field[0] + random.between(-0.41, 0.41);
    info.field[3] = random.between(-0.28, 0.28);
    info.field[5] = info.field[3] + random.between(-0.01, 0.01);
    return info;
}

TEST(DayIterations, SideBySideGivesTheBitsOfOneByOne) {
    Random random(31);
    int found = 0;
    for (int i = 0; i < 20000; ++i) {
        const DayIterationInput day = anyDay(random);
        const SunInfoForPray info = anySun(random);
        expectSame(day, info);
        for (const IterationResult& result : iterateSideBySide(day, info)) {
            found += result.answer ? 1 : 0;
        }
    }
    EXPECT_GT(found, 100000) << "most events occur";
    EXPECT_LT(found, 180000) << "and some do not";
}

TEST(DayIterations, StandingAndJumpingSunsGiveTheSameBits) {
    Random random(32);
    for (int i = 0; i < 3000; ++i) {
        const DayIterationInput day = anyDay(random);
        SunInfoForPray info = anySun(random);
        info.field[2] = info.field[0]; // the declination stands still: every round after the first repeats
        expectSame(day, info);
        info.field[5] = info.field[3];
        expectSame(day, info);
        info.field[2] = -info.field[0]; // never in nature; some events take all ten rounds
        expectSame(day, info);
    }
}

TEST(DayIterations, OddNumbersGiveTheSameBits) {
    const double infinity = std::numeric_limits<double>::infinity();
    const double odd[] = {0.0, -0.0, 90.0, 999.0, 1001.0, -1e6, 1e300, infinity, -infinity, std::nan("")};
    Random random(33);
    for (const double x : odd) {
        for (int where = 0; where < 7; ++where) {
            DayIterationInput day = anyDay(random);
            SunInfoForPray info = anySun(random);
            switch (where) {
            case 0:
                day.latitude = IterationLatitude(x);
                break;
            case 1:
                day.longitudeTerm = x;
                break;
            case 2:
                day.timeZone = x;
                break;
            case 3:
                info.field[0] = x;
                break;
            case 4:
                info.field[2] = x;
                break;
            case 5:
                info.field[3] = x;
                break;
            default:
                info.field[5] = x;
                break;
            }
            expectSame(day, info);
        }
    }
}

TEST(DayIterations, EveryEventHasItsOwnPosition) {
    std::set<int> positions;
    for (const PrayerEventRule& rule : kPrayerEvents) {
        positions.insert(rule.index);
    }
    EXPECT_EQ(positions.size(), kPrayerEvents.size());
    EXPECT_EQ(ruleOf(PrayerEvent::dawn).index, PrayerTimes::dawn);
    EXPECT_EQ(ruleOf(PrayerEvent::secondAfternoon).index, PrayerTimes::secondAfternoon);
    EXPECT_EQ(ruleOf(PrayerEvent::afternoon5).index, PrayerTimes::afternoonFiveDegrees);
}

TEST(InterpolateDay, SubtractsTheChangeWhereTheValueFalls) {
    EXPECT_EQ(interpolateDay(10.0, 12.0, 12.0), 11.0);
    EXPECT_EQ(interpolateDay(12.0, 10.0, 12.0), 11.0);
    EXPECT_EQ(interpolateDay(12.0, 10.0, -12.0), 11.0) << "before midnight too: the absolute change";
    EXPECT_EQ(interpolateDay(5.0, 5.0, 7.0), 5.0);
    Random random(34);
    for (int i = 0; i < 10000; ++i) {
        const double today = random.between(-25.0, 25.0);
        const double tomorrow = today + random.between(-1.0, 1.0);
        const double hour = random.between(-30.0, 60.0);
        const double change = std::fabs((today - tomorrow) * hour / 24.0);
        ASSERT_EQ(interpolateDay(today, tomorrow, hour), tomorrow < today ? today - change : today + change);
    }
}

} // namespace
} // namespace zorel
