// SPDX-License-Identifier: Apache-2.0
/// @file
/// The words of the pictures of sky and compass that are not told elsewhere.
#pragma once

#include <array>
#include <string_view>

namespace zorel::cli::sky_texts {

/// The points of the compass, clockwise from north.
inline constexpr std::array<std::string_view, 8> kPoints{"N", "NE", "E", "SE", "S", "SW", "W", "NW"};
inline constexpr std::string_view kQibla = "qibla";
inline constexpr std::string_view kMoonFace = "the Moon as it looks from here";
inline constexpr std::string_view kQiblaTrue = "Qibla {bearing} from true north"; ///< {bearing}
inline constexpr std::string_view kQiblaByCompass = "{bearing} by the compass";   ///< {bearing}
inline constexpr std::string_view kRings = "Outer ring: true bearings. Inner ring: bearings by the compass.";
inline constexpr std::string_view kRoseLegend = "◆ qibla, m magnetic north, N true north";
inline constexpr std::string_view kRoseLegendAscii = "Q qibla, m magnetic north, N true north";

} // namespace zorel::cli::sky_texts
