// SPDX-License-Identifier: Apache-2.0
/// @file
/// What a status bar shows at an instant, and when that changes.
#pragma once

#include "grammar/Context.h"
#include "print/ShownPlace.h"
#include "print/StatusLine.h"

#include "almanac/Almanac.h"

namespace zorel::cli {

/// How the present moment lies between two prayer times.
enum class Nearness {
    calm,
    soon, ///< the next time is at most the chosen number of minutes away
    now   ///< a time came at most five minutes ago
};

[[nodiscard]] Nearness nearnessOf(const almanac::NextPrayer& next, almanac::Instant instant,
                                  std::chrono::minutes soon);
/// Part of the span between the previous and the next time that is over, 0 to 100, rounded down.
[[nodiscard]] int percentageOf(const almanac::NextPrayer& next, almanac::Instant instant);

/// One JSON document.
[[nodiscard]] StatusLine widgetLine(const Context& context, almanac::Memory& memory, const ShownPlace& place,
                                    almanac::Instant instant);

} // namespace zorel::cli
