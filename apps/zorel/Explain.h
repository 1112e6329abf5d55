// SPDX-License-Identifier: Apache-2.0
/// @file
/// Why a time is what it is: rule, temkin, additions, rounds, date and latitude, as text and JSON.
#pragma once

#include "Context.h"
#include "Day.h"
#include "DayJson.h"

#include "engine/ExplainPrayTime.h"

#include <string>
#include <vector>

namespace zorel::cli {

/// The engine's explanations of every time that is shown, in the order of the table.
[[nodiscard]] std::vector<PrayTimeExplanation> explainDay(DayComputer& computer, const Place& place,
                                                          const Day& day);
/// A table with a heading; empty without explanations.
[[nodiscard]] std::string explainText(const Context& context,
                                      const std::vector<PrayTimeExplanation>& explanations);
[[nodiscard]] Json explainJson(const std::vector<PrayTimeExplanation>& explanations);

} // namespace zorel::cli
