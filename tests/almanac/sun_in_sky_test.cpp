// SPDX-License-Identifier: Apache-2.0
// The almanac's own judge of the sky, against events that were not computed with its formulas.
#include "almanac/SunInSky.h"
#include "tests/almanac/Reference.h"

#include <cmath>
#include <gtest/gtest.h>
#include <map>

namespace zorel::almanac {
namespace {

using namespace std::chrono_literals;
using tests::hoursAfter;
using tests::instantOfText;
using tests::number;
using tests::tableRows;

constexpr auto kMorning = HalfDay::morning;
constexpr auto kEvening = HalfDay::evening;

SunCrossing eventOf(const SunInSky& sky, const std::string& name) {
    if (name == "transit") {
        return {sky.transit(), true};
    }
    if (name.starts_with("shadow_")) {
        return sky.shadow(name.back() - '0');
    }
    if (name.starts_with("limb_")) {
        return sky.limb(name == "limb_rise" ? kMorning : kEvening);
    }
    static const std::map<std::string, std::pair<double, HalfDay>> events{
        {"dawn_-19", {-19.0, kMorning}},   {"rise_0", {0.0, kMorning}}, {"morning_+5", {5.0, kMorning}},
        {"afternoon_+5", {5.0, kEvening}}, {"set_0", {0.0, kEvening}},  {"dusk_-17", {-17.0, kEvening}},
        {"dusk_-19", {-19.0, kEvening}}};
    const auto& [altitude, half] = events.at(name);
    return sky.centre(altitude, half);
}

TEST(SunInSky, FindsTheEventsOfTheReference) {
    FastAstro engine;
    const auto rows = tableRows("reference/sun_events.tsv");
    ASSERT_EQ(rows.size(), 17520U);
    std::map<std::string, double> largest;
    for (const auto& row : rows) {
        const Date date = tests::dateOfText(row[3]);
        const SunInSky sky(engine, number(row[1]), number(row[2]), date);
        const SunCrossing found = eventOf(sky, row[4]);
        ASSERT_EQ(found.occurs, row[5] != "none") << row[0] << ' ' << row[3] << ' ' << row[4];
        if (!found.occurs) {
            continue;
        }
        const double seconds = std::fabs(found.hour - hoursAfter(date, instantOfText(row[5]))) * 3600.0;
        largest[row[4]] = std::max(largest[row[4]], seconds);
        EXPECT_LE(seconds, 1.5) << row[0] << ' ' << row[3] << ' ' << row[4];
    }
    for (const auto& [name, seconds] : largest) {
        RecordProperty(name, std::to_string(seconds));
        std::printf("%-14s largest difference %.2f s\n", name.c_str(), seconds);
    }
}

TEST(SunInSky, FindsTheEventsOfSeventyPlacesUpTo66Degrees) {
    FastAstro engine;
    const std::vector<std::string> events{"transit",    "dawn_-19",     "limb_rise", "rise_0",
                                          "morning_+5", "afternoon_+5", "set_0",     "limb_set",
                                          "dusk_-17",   "dusk_-19",     "shadow_1",  "shadow_2"};
    const auto rows = tableRows("reference/sun_days.tsv");
    ASSERT_EQ(rows.size(), 17324U);
    std::map<std::string, double> largest;
    std::map<std::string, double> largestAltitude;
    for (const auto& row : rows) {
        const SunInSky sky(engine, number(row[1]), number(row[2]), tests::dateOfText(row[4]));
        for (std::size_t i = 0; i < events.size(); ++i) {
            const SunCrossing found = eventOf(sky, events[i]);
            const std::string& theirs = row[5 + i];
            ASSERT_EQ(found.occurs, theirs != "none") << row[0] << ' ' << row[4] << ' ' << events[i];
            if (found.occurs) {
                const double hour = number(theirs) / 3600.0;
                const double seconds = std::fabs(found.hour - hour) * 3600.0;
                const double altitude = std::fabs(sky.altitude(found.hour) - sky.altitude(hour));
                largest[events[i]] = std::max(largest[events[i]], seconds);
                largestAltitude[events[i]] = std::max(largestAltitude[events[i]], altitude);
                // Of limb and shadow we take the geocentric altitude, the reference the topocentric one.
                const bool isGeocentric = events[i].starts_with("limb_") || events[i].starts_with("shadow_");
                EXPECT_LE(altitude, isGeocentric ? 0.004 : 0.0015)
                    << row[0] << ' ' << row[4] << ' ' << events[i];
                EXPECT_LE(seconds, 15.0) << row[0] << ' ' << row[4] << ' ' << events[i];
            }
        }
    }
    for (const auto& [name, seconds] : largest) {
        std::printf("up to 66 degrees, %-14s largest difference %.2f s, %.4f degrees\n", name.c_str(),
                    seconds, largestAltitude[name]);
    }
}

TEST(SunInSky, RisesAndSetsWithTheTablesOfTheNavalObservatory) {
    FastAstro engine;
    int compared = 0;
    for (const auto& row : tableRows("reference/usno_riseset.tsv")) {
        const double longitude = number(row[1]);
        const double latitude = number(row[2]);
        if (row[0] != "Sun" || std::fabs(latitude) > 61.0) {
            continue;
        }
        const ExactInstant printed = instantOfText(row[3]);
        const HalfDay half = row[4] == "rise" ? kMorning : kEvening;
        // The solar day is the one whose date the local mean time of the event falls on.
        const auto localMean = printed + std::chrono::milliseconds(std::llround(longitude * 240'000.0));
        const Date date{std::chrono::floor<std::chrono::days>(localMean)};
        double best = 1e9;
        for (const int step : {-1, 0, 1}) {
            const Date day = addDays(date, step);
            const SunCrossing found = SunInSky(engine, latitude, longitude, day).limb(half);
            if (found.occurs) {
                best = std::min(best, std::fabs(found.hour - hoursAfter(day, printed)) * 3600.0);
            }
        }
        EXPECT_LE(best, 35.0) << row[3] << ' ' << row[4] << " at " << row[2] << ", " << row[1];
        ++compared;
    }
    EXPECT_EQ(compared, 2920);
}

TEST(SunInSky, SaysWhenAnEventDoesNotOccur) {
    FastAstro engine;
    const SunInSky summer(engine, 70.0, 25.0, 2027y / 6 / 21);
    EXPECT_FALSE(summer.limb(kEvening).occurs);
    EXPECT_FALSE(summer.risesAndSets());
    EXPECT_TRUE(summer.centre(5.0, kEvening).occurs);
    EXPECT_NEAR(summer.altitude(summer.limb(kEvening).hour), 90.0 - 70.0 - 16.56, 20.0);
    const SunInSky winter(engine, 70.0, 25.0, 2027y / 12 / 21);
    EXPECT_FALSE(winter.limb(kMorning).occurs);
    EXPECT_FALSE(winter.shadow(1).occurs);
    EXPECT_TRUE(winter.centre(-17.0, kEvening).occurs);
}

TEST(SunInSky, TellsWhereTheSunComesNearestToAnAltitudeThatItMisses) {
    FastAstro engine;
    const SunInSky sky(engine, 60.0, 0.0, 2027y / 6 / 21);
    const SunCrossing dawn = sky.centre(-19.0, kMorning);
    ASSERT_FALSE(dawn.occurs);
    EXPECT_NEAR(dawn.hour, sky.transit() - 12.0, 0.05);
    EXPECT_NEAR(sky.altitude(dawn.hour), 60.0 + 23.44 - 90.0, 0.02);
    const SunCrossing high = sky.centre(60.0, kEvening);
    ASSERT_FALSE(high.occurs);
    EXPECT_NEAR(high.hour, sky.transit(), 0.02);
}

TEST(SunInSky, FollowsTheDateOfTheMeridian) {
    FastAstro engine;
    const SunInSky samoa(engine, -13.83, -171.77, 2027y / 1 / 10);
    EXPECT_NEAR(samoa.transit(), 12.0 + 171.77 / 15.0, 0.3);
    const SunInSky fiji(engine, -18.14, 178.44, 2027y / 1 / 10);
    EXPECT_NEAR(fiji.transit(), 12.0 - 178.44 / 15.0, 0.3);
}

} // namespace
} // namespace zorel::almanac
