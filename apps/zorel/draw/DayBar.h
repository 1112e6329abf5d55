// SPDX-License-Identifier: Apache-2.0
/// @file
/// A date as a bar of characters from midnight to midnight.
#pragma once

#include "draw/DayLight.h"
#include "grammar/Context.h"

#include <optional>
#include <string>

namespace zorel::cli {

/// Lines of at most `context.columns()` columns: the hours of the clock, the present moment, the bar with
/// night, dawn, day and dusk and a mark at each of the six times, and below the marks their names. In
/// colours, blocks or plain ASCII as the context says. A date of 23 or 25 hours is drawn as long as it is.
/// Empty for a date without daylight to tell and one that the place left out.
/// @param now a moment of the date; nothing for another date than today.
[[nodiscard]] std::string dayBarText(const Context& context, const almanac::PlaceClock& clock,
                                     const DayLight& day, std::optional<almanac::Instant> now);

} // namespace zorel::cli
