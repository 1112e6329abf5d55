// SPDX-License-Identifier: Apache-2.0
/// @file
/// Calendar arithmetic and small numeric functions on which every computation of the engine stands.
#pragma once

#include "engine/Api.h"
#include "engine/Records.h"

#include <cstdint>

namespace zorel {

/// Julian days, calendar dates, weekdays, daylight-saving rules and number helpers. Holds no state.
///
/// Gregorian calendar from 15 October 1582, Julian before; no year 0 (the year before 1 is counted 1 - year).
/// Not modelled: delta-T, leap seconds, time zones. Source: Meeus, Astronomical Algorithms, ch. 7, in
/// truncating integer form. Fields out of their range (day 0, month 13, hour 30) are counted on without a
/// check; nothing fails.
class ZOREL_API AstroGlobalFuncs {
public:
    /// Julian day of a civil date and time, 50 us after its second, so that truncation finds the second
    /// again.
    [[nodiscard]] double CalculateJulianDay(std::int32_t year, std::int32_t month, std::int32_t day,
                                            std::int32_t hour, std::int32_t minute,
                                            std::int32_t second) const;
    [[nodiscard]] double JulianDay(const DateTimeRecord& record) const;
    /// Civil date and time of a Julian day. @param record out, when `write` is not 0: truncated to the
    /// second; its fraction stays. @return day of the month with its fraction.
    double JulianToCalendar(double julianDay, DateTimeRecord& record, int write) const;
    /// As JulianToCalendar, but the day is the next one when it lies within 0.00001 of it.
    [[nodiscard]] DateTimeRecord JulianToGregorian(double julianDay) const;
    /// 0 = Sunday ... 6 = Saturday.
    [[nodiscard]] int DayOfWeek(std::int32_t year, std::int32_t month, std::int32_t day) const;
    /// Whether the date lies in daylight saving; false for a date that does not exist. Months of a rule count
    /// from 0; a day below 31 is a day of the month from 0, 31 + 5 * weekday + n the n-th weekday (0 =
    /// Sunday; n from 0, 4 = the last), from 66 on there is no such day. @param startDayOut, stopDayOut out:
    /// the days of the month that weekday rules resolve to, else -1.
    bool IsDSTDay(std::int32_t startDay, std::int32_t startMonth, std::int32_t stopDay,
                  std::int32_t stopMonth, std::int32_t year, std::int32_t month, std::int32_t day,
                  std::int32_t& startDayOut, std::int32_t& stopDayOut) const;
    /// x minus its integer part; negative for a negative x.
    [[nodiscard]] double frac(double x) const;
    /// x rounded to `decimals` places through single precision, ties away from zero.
    [[nodiscard]] double Round(double x, int decimals) const;
    /// Hours, any size, to hour (0 to 23), minute and second, all truncated.
    void ToHMS(double hours, std::int32_t& hour, std::int32_t& minute, std::int32_t& second) const;
    /// Angle of the point (x, y) [rad], 0 to 2 pi, in single precision; 0 at the origin.
    [[nodiscard]] double ZArcTan2(double x, double y) const;
    /// The current date and time in the local time zone of the process, by the system's clock.
    [[nodiscard]] DateTimeRecord GetCurrentDateTime() const;
    /// The same into a record; its fraction of the second stays.
    void GetCurrentDateTime(DateTimeRecord& record) const;
    /// Arithmetic Hijri date of a whole Julian day number; all -1 before the epoch.
    [[nodiscard]] HijriDate JulianToHicri(double julianDay) const;
    /// The same of a civil date.
    [[nodiscard]] HijriDate GregJulToHicri(std::int32_t day, std::int32_t month, std::int32_t year) const;

private:
    /// Whether a date is counted by the Julian calendar.
    [[nodiscard]] static bool isJulianDate(std::int32_t year, std::int32_t month, std::int32_t day);
};

} // namespace zorel
