// SPDX-License-Identifier: Apache-2.0
// Rise, set and transit of the Moon: hourly search with quadratic interpolation (Montenbruck & Pfleger,
// Astronomy on the Personal Computer, ch. 3.8).
#include "engine/FastAstro.h"
#include "engine/Integers.h"
#include "engine/Single.h"

#include <cmath>

namespace zorel {

namespace {

constexpr double kHour = 0.0416666679084301; // [day]

/// Altitude sine above that of rise and set.
double aboveHorizon(FastAstro& engine, double julianDay) {
    engine.MoonDecRA(julianDay);
    return engine.SinElev(julianDay, engine.Lat, -engine.Lon, engine.MoonDec, engine.MoonRA) -
           MoonDayScan::kHorizon;
}

} // namespace

double FastAstro::SinElev2(double julianDay, double latitude, double, double declination,
                           double rightAscension) const {
    double H = (moonSiderealHours(julianDay) - rightAscension) * 15.0;
    if (H < 0.0) {
        H += 360.0;
    }
    const double phi = latitude * kRadiansPerDegree;
    const double delta = declination * kRadiansPerDegree;
    return std::cos(phi) * std::cos(delta) * std::cos(H * kRadiansPerDegree) +
           std::sin(phi) * std::sin(delta);
}

void FastAstro::MoonRiseSet(std::int32_t day, std::int32_t month, std::int32_t year, std::int32_t hour) {
    if (hour < 0) {
        hour += 24;
        day = addInt(day, -1);
    } else if (hour >= 24) {
        hour -= 24;
        day = addInt(day, 1);
    }
    const double julianDay = astroGlobalFuncs.CalculateJulianDay(year, month, day, hour, 0, 0);
    const double yZero = aboveHorizon(*this, julianDay);
    const double yPlus = aboveHorizon(*this, julianDay + kHour);
    const double yMinus = aboveHorizon(*this, julianDay - kHour);
    const int roots = Quad(yMinus, yPlus, yZero);
    if (roots == 1) {
        (yMinus < 0.0 ? MoonRise : MoonSet) = hour + Zero1;
    } else if (roots == 2) {
        MoonRise = hour + (YE < 0.0 ? Zero2 : Zero1);
        MoonSet = hour + (YE < 0.0 ? Zero1 : Zero2);
    }
}

void FastAstro::SearchMoonEvent(double& event, std::int32_t year, std::int32_t month, std::int32_t day) {
    event = kNoLunarEvent;
    const std::int32_t firstHour = 1 - wholeZone();
    moonDayScan.prepare(*this, year, month, day, firstHour);
    constexpr int last = MoonDayScan::kHours - 1;
    for (int i = 0; i <= last && event == kNoLunarEvent; ++i) {
        // The last hour is always evaluated, so that the working fields are those of a whole search.
        if (i == last || moonDayScan.mayHoldEvent(i)) {
            MoonRiseSet(day, month, year, firstHour + i);
        }
    }
}

void FastAstro::MoonRiseTime(std::int32_t day, std::int32_t month, std::int32_t year) {
    SearchMoonEvent(MoonRise, year, month, day);
}

void FastAstro::MoonSetTime(std::int32_t day, std::int32_t month, std::int32_t year) {
    SearchMoonEvent(MoonSet, year, month, day);
}

double FastAstro::MoonTransTime(std::int32_t day, std::int32_t month, std::int32_t year) {
    // The coarse scan of the hours 0 to 24 and the fine scan of 122 minutes both keep the last step instead
    // of the highest one: the result is the last minute after hour 23 whatever the Moon does. Only that last
    // instant is evaluated here, for the working fields. MoonDay.h has the true transit.
    constexpr double start = 23.0;
    constexpr double transit = start + 121.0 / 60.0;
    std::int32_t hour = 0;
    std::int32_t minute = 0;
    std::int32_t second = 0;
    astroGlobalFuncs.ToHMS(transit, hour, minute, second);
    MoonTrueAltitude(astroGlobalFuncs.CalculateJulianDay(year, month, day, hour, minute, second));
    MoonTrans = transit;
    return transit;
}

void FastAstro::MoonRiseSetTrans(const DateTimeRecord& date, MoonInfo& moon) {
    MoonRiseTime(date.day, date.month, date.year);
    MoonSetTime(date.day, date.month, date.year);
    moon.rise = MoonRise;
    moon.set = MoonSet;
    moon.transit = MoonTransTime(date.day, date.month, date.year);
}

} // namespace zorel
