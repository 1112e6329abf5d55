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
    Word legend;
    bool (*fits)(const Day& day, Prayers shown);
};

bool hasTimeOfOtherDay(const Day& day, Prayers shown) {
    return std::ranges::any_of(shown, [&](Prayer prayer) { return day[prayer].takenFrom().has_value(); });
}

bool hasCorrectedTime(const Day& day, Prayers shown) {
    return std::ranges::any_of(shown, [&](Prayer prayer) { return !day[prayer].why.corrections.none(); });
}

constexpr std::array kMarks{
    Mark{'*', Word::markLowered, [](const Day& day, Prayers) { return day.record.latitudeLowered; }},
    Mark{'~', Word::markOtherDay, hasTimeOfOtherDay},
    Mark{'^', Word::markCorrected, hasCorrectedTime},
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

std::vector<std::string> legendOf(const Context& context, const std::string& marks) {
    std::vector<std::string> sentences;
    for (const Mark& mark : kMarks) {
        if (marks.find(mark.sign) != std::string::npos) {
            sentences.push_back(fmt::format("{} {}", mark.sign, context.word(mark.legend)));
        }
    }
    return sentences;
}

} // namespace zorel::cli
