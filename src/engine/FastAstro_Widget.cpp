// SPDX-License-Identifier: Apache-2.0
// The day's events as a widget shows them, and the details of the Sun.
#include "engine/FastAstro.h"
#include "engine/Integers.h"
#include "engine/Single.h"
#include "engine/Turns.h"

#include <cmath>

namespace zorel {

namespace {

/// Brought into [0, 24) by one addition or subtraction.
double wrappedOnce(double hours) {
    if (hours < 0.0) {
        return hours + 24.0;
    }
    return hours >= 24.0 ? hours - 24.0 : hours;
}

/// A lunar event in local time; one that does not occur stays far below zero.
double localLunarEvent(double hours, double zone) {
    const double local = hours + zone;
    return local < 0.0 ? local + 24.0 : local;
}

/// `date` at the hour, minute and second of `hours`, truncated.
DateTimeRecord atHours(DateTimeRecord date, double hours) {
    const double whole = std::trunc(hours);
    const double minutes = (hours - whole) * 60.0;
    date.hour = toInt(hours);
    date.minute = toInt(minutes);
    date.second = toInt((minutes - std::trunc(minutes)) * 60.0);
    return date;
}

double singleHours(const DateTimeRecord& record) {
    return static_cast<double>(static_cast<float>(record.hour) + static_cast<float>(record.minute) / 60.0F +
                               static_cast<float>(record.second) / 3600.0F);
}

} // namespace

WidgetAstroInfo FastAstro::getSomeInfoForZorelWidget() {
    const DateTimeRecord& date = iCurrentDate;
    SunRiseSet(date.day, date.month, date.year);
    MoonRiseTime(date.day, date.month, date.year);
    MoonSetTime(date.day, date.month, date.year);
    const double zone = iPlace.timeZone;
    WidgetAstroInfo info;
    info.moonrise = localLunarEvent(MoonRise, zone);
    info.moonset = localLunarEvent(MoonSet, zone);
    info.sunrise = UTRise;
    info.sunset = UTSet;
    info.moonAltitudeAtSunset = kNoLunarEvent;
    if (UTRise != kNoSolarEvent && UTSet != kNoSolarEvent) {
        info.moonAltitudeAtSunset = MoonAppAltitude(atHours(date, UTSet));
        info.sunrise = wrappedOnce(UTRise + zone);
        info.sunset = wrappedOnce(UTSet + zone);
    }
    return info;
}

void FastAstro::FillSunDirection(const DateTimeRecord& record) {
    SunRiseSet(record.day, record.month, record.year);
    Sun.rise = UTRise;
    Sun.set = UTSet;
    SetLocalTime(Sun.rise, record);
    SetLocalTime(Sun.set, record);
    Sun.gha = ComputeGHA(record.day, record.month, record.year, singleHours(record));
    Sun.altitude = SunAltitude(Sun.declination, Sun.gha);
    Sun.azimuth = SunAzimuth(Sun.declination, Sun.gha, Sun.altitude);
}

SunDetails FastAstro::SunInformation(const DateTimeRecord& record, double latitude, double longitude) {
    SetLatLon(latitude, longitude);
    const double julianDay = astroGlobalFuncs.JulianDay(record);
    SunDecRAAccurate(julianDay);
    Sun.declination = SunDec;
    Sun.rightAscension = SunRA;
    Sun.distance = SunDistance;
    Sun.siderealTime = addWhileNegative(LMST(julianDay - 2400000.5, Lon), 24.0);
    FillSunDirection(record);
    Sun.equationOfTime = EquationOfTime(julianDay, Sun.rightAscension);
    Sun.transit = 12.0 - Sun.equationOfTime / 60.0 - Lon / 15.0;
    Sun.shadowRatio = astroGlobalFuncs.Round(100.0 / std::tan(Sun.altitude * kRadiansPerDegree), 2) / 100.0;
    const double diameter = std::atan(1392000.0 / (Sun.distance * 149597872.0)) * 180.0 / kPi; // [deg]
    Sun.diameter = astroGlobalFuncs.Round(diameter * 6000.0, 0) / 100.0;
    return Sun;
}

void FastAstro::SunInformationForDirection(const DateTimeRecord& record, SunDirectionInfo& out) {
    SunDecRAAccurate(astroGlobalFuncs.JulianDay(record));
    Sun.declination = SunDec;
    Sun.rightAscension = SunRA;
    Sun.distance = SunDistance;
    FillSunDirection(record);
    out.rise = Sun.rise;
    out.set = Sun.set;
    out.azimuth = Sun.azimuth;
    out.altitude = Sun.altitude;
}

void FastAstro::SunInformationForCrescent(const DateTimeRecord& record, SunCrescentInfo& out) {
    SunRiseSet(record.day, record.month, record.year);
    out.rise = UTRise;
    out.set = UTSet;
}

} // namespace zorel
