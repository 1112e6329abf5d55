// SPDX-License-Identifier: Apache-2.0
/// @file
/// Dates and moments of the command line, as instants.
#pragma once

#include "almanac/PlaceClock.h"
#include "almanac/Time.h"

#include <string_view>

namespace zorel::cli {

/// A date as almanac::parseDate reads it. @param option names the culprit ("--date").
/// @throws CliError (bad use) for any other text.
[[nodiscard]] almanac::Date requireDate(std::string_view text, almanac::Date today, std::string_view option);

/// The instant of a moment: by its own offset, else by the clock; without a date on `today`.
[[nodiscard]] almanac::Instant instantOf(const almanac::Moment& moment, const almanac::PlaceClock& clock,
                                         almanac::Date today);

} // namespace zorel::cli
