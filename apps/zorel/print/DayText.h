// SPDX-License-Identifier: Apache-2.0
/// @file
/// A day's times as lines on a terminal.
#pragma once

#include "grammar/Context.h"
#include "print/Clockface.h"

#include "almanac/Qibla.h"

#include <array>
#include <string>

namespace zorel::cli {

/// The hours of almanac::ezaniHours, by Prayer.
using EzaniHours = std::array<std::optional<double>, almanac::kPrayers>;

/// What a text of a day shows beside the six times.
struct DayTextParts {
    bool others = true;
    std::optional<EzaniHours> ezani;
    almanac::Qibla qibla;
    /// Marks the next time and says how long it is away; nothing for another day than today.
    std::optional<almanac::DayTime> next;
};

/// "15:04", "00:12 +1" when the time falls on another date than `date`, or "none today".
[[nodiscard]] std::string timeText(const Context& context, const ShownTime& time, almanac::Date date);
/// A sunset-based hour as on a dial, "10:30"; empty when there is none.
[[nodiscard]] std::string ezaniText(const std::optional<double>& hours);
/// What is unusual about a day as sentences, each on a line of its own: "latitude lowered to 64", "Fajr:
/// taken from 3 May".
[[nodiscard]] std::string flagsText(const Context& context, const almanac::Day& day);
/// The table of times with its headings.
[[nodiscard]] std::string dayText(const Context& context, const almanac::Day& day, const Clockface& clock,
                                  const DayTextParts& parts);

} // namespace zorel::cli
