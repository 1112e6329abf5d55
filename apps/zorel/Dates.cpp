// SPDX-License-Identifier: Apache-2.0
#include "Dates.h"

#include "CliError.h"
#include "Scanner.h"

#include <fmt/format.h>

namespace zorel::cli {

namespace {
using std::chrono::days;
using std::chrono::hours;
using std::chrono::minutes;
using std::chrono::seconds;
using std::chrono::sys_days;

constexpr int kFirstYear = 1583;
constexpr int kLastYear = 9998;
constexpr int kLongestStep = 400 * 366;
constexpr seconds kLargestOffset = hours(14);

int yearOf(Date date) {
    return static_cast<int>(date.year());
}
unsigned monthOf(Date date) {
    return static_cast<unsigned>(date.month());
}
unsigned dayOf(Date date) {
    return static_cast<unsigned>(date.day());
}

bool inRange(Date date) {
    return date.ok() && yearOf(date) >= kFirstYear && yearOf(date) <= kLastYear;
}

std::optional<Date> scanDate(Scanner& scan) {
    const auto year = scan.digits(4);
    if (!year || !scan.take('-'))
        return std::nullopt;
    const auto month = scan.digits(2);
    if (!month || !scan.take('-'))
        return std::nullopt;
    const auto day = scan.digits(2);
    if (!day)
        return std::nullopt;
    const Date date{std::chrono::year{*year}, std::chrono::month{static_cast<unsigned>(*month)},
                    std::chrono::day{static_cast<unsigned>(*day)}};
    return inRange(date) ? std::optional(date) : std::nullopt;
}

std::optional<seconds> scanTime(Scanner& scan) {
    const auto hour = scan.digits(2);
    if (!hour || *hour > 23 || !scan.take(':'))
        return std::nullopt;
    const auto minute = scan.digits(2);
    if (!minute || *minute > 59)
        return std::nullopt;
    int second = 0;
    if (scan.take(':')) {
        const auto read = scan.digits(2);
        if (!read || *read > 59)
            return std::nullopt;
        second = *read;
    }
    return hours(*hour) + minutes(*minute) + seconds(second);
}

std::optional<seconds> scanOffset(Scanner& scan) {
    if (scan.take('Z'))
        return seconds(0);
    const bool west = scan.take('-');
    if (!west && !scan.take('+'))
        return std::nullopt;
    const auto hour = scan.digits(2);
    if (!hour)
        return std::nullopt;
    int minute = 0;
    if (!scan.atEnd()) {
        scan.take(':');
        const auto read = scan.digits(2);
        if (!read || *read > 59)
            return std::nullopt;
        minute = *read;
    }
    const seconds size = hours(*hour) + minutes(minute);
    if (size > kLargestOffset)
        return std::nullopt;
    return west ? -size : size;
}

std::optional<Date> parseStep(std::string_view text, Date today) {
    Scanner scan(text.substr(1));
    const auto step = scan.number(kLongestStep);
    if (!step || !scan.atEnd())
        return std::nullopt;
    const Date date = addDays(today, text.front() == '-' ? -*step : *step);
    return inRange(date) ? std::optional(date) : std::nullopt;
}
} // namespace

Date addDays(Date date, int count) {
    return Date(sys_days(date) + days(count));
}

std::int64_t daysBetween(Date first, Date last) {
    return (sys_days(last) - sys_days(first)).count();
}

DateTimeRecord engineDate(Date date) {
    return DateRecordMake(static_cast<std::int32_t>(dayOf(date)), static_cast<std::int32_t>(monthOf(date)),
                          yearOf(date), 0, 0, 0);
}

DateTimeRecord engineInstant(UtcSeconds instant) {
    const auto midnight = std::chrono::floor<days>(instant);
    DateTimeRecord record = engineDate(Date(midnight));
    const std::chrono::hh_mm_ss<seconds> time(instant - midnight);
    record.hour = static_cast<std::int32_t>(time.hours().count());
    record.minute = static_cast<std::int32_t>(time.minutes().count());
    record.second = static_cast<std::int32_t>(time.seconds().count());
    return record;
}

std::string isoDate(Date date) {
    return fmt::format("{:04}-{:02}-{:02}", yearOf(date), monthOf(date), dayOf(date));
}

std::optional<Date> parseDate(std::string_view text, Date today) {
    if (text == "today")
        return today;
    if (text == "tomorrow")
        return addDays(today, 1);
    if (text == "yesterday")
        return addDays(today, -1);
    if (!text.empty() && (text.front() == '+' || text.front() == '-'))
        return parseStep(text, today);
    Scanner scan(text);
    const auto date = scanDate(scan);
    return scan.atEnd() ? date : std::nullopt;
}

Date requireDate(std::string_view text, Date today, std::string_view option) {
    if (const auto date = parseDate(text, today))
        return *date;
    throw CliError(Exit::badUse, fmt::format("{}: {} is not a date", option, quote(text)),
                   "write it as 2026-11-21 (years 1583 to 9998), or today, tomorrow, yesterday, +3, -3");
}

std::optional<IsoMoment> parseMoment(std::string_view text) {
    IsoMoment moment;
    Scanner scan(text);
    if (text.size() > 5 && text[4] == '-') {
        moment.date = scanDate(scan);
        if (!moment.date || (!scan.take('T') && !scan.take(' ')))
            return std::nullopt;
    }
    const auto time = scanTime(scan);
    if (!time)
        return std::nullopt;
    moment.timeOfDay = *time;
    if (scan.atEnd())
        return moment;
    moment.offset = scanOffset(scan);
    return moment.offset && scan.atEnd() ? std::optional(moment) : std::nullopt;
}

std::string isoOffset(seconds offset) {
    const std::chrono::hh_mm_ss<seconds> size(offset < seconds(0) ? -offset : offset);
    const auto sign = offset < seconds(0) ? '-' : '+';
    const std::string text = fmt::format("{}{:02}:{:02}", sign, size.hours().count(), size.minutes().count());
    return size.seconds().count() == 0 ? text : fmt::format("{}:{:02}", text, size.seconds().count());
}

std::string isoDateTime(Date date, seconds timeOfDay, seconds offset) {
    const std::chrono::hh_mm_ss<seconds> time(timeOfDay);
    return fmt::format("{}T{:02}:{:02}:{:02}{}", isoDate(date), time.hours().count(), time.minutes().count(),
                       time.seconds().count(), isoOffset(offset));
}

std::string basicUtc(UtcSeconds instant) {
    const DateTimeRecord at = engineInstant(instant);
    return fmt::format("{:04}{:02}{:02}T{:02}{:02}{:02}Z", at.year, at.month, at.day, at.hour, at.minute,
                       at.second);
}

} // namespace zorel::cli
