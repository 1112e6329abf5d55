// SPDX-License-Identifier: Apache-2.0
// The records that describe the Moon at an instant.
#include "engine/FastAstro.h"
#include "engine/Single.h"
#include "engine/Turns.h"

#include <cmath>

namespace zorel {

namespace {

constexpr double kMinute = 0.0006944444612599909; // [day]

/// Parallax and semi-diameter follow from the distance alone.
void fillSizes(MoonInfo& moon) {
    const double ratio = 6378.137 / moon.distance;
    moon.horizontalParallax = std::asin(ratio) / kRadiansPerDegree;
    moon.semiDiameter = (3.873661000852735e-7 + single(0.27245301) * ratio) * kDegreesPerRadian;
}

} // namespace

MoonInfo FastAstro::MoonInformation(const DateTimeRecord& record, double latitude, double longitude) {
    SetLatLon(latitude, longitude);
    CalculateTLong();
    const double julianDay = astroGlobalFuncs.JulianDay(record);
    MoonDecRAAccurate(julianDay);
    Moon.declination = MoonDec;
    Moon.rightAscension = MoonRA;
    Moon.gha = MoonGHA;
    Moon.distance = MoonDist;
    SRT = addWhileNegative(moonSiderealHours(julianDay), 24.0);
    Moon.siderealTime = SRT;
    MoonAltitudeAzimuth(Moon.apparentAltitude, Moon.azimuth);
    Moon.geocentricAltitude = MoonTrueAltitude(julianDay);
    fillSizes(Moon);
    Moon.elongation = MoonElongation(julianDay);
    const double lit = Phase((julianDay - 2451545.0) / 36525.0);
    Moon.waxing = lit > Phase((julianDay - kMinute - 2451545.0) / 36525.0);
    Moon.illuminated = astroGlobalFuncs.Round(lit * 100.0, 0);
    return Moon;
}

void FastAstro::FillMoonDirection(const DateTimeRecord& record, bool localTime, MoonDirectionInfo& out) {
    const double julianDay = astroGlobalFuncs.JulianDay(record);
    MoonRiseTime(record.day, record.month, record.year);
    MoonSetTime(record.day, record.month, record.year);
    Moon.rise = MoonRise;
    Moon.set = MoonSet;
    if (localTime) {
        SetLocalTime(Moon.rise, record);
        SetLocalTime(Moon.set, record);
    }
    Moon.geocentricAltitude = MoonTrueAltitude(julianDay);
    Moon.apparentAltitude = MoonAppAltitude(record);
    Moon.azimuth = MoonAzimuth(MoonDec, MoonGHA, Moon.geocentricAltitude);
    out.rise = Moon.rise;
    out.set = Moon.set;
    out.azimuth = Moon.azimuth;
    out.apparentAltitude = Moon.apparentAltitude;
    out.elongation = MoonElongation(julianDay);
}

void FastAstro::MoonInformationForDirection(const DateTimeRecord& record, MoonDirectionInfo& out) {
    FillMoonDirection(record, true, out);
}

void FastAstro::MoonInformationForDirectionWithoutLocalTime(const DateTimeRecord& record,
                                                            MoonDirectionInfo& out) {
    FillMoonDirection(record, false, out);
}

void FastAstro::MoonInformationforCrescent(const DateTimeRecord& date, const PlaceRecord&,
                                           MoonCrescentInfo& out) {
    CalculateTLong();
    const double julianDay = astroGlobalFuncs.CalculateJulianDay(date.year, date.month, date.day, date.hour,
                                                                 date.minute, date.second);
    DateTimeRecord normalised = date;
    astroGlobalFuncs.JulianToCalendar(julianDay, normalised, 1);
    MoonDecRA(julianDay);
    Moon.declination = MoonDec;
    Moon.rightAscension = MoonRA;
    Moon.distance = MoonDist; // of the last full position; the short series gives none
    SRT = addWhileNegative(moonSiderealHours(julianDay), 24.0);
    Moon.siderealTime = SRT;
    Moon.apparentAltitude = MoonAppAltitude(normalised);
    out.apparentAltitude = Moon.apparentAltitude;
    out.elongation = MoonElongation(julianDay);
}

} // namespace zorel
