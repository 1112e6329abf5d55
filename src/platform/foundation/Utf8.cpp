// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/Utf8.h"

#include <algorithm>
#include <cstdint>
#include <unicode/utf8.h>

// ICU's macros narrow within themselves.
#pragma GCC diagnostic ignored "-Wconversion"

namespace zorel {

namespace {
constexpr char32_t kReplacement = 0xFFFD;
constexpr std::size_t kLongestCharacter = 4; ///< [bytes]

/// Printable characters of ASCII, which most texts are made of.
bool isPlain(char byte) {
    return byte >= ' ' && byte <= '~';
}
} // namespace

Utf8Character firstCharacter(std::string_view text) {
    const std::string_view start = text.substr(0, kLongestCharacter);
    const auto size = static_cast<std::int32_t>(start.size());
    std::int32_t at = 0;
    UChar32 code = 0;
    U8_NEXT(start.data(), at, size, code);
    if (code < 0) {
        return {kReplacement, 1, false};
    }
    return {static_cast<char32_t>(code), static_cast<std::size_t>(at), true};
}

std::u32string charactersOf(std::string_view text) {
    std::u32string characters;
    while (!text.empty()) {
        const Utf8Character character = firstCharacter(text);
        characters += character.code;
        text.remove_prefix(character.bytes);
    }
    return characters;
}

bool disturbsTerminal(char32_t code) {
    const bool control = code < 0x20 || (code >= 0x7F && code <= 0x9F);
    const bool separator = code == 0x2028 || code == 0x2029;
    const bool hides = code == 0xFEFF || (code >= 0xE0000 && code <= 0xE007F);
    const bool turns = code == 0x061C || code == 0x200E || code == 0x200F ||
                       (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
    return control || separator || hides || turns;
}

std::string cleanText(std::string_view text) {
    if (std::ranges::all_of(text, isPlain)) {
        return std::string(text);
    }
    std::string clean;
    clean.reserve(text.size());
    while (!text.empty()) {
        const Utf8Character character = firstCharacter(text);
        if (character.wellFormed && !disturbsTerminal(character.code)) {
            clean += text.substr(0, character.bytes);
        } else {
            clean += '?';
        }
        text.remove_prefix(character.bytes);
    }
    return clean;
}

} // namespace zorel
