// SPDX-License-Identifier: Apache-2.0
// Prayer times of a place and date, and what they need of the Sun.
#include "engine/FastAstro.h"
#include "engine/Integers.h"
#include "engine/PrayerDay.h"
#include "engine/PrayerIteration.h"
#include "engine/Single.h"

namespace zorel {

namespace {

constexpr double kOneMinute = 0.01666666753590107;    // [h]
constexpr double kOneSecond = 0.00027777778450399637; // [h]

} // namespace

PlaceRecord FastAstro::CalculatePrayTimes() {
    iPlace.qibla = qiblaOfPlace();
    CalculateAllPrayTimes(iPlace.latitude, iPlace.longitude, iCurrentDate.day, iCurrentDate.month,
                          iCurrentDate.year, 0, 0, 0, iPlace.elevation, iPlace.today, iPlace.qibla);
    return iPlace;
}

const PrayerTimes& FastAstro::CalculatePrayTimesOnly() {
    iPlace.qibla = qiblaOfPlace();
    const DateTimeRecord date{iCurrentDate.year, iCurrentDate.month, iCurrentDate.day, 0, 0, 0, 0.0};
    PrayerDay(*this, iPlace.latitude, iPlace.longitude, date, iPlace.elevation, iPlace.today, iPlace.qibla,
              PrayerDay::Extent::timesOnly)
        .run();
    return iPlace.today;
}

void FastAstro::CalculateNextPrayTimes() {
    iPlace.qibla = qiblaOfPlace();
    const double tomorrow = astroGlobalFuncs.CalculateJulianDay(iCurrentDate.year, iCurrentDate.month,
                                                                addInt(iCurrentDate.day, 1), 0, 0, 0);
    DateTimeRecord date;
    astroGlobalFuncs.JulianToCalendar(tomorrow, date, 1);
    CalculateAllPrayTimes(iPlace.latitude, iPlace.longitude, date.day, date.month, date.year, 0, 0, 0,
                          iPlace.elevation, iPlace.tomorrow, iPlace.qibla);
}

void FastAstro::CalculateAllPrayTimes(double latitude, double longitude, std::int32_t day, std::int32_t month,
                                      std::int32_t year, std::int32_t hour, std::int32_t minute,
                                      std::int32_t second, bool elevation, PrayerTimes& out,
                                      const QiblaRecord& qibla) {
    const DateTimeRecord date{year, month, day, hour, minute, second, 0.0};
    PrayerDay(*this, latitude, longitude, date, elevation, out, qibla, PrayerDay::Extent::everything).run();
}

bool FastAstro::Iterasyon(double latitude, double longitudeTerm, double temkin, double timeZone, double& time,
                          std::int32_t altitude, std::int32_t direction, SunInfoForPray info) const {
    const IterationResult result = iteratePrayerTime(
        {IterationLatitude(latitude), longitudeTerm, temkin, timeZone, altitude, direction}, info);
    time = result.time;
    return result.answer;
}

SunInfoForPray FastAstro::SunInformationForPray(std::int32_t day, std::int32_t month, std::int32_t year) {
    const double midnight = astroGlobalFuncs.CalculateJulianDay(year, month, day, 0, 0, 0);
    if (sunCache.enabled) {
        sunAtMidnight(midnight); // gives the searches below their rough Sun
    }
    DateTimeRecord yesterday;
    astroGlobalFuncs.JulianToCalendar(
        astroGlobalFuncs.CalculateJulianDay(year, month, addInt(day, -1), 0, 0, 0), yesterday, 1);
    SunRiseSet(yesterday.day, yesterday.month, yesterday.year);
    SunInfo.field[6] = UTRise;
    SunInfo.field[7] = UTSet;
    sunInfoOfDay(midnight, 0);
    SunRiseSet(day, month, year);
    SunInfo.field[8] = UTRise;
    SunInfo.field[9] = UTSet;
    sunInfoOfDay(astroGlobalFuncs.CalculateJulianDay(year, month, addInt(day, 1), 0, 0, 0), 2);
    return SunInfo;
}

SunInfoForPray FastAstro::SunPositionsForPray(std::int32_t day, std::int32_t month, std::int32_t year) {
    sunInfoOfDay(astroGlobalFuncs.CalculateJulianDay(year, month, day, 0, 0, 0), 0);
    sunInfoOfDay(astroGlobalFuncs.CalculateJulianDay(year, month, addInt(day, 1), 0, 0, 0), 2);
    return SunInfo;
}

void FastAstro::sunInfoOfDay(double julianDay, int position) {
    const DaySun sun = sunAtMidnight(julianDay);
    SunDistance = sun.distance;
    SunDec = sun.declination;
    SunRA = sun.rightAscension;
    SunInfo.field[position] = SunDec;
    const double noon = 12.0 - sun.equationOfTime / 60.0 - Lon / 15.0;
    SunInfo.field[position + 3] = 12.0 - (noon + Lon / 15.0); // in this order, for the last bits
}

void FastAstro::MinuteCorrection(double& hours) const {
    const double minutes = astroGlobalFuncs.frac(hours) * 60.0;
    const double seconds = astroGlobalFuncs.frac(minutes) * 60.0;
    hours = single(toInt(hours) + toInt(minutes) / 60.0);
    if (toInt(seconds) >= 30) {
        hours += kOneMinute;
    }
    hours += kOneSecond;
}

void FastAstro::SetPrayTimesToDSTTimes(double shift, PrayerTimes& times) const {
    for (int i = 0; i < 16; ++i) {
        double& time = times.times[i];
        if (i == PrayerTimes::unused || time == kNoSolarEvent) {
            continue;
        }
        time += shift;
        if (i >= PrayerTimes::middleOfNight && time >= 24.0) {
            time -= 24.0;
        }
    }
}

} // namespace zorel
