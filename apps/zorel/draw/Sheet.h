// SPDX-License-Identifier: Apache-2.0
/// @file
/// Prayer times as pages to print and hang up.
#pragma once

#include "grammar/Context.h"
#include "print/ShownPlace.h"

#include "almanac/Almanac.h"

#include <string>
#include <vector>

namespace zorel::cli {

enum class Paper { a4, letter };

struct SheetDay {
    almanac::Day day;
    AllCalendarRecord calendars;
    std::chrono::seconds clockChange{0}; ///< since the noon before
};

/// What one page holds: a month of the civil calendar, or a Ramadan.
struct SheetPage {
    std::string title; ///< "December 2026", "Ramadan 1448"
    bool ramadan = false;
    std::vector<SheetDay> days;
};

struct Sheet {
    ShownPlace place;
    Paper paper = Paper::a4;
    bool others = false; ///< the other eight times too, on paper that lies on its side
    std::vector<SheetPage> pages;
};

/// @param last inclusive.
[[nodiscard]] SheetPage sheetPage(const almanac::Almanac& almanac, almanac::Memory& memory, std::string title,
                                  almanac::Date first, almanac::Date last);

/// One document of HTML with everything in it, one page of paper for each page. It is well-formed XML too.
[[nodiscard]] std::string sheetHtml(const Context& context, const Sheet& sheet);

} // namespace zorel::cli
