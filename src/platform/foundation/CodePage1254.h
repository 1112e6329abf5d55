// SPDX-License-Identifier: Apache-2.0
/// @file
/// Windows code page 1254 (Turkish) and UTF-8 (ICU).
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zorel {

/// Bytes in code page 1254 as UTF-8; a byte that the page does not define becomes U+FFFD.
[[nodiscard]] std::string utf8FromCodePage1254(std::string_view bytes);
/// UTF-8 as code page 1254, or nothing when a character has no place in it.
[[nodiscard]] std::optional<std::string> codePage1254FromUtf8(std::string_view text);

} // namespace zorel
