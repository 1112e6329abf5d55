// SPDX-License-Identifier: Apache-2.0
#include "draw/YearOfPlace.h"

namespace zorel::cli {

using almanac::Almanac;
using almanac::Date;

namespace {
constexpr int kRamadan = 9;

void addRamadanDay(std::vector<RamadanDays>& ramadans, Date date, int hijriYear) {
    if (ramadans.empty() || ramadans.back().hijriYear != hijriYear) {
        ramadans.push_back({hijriYear, date, date});
    }
    ramadans.back().last = date;
}

void addMarks(YearOfPlace& year, const Almanac& almanac) {
    for (std::size_t i = 0; i < year.size(); ++i) {
        const almanac::Day& day = year[i];
        const AllCalendarRecord calendars = almanac.calendars(day.date);
        if (calendars.hijriMonth == kRamadan) {
            addRamadanDay(year.ramadans, day.date, calendars.hijriYear);
        }
        const auto by = day.offset - year.days[i].offset;
        if (by.count() != 0) {
            year.clockChanges.push_back({day.date, by});
        }
    }
}

/// Days by the arithmetic calendar from its first day to the first of a month; observation is within some
/// days of it.
int arithmeticDays(int year, int month) {
    constexpr double kYear = 354.3667;
    constexpr double kMonth = 29.5306;
    return static_cast<int>((year - 1) * kYear + (month - 1) * kMonth);
}
} // namespace

std::size_t YearOfPlace::indexOf(Date date) const {
    return static_cast<std::size_t>(almanac::daysBetween(days[1].date, date));
}

YearOfPlace yearOfPlace(const almanac::Place& place, int year) {
    const Almanac almanac(place);
    almanac::Memory memory;
    YearOfPlace result;
    result.year = year;
    const Date last = std::chrono::year(year + 1) / 1 / 1;
    for (Date date = almanac::addDays(std::chrono::year(year) / 1 / 1, -1); date <= last;
         date = almanac::addDays(date, 1)) {
        result.days.push_back(almanac.day(date, memory));
    }
    addMarks(result, almanac);
    return result;
}

std::optional<Date> firstOfHijriMonth(const Almanac& almanac, int year, int month) {
    constexpr int kFarthest = 6;
    const Date epoch = std::chrono::year(622) / 7 / 19;
    const Date guess = almanac::addDays(epoch, arithmeticDays(year, month));
    for (int shift = -kFarthest; shift <= kFarthest; ++shift) {
        const Date date = almanac::addDays(guess, shift);
        if (!almanac::isInRange(date)) {
            continue;
        }
        const AllCalendarRecord calendars = almanac.calendars(date);
        if (calendars.hijriYear == year && calendars.hijriMonth == month && calendars.hijriDay == 1) {
            return date;
        }
    }
    return std::nullopt;
}

} // namespace zorel::cli
