// SPDX-License-Identifier: Apache-2.0
/// @file
/// How an exact instant goes to the whole minute or second of the clock on the wall.
#pragma once

#include "almanac/Prayer.h"
#include "almanac/Time.h"

namespace zorel::almanac {

/// @param offset of the clock in force at the instant: the minute is the clock's, also where the offset has
/// seconds.
[[nodiscard]] Instant roundedInstant(ExactInstant exact, std::chrono::seconds offset, Rounding rounding,
                                     Precision precision);

} // namespace zorel::almanac
