// SPDX-License-Identifier: Apache-2.0
/// @file
/// Every day of a year in a place, and what is marked in its calendar.
#pragma once

#include "almanac/Almanac.h"

#include <chrono>
#include <vector>

namespace zorel::cli {

/// A Ramadan, or the part of it that the year has.
struct RamadanDays {
    int hijriYear = 0;
    almanac::Date first{};
    almanac::Date last{}; ///< inclusive
};

/// A date whose noon is told by another offset than the noon before.
struct ClockChange {
    almanac::Date date{};
    std::chrono::seconds by{0}; ///< below zero: the clock goes back
};

struct YearOfPlace {
    int year = 0;
    /// 31 December of the year before, the days of the year, and 1 January of the year after.
    std::vector<almanac::Day> days;
    std::vector<RamadanDays> ramadans;
    std::vector<ClockChange> clockChanges;

    [[nodiscard]] std::size_t size() const { return days.size() - 2; }
    /// @param index 0: 1 January.
    [[nodiscard]] const almanac::Day& operator[](std::size_t index) const { return days[index + 1]; }
    [[nodiscard]] std::size_t indexOf(almanac::Date date) const;
};

/// @param year 1584 to 9997.
[[nodiscard]] YearOfPlace yearOfPlace(const almanac::Place& place, int year);

/// The date whose daylight belongs to the first day of a Hijri month; nothing outside the calendar.
/// @param year 1 or later. @param month 1 to 12.
[[nodiscard]] std::optional<almanac::Date> firstOfHijriMonth(const almanac::Almanac& almanac, int year,
                                                             int month);

} // namespace zorel::cli
