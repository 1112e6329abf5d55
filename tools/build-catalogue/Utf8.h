// SPDX-License-Identifier: Apache-2.0
/// @file
/// Characters of UTF-8 text (ICU).
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zorel::catalogue {

/// The character that begins at a byte position, which moves behind it; negative when it is malformed.
[[nodiscard]] std::int32_t nextCharacter(std::string_view text, std::size_t& position);
/// @param text in, out: UTF-8, the character added at its end.
void appendCharacter(std::string& text, std::int32_t character);

/// Well-formed UTF-8 (no surrogates, no overlong forms) without control characters other than the tab.
[[nodiscard]] bool isCleanText(std::string_view text);

} // namespace zorel::catalogue
