// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/Utf16.h"

#include <unicode/ustring.h>

namespace zorel {

namespace {
constexpr UChar32 kReplacement = 0xFFFD;
constexpr std::size_t kMostBytesPerUnit = 3;
} // namespace

std::u16string utf16FromUtf8(std::string_view text) {
    return filledText(text.size(), [&](char16_t* buffer, std::int32_t capacity, UErrorCode& status) {
        std::int32_t length = 0;
        u_strFromUTF8WithSub(buffer, capacity, &length, text.data(), static_cast<std::int32_t>(text.size()),
                             kReplacement, nullptr, &status);
        return length;
    });
}

std::string utf8FromUtf16(std::u16string_view text) {
    std::string bytes(text.size() * kMostBytesPerUnit, '\0');
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t length = 0;
    u_strToUTF8WithSub(bytes.data(), static_cast<std::int32_t>(bytes.size()), &length, text.data(),
                       static_cast<std::int32_t>(text.size()), kReplacement, nullptr, &status);
    bytes.resize(U_SUCCESS(status) ? static_cast<std::size_t>(length) : 0);
    return bytes;
}

} // namespace zorel
