// SPDX-License-Identifier: Apache-2.0
#include "print/DayMarks.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace zorel::cli {

using almanac::Day;
using almanac::Prayer;

namespace {
using Prayers = std::span<const Prayer>;

struct Mark {
    char sign;
    const char* legend;
    bool (*fits)(const Day& day, Prayers shown);
};

bool hasTimeOfOtherDay(const Day& day, Prayers shown) {
    return std::ranges::any_of(shown, [&](Prayer prayer) { return day[prayer].takenFrom().has_value(); });
}

bool hasCorrectedTime(const Day& day, Prayers shown) {
    return std::ranges::any_of(shown, [&](Prayer prayer) { return !day[prayer].why.corrections.none(); });
}

constexpr std::array kMarks{
    Mark{'*',
         trLater(
             "no sunrise or sunset there that day: computed at a lower latitude (see: zorel today --date)"),
         [](const Day& day, Prayers) { return day.record.latitudeLowered; }},
    Mark{'~', trLater("the sky did not get dark enough: taken from an earlier day (see: zorel today --date)"),
         hasTimeOfOtherDay},
    Mark{'^', trLater("a time is corrected (see: zorel today --date --explain)"), hasCorrectedTime},
};
} // namespace

std::string marksOf(const Day& day, Prayers shown) {
    std::string marks;
    for (const Mark& mark : kMarks) {
        if (mark.fits(day, shown)) {
            marks += mark.sign;
        }
    }
    return marks;
}

std::vector<std::string> legendOf(const std::string& marks) {
    std::vector<std::string> sentences;
    for (const Mark& mark : kMarks) {
        if (marks.find(mark.sign) != std::string::npos) {
            sentences.push_back(fmt::format("{} {}", mark.sign, tr(mark.legend)));
        }
    }
    return sentences;
}

} // namespace zorel::cli
