// SPDX-License-Identifier: Apache-2.0
/// @file
/// Why a time is what it is: rule, temkin, additions, rounds, date, latitude and corrections, as text and
/// JSON.
#pragma once

#include "grammar/Context.h"
#include "print/Clockface.h"
#include "print/DayJson.h"

#include <string>

namespace zorel::cli {

/// Two sentences for each of the day's times, why and by which figures, and below them one for each
/// correction that occurs. Lines fit the terminal.
[[nodiscard]] std::string explainText(const Context& context, const almanac::Day& day,
                                      const almanac::PlaceClock& clock);
/// Why a time is not the engine's own.
[[nodiscard]] std::string correctionText(almanac::Correction correction);
[[nodiscard]] Json explainJson(const almanac::Day& day);

} // namespace zorel::cli
