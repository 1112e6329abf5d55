// SPDX-License-Identifier: Apache-2.0
/// @file
/// The characters of UTF-8 text, and text that can be shown to a person as it is.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zorel {

/// A character at the beginning of a text. A malformed byte is a character of its own, U+FFFD.
struct Utf8Character {
    char32_t code = 0;
    std::size_t bytes = 0; ///< it takes of the text
    bool wellFormed = false;
};

/// The first character of a text that is not empty.
[[nodiscard]] Utf8Character firstCharacter(std::string_view text);

/// All characters of a text.
[[nodiscard]] std::u32string charactersOf(std::string_view text);

/// Whether a character is none to be seen, but changes how a terminal shows what stands around it: the
/// controls U+0000 to U+001F and U+007F to U+009F, line and paragraph separators, and what turns the
/// direction of writing (Unicode's property Bidi_Control, UAX #9) or hides text (U+FEFF, the tags from
/// U+E0000).
[[nodiscard]] bool disturbsTerminal(char32_t code);

/// A text from a file, a folder's name or the catalogue as it may be printed: every character that disturbs a
/// terminal, and every malformed byte, is a "?".
[[nodiscard]] std::string cleanText(std::string_view text);

} // namespace zorel
