// SPDX-License-Identifier: Apache-2.0
/// @file
/// What a status bar shows at an instant, and when that changes.
#pragma once

#include "Context.h"
#include "Day.h"

#include <string>

namespace zorel::cli {

struct WidgetState {
    std::string line;        ///< one JSON document without a line feed
    UtcSeconds nextChange{}; ///< the first later instant at which the line may be another one
};

/// How the present moment lies between two prayer times.
enum class Nearness {
    calm,
    soon, ///< the next time is at most the chosen number of minutes away
    now   ///< a time came at most five minutes ago
};

[[nodiscard]] Nearness nearnessOf(const NextPrayer& next, UtcSeconds instant, std::chrono::minutes soon);
/// Part of the span between the previous and the next time that is over, 0 to 100, rounded down.
[[nodiscard]] int percentageOf(const NextPrayer& next, UtcSeconds instant);

[[nodiscard]] WidgetState widgetState(const Context& context, DayComputer& computer, const Place& place,
                                      UtcSeconds instant);

} // namespace zorel::cli
