// SPDX-License-Identifier: Apache-2.0
/// @file
/// The words of the sheet that are not told elsewhere.
#pragma once

#include <string_view>

namespace zorel::cli::sheet_texts {

inline constexpr std::string_view kTitle = "Prayer times";
inline constexpr std::string_view kDate = "Date";
inline constexpr std::string_view kHijri = "Hijri";
inline constexpr std::string_view kFast = "fast begins"; ///< below dawn, in Ramadan
inline constexpr std::string_view kIftar = "iftar";      ///< below sunset, in Ramadan
inline constexpr std::string_view kClockChange = "clock {hours} h";
inline constexpr std::string_view kClock = "Times by the clock of {zone} (UTC{offset}).";
inline constexpr std::string_view kFixedClock = "Times by a clock of UTC{offset}.";
/// {dawn}, {night}: degrees; {shadow}: staffs; {height} [m]; {temkin}: minutes and seconds
inline constexpr std::string_view kRule =
    "Dawn: Sun {dawn}° below the horizon; nightfall: {night}°; Asr: shadows longer than at noon by {shadow} "
    "times the "
    "staff. Temkin {temkin} min, by the table for up to {height} m; all minutes are on the safe side.";
inline constexpr std::string_view kQibla = "Qibla {bearing}° from true north.";
inline constexpr std::string_view kHijriNote = "Hijri dates are computed from the Moon's visibility; an "
                                               "announced month may begin a day earlier or later. A "
                                               "Hijri day begins at the sunset before.";
inline constexpr std::string_view kPlusOne = "+1: after midnight, -1: before it.";
inline constexpr std::string_view kMadeBy = "Made by zorel.";

} // namespace zorel::cli::sheet_texts
