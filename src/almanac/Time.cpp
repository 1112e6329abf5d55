// SPDX-License-Identifier: Apache-2.0
#include "almanac/Time.h"

#include <cmath>

namespace zorel::almanac {

namespace {
using std::chrono::days;
using std::chrono::milliseconds;
using std::chrono::seconds;
using std::chrono::sys_days;

constexpr std::chrono::year kFirstYear{1583};
constexpr std::chrono::year kLastYear{9998};
constexpr double kJulianDayOf1970 = 2440587.5;
constexpr double kSecondsPerDay = 86400.0;
} // namespace

Date addDays(Date date, int count) {
    return Date(sys_days(date) + days(count));
}

std::int64_t daysBetween(Date first, Date last) {
    return (sys_days(last) - sys_days(first)).count();
}

bool isInRange(Date date) {
    return date.ok() && date.year() >= kFirstYear && date.year() <= kLastYear;
}

DateTimeRecord engineDate(Date date) {
    return DateRecordMake(static_cast<std::int32_t>(static_cast<unsigned>(date.day())),
                          static_cast<std::int32_t>(static_cast<unsigned>(date.month())),
                          static_cast<std::int32_t>(date.year()), 0, 0, 0);
}

Date dateOf(const DateTimeRecord& record) {
    return {std::chrono::year{record.year}, std::chrono::month{static_cast<unsigned>(record.month)},
            std::chrono::day{static_cast<unsigned>(record.day)}};
}

DateTimeRecord engineInstant(Instant instant) {
    const sys_days midnight = std::chrono::floor<days>(instant);
    DateTimeRecord record = engineDate(Date(midnight));
    const std::chrono::hh_mm_ss<seconds> time(instant - midnight);
    record.hour = static_cast<std::int32_t>(time.hours().count());
    record.minute = static_cast<std::int32_t>(time.minutes().count());
    record.second = static_cast<std::int32_t>(time.seconds().count());
    return record;
}

double julianDayOf(Instant instant) {
    return kJulianDayOf1970 + static_cast<double>(instant.time_since_epoch().count()) / kSecondsPerDay;
}

ExactInstant instantOfJulianDay(double julianDay) {
    return ExactInstant(
        milliseconds(std::llround((julianDay - kJulianDayOf1970) * (kSecondsPerDay * 1000.0))));
}

} // namespace zorel::almanac
