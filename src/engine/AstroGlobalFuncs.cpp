// SPDX-License-Identifier: Apache-2.0
#include "engine/AstroGlobalFuncs.h"

#include "engine/Integers.h"
#include "engine/Single.h"

#include <chrono>
#include <cmath>
#include <ctime>

namespace zorel {

namespace {

/// Guards the truncation to whole seconds on the way back to a calendar date [s].
constexpr double kSecondGuard = 4.999999873689376e-05;
/// Midnight of 1 January of the year 1; earlier years are counted upward from 1.
constexpr double kEraStart = 1721425.5;
/// First day number of the Gregorian calendar.
constexpr double kGregorianStart = 2299160.5;

struct CalendarDay {
    std::int64_t year;
    std::int64_t month;
    double day; // with its fraction
};

CalendarDay calendarDay(double julianDay) {
    const std::int64_t Z = toInt(julianDay + 0.5);
    const std::int64_t A = (Z * 100 + 3204500) / 3652425;
    std::int64_t B = Z + 1524;
    if (static_cast<double>(static_cast<float>(Z)) >= kGregorianStart) {
        B = Z + (A - A / 4) + 1486;
    }
    const std::int64_t G = (B * 100 - 12210) / 36525;
    const std::int64_t D = G * 36525 / 100;
    const std::int64_t E = (B - D) * 100 / 3061;
    CalendarDay result{};
    result.month = E <= 13 ? E - 1 : E - 13;
    result.year = result.month >= 3 ? G - 4716 : G - 4715;
    const std::int64_t wholeDay = B - D - E * 306 / 10;
    result.day = static_cast<double>(wholeDay) + julianDay - static_cast<double>(Z) + 0.5;
    if (julianDay < kEraStart) {
        result.year = 1 - result.year;
    }
    return result;
}

} // namespace

DateTimeRecord DateRecordMake(std::int32_t day, std::int32_t month, std::int32_t year, std::int32_t hour,
                              std::int32_t minute, std::int32_t second) {
    return {year, month, day, hour, minute, second, 0.0};
}

bool AstroGlobalFuncs::isJulianDate(std::int32_t year, std::int32_t month, std::int32_t day) {
    if (year != 1582) {
        return year < 1582;
    }
    return month < 10 || (month == 10 && day < 15);
}

double AstroGlobalFuncs::CalculateJulianDay(std::int32_t year, std::int32_t month, std::int32_t day,
                                            std::int32_t hour, std::int32_t minute,
                                            std::int32_t second) const {
    // There is no year 0: the year before 1 is -1.
    std::int64_t Y = static_cast<std::int64_t>(year) + 4800 + (year < 0 ? 1 : 0);
    std::int64_t M = month;
    if (M < 3) {
        Y -= 1;
        M += 12;
    }
    const std::int64_t K = Y / 100;
    const std::int64_t B = isJulianDate(year, month, day) ? -38 : K / 4 - K;
    const std::int64_t days = B + Y * 36525 / 100 + (M + 1) * 306 / 10 + day;
    const std::int64_t seconds = static_cast<std::int64_t>(hour) * 3600 + std::int64_t{60} * minute + second;
    return static_cast<double>(days) - 32167.5 + (static_cast<double>(seconds) + kSecondGuard) / 86400.0;
}

double AstroGlobalFuncs::JulianDay(const DateTimeRecord& record) const {
    return CalculateJulianDay(record.year, record.month, record.day, record.hour, record.minute,
                              record.second);
}

double AstroGlobalFuncs::JulianToCalendar(double julianDay, DateTimeRecord& record, int write) const {
    const CalendarDay date = calendarDay(julianDay);
    if (write != 0) {
        record.year = clampInt(date.year);
        record.month = clampInt(date.month);
        record.day = toInt(date.day);
        ToHMS(frac(date.day) * 24.0, record.hour, record.minute, record.second);
    }
    return date.day;
}

DateTimeRecord AstroGlobalFuncs::JulianToGregorian(double julianDay) const {
    DateTimeRecord record;
    const double day = JulianToCalendar(julianDay, record, 1);
    record.day = toInt(day + 0.00001);
    return record;
}

int AstroGlobalFuncs::DayOfWeek(std::int32_t year, std::int32_t month, std::int32_t day) const {
    const double days = std::floor(CalculateJulianDay(year, month, day, 0, 0, 0) + 1.5);
    return toInt(days - 7.0 * std::floor(days / 7.0));
}

double AstroGlobalFuncs::frac(double x) const {
    return x - std::trunc(x);
}

double AstroGlobalFuncs::Round(double x, int decimals) const {
    const double p = toInt(std::pow(10.0, decimals));
    return static_cast<double>(std::round(static_cast<float>(p * x))) / p;
}

void AstroGlobalFuncs::ToHMS(double hours, std::int32_t& hour, std::int32_t& minute,
                             std::int32_t& second) const {
    double h = std::fmod(hours, 24.0); // exact, as repeated subtraction is
    if (h < 0.0) {
        h += 24.0;
    }
    if (h >= 24.0) { // a tiny negative number has rounded up
        h -= 24.0;
    }
    hour = toInt(h);
    minute = toInt(frac(h) * 60.0);
    second = toInt(frac(frac(h) * 60.0) * 60.0);
}

double AstroGlobalFuncs::ZArcTan2(double x, double y) const {
    if (x == 0.0) {
        if (y == 0.0) {
            return 0.0;
        }
        return y > 0.0 ? kHalfPi : kThreeHalvesPi;
    }
    if (y == 0.0) {
        return x < 0.0 ? kPi : 0.0;
    }
    double base = 0.0;
    if (x < 0.0) {
        base = kPi;
    } else if (y < 0.0) {
        base = kTwoPi;
    }
    return base + atanSingle(y / x);
}

DateTimeRecord AstroGlobalFuncs::GetCurrentDateTime() const {
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm local{};
    ::localtime_r(&now, &local);
    return DateRecordMake(local.tm_mday, local.tm_mon + 1, local.tm_year + 1900, local.tm_hour, local.tm_min,
                          local.tm_sec);
}

void AstroGlobalFuncs::GetCurrentDateTime(DateTimeRecord& record) const {
    const double fraction = record.fraction;
    record = GetCurrentDateTime();
    record.fraction = fraction;
}

} // namespace zorel
