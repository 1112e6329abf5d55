// SPDX-License-Identifier: Apache-2.0
// Sun and Moon by the clock of a place: against the tables of the U.S. Naval Observatory, in zones far from
// Greenwich, on days on which the clock changes.
#include "almanac/Almanac.h"

#include "engine/FastAstro.h"
#include "tests/engine/Steps.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <limits>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace zorel::almanac {
namespace {

using namespace std::chrono_literals;
using std::chrono::seconds;
using std::chrono::sys_days;

Place placeAt(double latitude, double longitude, PlaceClock clock) {
    return {.name = "", .latitude = latitude, .longitude = longitude, .clock = std::move(clock)};
}

Place placeIn(double latitude, double longitude, const char* zone) {
    return placeAt(latitude, longitude, PlaceClock::ofZone(zone).value());
}

// The tables

struct TableRow {
    bool moon, rise;
    double latitude, longitude;
    Instant instant;
};

int number(const std::string& text, std::size_t position, std::size_t length) {
    int value = -1;
    std::from_chars(text.data() + position, text.data() + std::min(text.size(), position + length), value);
    return value;
}

/// Of a text like 2019-08-20T00:00Z.
Instant instantOf(const std::string& utc) {
    const Date date{std::chrono::year(number(utc, 0, 4)),
                    std::chrono::month(static_cast<unsigned>(number(utc, 5, 2))),
                    std::chrono::day(static_cast<unsigned>(number(utc, 8, 2)))};
    return Instant(sys_days(date)) + std::chrono::hours(number(utc, 11, 2)) +
           std::chrono::minutes(number(utc, 14, 2));
}

/// Every eleventh row of the places up to 61 degrees.
std::vector<TableRow> table() {
    std::ifstream file(ZOREL_SOURCE_DIR "/resources/reference/usno_riseset.tsv");
    std::vector<TableRow> rows;
    std::string line;
    std::getline(file, line);
    for (int i = 0; std::getline(file, line); ++i) {
        std::istringstream stream(line);
        std::string body, longitude, latitude, utc, event;
        stream >> body >> longitude >> latitude >> utc >> event;
        const double north = number(latitude, 0, latitude.size());
        if (i % 11 == 0 && std::fabs(north) <= 61.0) {
            rows.push_back({body == "Moon", event == "rise", north,
                            static_cast<double>(number(longitude, 0, longitude.size())), instantOf(utc)});
        }
    }
    return rows;
}

/// The told event nearest to a row's instant, on its local date or a neighbouring one (an instant printed as
/// 0:00 may belong to either).
seconds nearest(const TableRow& row, const PlaceClock& clock) {
    const Almanac almanac(placeAt(row.latitude, row.longitude, clock));
    seconds best = 48h;
    for (const int shift : {-1, 0, 1}) {
        const Instant noon = clock.instantOf(addDays(clock.dateAt(row.instant), shift), 12h);
        const Sky sky = almanac.sky(noon);
        const BodyEvents& events = row.moon ? sky.moonEvents : sky.sunEvents;
        const auto& event = row.rise ? events.rise : events.set;
        if (event && std::chrono::abs(event->instant - row.instant) < std::chrono::abs(best)) {
            best = event->instant - row.instant;
        }
    }
    return best;
}

class TablesByClock : public ::testing::TestWithParam<int> {}; // offset [min]

TEST_P(TablesByClock, AreMetToTheMinuteOnAverageToTheSecond) {
    const PlaceClock clock = PlaceClock::fixed(std::chrono::minutes(GetParam()));
    std::map<bool, double> sum; // by body [s]
    std::map<bool, int> count;
    for (const TableRow& row : table()) {
        const seconds difference = nearest(row, clock);
        ASSERT_LE(std::chrono::abs(difference), 60s)
            << row.latitude << ' ' << row.longitude << ' ' << isoDate(clock.dateAt(row.instant));
        sum[row.moon] += static_cast<double>(difference.count());
        ++count[row.moon];
    }
    EXPECT_GT(count[false], 250);
    EXPECT_GT(count[true], 180);
    EXPECT_LT(std::fabs(sum[false] / count[false]), 6.0);
    EXPECT_LT(std::fabs(sum[true] / count[true]), 10.0);
}

// Universal time; Chatham in summer; Honolulu; Tokyo; Kiritimati; the Marquesas; a local mean time.
INSTANTIATE_TEST_SUITE_P(Offsets, TablesByClock, ::testing::Values(0, 825, -600, 540, 840, -570));

// Clocks of the world

const Place kClockPlaces[] = {
    placeIn(51.5, -0.13, "Europe/London"),
    placeIn(40.71, -74.01, "America/New_York"),
    placeIn(-33.87, 151.2, "Australia/Sydney"),
    placeIn(-31.55, 159.08, "Australia/Lord_Howe"), // half an hour of saving
    placeIn(-43.95, -176.56, "Pacific/Chatham"),
    placeIn(-13.83, -171.77, "Pacific/Apia"),
    placeIn(21.31, -157.86, "Pacific/Honolulu"),
    placeIn(35.69, 139.69, "Asia/Tokyo"),
    placeIn(27.7, 85.3, "Asia/Kathmandu"),
    placeIn(30.04, 31.24, "Africa/Cairo"),       // changes at midnight
    placeIn(-33.45, -70.67, "America/Santiago"), // at midnight, backwards into the day before
    placeIn(1.87, -157.43, "Pacific/Kiritimati"),
};

using Told = std::vector<std::pair<Instant, const char*>>;

void append(Told& told, const Place& place, Date date, const BodyEvents& events) {
    for (const auto& [event, name] :
         {std::pair{events.rise, "rise"}, {events.transit, "transit"}, {events.set, "set"}}) {
        if (event) {
            ASSERT_EQ(event->local, place.clock.localTime(event->instant)) << place.clock.zoneName();
            ASSERT_EQ(event->local.date, date) << place.clock.zoneName() << ' ' << name;
            ASSERT_EQ(event->local.timeOfDay % 60s, 0s);
            told.emplace_back(event->instant, name);
        }
    }
}

/// Everything told of a body in a year, in order.
Told yearOf(const Place& place, int year, bool moon) {
    const Almanac almanac(place);
    Told told;
    for (Date date = std::chrono::year(year) / 1 / 1; date.year() == std::chrono::year(year);
         date = addDays(date, 1)) {
        const Instant noon = place.clock.instantOf(date, 12h);
        append(told, place, date, moon ? almanac.moon(date).events : almanac.sky(noon).sunEvents);
    }
    std::sort(told.begin(), told.end());
    return told;
}

/// The part of a year's events that every clock has.
Told inner(const Told& told, int year) {
    Told part;
    std::copy_if(told.begin(), told.end(), std::back_inserter(part), [&](const auto& event) {
        return event.first > Instant(sys_days(std::chrono::year(year) / 1 / 3)) &&
               event.first < Instant(sys_days(std::chrono::year(year) / 12 / 29));
    });
    return part;
}

// On days of 23 and 25 hours too: the clock decides on which date an event is told, not whether it is.
TEST(CivilDays, EveryEventIsToldOnceWhateverTheClockDoes) {
    for (const Place& place : kClockPlaces) {
        // By the meridian's own hours, so that no date has two sunsets.
        const std::chrono::hours meridian(std::lround(place.longitude / 15.0));
        const Place steady = placeAt(place.latitude, place.longitude, PlaceClock::fixed(meridian));
        for (const bool moon : {false, true}) {
            const Told told = inner(yearOf(place, 2027, moon), 2027);
            const Told expected = inner(yearOf(steady, 2027, moon), 2027);
            ASSERT_EQ(told.size(), expected.size()) << place.clock.zoneName() << ' ' << moon;
            ASSERT_GT(told.size(), 1000U);
            for (std::size_t i = 0; i < told.size(); ++i) {
                ASSERT_STREQ(told[i].second, expected[i].second);
                // Found from another start: half a second may decide about the minute.
                ASSERT_LE(std::chrono::abs(told[i].first - expected[i].first), 60s);
            }
        }
    }
}

TEST(CivilDays, ToldMinutesAreTheNearestOnes) {
    for (const Place& place : kClockPlaces) {
        const Almanac almanac(place);
        for (Date date = 2027y / 1 / 2; date.year() == 2027y; date = addDays(date, 11)) {
            const Instant begin = place.clock.instantOf(date, 0h);
            const DayEvents sun = SunEventsOfSpan(place.latitude, place.longitude, julianDayOf(begin), 24.0);
            const BodyEvents told = almanac.sky(begin + 12h).sunEvents;
            ASSERT_TRUE(told.rise && told.set && sun.rise && sun.set) << place.clock.zoneName();
            const auto apart = [&](const SkyEvent& event, double hour) {
                return std::fabs(std::chrono::duration<double>(event.instant - begin).count() -
                                 hour * 3600.0);
            };
            ASSERT_LE(apart(*told.rise, *sun.rise), 30.2) << place.clock.zoneName() << ' ' << isoDate(date);
            ASSERT_LE(apart(*told.transit, *sun.transit), 30.2);
            ASSERT_LE(apart(*told.set, *sun.set), 30.2);
        }
    }
}

TEST(CivilDays, AnOffsetOfSecondsStillTellsWholeMinutes) {
    const Place monrovia = placeAt(6.31, -10.8, PlaceClock::fixed(-(44min + 30s)));
    const BodyEvents told = Almanac(monrovia).sky(Instant(sys_days(1971y / 3 / 1)) + 12h).sunEvents;
    ASSERT_TRUE(told.rise && told.set);
    EXPECT_EQ(told.rise->local.timeOfDay % 60s, 0s);
    EXPECT_EQ(told.rise->local.offset, -(44min + 30s));
    EXPECT_EQ(told.rise->instant.time_since_epoch() % 60s, 30s);
}

TEST(CivilDays, ADateThatWasLeftOutHasNoEvents) {
    const Almanac apia(placeIn(-13.83, -171.77, "Pacific/Apia"));
    EXPECT_TRUE(apia.moon(2011y / 12 / 29).events.rise);
    const BodyEvents none = apia.moon(2011y / 12 / 30).events;
    EXPECT_FALSE(none.rise || none.transit || none.set);
    EXPECT_TRUE(apia.moon(2011y / 12 / 31).events.rise);
}

TEST(CivilDays, AnEventBeforeTheClockChangesIsToldByTheOldOffset) {
    // 28 March 2027, London: the clock goes from 1:00 to 2:00.
    int before = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        const PlaceClock& clock = kClockPlaces[i].clock;
        for (const auto& [instant, name] : yearOf(kClockPlaces[i], 2027, true)) {
            const LocalTime local = clock.localTime(instant);
            before += local.offset != clock.offsetOn(local.date) ? 1 : 0;
        }
    }
    EXPECT_GE(before, 1); // there are such events, and EveryEventIsToldOnce holds for them
}

TEST(CivilDays, ThePolarDayHasATransitOnly) {
    const Almanac almanac(placeIn(69.65, 18.96, "Europe/Oslo"));
    const BodyEvents summer = almanac.sky(Instant(sys_days(2027y / 6 / 21)) + 10h).sunEvents;
    EXPECT_FALSE(summer.rise || summer.set);
    ASSERT_TRUE(summer.transit);
    EXPECT_NEAR(std::chrono::duration<double>(summer.transit->local.timeOfDay).count() / 3600.0, 12.77, 0.05);
}

// The sky at an instant

TEST(Sky, HasTheEnginesPositionsAndTheNextFourPhases) {
    const Place place = placeIn(51.5, -0.13, "Europe/London");
    const Instant instant = Instant(sys_days(2026y / 12 / 24)) + 18h;
    const Sky sky = Almanac(place).sky(instant);
    FastAstro engine;
    EXPECT_EQ(sky.sun.altitude, engine.SunInformation(engineInstant(instant), 51.5, -0.13).altitude);
    EXPECT_EQ(sky.moon.azimuth, engine.MoonInformation(engineInstant(instant), 51.5, -0.13).azimuth);
    EXPECT_EQ(sky.at, place.clock.localTime(instant));
    const auto next = NextPhases(julianDayOf(instant), 4);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(sky.phases[i].kind, next[i].kind);
        EXPECT_LE(std::chrono::abs(sky.phases[i].at.instant - instantOfJulianDay(next[i].julianDay)), 30s);
        EXPECT_EQ(sky.phases[i].at.local, place.clock.localTime(sky.phases[i].at.instant));
    }
    EXPECT_EQ(sky.phases[0].kind, PrincipalPhase::lastQuarter);
}

TEST(Sky, TheDateIsThatOfThePlace) {
    // 21 June 2027, 10:30 UT: the 22nd has begun in Kiritimati, in Honolulu it is the small hours of the
    // 21st.
    const Instant instant = Instant(sys_days(2027y / 6 / 21)) + 10h + 30min;
    const Sky east = Almanac(placeIn(1.87, -157.43, "Pacific/Kiritimati")).sky(instant);
    EXPECT_EQ(east.at.date, 2027y / 6 / 22);
    EXPECT_EQ(east.sunEvents.rise->local.date, 2027y / 6 / 22);
    const Sky west = Almanac(placeIn(21.31, -157.86, "Pacific/Honolulu")).sky(instant);
    EXPECT_EQ(west.sunEvents.rise->local.date, 2027y / 6 / 21);
}

TEST(Sky, NoPlaceOnEarthHasNoEvents) {
    Place nowhere = placeIn(51.5, -0.13, "Europe/London");
    for (const double latitude : {91.0, std::nan(""), std::numeric_limits<double>::infinity()}) {
        nowhere.latitude = latitude;
        const Almanac almanac(nowhere);
        const Sky sky = almanac.sky(Instant(sys_days(2027y / 6 / 21)));
        EXPECT_FALSE(sky.sunEvents.transit || sky.moonEvents.transit);
        EXPECT_FALSE(almanac.moon(2027y / 6 / 21).events.transit);
        EXPECT_FALSE(almanac.magnetic(2027y / 6 / 21));
    }
    const Almanac here(placeIn(51.5, -0.13, "Europe/London"));
    EXPECT_FALSE(here.moon(2027y / 2 / 30).events.transit);
    EXPECT_FALSE(here.sky(Instant(sys_days(1500y / 1 / 1))).sunEvents.transit);
    EXPECT_FALSE(here.sky(Instant(sys_days(9999y / 6 / 1))).sunEvents.transit);
}

// The Moon of a date

TEST(MoonOfDay, GrowsFromNewToFullAndCountsItsDays) {
    const Place place = placeIn(41.0082, 28.9784, "Europe/Istanbul");
    const Almanac almanac(place);
    for (const PrincipalPhase& phase : NextPhases(2461400.0, 48)) {
        const auto instant = std::chrono::floor<seconds>(instantOfJulianDay(phase.julianDay));
        const MoonOfDay moon = almanac.moon(place.clock.dateAt(instant));
        if (phase.kind == PrincipalPhase::newMoon) {
            EXPECT_LT(moon.illuminated, 1.0);
            EXPECT_TRUE(moon.age < 0.6 || moon.age > 28.7) << moon.age;
        } else if (phase.kind == PrincipalPhase::fullMoon) {
            EXPECT_GT(moon.illuminated, 99.0);
            EXPECT_NEAR(moon.age, 14.77, 1.4);
        } else {
            EXPECT_NEAR(moon.illuminated, 50.0, 7.0);
            EXPECT_EQ(moon.waxing, phase.kind == PrincipalPhase::firstQuarter);
        }
    }
}

TEST(MoonOfDay, TheAgeGrowsByADayEachDay) {
    const Almanac almanac(placeIn(-33.87, 151.2, "Australia/Sydney"));
    double before = almanac.moon(2027y / 1 / 1).age;
    for (Date date = 2027y / 1 / 2; date.year() == 2027y; date = addDays(date, 1)) {
        const double age = almanac.moon(date).age;
        ASSERT_TRUE(std::fabs(age - before - 1.0) < 0.05 || age < 1.0) << isoDate(date);
        ASSERT_LT(age, 29.9);
        before = age;
    }
}

// Calendars and compass

TEST(Calendars, AreTheEnginesWhateverWasAskedBefore) {
    const Almanac almanac(placeIn(41.0082, 28.9784, "Europe/Istanbul"));
    for (const Date date : {Date(2026y / 11 / 21), Date(1600y / 2 / 29), Date(2027y / 3 / 9)}) {
        FastAstro engine;
        AllCalendarRecord expected;
        engine.ConvertAllCalendar(engineDate(date), expected);
        (void)almanac.sky(Instant(sys_days(date)));
        const AllCalendarRecord found = almanac.calendars(date);
        EXPECT_EQ(found.hijriDay, expected.hijriDay);
        EXPECT_EQ(found.hijriMonth, expected.hijriMonth);
        EXPECT_EQ(found.hijriYear, expected.hijriYear);
        EXPECT_EQ(found.rumiDay, expected.rumiDay);
        EXPECT_EQ(found.weekday, expected.weekday);
        EXPECT_EQ(found.dayOfHalf, expected.dayOfHalf);
    }
    EXPECT_EQ(almanac.calendars(2026y / 2 / 30).year, 0);
}

TEST(Compass, IsThatOfThePlaceAndItsHeight) {
    Place place = placeIn(27.99, 86.93, "Asia/Kathmandu");
    place.height = 8849.0;
    const auto found = Almanac(place).magnetic(2026y / 11 / 21);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->declination, magneticAt(27.99, 86.93, 8849.0, 2026y / 11 / 21)->declination);
    EXPECT_NE(found->declination, magneticAt(27.99, 86.93, 0.0, 2026y / 11 / 21)->declination);
}

} // namespace
} // namespace zorel::almanac
