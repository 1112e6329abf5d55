// SPDX-License-Identifier: Apache-2.0
/// @file
/// The records that pass in and out of the engine: plain structures, copied by value.
/// Angles are degrees (latitude north positive, longitude east positive), right ascension and sidereal time
/// are hours, times of day are decimal hours. A solar event that does not occur is -1, a lunar one -1650.
#pragma once

#include <array>
#include <cstdint>

namespace zorel {

/// Solar event that does not occur.
inline constexpr double kNoSolarEvent = -1.0;
/// Lunar event that does not occur.
inline constexpr double kNoLunarEvent = -1650.0;

/// A civil date and time: month 1 to 12, day 1 to 31.
struct DateTimeRecord {
    std::int32_t year = 0;
    std::int32_t month = 0;
    std::int32_t day = 0;
    std::int32_t hour = 0;
    std::int32_t minute = 0;
    std::int32_t second = 0;
    double fraction = 0.0; ///< fraction of the current second; only the clock writes it

    friend bool operator==(const DateTimeRecord&, const DateTimeRecord&) = default;
};

DateTimeRecord DateRecordMake(std::int32_t day, std::int32_t month, std::int32_t year, std::int32_t hour,
                              std::int32_t minute, std::int32_t second);

/// The sixteen times of one day [decimal hours of local time, -1 where there is none] and the same events on
/// the sunset-based clock. Parts of the night are counted from the sunset and the dawn of this record, so
/// that they may lie outside 0 to 24.
struct PrayerTimes {
    /// Positions in `times` and `ezani`.
    enum Index : int {
        dawn = 0,
        sunrise = 1,
        noon = 2,
        afternoon = 3,
        sunset = 4,
        nightfall = 5,
        secondAfternoon = 6,
        secondNightfall = 7,
        morningFiveDegrees = 8,
        afternoonFiveDegrees = 9,
        transitMinusTemkin = 10,
        lastSixthOfNight = 11,
        qiblaTime = 12,
        unused = 13,
        middleOfNight = 14,
        firstThirdOfNight = 15,
    };

    std::array<double, 16> times{};
    std::array<double, 16> ezani{}; ///< [h]; a working value [min] at `sunrise` until they are computed
    double priorLatitude = 0.0;     ///< final lowered latitude plus one [deg]; written only when lowered
    bool latitudeLowered = false;
    bool dawnFromOtherDay = false;
    bool nightfallFromOtherDay = false;
    bool secondNightfallFromOtherDay = false;

    friend bool operator==(const PrayerTimes&, const PrayerTimes&) = default;
};

/// What the prayer times of a day need to know of the Sun. Positions 1 and 4 are never written.
struct SunInfoForPray {
    std::array<double, 10> field{};

    [[nodiscard]] double declinationToday() const { return field[0]; }       ///< [deg]
    [[nodiscard]] double declinationTomorrow() const { return field[2]; }    ///< [deg]
    [[nodiscard]] double equationOfTimeToday() const { return field[3]; }    ///< [h]
    [[nodiscard]] double equationOfTimeTomorrow() const { return field[5]; } ///< [h]
    [[nodiscard]] double sunriseYesterday() const { return field[6]; }       ///< [h UT], -1 if none
    [[nodiscard]] double sunsetYesterday() const { return field[7]; }        ///< [h UT], -1 if none
    [[nodiscard]] double sunriseToday() const { return field[8]; }           ///< [h UT], -1 if none
    [[nodiscard]] double sunsetToday() const { return field[9]; }            ///< [h UT], -1 if none
};

/// Direction of the Kaaba: q0 [rad], an auxiliary angle of the qibla time; q1 [deg], the qibla angle counted
/// anticlockwise from north (the compass bearing is 360 - q1, brought into [0, 360)).
struct QiblaRecord {
    double q0 = 0.0;
    double q1 = 0.0;
};

/// A place, its clock and its times.
struct PlaceRecord {
    double latitude = 0.0;  ///< [deg]
    double longitude = 0.0; ///< [deg]
    double timeZone = 0.0;  ///< [h] east of Greenwich, one more while daylight saving is in force
    bool dstInUse = false;  ///< the place has a daylight-saving rule
    double dstShift = 0.0;  ///< [h]
    // The rule, coded as for AstroGlobalFuncs::IsDSTDay.
    std::int32_t startDay = 0;
    std::int32_t startMonth = 0;
    std::int32_t stopDay = 0;
    std::int32_t stopMonth = 0;
    bool elevation = false; ///< true: temkin for 500 m, false: for 250 m
    bool dstActive = false; ///< daylight saving is in force on the current date
    PrayerTimes today;
    PrayerTimes tomorrow;
    QiblaRecord qibla;
};

/// The Sun at an instant and the events of its day.
struct SunDetails {
    double declination = 0.0;    ///< [deg]
    double rightAscension = 0.0; ///< [h]
    double altitude = 0.0;       ///< [deg]
    double azimuth = 0.0;        ///< [deg] from north, clockwise
    double rise = 0.0;           ///< [h], local or universal time as the operation says, -1 if none
    double transit = 0.0;        ///< [h] of universal time
    double set = 0.0;            ///< [h], as rise
    double siderealTime = 0.0;   ///< [h] local mean
    double equationOfTime = 0.0; ///< [min]
    double distance = 0.0;       ///< [au]
    double diameter = 0.0;       ///< [arcmin]
    double shadowRatio = 0.0;    ///< shadow of a staff of length 1
    double gha = 0.0;            ///< Greenwich hour angle [deg]
};

/// Rise, set and direction of the Sun.
struct SunDirectionInfo {
    double rise = 0.0;     ///< [h local], -1 if none
    double set = 0.0;      ///< [h local], -1 if none
    double azimuth = 0.0;  ///< [deg] from north, clockwise
    double altitude = 0.0; ///< [deg]
};

/// Rise and set of the Sun in universal time [h], -1 if none.
struct SunCrescentInfo {
    double rise = 0.0;
    double set = 0.0;
};

/// The Moon at an instant.
struct MoonInfo {
    double declination = 0.0;        ///< [deg]
    double rightAscension = 0.0;     ///< [h]
    double geocentricAltitude = 0.0; ///< [deg]
    double apparentAltitude = 0.0;   ///< topocentric [deg]
    double azimuth = 0.0;            ///< [deg] from north, clockwise
    double rise = 0.0;               ///< [h], local or universal time as the operation says, or -1650
    double transit = 0.0;            ///< [h]; see FastAstro::MoonTransTime
    double set = 0.0;                ///< [h], as rise
    double siderealTime = 0.0;       ///< local [h]
    double distance = 0.0;           ///< [km]
    double horizontalParallax = 0.0; ///< [deg]
    double semiDiameter = 0.0;       ///< [deg]
    double elongation = 0.0;         ///< from the Sun [deg]
    double illuminated = 0.0;        ///< [%]
    bool waxing = false;
    double gha = 0.0; ///< Greenwich hour angle [deg]
};

/// Rise, set and direction of the Moon. The first four fields are the caller's own.
struct MoonDirectionInfo {
    std::array<double, 4> untouched{};
    double rise = 0.0;             ///< [h], or -1650
    double set = 0.0;              ///< [h], or -1650
    double azimuth = 0.0;          ///< [deg] from north, clockwise
    double apparentAltitude = 0.0; ///< topocentric [deg]
    double elongation = 0.0;       ///< [deg]
};

/// What the crescent search asks of the Moon; the first two fields are the caller's own.
struct MoonCrescentInfo {
    std::array<double, 2> untouched{};
    double apparentAltitude = 0.0; ///< topocentric [deg]
    double elongation = 0.0;       ///< [deg]
};

/// Events of the day beside the prayer times, as a widget shows them. On a day with only a sunrise or only a
/// sunset, that one is in universal time.
struct WidgetAstroInfo {
    double sunrise = 0.0;              ///< [h local], -1 if none
    double sunset = 0.0;               ///< [h local], -1 if none
    double moonrise = 0.0;             ///< [h local], below zero if none
    double moonset = 0.0;              ///< [h local], below zero if none
    double moonAltitudeAtSunset = 0.0; ///< [deg], -1650 if the Sun does not rise or set
};

/// Hijri date: month 1 to 12, day 1 to 30. Before the Hijri epoch year and month are -1, and so is the day of
/// the arithmetic calendar.
struct HijriDate {
    std::int32_t year = 0;
    std::int32_t month = 0;
    std::int32_t day = 0;

    friend bool operator==(const HijriDate&, const HijriDate&) = default;
};

/// One day in every calendar.
struct AllCalendarRecord {
    std::int32_t day = 0;
    std::int32_t month = 0;
    std::int32_t year = 0;
    std::int32_t weekday = 0; ///< 0 = Sunday
    std::int32_t hijriDay = 0;
    std::int32_t hijriMonth = 0;
    std::int32_t hijriYear = 0;
    std::int32_t summerHalf = 0; ///< 1 from 6 May to 7 November, else 0
    std::int32_t rumiDay = 0;
    std::int32_t rumiMonth = 0; ///< 1 = March
    std::int32_t rumiYear = 0;
    std::int32_t dayOfHalf = 0; ///< 1 on the first day of the half-year
};

} // namespace zorel
