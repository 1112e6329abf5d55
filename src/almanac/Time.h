// SPDX-License-Identifier: Apache-2.0
/// @file
/// Dates, instants and local times of the almanac, and the one reader and writer of their texts.
///
/// Civil dates are Gregorian, years 1583 to 9998. An instant is one of universal time (UTC as POSIX counts
/// it).
#pragma once

#include "engine/Api.h"
#include "engine/Records.h"

#include <chrono>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zorel::almanac {

using Date = std::chrono::year_month_day;
/// What is shown, rings and is written: whole seconds.
using Instant = std::chrono::sys_time<std::chrono::seconds>;
/// What is computed: whole milliseconds.
using ExactInstant = std::chrono::sys_time<std::chrono::milliseconds>;

/// What a clock on the wall shows at an instant.
struct LocalTime {
    Date date{};
    std::chrono::seconds timeOfDay{0}; ///< 0:00:00 to 23:59:59
    std::chrono::seconds offset{0};    ///< local minus universal time

    friend bool operator==(const LocalTime&, const LocalTime&) = default;
};

enum class Precision : std::uint8_t { minutes, seconds };

[[nodiscard]] ZOREL_API Date addDays(Date date, int days);
/// Days from `first` to `last`, negative when `last` is earlier.
[[nodiscard]] ZOREL_API std::int64_t daysBetween(Date first, Date last);
/// 1583-01-01 to 9998-12-31, and a day that exists.
[[nodiscard]] ZOREL_API bool isInRange(Date date);
/// The date at 0:00:00 as the engine's record, and back.
[[nodiscard]] ZOREL_API DateTimeRecord engineDate(Date date);
[[nodiscard]] ZOREL_API Date dateOf(const DateTimeRecord& record);
/// The instant's calendar fields in universal time, as the engine's record.
[[nodiscard]] ZOREL_API DateTimeRecord engineInstant(Instant instant);
[[nodiscard]] ZOREL_API double julianDayOf(Instant instant);
/// The nearest whole millisecond of a Julian day of universal time.
[[nodiscard]] ZOREL_API ExactInstant instantOfJulianDay(double julianDay);

/// "2026-11-21", "today", "tomorrow", "yesterday", "+3" or "-3" (days from today). Nothing for any other
/// text, a date that does not exist, or one out of range.
[[nodiscard]] ZOREL_API std::optional<Date> parseDate(std::string_view text, Date today);

/// A wall-clock moment, with its offset from universal time when the text has one.
struct Moment {
    std::optional<Date> date; ///< nothing when only a time of day was given
    std::chrono::seconds timeOfDay{0};
    std::optional<std::chrono::seconds> offset; ///< within 14 h
};

/// "2026-11-21T15:04", with ":05" seconds, "T" or a blank, "Z", "+03:00", "+0300" or "+03"; or a time alone,
/// "15:04".
[[nodiscard]] ZOREL_API std::optional<Moment> parseMoment(std::string_view text);
/// "2026-11-21".
[[nodiscard]] ZOREL_API std::string isoDate(Date date);
/// "2026-11-21T15:04:00+03:00"; a zero offset is written "+00:00".
[[nodiscard]] ZOREL_API std::string isoDateTime(const LocalTime& time);
/// "+03:00"; with seconds only where there are any.
[[nodiscard]] ZOREL_API std::string isoOffset(std::chrono::seconds offset);
/// "06:32" or "06:32:07".
[[nodiscard]] ZOREL_API std::string clockText(std::chrono::seconds timeOfDay, Precision precision);

} // namespace zorel::almanac
