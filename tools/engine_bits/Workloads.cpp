// SPDX-License-Identifier: Apache-2.0
#include "Workloads.h"

#include <array>
#include <cmath>

namespace zorel::bits {

namespace {

using testing::anyPlaceDay;
using testing::PlaceDay;
using testing::Random;

using Pick = PlaceDay (*)(Random& random, int count);

/// Today and tomorrow of a place, with everything that they leave.
template <Pick pick> void day(FastAstro& engine, Random& random, int count, Hash& hash) {
    engine.iPlace.today = {};
    engine.iPlace.tomorrow = {};
    setUp(engine, pick(random, count));
    PrayerTimes today = engine.CalculatePrayTimes().today;
    add(hash, today);
    addFields(hash, engine);
    engine.CalculateNextPrayTimes();
    add(hash, engine.iPlace.tomorrow);
    addFields(hash, engine);
    engine.CalculateAllEzaniTimes(today);
    add(hash, today);
}

/// The times alone, beside those of the whole computation: one bit of difference, on any path, is another
/// hash than that of the plain path, where both are made in the same way.
template <Pick pick> void times(FastAstro& engine, Random& random, int count, Hash& hash) {
    setUp(engine, pick(random, count));
    engine.iPlace.today = {};
    add(hash, engine.CalculatePrayTimesOnly());
    engine.iPlace.today = {};
    PrayerTimes whole = engine.CalculatePrayTimes().today;
    whole.ezani = {};
    add(hash, whole);
}

/// The date that many days after 1 January of a year.
void setDate(PlaceDay& p, std::int32_t year, int days) {
    const AstroGlobalFuncs calendar;
    DateTimeRecord date;
    calendar.JulianToCalendar(calendar.CalculateJulianDay(year, 1, 1, 0, 0, 0) + days, date, 1);
    p.year = date.year;
    p.month = date.month;
    p.day = date.day;
}

PlaceDay consecutive(Random&, int count) {
    constexpr int kRun = 40;
    constexpr double kPlaces[][3] = {{41.0, 28.98, 3.0},   {-33.9, 151.2, 10.0}, {21.42, 39.83, 3.0},
                                     {55.75, 37.62, 3.0},  {0.0, -78.5, -5.0},   {-54.8, -68.3, -3.0},
                                     {64.15, -21.94, 0.0}, {51.5, -0.13, 0.0},   {1.35, 103.8, 8.0}};
    const auto& place = kPlaces[static_cast<std::size_t>(count / kRun) % std::size(kPlaces)];
    PlaceDay p{.latitude = place[0], .longitude = place[1], .timeZone = place[2]};
    p.europeanRule = count % (2 * kRun) < kRun;
    setDate(p, 1990, count);
    return p;
}

PlaceDay anywhere(Random& random, int) {
    return anyPlaceDay(random, 60.0);
}

/// Where the searches go back, the latitude is lowered, events are missing.
PlaceDay farNorthAndSouth(Random& random, int) {
    PlaceDay p = anyPlaceDay(random);
    p.latitude = std::copysign(random.between(45.0, 90.0), p.latitude);
    return p;
}

/// Clocks of any part of an hour, far off their meridian, and places beyond the map.
PlaceDay odd(Random& random, int count) {
    PlaceDay p = anyPlaceDay(random, 50.0);
    const double zones[] = {random.between(-14.0, 14.0), random.between(-100.0, 100.0), 5.75,
                            p.longitude / 15.0 + 12.0, -1e6 * random.between(0.0, 2.0)};
    p.timeZone = zones[static_cast<std::size_t>(count) % std::size(zones)];
    if (count % 7 == 0) {
        p.longitude = random.between(-1000.0, 1000.0);
    }
    if (count % 11 == 0) {
        p.latitude = random.between(-400.0, 400.0);
    }
    return p;
}

/// Clocks by which the Sun rises or sets near midnight.
PlaceDay atTheSeam(Random& random, int) {
    PlaceDay p = anyPlaceDay(random, 66.0);
    p.longitude = random.between(-90.0, 90.0);
    p.timeZone = random.whole(-15, 15);
    return p;
}

PlaceDay farYears(Random& random, int count) {
    PlaceDay p = anyPlaceDay(random, 55.0);
    p.year = random.whole(-6000, 9000);
    if (count % 8 == 0) { // the change of the calendar
        p.year = 1582;
        p.month = 10;
        p.day = random.whole(1, 31);
    }
    return p;
}

PlaceDay manyPlaces(Random& random, int) {
    PlaceDay p = anyPlaceDay(random, 62.0);
    p.year = 2025;
    p.month = 4;
    p.day = 17;
    return p;
}

/// One engine, places and days that return, and every operation of the Sun between them.
void mixedOperations(FastAstro& engine, Random& random, int count, Hash& hash) {
    PlaceDay p = anyPlaceDay(random, 66.0);
    if (count % 3 != 0) {
        p.latitude = std::round(p.latitude / 20.0) * 20.0;
        p.longitude = std::round(p.longitude / 60.0) * 60.0;
        setDate(p, 2024, random.whole(0, 9));
    }
    setUp(engine, p);
    const DateTimeRecord date{p.year, p.month, p.day, random.whole(0, 23), random.whole(0, 59), 0, 0.0};
    SunDirectionInfo direction;
    SunCrescentInfo crescent;
    PrayerTimes times;
    switch (random.whole(0, 5)) {
    case 0:
        engine.SunInformation(date, p.latitude, p.longitude);
        break;
    case 1:
        engine.SunInformationForDirection(date, direction);
        break;
    case 2:
        engine.SunInformationForCrescent(date, crescent);
        break;
    case 3:
        engine.SunRiseSet(p.day, p.month, p.year);
        break;
    case 4:
        engine.SunInformationForPray(p.day, p.month, p.year);
        break;
    default: // the latitude of the rule and that of the search are two
        engine.CalculateAllPrayTimes(p.latitude / 2.0, p.longitude, p.day, p.month, p.year, 0, 0, 0, true,
                                     times, engine.KibleAcisi(21.4, p.longitude));
    }
    for (const double value : {direction.rise, direction.set, direction.altitude, direction.azimuth,
                               crescent.rise, crescent.set}) {
        hash.add(value);
    }
    add(hash, times);
    addFields(hash, engine);
}

void explainedDays(FastAstro& engine, Random& random, int count, Hash& hash) {
    setUp(engine, anyPlaceDay(random, count % 4 == 0 ? 90.0 : 58.0));
    addTrace(hash, engine);
    addFields(hash, engine);
}

void positions(FastAstro& engine, Random& random, int count, Hash& hash) {
    const double spans[] = {73000.0, 3e6, 1e8, 1e12};
    const double span = spans[count % 16 == 0 ? count / 16 % 4 : 0];
    const double julianDay = 2451545.0 + random.between(-span, span);
    engine.SunDecRA(julianDay);
    addFields(hash, engine);
    engine.SunDecRAAccurate(julianDay);
    addFields(hash, engine);
    hash.add(engine.EquationOfTime(julianDay, engine.SunRA));
    const EarthCompute& earth = engine.earthCompute;
    const double tau = (julianDay - 2451545.0) / 365250.0;
    for (const double value :
         {earth.EarthL(julianDay), earth.EarthB(julianDay), earth.EarthR(julianDay), earth._L0(tau),
          earth._L1(tau), earth._L2(tau), earth._L3(tau), earth._L4(tau), earth._L5(tau), earth._B0(tau),
          earth._B1(tau), earth._R0(tau), earth._R1(tau), earth._R2(tau), earth._R3(tau), earth._R4(tau)}) {
        hash.add(value);
    }
}

/// The Moon's distance from the Sun, and what hangs on it.
void elongations(FastAstro& engine, Random& random, int count, Hash& hash) {
    hash.add(engine.MoonElongation(2451545.0 + random.between(-400000.0, 400000.0)));
    if (count % 50 == 0) {
        const PlaceDay p = anyPlaceDay(random);
        HijriDate date;
        engine.RealGregJulToHicri(p.day, p.month, p.year, date);
        hash.add(date.year);
        hash.add(date.month);
        hash.add(date.day);
    }
}

constexpr std::array<Workload, 17> kWorkloads{{
    {"consecutive days", 500, 40000, day<consecutive>},
    {"random days", 500, 40000, day<anywhere>},
    {"far north and south", 25, 4000, day<farNorthAndSouth>},
    {"odd places and zones", 200, 20000, day<odd>},
    {"years -6000 to 9000", 200, 20000, day<farYears>},
    {"many places of one day", 500, 40000, day<manyPlaces>},
    {"mixed operations", 1000, 80000, mixedOperations},
    {"explained days", 100, 10000, explainedDays},
    {"positions", 2000, 100000, positions},
    {"elongations", 2000, 100000, elongations},
    {"times only, consecutive days", 500, 20000, times<consecutive>},
    {"times only, random days", 500, 10000, times<anywhere>},
    {"times only, far north and south", 25, 300, times<farNorthAndSouth>},
    {"times only, odd places and zones", 200, 8000, times<odd>},
    {"times only, midnight at the horizon", 500, 8000, times<atTheSeam>},
    {"times only, years -6000 to 9000", 200, 8000, times<farYears>},
    {"times only, many places of one day", 500, 20000, times<manyPlaces>},
}};

} // namespace

std::span<const Workload> workloads() {
    return kWorkloads;
}

} // namespace zorel::bits
