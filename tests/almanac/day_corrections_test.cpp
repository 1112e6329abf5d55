// SPDX-License-Identifier: Apache-2.0
// Days on which the engine's times are not what a person must be told.
#include "tests/almanac/Days.h"

#include <gtest/gtest.h>

namespace zorel::almanac {
namespace {

using namespace std::chrono_literals;
using tests::clockSeconds;
using tests::placeAt;
using tests::placeIn;
using tests::shownText;
using tests::wallSeconds;

constexpr double kThreeMinutes = 180.0;

/// What is left of a time without temkin and addition [s after 0:00 of the date].
double bareSeconds(const DayTime& time, Date date) {
    return wallSeconds(time, date) - (time.why.temkin + time.why.addition) * 3600.0;
}

TEST(BeforeMidnight, IsToldOnTheEveAtKazan) {
    const Date date = 2027y / 5 / 1;
    const Day day = Almanac(placeAt(55.78874, 49.12214, 3.0)).day(date);
    const DayTime& fajr = day[Prayer::fajr];
    ASSERT_TRUE(fajr.exists());
    EXPECT_TRUE(fajr.why.corrections.has(Correction::beforeMidnight));
    EXPECT_NEAR(bareSeconds(fajr, date), clockSeconds(0, 11, 56), 2.0);
    EXPECT_NEAR(fajr.why.engineHours * 3600.0, clockSeconds(0, 54, 48), 1.0);
    EXPECT_EQ(fajr.local.date, 2027y / 4 / 30);
    EXPECT_LT(fajr.hours, 0.0);
    EXPECT_EQ(day.record.times[PrayerTimes::dawn], fajr.hours);
    EXPECT_EQ(day[Prayer::sunrise].why.corrections, Corrections());
}

TEST(BeforeMidnight, IsToldOnTheEveAtKirov) {
    const Day day = Almanac(placeAt(58.59809, 49.65783, 3.0)).day(2026y / 6 / 10);
    const DayTime& fajr = day[Prayer::fajr];
    EXPECT_TRUE(fajr.why.corrections.has(Correction::beforeMidnight));
    EXPECT_EQ(fajr.local.date, 2026y / 6 / 9);
    EXPECT_GT(fajr.local.timeOfDay, 23h);
    EXPECT_GT(fajr.why.daysBack, 0); // there is no dawn that day
    EXPECT_FALSE(day[Prayer::isha].why.corrections.has(Correction::beforeMidnight));
}

TEST(BeforeMidnight, MovesThePartsOfTheNightWithTheDawn) {
    const Day day = Almanac(placeAt(55.78874, 49.12214, 3.0)).day(2027y / 5 / 1);
    const double dawn = day[Prayer::fajr].hours;
    const double sunset = day[Prayer::maghrib].hours;
    const double night = 24.0 - (sunset - dawn);
    EXPECT_EQ(day[Prayer::lastSixthOfNight].hours, dawn - night / 6.0);
    EXPECT_EQ(day[Prayer::middleOfNight].hours, sunset + night / 2.0);
    EXPECT_EQ(day[Prayer::firstThirdOfNight].hours, sunset + night / 3.0);
    EXPECT_TRUE(day[Prayer::middleOfNight].why.corrections.has(Correction::beforeMidnight));
}

TEST(BeforeMidnight, LeavesATimeAfterMidnightAlone) {
    const Day day = Almanac(placeAt(55.78874, 49.12214, 3.0)).day(2027y / 4 / 27);
    const DayTime& fajr = day[Prayer::fajr];
    EXPECT_LT(fajr.hours, 1.0);
    EXPECT_GT(fajr.hours, 0.0);
    EXPECT_TRUE(fajr.why.corrections.none());
    EXPECT_EQ(fajr.hours, fajr.why.engineHours);
}

struct Seam {
    const char* name;
    double latitude;
    double longitude;
    double offset;
    Date date;
    double realSet; // [s after 0:00 of the date]
};

class SeamOfDays : public testing::TestWithParam<Seam> {};

TEST_P(SeamOfDays, TellsTheSunsetThatHappens) {
    const Seam& seam = GetParam();
    const Day day = Almanac(placeAt(seam.latitude, seam.longitude, seam.offset)).day(seam.date);
    EXPECT_FALSE(day.loweredLatitude());
    const DayTime& maghrib = day[Prayer::maghrib];
    ASSERT_TRUE(maghrib.exists());
    EXPECT_FALSE(maghrib.why.latitudeLowered);
    EXPECT_EQ(maghrib.why.latitude, seam.latitude);
    EXPECT_GE(wallSeconds(maghrib, seam.date), seam.realSet + kThreeMinutes - 30.0);
    EXPECT_LE(wallSeconds(maghrib, seam.date), seam.realSet + 1800.0);
}

INSTANTIATE_TEST_SUITE_P(
    Places, SeamOfDays,
    testing::Values(Seam{"Stockholm", 59.32938, 18.06871, 2.0, 2027y / 6 / 11, clockSeconds(22, 1, 54)},
                    Seam{"Oulu", 65.01236, 25.46816, 3.0, 2027y / 6 / 10, clockSeconds(24, 4, 44)},
                    Seam{"Reykjavik", 64.13548, -21.89541, 0.0, 2027y / 6 / 17, clockSeconds(24, 1, 17)},
                    Seam{"Noyabrsk", 63.19309, 75.43728, 5.0, 2027y / 6 / 10, clockSeconds(22, 2, 33)},
                    Seam{"Arkhangelsk", 64.5461, 40.55183, 3.0, 2027y / 5 / 25, clockSeconds(22, 4, 41)}),
    [](const auto& each) { return std::string(each.param.name); });

TEST(SeamOfDays, KeepsStockholmBetweenItsNeighbours) {
    const Almanac stockholm(placeAt(59.32938, 18.06871, 2.0));
    const Day before = stockholm.day(2027y / 6 / 10);
    const Day day = stockholm.day(2027y / 6 / 11);
    const Day after = stockholm.day(2027y / 6 / 12);
    EXPECT_LE(before[Prayer::maghrib].hours, day[Prayer::maghrib].hours);
    EXPECT_LE(day[Prayer::maghrib].hours, after[Prayer::maghrib].hours);
    EXPECT_NEAR(day[Prayer::sunrise].hours, before[Prayer::sunrise].hours, 0.02);
    EXPECT_LT(day[Prayer::sunrise].hours * 3600.0, clockSeconds(3, 33, 27));
}

TEST(SeamOfDays, StaysSmoothThroughTheSummerOfOulu) {
    const Almanac oulu(placeAt(65.01236, 25.46816, 3.0));
    Memory memory;
    double previous = oulu.day(2027y / 5 / 20, memory)[Prayer::maghrib].hours;
    for (int step = 1; step <= 60; ++step) {
        const Day day = oulu.day(addDays(2027y / 5 / 20, step), memory);
        ASSERT_TRUE(day[Prayer::maghrib].exists()) << step;
        EXPECT_NEAR(day[Prayer::maghrib].hours, previous, 0.15) << isoDate(day.date);
        previous = day[Prayer::maghrib].hours;
    }
}

TEST(SeamOfDays, TakesALowerLatitudeOnTheFirstDayWithoutASunset) {
    // Rovaniemi: each day is either told at the place, with a Sun that sets, or at a lower latitude.
    const Almanac rovaniemi(placeAt(66.49983, 25.71667, 3.0));
    Memory memory;
    int lowered = 0;
    int told = 0;
    for (int step = 0; step < 60; ++step) {
        const Day day = rovaniemi.day(addDays(2027y / 5 / 25, step), memory);
        const bool isLowered = day.loweredLatitude().has_value();
        (isLowered ? lowered : told) += 1;
        EXPECT_EQ(day[Prayer::maghrib].why.latitudeLowered, isLowered);
        EXPECT_EQ(day[Prayer::maghrib].why.latitude, isLowered ? *day.loweredLatitude() : 66.49983);
    }
    EXPECT_GT(lowered, 20);
    EXPECT_GT(told, 10);
}

TEST(OwnSun, GivesMoscowItsFiveDegreeTimes) {
    const Date date = 2027y / 6 / 21;
    const Day day = Almanac(placeAt(55.75204, 37.61781, 3.0)).day(date);
    const DayTime& morning = day[Prayer::morningFiveDegrees];
    const DayTime& afternoon = day[Prayer::afternoonFiveDegrees];
    EXPECT_TRUE(morning.why.corrections.has(Correction::ownSun));
    EXPECT_TRUE(afternoon.why.corrections.has(Correction::ownSun));
    EXPECT_EQ(morning.why.daysBack, 0);
    EXPECT_EQ(morning.why.date, date);
    EXPECT_NEAR(bareSeconds(morning, date), clockSeconds(4, 40), 60.0);
    EXPECT_NEAR(bareSeconds(afternoon, date), clockSeconds(20, 23), 60.0);
    EXPECT_NEAR(morning.why.engineHours, 5.0 + 50.0 / 60.0, 0.02);
}

TEST(OwnSun, LeavesAWinterDayAlone) {
    const Day day = Almanac(placeAt(55.75204, 37.61781, 3.0)).day(2027y / 12 / 21);
    EXPECT_TRUE(day[Prayer::morningFiveDegrees].why.corrections.none());
    EXPECT_TRUE(day[Prayer::afternoonFiveDegrees].why.corrections.none());
}

TEST(OutOfOrder, DropsTheSecondNightfallOfLondonInJune) {
    const Day day = Almanac(placeAt(51.50853, -0.12574, 1.0)).day(2027y / 6 / 21);
    const DayTime& second = day[Prayer::ishaSecond];
    EXPECT_FALSE(second.exists());
    EXPECT_EQ(second.absence, Absence::outOfOrder);
    EXPECT_TRUE(second.why.corrections.has(Correction::outOfOrder));
    EXPECT_EQ(second.hours, kNoSolarEvent);
    EXPECT_NEAR(second.why.engineHours * 3600.0, clockSeconds(24, 42), 60.0);
    EXPECT_TRUE(day[Prayer::isha].exists());
}

TEST(ClockChange, TellsTheTimesBeforeItByTheOldClock) {
    const Date date = 2027y / 3 / 28;
    const Day day = Almanac(placeIn(60.16952, 24.93545, "Europe/Helsinki")).day(date);
    const DayTime& fajr = day[Prayer::fajr];
    EXPECT_EQ(day.offset, 3h);
    EXPECT_EQ(fajr.offset, 2h);
    EXPECT_TRUE(fajr.why.corrections.has(Correction::clockChange));
    EXPECT_EQ(shownText(fajr), "2027-03-28 02:53");
    EXPECT_EQ(fajr.hours, fajr.why.engineHours);
    EXPECT_NEAR(day.record.times[PrayerTimes::dawn], fajr.hours - 1.0, 1e-12);
    EXPECT_FALSE(day[Prayer::sunrise].why.corrections.has(Correction::clockChange));
    EXPECT_EQ(day.record.times[PrayerTimes::sunrise], day[Prayer::sunrise].hours);
}

TEST(ClockChange, TellsTheTimesBeforeTheFallBackByTheClockOfSummer) {
    const Date date = 2027y / 10 / 31;
    const Day day = Almanac(placeIn(60.16952, 24.93545, "Europe/Helsinki")).day(date);
    const DayTime& lastSixth = day[Prayer::lastSixthOfNight];
    EXPECT_EQ(day.offset, 2h);
    EXPECT_EQ(lastSixth.offset, 3h);
    EXPECT_TRUE(lastSixth.why.corrections.has(Correction::clockChange));
    EXPECT_EQ(shownText(lastSixth), "2027-10-31 03:48");
    EXPECT_EQ(lastSixth.hours, lastSixth.why.engineHours);
    EXPECT_EQ(shownText(day[Prayer::fajr]), "2027-10-31 04:48");
    EXPECT_TRUE(day[Prayer::fajr].why.corrections.none());
}

TEST(ClockChange, LeavesDaysAloneWhoseTimesAllFollowIt) {
    for (const Date date : {Date(2027y / 3 / 14), Date(2027y / 11 / 7)}) {
        const Day day = Almanac(placeIn(40.71427, -74.00597, "America/New_York")).day(date);
        EXPECT_FALSE(day.corrections().has(Correction::clockChange)) << isoDate(date);
        EXPECT_EQ(day.offset, date.month() == std::chrono::March ? -4h : -5h);
    }
}

TEST(ClockChange, LeavesTheSunsetBasedClockAlone) {
    const Date date = 2027y / 3 / 28;
    const Day changed = Almanac(placeIn(60.16952, 24.93545, "Europe/Helsinki")).day(date);
    const Day steady = Almanac(placeAt(60.16952, 24.93545, 3.0)).day(date);
    EXPECT_EQ(ezaniHours(changed), ezaniHours(steady));
}

TEST(DateLine, TellsApiaTheTimesOfItsOwnDate) {
    const Date date = 2027y / 6 / 1;
    const Day day = Almanac(placeAt(-13.83333, -171.76666, 13.0)).day(date);
    EXPECT_EQ(day[Prayer::dhuhr].local.date, date);
    EXPECT_NEAR(day[Prayer::dhuhr].hours, 12.5, 0.3);
    EXPECT_TRUE(day[Prayer::dhuhr].why.corrections.has(Correction::dateLine));
    EXPECT_EQ(day[Prayer::dhuhr].hours, day[Prayer::dhuhr].why.engineHours);
}

TEST(NightWithoutEnds, HasNoParts) {
    // Beyond 61 degrees there is no dawn or dusk of 19 degrees for months; at the south pole never a sunset.
    const Day day = Almanac(placeAt(-89.0, 0.0, 0.0)).day(2027y / 6 / 21);
    for (const Prayer part : {Prayer::lastSixthOfNight, Prayer::middleOfNight, Prayer::firstThirdOfNight}) {
        EXPECT_EQ(day[part].absence, Absence::nightWithoutEnds);
        EXPECT_TRUE(day[part].why.corrections.has(Correction::nightWithoutEnds));
        EXPECT_NE(day[part].why.engineHours, kNoSolarEvent);
    }
}

TEST(SunStillUp, LetsMaghribWaitForTheLimb) {
    // At 65.7 degrees in June the Sun sinks from the horizon to its setting for longer than the temkin.
    const Day day = Almanac(placeAt(65.7, 25.0, 3.0)).day(2027y / 6 / 12);
    ASSERT_FALSE(day.loweredLatitude());
    const DayTime& maghrib = day[Prayer::maghrib];
    EXPECT_TRUE(maghrib.why.corrections.has(Correction::sunStillUp));
    EXPECT_GT(maghrib.hours, maghrib.why.engineHours);
}

TEST(SunStillUp, KeepsTheShortestDaysInOrder) {
    // In the last days before the polar night only the Sun's upper limb comes up: the rule's sunset, of the
    // centre, does not occur, and the limb's lies nearer to the transit than the precaution of noon reaches.
    const Almanac almanac(placeAt(67.5, 25.0, 2.0));
    int onlyLimb = 0;
    for (Date date = 2026y / 11 / 15; date <= Date(2027y / 1 / 31); date = addDays(date, 1)) {
        const Day day = almanac.day(date);
        const DayTime& sunrise = day[Prayer::sunrise];
        const DayTime& dhuhr = day[Prayer::dhuhr];
        const DayTime& maghrib = day[Prayer::maghrib];
        ASSERT_TRUE(sunrise.exists() && dhuhr.exists() && maghrib.exists()) << isoDate(date);
        EXPECT_LT(sunrise.hours, dhuhr.hours) << isoDate(date);
        EXPECT_LT(dhuhr.hours, maghrib.hours) << isoDate(date);
        if (!day.loweredLatitude() && !day[Prayer::asr].exists()) {
            ++onlyLimb;
            EXPECT_TRUE(sunrise.why.corrections.has(Correction::sunStillUp)) << isoDate(date);
            EXPECT_TRUE(maghrib.why.corrections.has(Correction::sunStillUp)) << isoDate(date);
            EXPECT_GE(maghrib.hours, dhuhr.hours + maghrib.why.addition - 1e-9);
        }
    }
    EXPECT_GE(onlyLimb, 4);
}

TEST(OutOfOrder, LeavesNoCorrectionWhereTheEngineHasNoTimeEither) {
    const Day day = Almanac(placeAt(-88.0, -180.0, -12.0)).day(2026y / 9 / 15);
    const DayTime& second = day[Prayer::ishaSecond];
    EXPECT_EQ(second.hours, kNoSolarEvent);
    EXPECT_EQ(second.why.engineHours, kNoSolarEvent);
    EXPECT_TRUE(second.why.corrections.none());
}

TEST(TrueQibla, NeedsTheSunAboveTheHorizon) {
    const Day day = Almanac(placeAt(41.0082, 28.9784, 3.0)).day(2027y / 6 / 1);
    const DayTime& qibla = day[Prayer::sunAtQibla];
    ASSERT_TRUE(qibla.exists());
    EXPECT_TRUE(qibla.why.corrections.has(Correction::trueQibla));
    EXPECT_GT(qibla.why.targetAltitude, 0.0);
    EXPECT_NE(qibla.hours, qibla.why.engineHours);
    EXPECT_EQ(day.record.times[PrayerTimes::qiblaTime], qibla.why.engineHours);
}

TEST(TrueQibla, HasNoBearingAtTheKaaba) {
    const Day day = Almanac(placeAt(kKaabaLatitude, kKaabaLongitude, 3.0)).day(2027y / 6 / 1);
    EXPECT_EQ(day[Prayer::sunAtQibla].absence, Absence::noBearing);
}

} // namespace
} // namespace zorel::almanac
