// SPDX-License-Identifier: Apache-2.0
#include "tools/build-catalogue/Utf8.h"

#include <array>
#include <unicode/uchar.h>
#include <unicode/utf8.h>

// ICU's macros narrow within themselves.
#pragma GCC diagnostic ignored "-Wconversion"

namespace zorel::catalogue {

std::int32_t nextCharacter(std::string_view text, std::size_t& position) {
    auto at = static_cast<std::int32_t>(position);
    UChar32 character = 0;
    U8_NEXT(text.data(), at, static_cast<std::int32_t>(text.size()), character);
    position = static_cast<std::size_t>(at);
    return character;
}

void appendCharacter(std::string& text, std::int32_t character) {
    std::array<char, U8_MAX_LENGTH> bytes{};
    std::size_t length = 0;
    U8_APPEND_UNSAFE(bytes.data(), length, character);
    text.append(bytes.data(), length);
}

bool isCleanText(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const std::int32_t character = nextCharacter(text, at);
        if (character < 0 || (u_charType(character) == U_CONTROL_CHAR && character != '\t')) {
            return false;
        }
    }
    return true;
}

} // namespace zorel::catalogue
