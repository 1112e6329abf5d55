// SPDX-License-Identifier: Apache-2.0
/// @file
/// A place in words.
#pragma once

#include "print/ShownPlace.h"

#include <string>

namespace zorel::cli {

/// The name of the place's country, in Turkish or in English; empty for a point.
[[nodiscard]] const std::string& countryName(const ShownPlace& place);
/// "Ankara / Turkey", "Paris / Texas / United States" or "41.0100 N, 28.9700 E".
[[nodiscard]] std::string placeText(const ShownPlace& place);
/// "41.0100 N, 28.9700 E".
[[nodiscard]] std::string pointText(double latitude, double longitude);
/// "4 km", "0.3 km" below ten kilometres.
[[nodiscard]] std::string distanceText(double kilometres);

} // namespace zorel::cli
