// SPDX-License-Identifier: Apache-2.0
/// @file
/// Dates and spans of time in the words of the language in use.
#pragma once

#include "almanac/Time.h"
#include "engine/Records.h"

#include <chrono>
#include <string>

namespace zorel::cli {

/// "21 November 2026, Saturday".
[[nodiscard]] std::string longDate(almanac::Date date);
/// "3 May".
[[nodiscard]] std::string dayAndMonth(almanac::Date date);
/// "November 2026".
[[nodiscard]] std::string monthAndYear(std::chrono::year_month month);
/// "11 Jumada II 1448"; empty before the Hijri epoch.
[[nodiscard]] std::string hijriText(const AllCalendarRecord& calendars);
/// "11 Jumada II"; empty before the Hijri epoch.
[[nodiscard]] std::string hijriDayAndMonth(const AllCalendarRecord& calendars);
/// "Ramadan 1448".
[[nodiscard]] std::string hijriMonthAndYear(int month, int year);
/// "8 November 1442".
[[nodiscard]] std::string rumiText(const AllCalendarRecord& calendars);
/// "January", standing alone. @param month 1 to 12; nothing for others.
[[nodiscard]] std::string monthName(unsigned month);
/// "Jan".
[[nodiscard]] std::string shortMonthName(unsigned month);
[[nodiscard]] std::string hijriMonthName(int month);
[[nodiscard]] std::string rumiMonthName(int month);
/// @param weekday 0 is Sunday.
[[nodiscard]] std::string weekdayName(int weekday);
[[nodiscard]] std::string weekdayName(almanac::Date date);
/// "2 h 5 min", "5 min" or "less than a minute"; whole minutes, rounded down.
[[nodiscard]] std::string durationText(std::chrono::seconds duration);
/// "clock +1 h".
[[nodiscard]] std::string clockChangeText(std::chrono::seconds change);

} // namespace zorel::cli
