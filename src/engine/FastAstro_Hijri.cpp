// SPDX-License-Identifier: Apache-2.0
// The observation-based Hijri date and the record of all calendars.
#include "engine/FastAstro.h"
#include "engine/Integers.h"

namespace zorel {

namespace {

/// The arithmetic month lags behind when a month has been seen to begin while the arithmetic one is at its
/// end.
HijriDate observedDate(const HijriDate& arithmetic, std::int32_t day) {
    HijriDate result{arithmetic.year, arithmetic.month, day};
    if (day < 3 && arithmetic.day >= 28) {
        ++result.month;
    }
    if (result.month == 13) {
        result.month = 1;
        result.year = addInt(result.year, 1);
    }
    return result;
}

/// The half of the year that begins on 6 May, or else the one that begins on 8 November.
bool isSummerHalf(std::int32_t month, std::int32_t day) {
    if (month == 5) {
        return day >= 6;
    }
    return (month >= 6 && month <= 10) || (month == 11 && day < 8);
}

double halfYearStart(const AstroGlobalFuncs& calendar, const DateTimeRecord& date, bool summerHalf) {
    if (summerHalf) {
        return calendar.CalculateJulianDay(date.year, 5, 6, 0, 0, 0);
    }
    const std::int32_t year = date.month >= 11 ? date.year : addInt(date.year, -1);
    return calendar.CalculateJulianDay(year, 11, 8, 0, 0, 0);
}

/// Rumi date: the Julian calendar by a fixed 13 days, years counted from March.
void fillRumi(const AstroGlobalFuncs& calendar, const DateTimeRecord& date, AllCalendarRecord& out) {
    DateTimeRecord julian;
    calendar.JulianToCalendar(
        calendar.CalculateJulianDay(date.year, date.month, addInt(date.day, -13), 0, 0, 0), julian, 1);
    const bool beforeMarch = julian.month - 2 < 1;
    out.rumiDay = julian.day;
    out.rumiMonth = beforeMarch ? julian.month + 10 : julian.month - 2;
    out.rumiYear = addInt(julian.year, beforeMarch ? -585 : -584);
}

} // namespace

void FastAstro::_RealGregJulToHicri(std::int32_t day, std::int32_t month, std::int32_t year, HijriDate& out) {
    const HijriDate arithmetic = astroGlobalFuncs.GregJulToHicri(day, month, year);
    const std::optional<HijriMonthStart> found = FindHijriMonth(year, month, day);
    if (!found) {
        out = arithmetic;
        return;
    }
    const double date = astroGlobalFuncs.CalculateJulianDay(year, month, day, 0, 0, 0);
    out = observedDate(arithmetic, toInt(date - found->start + 1.0));
}

void FastAstro::RealGregJulToHicri(std::int32_t day, std::int32_t month, std::int32_t year, HijriDate& out) {
    _RealGregJulToHicri(day, month, year, out);
    if (out.day != 30) {
        return;
    }
    DateTimeRecord before;
    astroGlobalFuncs.JulianToCalendar(astroGlobalFuncs.CalculateJulianDay(year, month, day, 0, 0, 0) - 1.0,
                                      before, 1);
    HijriDate yesterday;
    _RealGregJulToHicri(before.day, before.month, before.year, yesterday);
    out.month = yesterday.month; // the 30th belongs to the month of the 29th; the year stays
}

void FastAstro::ConvertAllCalendar(const DateTimeRecord& date, AllCalendarRecord& out) {
    out.day = date.day;
    out.month = date.month;
    out.year = date.year;
    out.weekday = astroGlobalFuncs.DayOfWeek(date.year, date.month, date.day);
    HijriDate hijri;
    RealGregJulToHicri(date.day, date.month, date.year, hijri);
    out.hijriDay = hijri.day;
    out.hijriMonth = hijri.month;
    out.hijriYear = hijri.year;
    const bool summerHalf = isSummerHalf(date.month, date.day);
    out.summerHalf = summerHalf ? 1 : 0;
    const double today = astroGlobalFuncs.CalculateJulianDay(date.year, date.month, date.day, 0, 0, 0);
    out.dayOfHalf = toInt(today - halfYearStart(astroGlobalFuncs, date, summerHalf) + 1.0);
    fillRumi(astroGlobalFuncs, date, out);
}

} // namespace zorel
