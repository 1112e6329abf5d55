// SPDX-License-Identifier: Apache-2.0
/// @file
/// Coordinates as the catalogue keeps them: sexagesimal text, enciphered. The counterparts of getFloatStr and
/// Decrypt of GlobalFuncs.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace zorel::catalogue {

/// "deg;min;sec" to a thousandth of a second, without trailing zeros ("-0;30;7.2"). At most 180 degrees
/// either way.
[[nodiscard]] std::string sexagesimalText(double degrees);

/// Enciphers bytes as pairs of upper-case hexadecimal digits. Each byte depends on the one before it and on
/// the key, whose entries are taken in turn from the second one on; `first` stands before the first byte and
/// may be any value.
/// @throws std::invalid_argument when the bytes hold a zero, which the cipher cannot carry.
[[nodiscard]] std::string encipher(std::string_view bytes, std::uint8_t first,
                                   std::span<const std::uint16_t, 10> key);

/// The coordinate's text, enciphered with the catalogue's key; the first byte follows from the text.
[[nodiscard]] std::string encipheredCoordinate(double degrees);

} // namespace zorel::catalogue
