// SPDX-License-Identifier: Apache-2.0
/// @file
/// Calendar arithmetic and small numeric functions on which every computation of the engine stands.
#pragma once

#include "engine/Records.h"

#include <cstdint>

namespace zorel {

/// Julian days, calendar dates, weekdays, daylight-saving rules and number helpers. Holds no state.
///
/// Gregorian calendar from 15 October 1582, Julian before; no year 0 (the year before 1 is counted 1 - year).
/// Not modelled: delta-T, leap seconds, time zones. Source: Meeus, Astronomical Algorithms, ch. 7, in
/// truncating integer form.
class AstroGlobalFuncs {
public:
    [[nodiscard]] double CalculateJulianDay(std::int32_t year, std::int32_t month, std::int32_t day,
                                            std::int32_t hour, std::int32_t minute,
                                            std::int32_t second) const;
    [[nodiscard]] double JulianDay(const DateTimeRecord& record) const;
    /// Returns the day of the month with its fraction; writes `record` only when `write` is not 0.
    double JulianToCalendar(double julianDay, DateTimeRecord& record, int write) const;
    /// As JulianToCalendar, but the day is the next one when it lies within 0.00001 of it.
    [[nodiscard]] DateTimeRecord JulianToGregorian(double julianDay) const;
    /// 0 = Sunday ... 6 = Saturday.
    [[nodiscard]] int DayOfWeek(std::int32_t year, std::int32_t month, std::int32_t day) const;
    /// Whether the date lies in daylight saving. `startDayOut`, `stopDayOut`: the days a weekday rule
    /// resolves to.
    bool IsDSTDay(std::int32_t startDay, std::int32_t startMonth, std::int32_t stopDay,
                  std::int32_t stopMonth, std::int32_t year, std::int32_t month, std::int32_t day,
                  std::int32_t& startDayOut, std::int32_t& stopDayOut) const;
    /// x minus its integer part; negative for a negative x.
    [[nodiscard]] double frac(double x) const;
    /// x rounded to `decimals` places through single precision, ties away from zero.
    [[nodiscard]] double Round(double x, int decimals) const;
    /// Hours, any size, to hour (0 to 23), minute and second, all truncated.
    void ToHMS(double hours, std::int32_t& hour, std::int32_t& minute, std::int32_t& second) const;
    /// Angle of (x, y) [rad], 0 to 2 pi, in single precision.
    [[nodiscard]] double ZArcTan2(double x, double y) const;
    /// The current date and time in the local time zone of the process, by the system's clock.
    [[nodiscard]] DateTimeRecord GetCurrentDateTime() const;
    /// The same into a record; its fraction of the second stays.
    void GetCurrentDateTime(DateTimeRecord& record) const;
    /// Arithmetic Hijri date of a whole Julian day number.
    [[nodiscard]] HijriDate JulianToHicri(double julianDay) const;
    /// Arithmetic Hijri date of a civil date.
    [[nodiscard]] HijriDate GregJulToHicri(std::int32_t day, std::int32_t month, std::int32_t year) const;
};

} // namespace zorel
