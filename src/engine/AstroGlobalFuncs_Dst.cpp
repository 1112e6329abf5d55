// SPDX-License-Identifier: Apache-2.0
// Daylight-saving rules of a place. A rule holds months counted from 0 and day codes: below 31 a day of the
// month counted from 0, from 31 on a weekday of the month (31 + 5 * weekday + occurrence, occurrence 4 = the
// last).
#include "engine/AstroGlobalFuncs.h"
#include "engine/Integers.h"

namespace zorel {

namespace {

constexpr std::int32_t kFirstWeekdayCode = 31;
constexpr std::int32_t kFirstInvalidCode = 66;
constexpr std::int32_t kLastOccurrence = 4;

struct CivilDate {
    std::int32_t year;
    std::int32_t month;
    std::int32_t day;
};

/// Months on the scale 1 to 12.
struct RuleMonths {
    std::int64_t start;
    std::int64_t stop;
};

bool exists(const AstroGlobalFuncs& calendar, std::int32_t year, std::int64_t month, std::int32_t day) {
    DateTimeRecord back;
    calendar.JulianToCalendar(calendar.CalculateJulianDay(year, clampInt(month), day, 0, 0, 0), back, 1);
    return back.year == year && back.month == month && back.day == day;
}

/// The day of the month that a valid weekday code names.
std::int32_t weekdayOfMonth(const AstroGlobalFuncs& calendar, std::int32_t code, std::int32_t year,
                            std::int64_t month) {
    const std::int32_t weekday = (code - kFirstWeekdayCode) / 5;
    const std::int32_t occurrence = (code - kFirstWeekdayCode) % 5;
    const int firstOfMonth = calendar.DayOfWeek(year, clampInt(month), 1);
    const std::int32_t first = 1 + (weekday - firstOfMonth + 7) % 7;
    if (occurrence < kLastOccurrence) {
        return first + 7 * occurrence;
    }
    DateTimeRecord lastOfMonth;
    calendar.JulianToCalendar(calendar.CalculateJulianDay(year, clampInt(month + 1), 0, 0, 0, 0), lastOfMonth,
                              1);
    return first + 28 <= lastOfMonth.day ? first + 28 : first + 21;
}

bool startedByFixedDay(const AstroGlobalFuncs& calendar, std::int32_t code, const RuleMonths& rule,
                       const CivilDate& date) {
    if (!exists(calendar, date.year, rule.start, code + 1)) {
        return false;
    }
    return !(date.month < rule.start || (date.month == rule.start && date.day < code + 1));
}

/// A rule that wraps over the new year counts as started in the early months up to its stop month.
bool startedByWeekday(std::int32_t startDay, const RuleMonths& rule, const CivilDate& date) {
    const bool asked = rule.start < rule.stop || date.month > rule.stop + 1;
    const bool before = date.month < rule.start || (date.month == rule.start && date.day < startDay);
    return !(asked && before);
}

/// A fixed stop day does not wrap over the new year.
bool runsByFixedDay(const AstroGlobalFuncs& calendar, std::int32_t code, const RuleMonths& rule,
                    const CivilDate& date, bool started) {
    if (!exists(calendar, date.year, rule.stop, code + 1) || date.month > rule.stop) {
        return false;
    }
    return date.month == rule.stop && date.day > code ? false : started;
}

bool runsByWeekday(std::int32_t stopDay, const RuleMonths& rule, const CivilDate& date, bool started) {
    if (rule.stop <= rule.start && date.month > rule.start) {
        return started;
    }
    const bool before = date.month < rule.stop || (date.month == rule.stop && date.day < stopDay);
    return before && started;
}

} // namespace

bool AstroGlobalFuncs::IsDSTDay(std::int32_t startDay, std::int32_t startMonth, std::int32_t stopDay,
                                std::int32_t stopMonth, std::int32_t year, std::int32_t month,
                                std::int32_t day, std::int32_t& startDayOut, std::int32_t& stopDayOut) const {
    startDayOut = -1;
    stopDayOut = -1;
    if (!exists(*this, year, month, day)) {
        return false;
    }
    const CivilDate date{year, month, day};
    const RuleMonths rule{std::int64_t{startMonth} + 1, std::int64_t{stopMonth} + 1};
    bool started = false;
    if (startDay < kFirstWeekdayCode) {
        started = startedByFixedDay(*this, startDay, rule, date);
    } else if (startDay < kFirstInvalidCode) {
        startDayOut = weekdayOfMonth(*this, startDay, year, rule.start);
        started = startedByWeekday(startDayOut, rule, date);
    }
    if (stopDay < kFirstWeekdayCode) {
        return runsByFixedDay(*this, stopDay, rule, date, started);
    }
    if (stopDay >= kFirstInvalidCode) {
        return false;
    }
    stopDayOut = weekdayOfMonth(*this, stopDay, year, rule.stop);
    return runsByWeekday(stopDayOut, rule, date, started);
}

} // namespace zorel
