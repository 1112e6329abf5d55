// SPDX-License-Identifier: Apache-2.0
// What the engine remembers of the Sun never changes a bit of a result.
#include "engine/FastAstro.h"
#include "tests/engine/Places.h"

#include <array>
#include <bit>
#include <cstdint>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace zorel {
namespace {

using testing::anyPlaceDay;
using testing::PlaceDay;
using testing::Random;
using testing::setUp;

/// Every number that a day's computation leaves, as bits.
std::vector<std::uint64_t> everything(const FastAstro& engine, const PrayerTimes& times) {
    std::vector<double> values(times.times.begin(), times.times.end());
    values.insert(values.end(), times.ezani.begin(), times.ezani.end());
    values.insert(values.end(), engine.SunInfo.field.begin(), engine.SunInfo.field.end());
    const std::array<double, 15> fields{engine.Lat,
                                        engine.SunDec,
                                        engine.SunRA,
                                        engine.SunDistance,
                                        engine.UTRise,
                                        engine.UTSet,
                                        engine.YE,
                                        engine.Zero1,
                                        engine.Zero2,
                                        engine.DX,
                                        times.priorLatitude,
                                        engine.EclipticLongitude,
                                        engine.Rise ? 1.0 : 0.0,
                                        engine.Sett ? 1.0 : 0.0,
                                        times.latitudeLowered ? 1.0 : 0.0};
    values.insert(values.end(), fields.begin(), fields.end());
    std::vector<std::uint64_t> bits;
    bits.reserve(values.size());
    for (double value : values) {
        bits.push_back(std::bit_cast<std::uint64_t>(value));
    }
    return bits;
}

std::vector<std::uint64_t> dayOf(FastAstro& engine, const PlaceDay& p) {
    setUp(engine, p);
    return everything(engine, engine.CalculatePrayTimes().today);
}

std::string text(const PlaceDay& p) {
    return std::to_string(p.latitude) + " " + std::to_string(p.longitude) + " zone " +
           std::to_string(p.timeZone) + " " + std::to_string(p.year) + "-" + std::to_string(p.month) + "-" +
           std::to_string(p.day);
}

class SunMemory : public ::testing::Test {
protected:
    SunMemory() { plain_.RememberSun(false); }
    void expectSame(const PlaceDay& p) {
        ASSERT_EQ(dayOf(remembering_, p), dayOf(plain_, p)) << text(p);
        ++compared_;
    }
    FastAstro remembering_;
    FastAstro plain_;
    int compared_ = 0;
};

TEST_F(SunMemory, RandomPlacesAndDaysGiveTheSameBits) {
    Random random(1);
    for (int i = 0; i < 5000; ++i) {
        expectSame(anyPlaceDay(random, 62.0));
    }
    EXPECT_EQ(compared_, 5000);
}

TEST_F(SunMemory, HighLatitudesGiveTheSameBits) {
    Random random(2);
    for (int i = 0; i < 250; ++i) {
        PlaceDay p = anyPlaceDay(random);
        p.latitude = random.between(45.0, 90.0);
        expectSame(p);
    }
}

TEST_F(SunMemory, ConsecutiveDaysGiveTheSameBits) {
    for (const double latitude : {-33.4, 0.0, 21.42, 41.0, 48.2, 52.5, 66.6}) {
        PlaceDay p{
            .latitude = latitude, .longitude = 28.97, .timeZone = 2.0, .year = 2023, .europeanRule = true};
        for (p.month = 1; p.month <= 12; ++p.month) {
            for (p.day = 1; p.day <= 28; ++p.day) {
                expectSame(p);
            }
        }
    }
    EXPECT_EQ(compared_, 7 * 12 * 28);
}

TEST_F(SunMemory, ManyPlacesOnOneDayGiveTheSameBits) {
    Random random(3);
    for (int i = 0; i < 2000; ++i) {
        PlaceDay p = anyPlaceDay(random, 65.0);
        p.year = 2025;
        p.month = 6;
        p.day = 21;
        expectSame(p);
    }
}

TEST_F(SunMemory, DistantYearsAndTheCalendarChangeGiveTheSameBits) {
    Random random(4);
    for (int i = 0; i < 300; ++i) {
        PlaceDay p = anyPlaceDay(random, 60.0);
        p.year = random.whole(-4000, 9999);
        expectSame(p);
        p.year = 1582;
        p.month = 10;
        expectSame(p);
    }
}

TEST_F(SunMemory, RiseAndSetOfADayGiveTheSameBits) {
    Random random(5);
    for (int i = 0; i < 3000; ++i) {
        const PlaceDay p = anyPlaceDay(random);
        for (FastAstro* engine : {&remembering_, &plain_}) {
            engine->SetLatLon(p.latitude, p.longitude);
            engine->iPlace.timeZone = p.timeZone;
            engine->SunRiseSet(p.day, p.month, p.year);
        }
        const PrayerTimes none;
        ASSERT_EQ(everything(remembering_, none), everything(plain_, none)) << text(p);
    }
}

TEST_F(SunMemory, ACopyOfAnEngineRemembersOnItsOwn) {
    const PlaceDay here{.latitude = 41.0, .longitude = 29.0, .timeZone = 3.0};
    const PlaceDay there{.latitude = -33.9, .longitude = 18.4, .timeZone = 2.0};
    dayOf(remembering_, here);
    FastAstro copy = remembering_;
    EXPECT_EQ(dayOf(copy, there), dayOf(plain_, there));
    EXPECT_EQ(dayOf(remembering_, here), dayOf(plain_, here));
}

} // namespace
} // namespace zorel
