// SPDX-License-Identifier: Apache-2.0
/// @file
/// What a chart of a year shows, for the picture and for the terminal.
#pragma once

#include "draw/YearOfPlace.h"
#include "grammar/Context.h"
#include "print/ShownPlace.h"

#include <optional>
#include <string>
#include <vector>

namespace zorel::cli {

struct ChartPlace {
    ShownPlace place;
    YearOfPlace year;
};

struct YearChart {
    ChartPlace first;
    std::optional<ChartPlace> second;    ///< drawn dashed beside the first
    std::optional<almanac::Date> today;  ///< of the first place, when the year has it
    std::vector<almanac::Prayer> curves; ///< the six first
};

/// "Prayer times of 2026, by the clock of Europe/Istanbul, temkin for up to 250 m"; of two places only the
/// year.
[[nodiscard]] std::string chartSubtitle(const YearChart& chart);
/// "solid: ..., dashed: ..."; empty for one place.
[[nodiscard]] std::string chartLegend(const YearChart& chart);
/// What has to be known of the times: lowered latitudes, times of other days, corrections, the clock. One
/// sentence each.
[[nodiscard]] std::vector<std::string> chartNotes(const Context& context, const YearChart& chart);
/// "clock +1 h".
[[nodiscard]] std::string clockChangeText(const ClockChange& change);

/// A document of its own: night, dawn, day and dusk of the first place as its ground, the times as curves
/// over the months, Ramadan, changes of the clock and today. Light or dark as the reader's screen is.
[[nodiscard]] std::string chartSvg(const Context& context, const YearChart& chart);
/// The same in lines of `context.columns()` columns.
[[nodiscard]] std::string chartText(const Context& context, const YearChart& chart);

} // namespace zorel::cli
