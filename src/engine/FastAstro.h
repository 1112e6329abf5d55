// SPDX-License-Identifier: Apache-2.0
/// @file
/// The astronomy engine: Sun, Moon, prayer times, qibla, sunset-based clock, Hijri dates of one place.
#pragma once

#include "engine/AstroGlobalFuncs.h"
#include "engine/EarthCompute.h"
#include "engine/ExplainPrayTime.h"
#include "engine/HijriMonthStart.h"
#include "engine/MoonCompute.h"
#include "engine/MoonDayScan.h"
#include "engine/Records.h"
#include "engine/SunCache.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace zorel {

/// The engine. One object computes for one place and date at a time and keeps its working values in public
/// fields, which are documented results: each call overwrites the ones it computes, and callers read them
/// right after.
///
/// Units: angles in degrees, right ascension and sidereal time in hours, equation of time in minutes, times
/// of day in decimal hours. Nothing is thrown: events that do not occur yield -1 (Sun) or -1650 (Moon).
class FastAstro {
public:
    // Fields.
    AstroGlobalFuncs astroGlobalFuncs;
    MoonCompute moonCompute;
    EarthCompute earthCompute;
    PlaceRecord iPlace;
    double Lat = 0.0;  ///< [deg] north positive
    double Lon = 0.0;  ///< [deg] east positive
    double tLat = 0.0; ///< geocentric latitude [deg]
    SunInfoForPray SunInfo;
    SunDetails Sun;
    MoonInfo Moon;
    std::string iGMTText;
    DateTimeRecord iCurrentDate;
    double SunDec = 0.0;            ///< [deg]
    double SunRA = 0.0;             ///< [h]
    double SunDistance = 0.0;       ///< [au]
    double MoonDec = 0.0;           ///< [deg]
    double MoonRA = 0.0;            ///< [h]
    double MoonGHA = 0.0;           ///< [deg]
    double MoonDist = 0.0;          ///< [km]
    double MoonAlt = 0.0;           ///< geocentric [deg]
    double MoonAzi = 0.0;           ///< [deg]
    double MoonRise = 0.0;          ///< [h], or -1650
    double MoonSet = 0.0;           ///< [h], or -1650
    double MoonTrans = 0.0;         ///< [h]
    double EclipticLongitude = 0.0; ///< of the Sun [deg]
    double trho = 0.0;              ///< observer's distance from the Earth's centre [equatorial radii]
    double SRT = 0.0;               ///< local sidereal time [h]
    double YE = 0.0;                ///< extreme value of the last quadratic
    double Zero1 = 0.0;             ///< its roots, in steps from the centre
    double Zero2 = 0.0;
    double DX = 0.0;     ///< half the distance of the roots
    double L_Moon = 0.0; ///< ecliptic longitude of the Moon [rad]
    double B_Moon = 0.0; ///< ecliptic latitude of the Moon [rad]
    double UTRise = 0.0; ///< [h UT], -1 if not found
    double UTSet = 0.0;  ///< [h UT], -1 if not found
    bool Rise = false;
    bool Sett = false;

    // Place and date.
    void SetLatLon(double latitude, double longitude);
    void SetCurrentDate(std::int32_t day, std::int32_t month, std::int32_t year);
    void SetCurrentDateTime(const DateTimeRecord& record);
    /// The date must have been set before: it decides whether daylight saving is in force.
    void SetPlace(double latitude, double longitude, double timeZone, std::int32_t dstInUse,
                  std::int32_t startMonth, std::int32_t startDay, std::int32_t stopMonth,
                  std::int32_t stopDay, std::int32_t dstShift, std::int32_t elevation);

    /// Whether positions and events of the Sun are remembered between calls, and hours and days that cannot
    /// hold an event are passed over (both at first). The results are the same to the last bit either way.
    void RememberSun(bool remember);
    [[nodiscard]] bool RemembersSun() const { return sunCache.enabled; }

    // Sun (FastAstro_Sun.cpp).
    void SunDecRA(double julianDay);
    void SunDecRAAccurate(double julianDay);
    [[nodiscard]] double SunL(double T) const;
    [[nodiscard]] double Epsilon(double T) const;
    [[nodiscard]] double DeltaPSI(double T) const;
    [[nodiscard]] double EquationOfTime(double julianDay, double rightAscension) const;
    [[nodiscard]] double GM_Sidereal_Time(double julianDay) const;
    [[nodiscard]] double LM_Sidereal_Time(double julianDay, double westLongitude) const;
    [[nodiscard]] double LMST(double modifiedJulianDay, double eastLongitude) const;
    [[nodiscard]] double ComputeGHA(std::int32_t day, std::int32_t month, std::int32_t year,
                                    double hour) const;
    [[nodiscard]] double SinElev(double julianDay, double latitude, double westLongitude, double declination,
                                 double rightAscension) const;
    [[nodiscard]] double SunElev(double julianDay, double latitude, double westLongitude, double declination,
                                 double rightAscension) const;
    [[nodiscard]] double SunAltitude(double declination, double gha) const;
    [[nodiscard]] double SunAzimuth(double declination, double gha, double altitude) const;
    [[nodiscard]] double Refract(double altitude) const;
    int Quad(double yMinus, double yPlus, double yZero);
    void RiseSet(std::int32_t day, std::int32_t month, std::int32_t year, std::int32_t hour);
    void SunRiseSet(std::int32_t day, std::int32_t month, std::int32_t year);
    void SunRiseSetTrans(const DateTimeRecord& date, SunDetails& sun);
    void SetUniversalTime(DateTimeRecord& record) const;
    void SetLocalTime(double& time, const DateTimeRecord& date) const;
    void SetLocalTimeManual(DateTimeRecord& record, std::int32_t days) const;

    // Prayer times (FastAstro_Prayer.cpp).
    PlaceRecord CalculatePrayTimes();
    void CalculateNextPrayTimes();
    void CalculateAllPrayTimes(double latitude, double longitude, std::int32_t day, std::int32_t month,
                               std::int32_t year, std::int32_t hour, std::int32_t minute, std::int32_t second,
                               bool elevation, PrayerTimes& out, const QiblaRecord& qibla);
    bool Iterasyon(double latitude, double longitudeTerm, double temkin, double timeZone, double& time,
                   std::int32_t altitude, std::int32_t direction, SunInfoForPray info) const;
    SunInfoForPray SunInformationForPray(std::int32_t day, std::int32_t month, std::int32_t year);
    void MinuteCorrection(double& hours) const;
    [[nodiscard]] QiblaRecord KibleAcisi(double latitude, double longitude) const;
    void SetPrayTimesToDSTTimes(double shift, PrayerTimes& times) const;
    /// Why a time of the current date, or of another one with today's zone, is what it is. Computes the day
    /// once more beside this engine. @param index position in PrayerTimes::times; outside 0 to 15 the rule is
    /// none.
    [[nodiscard]] PrayTimeExplanation ExplainPrayTime(int index) const;
    [[nodiscard]] PrayTimeExplanation ExplainPrayTime(int index, const DateTimeRecord& date) const;

    // Sunset-based clock (FastAstro_Ezani.cpp).
    [[nodiscard]] double TimeToHourDeg(double hours) const;
    [[nodiscard]] double CalculateEzaniTimes(double time, const PrayerTimes& times) const;
    void CalculateAllEzaniTimes(PrayerTimes& times) const;

    // Moon's position (FastAstro_Moon.cpp).
    void MoonDecRA(double julianDay);
    void MoonDecRAAccurate(double julianDay);
    [[nodiscard]] double MoonSideRealTime(double julianDay) const;
    double MoonTrueAltitude(double julianDay);
    [[nodiscard]] double MoonDistance(double julianDay) const;
    [[nodiscard]] double MoonParallax(double altitude, double distance) const;
    double MoonAppAltitude(const DateTimeRecord& record);
    [[nodiscard]] double MoonAzimuth(double declination, double gha, double altitude) const;
    void CalculateTLong();
    void DiurnalAberration(double& rightAscension, double& declination, double siderealAngle) const;
    void DiurnalParallax(double& rightAscension, double& declination, double siderealAngle,
                         double distance) const;
    void MoonAltitudeAzimuth(double& altitude, double& azimuth) const;
    [[nodiscard]] double MoonLambda(double radians) const;

    // Moon's events and phases (FastAstro_MoonEvents.cpp).
    [[nodiscard]] double SinElev2(double julianDay, double latitude, double westLongitude, double declination,
                                  double rightAscension) const;
    void MoonRiseSet(std::int32_t day, std::int32_t month, std::int32_t year, std::int32_t hour);
    void MoonRiseTime(std::int32_t day, std::int32_t month, std::int32_t year);
    void MoonSetTime(std::int32_t day, std::int32_t month, std::int32_t year);
    double MoonTransTime(std::int32_t day, std::int32_t month, std::int32_t year);
    void MoonRiseSetTrans(const DateTimeRecord& date, MoonInfo& moon);
    [[nodiscard]] double Phase(double T) const;
    double MoonElongation(double julianDay);
    [[nodiscard]] double ToDeg(double degrees) const;
    [[nodiscard]] double MoonPhaze(double decimalYear, int phase) const;
    MoonInfo MoonInformation(const DateTimeRecord& record, double latitude, double longitude);
    void MoonInformationForDirection(const DateTimeRecord& record, MoonDirectionInfo& out);
    void MoonInformationForDirectionWithoutLocalTime(const DateTimeRecord& record, MoonDirectionInfo& out);
    void MoonInformationforCrescent(const DateTimeRecord& date, const PlaceRecord& place,
                                    MoonCrescentInfo& out);

    // Hijri calendar (FastAstro_Crescent.cpp, FastAstro_Hijri.cpp).
    void GetCrescentDate(DateTimeRecord& record);
    /// The observed month that a civil date lies in; nothing when no new moon fits. Moves the engine's place
    /// to the reference place of the crescent, as every observation-based date does.
    std::optional<HijriMonthStart> FindHijriMonth(std::int32_t day, std::int32_t month, std::int32_t year);
    void _RealGregJulToHicri(std::int32_t day, std::int32_t month, std::int32_t year, HijriDate& out);
    void RealGregJulToHicri(std::int32_t day, std::int32_t month, std::int32_t year, HijriDate& out);
    void ConvertAllCalendar(const DateTimeRecord& date, AllCalendarRecord& out);

    // Widget summary and details of the Sun (FastAstro_Widget.cpp).
    WidgetAstroInfo getSomeInfoForZorelWidget();
    SunDetails SunInformation(const DateTimeRecord& record, double latitude, double longitude);
    void SunInformationForDirection(const DateTimeRecord& record, SunDirectionInfo& out);
    void SunInformationForCrescent(const DateTimeRecord& record, SunCrescentInfo& out);

private:
    /// Sine of the Sun's altitude above the altitude of its rise, at a full hour of universal time.
    double riseSine(std::int32_t day, std::int32_t month, std::int32_t year, std::int32_t hour);
    /// Position of the Sun and sine of its altitude at an instant, remembered.
    const HourSun& sunAtHour(double julianDay);
    /// The accurate position and the equation of time at an instant, remembered.
    DaySun sunAtMidnight(double julianDay);
    /// Hour angle of the Sun at an instant from a position at most days away [deg], to a fraction of a
    /// degree.
    [[nodiscard]] double hourAngleNear(const DaySun& sun, double julianDay) const;
    /// Searches only hours that may hold a rise or set; false when it did not find both.
    bool searchLikelyHours(std::int32_t day, std::int32_t month, std::int32_t year, std::int32_t zone);
    bool recallRiseSet(std::int32_t day, std::int32_t month, std::int32_t year, std::int32_t zone);
    void rememberRiseSet(std::int32_t day, std::int32_t month, std::int32_t year, std::int32_t zone);
    void clearRiseSet();
    /// Declination and equation of time of a day into SunInfo, at `position` and `position` + 3.
    void sunInfoOfDay(double julianDay, int position);

    /// Searches the day hour by hour until `event`, which is MoonRise or MoonSet, is found.
    void SearchMoonEvent(double& event, std::int32_t day, std::int32_t month, std::int32_t year);
    /// The Moon's direction record, with the events in local time or as found.
    void FillMoonDirection(const DateTimeRecord& record, bool localTime, MoonDirectionInfo& out);
    /// Events and direction of the Sun's record for the declination held in it.
    void FillSunDirection(const DateTimeRecord& record);
    /// The crescent criterion for one new moon at the engine's place.
    HijriMonthStart MonthAfterNewMoon(double newMoon);
    /// The same, remembered: it depends on the new moon and the zone only, once the place is the reference
    /// place.
    const HijriMonthStart& CachedMonth(double newMoon);

    struct CachedMonthStart {
        bool used = false;
        double timeZone = 0.0;
        HijriMonthStart month;
    };

    SunCache sunCache;
    MoonDayScan moonDayScan;
    std::array<CachedMonthStart, 16> monthStarts{};
    std::size_t nextMonthStart = 0;
};

} // namespace zorel
