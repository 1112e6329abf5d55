// SPDX-License-Identifier: Apache-2.0
// Rise, transit and set of the Sun: hourly search with a parabola through three hours.
// Source: Montenbruck & Pfleger, Astronomy on the Personal Computer, ch. 3 (sunset programs).
#include "engine/FastAstro.h"
#include "engine/Integers.h"

#include <cmath>

namespace zorel {

int FastAstro::Quad(double yMinus, double yPlus, double yZero) {
    const double a = (yMinus + yPlus) / 2.0 - yZero;
    const double b = (yPlus - yMinus) / 2.0;
    const double xe = -b / (2.0 * a);
    YE = (a * xe + b) * xe + yZero;
    const double dis = b * b - 4.0 * a * yZero;
    if (dis < 0.0) {
        return 0;
    }
    DX = std::sqrt(dis) / 2.0 / std::fabs(a);
    Zero1 = xe - DX;
    Zero2 = xe + DX;
    const int count = (std::fabs(Zero2) <= 1.0 ? 1 : 0) + (std::fabs(Zero1) <= 1.0 ? 1 : 0);
    if (Zero1 < -1.0) {
        Zero1 = Zero2;
    }
    return count;
}

double FastAstro::riseSine(std::int32_t year, std::int32_t month, std::int32_t day, std::int32_t hour) {
    const double julianDay = astroGlobalFuncs.CalculateJulianDay(year, month, day, hour, 0, 0);
    if (sunCache.enabled) {
        return sunAtHour(julianDay).sinAltitude + kSinRiseDepth;
    }
    SunDecRA(julianDay);
    return SinElev(julianDay, Lat, -Lon, SunDec, SunRA) + kSinRiseDepth;
}

void FastAstro::RiseSet(std::int32_t day, std::int32_t month, std::int32_t year, std::int32_t hour) {
    if (hour < 0) {
        hour += 24;
        day = addInt(day, -1);
    }
    if (hour >= 24) {
        hour -= 24;
        day = addInt(day, 1);
    }
    const double yZero = riseSine(year, month, day, hour);
    const double yPlus = riseSine(year, month, day, addInt(hour, 1));
    const double yMinus = riseSine(year, month, day, addInt(hour, -1));
    const int roots = Quad(yMinus, yPlus, yZero);
    if (roots == 1) {
        (yMinus < 0.0 ? UTRise : UTSet) = hour + Zero1;
        (yMinus < 0.0 ? Rise : Sett) = true;
    } else if (roots == 2) {
        UTRise = hour + (YE < 0.0 ? Zero2 : Zero1);
        UTSet = hour + (YE < 0.0 ? Zero1 : Zero2);
        Rise = true;
        Sett = true;
    }
}

void FastAstro::SunRiseSet(std::int32_t day, std::int32_t month, std::int32_t year) {
    const std::int32_t zone = wholeZone();
    if (recallRiseSet(year, month, day, zone)) {
        return;
    }
    clearRiseSet();
    if (sunCache.enabled && searchLikelyHours(year, month, day, zone)) {
        rememberRiseSet(year, month, day, zone);
        return;
    }
    clearRiseSet();
    for (std::int32_t hour = 1 - zone; hour < 24 - zone && !(Rise && Sett); ++hour) {
        RiseSet(day, month, year, hour);
    }
}

void FastAstro::clearRiseSet() {
    Rise = false;
    Sett = false;
    UTRise = kNoSolarEvent;
    UTSet = kNoSolarEvent;
}

void FastAstro::SunRiseSetTrans(const DateTimeRecord& date, SunDetails& sun) {
    SunRiseSet(date.day, date.month, date.year);
    sun.rise = UTRise;
    sun.set = UTSet;
    const double midnight = astroGlobalFuncs.CalculateJulianDay(date.year, date.month, date.day, 0, 0, 0);
    sun.equationOfTime = EquationOfTime(midnight, sun.rightAscension);
    sun.transit = 12.0 - sun.equationOfTime / 60.0 - Lon / 15.0;
}

} // namespace zorel
