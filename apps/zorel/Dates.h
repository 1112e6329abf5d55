// SPDX-License-Identifier: Apache-2.0
/// @file
/// Civil dates and instants of the command line. Gregorian calendar, years 1583 to 9998; instants in whole
/// seconds of universal time, so that no date of that span overflows.
#pragma once

#include "engine/Records.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zorel::cli {

using Date = std::chrono::year_month_day;
using UtcSeconds = std::chrono::sys_time<std::chrono::seconds>;

[[nodiscard]] Date addDays(Date date, int days);
/// Days from `first` to `last`, negative when `last` is earlier.
[[nodiscard]] std::int64_t daysBetween(Date first, Date last);
/// The date at 0:00:00 as the engine's record.
[[nodiscard]] DateTimeRecord engineDate(Date date);
/// The instant's calendar fields in universal time, as the engine's record.
[[nodiscard]] DateTimeRecord engineInstant(UtcSeconds instant);
/// "2026-11-21".
[[nodiscard]] std::string isoDate(Date date);

/// "2026-11-21", "today", "tomorrow", "yesterday", "+3" or "-3" (days from today). Nothing for any other
/// text, a date that does not exist, or one outside 1583 to 9998.
[[nodiscard]] std::optional<Date> parseDate(std::string_view text, Date today);
/// A date as parseDate; anything else ends the command. `option` names the culprit ("--date").
[[nodiscard]] Date requireDate(std::string_view text, Date today, std::string_view option);

/// A wall-clock moment, with its offset from universal time when the text has one.
struct IsoMoment {
    std::optional<Date> date; ///< nothing when only a time of day was given
    std::chrono::seconds timeOfDay{0};
    std::optional<std::chrono::seconds> offset;
};

/// "2026-11-21T15:04", with ":05" seconds, "T" or a blank, "Z", "+03:00", "+0300" or "+03"; or a time alone,
/// "15:04".
[[nodiscard]] std::optional<IsoMoment> parseMoment(std::string_view text);

/// "2026-11-21T15:04:00+03:00"; a zero offset is written "+00:00".
[[nodiscard]] std::string isoDateTime(Date date, std::chrono::seconds timeOfDay, std::chrono::seconds offset);
/// "+03:00".
[[nodiscard]] std::string isoOffset(std::chrono::seconds offset);
/// "20261121T120400Z".
[[nodiscard]] std::string basicUtc(UtcSeconds instant);

} // namespace zorel::cli
