// SPDX-License-Identifier: Apache-2.0
/// @file
/// UTF-8 to the UTF-16 that ICU works in, and back. What is ill-formed becomes U+FFFD.
#pragma once

#include <string>
#include <string_view>
#include <unicode/utypes.h>

namespace zorel {

[[nodiscard]] std::u16string utf16FromUtf8(std::string_view text);
[[nodiscard]] std::string utf8FromUtf16(std::u16string_view text);

/// The result of one of ICU's functions that fill a buffer: `fill(buffer, capacity, status)` returns the
/// length that it needs. Empty on failure. @param expected length [UTF-16 units], to begin with.
template <typename Fill> [[nodiscard]] std::u16string filledText(std::size_t expected, const Fill& fill) {
    std::u16string text(expected, u'\0');
    for (int attempt = 0; attempt < 2; ++attempt) {
        UErrorCode status = U_ZERO_ERROR;
        const std::int32_t length = fill(text.data(), static_cast<std::int32_t>(text.size()), status);
        if (U_SUCCESS(status) || status == U_BUFFER_OVERFLOW_ERROR) {
            text.resize(static_cast<std::size_t>(length));
        }
        if (status != U_BUFFER_OVERFLOW_ERROR) {
            return U_SUCCESS(status) ? text : std::u16string();
        }
    }
    return {};
}

} // namespace zorel
