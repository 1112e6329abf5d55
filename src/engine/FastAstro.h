// SPDX-License-Identifier: Apache-2.0
/// @file
/// The astronomy engine: Sun, Moon, prayer times, qibla, sunset-based clock, Hijri dates of one place.
#pragma once

#include "engine/Api.h"
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
/// Units, unless a line says otherwise: angles [deg], right ascension and sidereal time [h], equation of time
/// [min], times of day [decimal hours]. Dates are civil dates; a `julianDay` is one of universal time, which
/// the theories take for uniform time (DeltaT.h is not applied). `T` is in Julian centuries from J2000. What
/// depends on a place uses `Lat` and `Lon` unless it is handed one; longitudes are east positive except those
/// named `westLongitude`. Nothing is thrown: events that do not occur yield -1 (Sun) or -1650 (Moon);
/// arguments that are not finite end every search, with results that mean nothing.
///
/// Accuracy sentences give the span of years that was looked at and the largest difference found there;
/// docs/accuracy.md prints those against tables of the sky, tests/engine holds the others. Tables printed to
/// the minute account for 30 s of a difference.
class ZOREL_API FastAstro {
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
    std::string iGMTText; ///< the caller's own
    DateTimeRecord iCurrentDate;
    double SunDec = 0.0;            ///< declination [deg]
    double SunRA = 0.0;             ///< right ascension [h]
    double SunDistance = 0.0;       ///< [au]
    double MoonDec = 0.0;           ///< declination [deg]
    double MoonRA = 0.0;            ///< right ascension [h]
    double MoonGHA = 0.0;           ///< Greenwich hour angle [deg]
    double MoonDist = 0.0;          ///< [km]
    double MoonAlt = 0.0;           ///< geocentric [deg]
    double MoonAzi = 0.0;           ///< the caller's own; the azimuth is in `Moon`
    double MoonRise = 0.0;          ///< [h UT], or -1650
    double MoonSet = 0.0;           ///< [h UT], or -1650
    double MoonTrans = 0.0;         ///< [h UT]; see MoonTransTime
    double EclipticLongitude = 0.0; ///< of the Sun [deg]
    double trho = 0.0;              ///< observer's distance from the Earth's centre [equatorial radii]
    double SRT = 0.0;               ///< local sidereal time [h]
    double YE = 0.0;                ///< extreme value of the last parabola (Quad)
    double Zero1 = 0.0;             ///< its roots [steps from the centre]
    double Zero2 = 0.0;
    double DX = 0.0;     ///< half the distance of the roots [steps]
    double L_Moon = 0.0; ///< ecliptic longitude of the Moon [rad]
    double B_Moon = 0.0; ///< ecliptic latitude of the Moon [rad]
    double UTRise = 0.0; ///< sunrise [h UT], -1 if not found
    double UTSet = 0.0;  ///< sunset [h UT], -1 if not found
    bool Rise = false;   ///< sunrise was found
    bool Sett = false;   ///< sunset was found

    // Place and date (FastAstro_Place.cpp).
    void SetLatLon(double latitude, double longitude);
    void SetCurrentDate(std::int32_t day, std::int32_t month, std::int32_t year);
    void SetCurrentDateTime(const DateTimeRecord& record);
    /// The date must have been set before: it decides whether daylight saving is in force, which adds one
    /// hour to the zone. @param timeZone standard offset [h]. @param dstInUse 1: the place has a rule, whose
    /// months and days are coded as for AstroGlobalFuncs::IsDSTDay. @param dstShift [h]. @param elevation 1:
    /// temkin for surroundings up to 500 m, else up to 250 m.
    void SetPlace(double latitude, double longitude, double timeZone, std::int32_t dstInUse,
                  std::int32_t startMonth, std::int32_t startDay, std::int32_t stopMonth,
                  std::int32_t stopDay, std::int32_t dstShift, std::int32_t elevation);
    /// @param record in: local time of the place; out: universal time. The whole hours of the zone are taken
    /// off, and the rule's shift on a day of daylight saving.
    void SetUniversalTime(DateTimeRecord& record) const;
    /// @param time in: universal time of the date; out: local time, not brought into one day. The reverse of
    /// SetUniversalTime; -1 stays.
    void SetLocalTime(double& time, const DateTimeRecord& date) const;
    /// @param record in, out: moved by whole days.
    void SetLocalTimeManual(DateTimeRecord& record, std::int32_t days) const;

    // Memory of the Sun (FastAstro_SunMemory.cpp).

    /// Whether positions and events of the Sun are remembered between calls, and hours and days that cannot
    /// hold an event are passed over (both at first). The results are the same to the last bit either way.
    void RememberSun(bool remember);
    [[nodiscard]] bool RemembersSun() const { return sunCache.enabled; }

    // Position of the Sun, sidereal time, horizontal coordinates (FastAstro_Sun.cpp).

    /// Short series: SunDec, SunRA, EclipticLongitude. Accuracy: within 0.01 degree of SunDecRAAccurate from
    /// 1990 to 2060.
    void SunDecRA(double julianDay);
    /// Theory of EarthCompute, apparent place: SunDec, SunRA, SunDistance. Accuracy: within 3 arc seconds in
    /// declination, 0.5 s in right ascension and 1e-6 au at Meeus's example 24.b (1992).
    void SunDecRAAccurate(double julianDay);
    /// Mean longitude of the Sun, [0, 360).
    [[nodiscard]] double SunL(double T) const;
    /// True obliquity of the ecliptic.
    [[nodiscard]] double Epsilon(double T) const;
    /// Nutation in longitude.
    [[nodiscard]] double DeltaPSI(double T) const;
    /// @param rightAscension of the Sun. Accuracy: within 0.1 min at its extremes of 2024.
    [[nodiscard]] double EquationOfTime(double julianDay, double rightAscension) const;
    /// Greenwich mean sidereal time, not reduced. Accuracy: within 0.5 s at Meeus's example 11.a (1987).
    [[nodiscard]] double GM_Sidereal_Time(double julianDay) const;
    /// Local mean sidereal time within (-24, 24), of the sign that the unreduced hours have.
    [[nodiscard]] double LM_Sidereal_Time(double julianDay, double westLongitude) const;
    /// The same from a modified Julian day (Julian day - 2400000.5), not bit by bit. Accuracy: within 0.1 s
    /// at the same example.
    [[nodiscard]] double LMST(double modifiedJulianDay, double eastLongitude) const;
    /// Greenwich hour angle of the Sun, at most 360, by a Fourier series. @param hour universal time.
    /// Accuracy: within 0.05 degree of the equation of time's, 2024.
    [[nodiscard]] double ComputeGHA(std::int32_t day, std::int32_t month, std::int32_t year,
                                    double hour) const;
    /// Sine of the geocentric altitude of a position.
    [[nodiscard]] double SinElev(double julianDay, double latitude, double westLongitude, double declination,
                                 double rightAscension) const;
    /// The altitude itself.
    [[nodiscard]] double SunElev(double julianDay, double latitude, double westLongitude, double declination,
                                 double rightAscension) const;
    /// Altitude of a declination and Greenwich hour angle.
    [[nodiscard]] double SunAltitude(double declination, double gha) const;
    /// Azimuth from north, clockwise, [0, 360]; not-a-number where rounding leaves none (zenith, poles).
    [[nodiscard]] double SunAzimuth(double declination, double gha, double altitude) const;
    /// Refraction at a true altitude [deg]; Saemundsson's formula (Meeus ch. 15).
    [[nodiscard]] double Refract(double altitude) const;

    // Events of the Sun (FastAstro_SunEvents.cpp).

    /// The parabola through y at -1, 0 and +1: YE, Zero1, Zero2, DX. @return how many roots lie in [-1, 1];
    /// of one, Zero1 is the root. Without a real root the roots stay as they were.
    int Quad(double yMinus, double yPlus, double yZero);
    /// Looks for sunrise and sunset (upper limb, altitude -50') within an hour of a full hour of universal
    /// time [h, -24 to 47 of the date]: UTRise and Rise, UTSet and Sett; unchanged where there is none.
    void RiseSet(std::int32_t day, std::int32_t month, std::int32_t year, std::int32_t hour);
    /// Sunrise and sunset of the local day, by the whole hours of the zone: UTRise, UTSet, Rise, Sett. The
    /// hours are those of the universal clock, so that they may belong to the neighbouring date. Accuracy,
    /// 1750 to 2050: within 49 s of tables printed to the minute up to 61 degrees of latitude; from 80
    /// degrees on half of the events are within 40 s, the worst is 13.4 min off. An event at 0:00 itself may
    /// be missed.
    void SunRiseSet(std::int32_t day, std::int32_t month, std::int32_t year);
    /// @param sun in: right ascension; out: rise, set and transit [h universal time], equation of time.
    void SunRiseSetTrans(const DateTimeRecord& date, SunDetails& sun);

    // Prayer times (FastAstro_Prayer.cpp, PrayerDay.cpp).

    /// Qibla and times of the current date into iPlace, which is returned.
    PlaceRecord CalculatePrayTimes();
    /// Qibla and times of the day after the current date into iPlace.
    void CalculateNextPrayTimes();
    /// The times of the current date alone, in about half the time: into iPlace.today the same sixteen times
    /// and the same flags as CalculatePrayTimes, to the last bit. Not filled: `ezani`, SunInfo and the other
    /// fields of the Sun, which mean nothing afterwards. Saved is the search for yesterday's rise and set
    /// where one cosine shows that it has both (DayArc.h says when); elsewhere it is made as ever.
    const PrayerTimes& CalculatePrayTimesOnly();
    /// The sixteen times of a date in the zone of iPlace. @param elevation true: temkin for 500 m, false: for
    /// 250 m. @param out in, out: index 13, and flags and latitude that do not apply, stay. @param qibla of
    /// the place, for the qibla time. Accuracy of the events behind the times (temkin and fixed additions
    /// taken off), at twelve places up to 60 degrees of latitude in 2026 and 2027: transit within 13 s; rise,
    /// set and the 5 degree times 37 s; shadows 29 s; dawn 39 s; nightfall 41 s; second nightfall 70 s;
    /// and 1 h 45 min for the 5 degree times on days whose second nightfall is taken from an earlier day.
    /// Elsewhere it can be worse, most of all where the Sun only just reaches the altitude.
    void CalculateAllPrayTimes(double latitude, double longitude, std::int32_t day, std::int32_t month,
                               std::int32_t year, std::int32_t hour, std::int32_t minute, std::int32_t second,
                               bool elevation, PrayerTimes& out, const QiblaRecord& qibla);
    /// The time at which the Sun stands at an altitude, by iteration. @param longitudeTerm minus the
    /// longitude, as time [h]. @param temkin signed [h]. @param timeZone [h]. @param time out: local time,
    /// may be not-a-number. @param altitude 1 or 2: the shadow rules. @param direction -1 morning, +1
    /// afternoon. @return whether the event occurs.
    bool Iterasyon(double latitude, double longitudeTerm, double temkin, double timeZone, double& time,
                   std::int32_t altitude, std::int32_t direction, SunInfoForPray info) const;
    /// What the times of a date need of the Sun; also left in SunInfo.
    SunInfoForPray SunInformationForPray(std::int32_t day, std::int32_t month, std::int32_t year);
    /// The same without rises and sets: declinations and equations of time; positions 6 to 9 stay.
    SunInfoForPray SunPositionsForPray(std::int32_t day, std::int32_t month, std::int32_t year);
    /// @param hours in, out: rounded to the nearest minute, and one second more.
    void MinuteCorrection(double& hours) const;
    /// Direction of the Kaaba on the sphere (FastAstro_Qibla.cpp). Accuracy: the Kaaba is taken a kilometre
    /// too far to the northwest, which turns the direction by up to 0.1 degree at 600 km, 1.2 at 50 km and 73
    /// at 1.1 km.
    [[nodiscard]] QiblaRecord KibleAcisi(double latitude, double longitude) const;
    /// @param shift [h]. @param times in, out: every time that occurs is moved; of the middle and the first
    /// third of the night, 24 h are then taken off where they are reached.
    void SetPrayTimesToDSTTimes(double shift, PrayerTimes& times) const;
    /// Why a time of the current date, or of another one with today's zone, is what it is. Computes the day
    /// once more beside this engine. @param index position in PrayerTimes::times; outside 0 to 15 the rule is
    /// none.
    [[nodiscard]] PrayTimeExplanation ExplainPrayTime(int index) const;
    [[nodiscard]] PrayTimeExplanation ExplainPrayTime(int index, const DateTimeRecord& date) const;
    /// The times of the current date as CalculatePrayTimesOnly gives them, to the last bit, with all
    /// explanations from the very same computation. Sets the qibla of iPlace and leaves its times alone; the
    /// fields of the Sun mean nothing afterwards.
    [[nodiscard]] ExplainedPrayTimes CalculateExplainedPrayTimes();

    // Sunset-based clock: 12 h is the sunset prayer (FastAstro_Ezani.cpp).

    /// The hours cut off to the minute, in single precision.
    [[nodiscard]] double TimeToHourDeg(double hours) const;
    /// A local time on the sunset-based clock, at most 13.
    [[nodiscard]] double CalculateEzaniTimes(double time, const PrayerTimes& times) const;
    /// @param times in: the times; out: `ezani`, but for index 13 and a dawn that does not occur.
    void CalculateAllEzaniTimes(PrayerTimes& times) const;

    // Position of the Moon (FastAstro_Moon.cpp).

    /// Short series: MoonDec, MoonRA, MoonGHA, L_Moon, B_Moon. Accuracy: within 0.15 degree of
    /// MoonDecRAAccurate from 1900 to 2100.
    void MoonDecRA(double julianDay);
    /// Theory of MoonCompute: MoonDec, MoonRA, MoonDist, MoonGHA.
    void MoonDecRAAccurate(double julianDay);
    /// Local mean sidereal time [s], within one day either way.
    [[nodiscard]] double MoonSideRealTime(double julianDay) const;
    /// Geocentric altitude by the short series; also left in MoonAlt.
    double MoonTrueAltitude(double julianDay);
    /// Distance [km] by a short series of the parallax. Accuracy: within 1500 km of MoonDecRAAccurate from
    /// 1900 to 2100.
    [[nodiscard]] double MoonDistance(double julianDay) const;
    /// Parallax in altitude [deg]. @param distance [km].
    [[nodiscard]] double MoonParallax(double altitude, double distance) const;
    /// Topocentric altitude with (a small part of) the refraction. @param record universal time.
    double MoonAppAltitude(const DateTimeRecord& record);
    /// Azimuth from north, clockwise, [0, 360]; not-a-number where rounding leaves none (zenith, poles).
    [[nodiscard]] double MoonAzimuth(double declination, double gha, double altitude) const;
    /// The observer on the ellipsoid of the Earth: tLat, trho.
    void CalculateTLong();
    /// @param rightAscension, declination in, out [rad]. @param siderealAngle local [rad].
    void DiurnalAberration(double& rightAscension, double& declination, double siderealAngle) const;
    /// The same for the parallax of the observer at tLat and trho. @param distance of the body [au]; beyond
    /// 1758.8 au nothing changes.
    void DiurnalParallax(double& rightAscension, double& declination, double siderealAngle,
                         double distance) const;
    /// Topocentric altitude without refraction, and azimuth from north, clockwise, for declination, right
    /// ascension, sidereal time and distance in `Moon` and the observer at tLat and trho. Both out.
    void MoonAltitudeAzimuth(double& altitude, double& azimuth) const;
    /// Radians to degrees, not negative.
    [[nodiscard]] double MoonLambda(double radians) const;

    // Events of the Moon (FastAstro_MoonEvents.cpp).

    /// Sine of the geocentric altitude by MoonSideRealTime; the longitude is `Lon`, the third argument is not
    /// used.
    [[nodiscard]] double SinElev2(double julianDay, double latitude, double westLongitude, double declination,
                                  double rightAscension) const;
    /// Looks for moonrise and moonset (altitude +0.1333) within an hour of a full hour of universal time [h,
    /// -24 to 47 of the date]: MoonRise, MoonSet; unchanged where there is none.
    void MoonRiseSet(std::int32_t day, std::int32_t month, std::int32_t year, std::int32_t hour);
    /// The first moonrise of the local day, by the whole hours of the zone: MoonRise, -1650 without one.
    /// MoonDay.h has the events by the clock of the place. Accuracy, 1750 to 2050: within 72 s of tables
    /// printed to the minute up to 61 degrees of latitude; from 80 degrees on half of the events are within
    /// 61 s, the worst is 9.4 min off, and one in twenty is missed.
    void MoonRiseTime(std::int32_t day, std::int32_t month, std::int32_t year);
    /// The same for moonset: MoonSet. Accuracy: as for moonrise.
    void MoonSetTime(std::int32_t day, std::int32_t month, std::int32_t year);
    /// Always 25 h 1 min, wherever the Moon culminates; also left in MoonTrans. MoonDay.h has the transit.
    double MoonTransTime(std::int32_t day, std::int32_t month, std::int32_t year);
    /// @param moon out: rise, set and transit as the three above find them.
    void MoonRiseSetTrans(const DateTimeRecord& date, MoonInfo& moon);

    // Phases of the Moon (FastAstro_MoonPhases.cpp).

    /// Illuminated part of the disc, 0 to 1. Accuracy: within 0.01 of what MoonElongation gives, 1600 to
    /// 2400.
    [[nodiscard]] double Phase(double T) const;
    /// Distance of the Moon from the Sun on the sky, 0 to 180.
    double MoonElongation(double julianDay);
    /// An angle brought into [0, 360).
    [[nodiscard]] double ToDeg(double degrees) const;
    /// Julian day of uniform time of the principal phase in the lunation of a decimal year. @param phase 0
    /// new moon, 1 full moon, 2 first quarter, 3 last quarter; any other: the mean new moon. Every phase is
    /// 0.09765 day early; NextPhases in MoonDay.h puts that right. Accuracy: within 0.001 day of Meeus's
    /// examples 47.a (1977) and 47.b (2044) less that constant.
    [[nodiscard]] double MoonPhaze(double decimalYear, int phase) const;

    // Records of the Moon (FastAstro_MoonInfo.cpp). Their date and time are universal time.

    /// Everything in `Moon`, which is returned, but rise, transit and set. Moves the engine to the place.
    MoonInfo MoonInformation(const DateTimeRecord& record, double latitude, double longitude);
    /// Events of the record's date in local time (-1650 is moved by the zone too), altitude, azimuth and
    /// elongation. @param out but for its first four fields.
    void MoonInformationForDirection(const DateTimeRecord& record, MoonDirectionInfo& out);
    /// The same with the events in universal time.
    void MoonInformationForDirectionWithoutLocalTime(const DateTimeRecord& record, MoonDirectionInfo& out);
    /// @param place not used: the engine's own counts. @param out but for its first two fields.
    void MoonInformationforCrescent(const DateTimeRecord& date, const PlaceRecord& place,
                                    MoonCrescentInfo& out);

    // Hijri calendar (FastAstro_Crescent.cpp, FastAstro_Hijri.cpp).

    /// @param record in: universal time of a new moon; out: when the Moon then is 7.972 to 7.982 degrees away
    /// from the Sun, to the minute. The search ends after 1000 h without that.
    void GetCrescentDate(DateTimeRecord& record);
    /// The observed month that a civil date lies in; nothing when no new moon fits. Moves the engine's place
    /// to the reference place of the crescent, as every observation-based date does.
    std::optional<HijriMonthStart> FindHijriMonth(std::int32_t year, std::int32_t month, std::int32_t day);
    /// Observation-based Hijri date of a civil date: the day of the observed month, month and year of the
    /// arithmetic calendar. The arithmetic date where no month is found. From 1900 to 2100 the two calendars
    /// are at most 3 days apart.
    void _RealGregJulToHicri(std::int32_t day, std::int32_t month, std::int32_t year, HijriDate& out);
    /// The same, a day 30 belonging to the month of the day before.
    void RealGregJulToHicri(std::int32_t day, std::int32_t month, std::int32_t year, HijriDate& out);
    /// Civil, observation-based Hijri and Rumi date, and the half of the year.
    void ConvertAllCalendar(const DateTimeRecord& date, AllCalendarRecord& out);

    // Widget summary and records of the Sun (FastAstro_Widget.cpp).

    /// Events of the current date at iPlace's zone.
    WidgetAstroInfo getSomeInfoForZorelWidget();
    /// Everything in `Sun`, which is returned. Moves the engine to the place. @param record universal time;
    /// rise and set of its date come in local time, the transit in universal time.
    SunDetails SunInformation(const DateTimeRecord& record, double latitude, double longitude);
    /// Rise and set of the record's date in local time, azimuth and altitude at its universal time.
    void SunInformationForDirection(const DateTimeRecord& record, SunDirectionInfo& out);
    /// Rise and set of the record's date in universal time.
    void SunInformationForCrescent(const DateTimeRecord& record, SunCrescentInfo& out);

private:
    /// Hours from universal to local time, whole; absurd zones are brought into a countable range.
    [[nodiscard]] std::int32_t wholeZone() const;
    /// Sine of the Sun's altitude above the altitude of its rise, at a full hour of universal time.
    double riseSine(std::int32_t year, std::int32_t month, std::int32_t day, std::int32_t hour);
    /// Position of the Sun and sine of its altitude at an instant, remembered.
    const HourSun& sunAtHour(double julianDay);
    /// The accurate position and the equation of time at an instant, remembered.
    DaySun sunAtMidnight(double julianDay);
    /// Hour angle of the Sun at an instant from a position at most days away [deg], to a fraction of a
    /// degree.
    [[nodiscard]] double hourAngleNear(const DaySun& sun, double julianDay) const;
    /// Searches only hours that may hold a rise or set; false when it did not find both.
    bool searchLikelyHours(std::int32_t year, std::int32_t month, std::int32_t day, std::int32_t zone);
    bool recallRiseSet(std::int32_t year, std::int32_t month, std::int32_t day, std::int32_t zone);
    void rememberRiseSet(std::int32_t year, std::int32_t month, std::int32_t day, std::int32_t zone);
    void clearRiseSet();
    /// Direction of the Kaaba from iPlace, remembered for the place asked last.
    QiblaRecord qiblaOfPlace();
    /// Declination and equation of time of a day into SunInfo, at `position` and `position` + 3.
    void sunInfoOfDay(double julianDay, int position);

    /// MoonSideRealTime in hours.
    [[nodiscard]] double moonSiderealHours(double julianDay) const;
    /// Searches the day hour by hour until `event`, which is MoonRise or MoonSet, is found.
    void SearchMoonEvent(double& event, std::int32_t year, std::int32_t month, std::int32_t day);
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

    /// A place and its qibla. The place counts with its last bit: the qibla of -0.0 is not that of 0.0.
    struct KnownQibla {
        double latitude = kNeverEqual;
        double longitude = kNeverEqual;
        QiblaRecord qibla;
    };

    SunCache sunCache;
    KnownQibla knownQibla;
    MoonDayScan moonDayScan;
    std::array<CachedMonthStart, 16> monthStarts{};
    std::size_t nextMonthStart = 0;
};

} // namespace zorel
