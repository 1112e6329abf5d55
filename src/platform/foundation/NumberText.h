// SPDX-License-Identifier: Apache-2.0
/// @file
/// Text to numbers and back, the same in every locale.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zorel {

/// Leading blanks, a sign, leading digits; anything else is 0. Out of range: the nearest 32-bit value.
[[nodiscard]] std::int32_t integerValue(std::string_view text);
/// Leading blanks, a sign, a decimal number with "." and an optional exponent; anything else is 0. Out of
/// range: infinity, or 0 for what is too small.
[[nodiscard]] double doubleValue(std::string_view text);
/// The six-decimal rendering of "%f", with "." in every locale.
[[nodiscard]] std::string sixDecimals(double value);

} // namespace zorel
