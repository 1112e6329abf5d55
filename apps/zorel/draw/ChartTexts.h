// SPDX-License-Identifier: Apache-2.0
/// @file
/// The words of the year chart that are not told elsewhere.
#pragma once

#include <string_view>

namespace zorel::cli::chart_texts {

inline constexpr std::string_view kTitle = "Prayer times of {year}";       ///< {year}
inline constexpr std::string_view kByClock = "by the clock of {zone}";     ///< {zone}
inline constexpr std::string_view kByOffset = "by a clock of UTC{offset}"; ///< {offset}
inline constexpr std::string_view kTemkin = "temkin for up to {height} m"; ///< {height}
inline constexpr std::string_view kClockChange = "clock {hours} h";        ///< {hours} with their sign
inline constexpr std::string_view kToday = "today, {date}";                ///< {date}
inline constexpr std::string_view kLines = "solid: {first}; dashed: {second}";
inline constexpr std::string_view kDaysOf = "{days} days from {first} to {last}: {what}";

} // namespace zorel::cli::chart_texts
