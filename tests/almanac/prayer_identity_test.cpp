// SPDX-License-Identifier: Apache-2.0
#include "almanac/Corrections.h"
#include "almanac/Prayer.h"

#include "engine/Records.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

namespace zorel::almanac {
namespace {

TEST(PrayerIdentity, StandsAtThePlaceOfItsPrayer) {
    for (std::size_t i = 0; i < kPrayers; ++i) {
        EXPECT_EQ(identityOf(static_cast<Prayer>(i)).prayer, static_cast<Prayer>(i));
    }
}

TEST(PrayerIdentity, NamesEveryPositionButTheUnusedOne) {
    std::set<Prayer> named;
    for (int position = 0; position < 16; ++position) {
        const std::optional<Prayer> prayer = prayerAt(position);
        EXPECT_EQ(prayer.has_value(), position != PrayerTimes::unused) << position;
        if (prayer) {
            named.insert(*prayer);
            EXPECT_EQ(identityOf(*prayer).position, position);
        }
    }
    EXPECT_EQ(named.size(), kPrayers);
    EXPECT_FALSE(prayerAt(-1));
    EXPECT_FALSE(prayerAt(16));
    EXPECT_EQ(prayerAt(PrayerTimes::secondNightfall), Prayer::ishaSecond);
}

TEST(PrayerIdentity, KnowsTheIdsOfThePane) {
    EXPECT_EQ(prayerOfId(200), Prayer::fajr);
    EXPECT_EQ(prayerOfId(205), Prayer::isha);
    EXPECT_EQ(prayerOfId(206), Prayer::morningFiveDegrees);
    EXPECT_EQ(prayerOfId(207), Prayer::asrSecond);
    EXPECT_EQ(prayerOfId(208), Prayer::afternoonFiveDegrees);
    EXPECT_FALSE(prayerOfId(0));
    EXPECT_FALSE(prayerOfId(199));
    EXPECT_FALSE(prayerOfId(209));
}

TEST(PrayerIdentity, HasAnAlarmRowForTheSixOnly) {
    for (std::size_t i = 0; i < kPrayers; ++i) {
        const PrayerIdentity& identity = identityOf(static_cast<Prayer>(i));
        EXPECT_EQ(identity.row, i < kSixPrayers.size() ? static_cast<std::int32_t>(i) : -1);
    }
}

TEST(PrayerIdentity, FindsEveryKey) {
    for (std::size_t i = 0; i < kPrayers; ++i) {
        const auto prayer = static_cast<Prayer>(i);
        EXPECT_EQ(prayerOfKey(keyOf(prayer)), prayer);
    }
    EXPECT_EQ(keyOf(Prayer::asrSecond), "asr_second");
    EXPECT_FALSE(prayerOfKey(""));
    EXPECT_FALSE(prayerOfKey("Fajr"));
}

TEST(PrayerIdentity, RoundsTheEndsOfSpansDown) {
    std::set<Prayer> earlier;
    for (std::size_t i = 0; i < kPrayers; ++i) {
        if (identityOf(static_cast<Prayer>(i)).rounding == Rounding::earlier) {
            earlier.insert(static_cast<Prayer>(i));
        }
    }
    EXPECT_EQ(earlier,
              (std::set<Prayer>{Prayer::fajr, Prayer::sunrise, Prayer::afternoonFiveDegrees,
                                Prayer::beforeNoon, Prayer::middleOfNight, Prayer::firstThirdOfNight}));
}

TEST(Corrections, AreASet) {
    Corrections set;
    EXPECT_TRUE(set.none());
    set |= Correction::ownSun;
    set |= Correction::trueQibla;
    EXPECT_TRUE(set.has(Correction::ownSun));
    EXPECT_TRUE(set.has(Correction::trueQibla));
    EXPECT_FALSE(set.has(Correction::beforeMidnight));
    EXPECT_EQ(Corrections(Correction::ownSun) == set, false);
}

TEST(Corrections, HaveDistinctKeys) {
    std::set<std::string> keys;
    for (std::size_t i = 0; i < kCorrections; ++i) {
        keys.insert(std::string(keyOf(static_cast<Correction>(i))));
    }
    EXPECT_EQ(keys.size(), kCorrections);
    EXPECT_EQ(keyOf(Correction::beforeMidnight), "before_midnight");
    EXPECT_EQ(keyOf(Correction::trueQibla), "true_qibla");
}

} // namespace
} // namespace zorel::almanac
