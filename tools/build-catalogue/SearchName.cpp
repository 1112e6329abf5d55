// SPDX-License-Identifier: Apache-2.0
#include "tools/build-catalogue/SearchName.h"

#include "platform/foundation/Locale.h"
#include "tools/build-catalogue/TsvFile.h"
#include "tools/build-catalogue/Utf8.h"

#include <algorithm>
#include <array>
#include <unicode/uchar.h>
#include <unicode/unorm2.h>
#include <unicode/uscript.h>
#include <unicode/utf16.h>
#include <utility>
#include <vector>

namespace zorel::catalogue {

namespace {

constexpr std::array<std::pair<UChar32, std::string_view>, 19> kPlainLetters{{{0x131, "i"},
                                                                              {0xD8, "O"},
                                                                              {0xF8, "o"},
                                                                              {0x141, "L"},
                                                                              {0x142, "l"},
                                                                              {0x110, "D"},
                                                                              {0x111, "d"},
                                                                              {0xDF, "ss"},
                                                                              {0x1E9E, "SS"},
                                                                              {0xC6, "AE"},
                                                                              {0xE6, "ae"},
                                                                              {0x152, "OE"},
                                                                              {0x153, "oe"},
                                                                              {0xD0, "D"},
                                                                              {0xF0, "d"},
                                                                              {0xDE, "TH"},
                                                                              {0xFE, "th"},
                                                                              {0x18F, "E"},
                                                                              {0x259, "e"}}};

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::string asciiLowerCase(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return lower;
}

UScriptCode scriptOf(UChar32 character) {
    UErrorCode status = U_ZERO_ERROR;
    return uscript_getScript(character, &status);
}

template <typename Take> void forEachCharacter(std::string_view text, Take take) {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        const UChar32 character = nextCharacter(text, at);
        take(character, text.substr(start, at - start));
    }
}

/// At least one Latin letter and no letter of another script. Modifier letters belong to every script.
bool isLatin(std::string_view text) {
    bool latin = false;
    bool other = false;
    forEachCharacter(text, [&](UChar32 character, std::string_view) {
        const UScriptCode script = scriptOf(character);
        latin = latin || script == USCRIPT_LATIN;
        other = other || (script != USCRIPT_LATIN && script != USCRIPT_COMMON && script != USCRIPT_INHERITED);
    });
    return latin && !other;
}

/// One letter without its strokes and ligatures.
void appendPlainLetter(std::string& text, UChar32 letter) {
    const auto* const found = std::find_if(kPlainLetters.begin(), kPlainLetters.end(),
                                           [letter](const auto& entry) { return entry.first == letter; });
    if (found != kPlainLetters.end()) {
        text += found->second;
    } else {
        appendCharacter(text, letter);
    }
}

bool isAccent(UChar32 character) {
    return u_charType(character) == U_NON_SPACING_MARK;
}

/// A Latin letter without its accents.
void appendStripped(std::string& text, UChar32 letter) {
    UErrorCode status = U_ZERO_ERROR;
    const UNormalizer2* const canonical = unorm2_getNFDInstance(&status);
    std::array<UChar, 32> parts{};
    const std::int32_t count = unorm2_getDecomposition(canonical, letter, parts.data(),
                                                       static_cast<std::int32_t>(parts.size()), &status);
    if (U_FAILURE(status) || count < 0) {
        appendPlainLetter(text, letter);
        return;
    }
    for (std::int32_t at = 0; at < count;) {
        UChar32 part = 0;
        U16_NEXT(parts.data(), at, count, part);
        if (!isAccent(part)) {
            appendPlainLetter(text, part);
        }
    }
}

/// Joins spellings and leaves out those already contained.
class Joiner {
public:
    void add(std::string_view part) {
        const std::string lower = asciiLowerCase(part);
        if (part.empty() || lower_.find(lower) != std::string::npos) {
            return;
        }
        if (!text_.empty()) {
            text_ += '|';
            lower_ += '|';
        }
        text_ += part;
        lower_ += lower;
    }
    [[nodiscard]] std::string take() { return std::move(text_); }

private:
    std::string text_;
    std::string lower_;
};

std::vector<std::string> baseNames(const PlaceNames& names) {
    std::vector<std::string> bases{std::string(names.name), std::string(names.asciiName),
                                   withoutLatinAccents(names.name)};
    for (const std::string_view list : names.alternates) {
        forEachName(list, [&](std::string_view name) {
            bases.emplace_back(name);
            bases.push_back(withoutLatinAccents(name));
        });
    }
    return bases;
}

} // namespace

std::string withoutLatinAccents(std::string_view text) {
    if (isAscii(text)) {
        return std::string(text);
    }
    std::string stripped;
    bool afterLatin = false;
    forEachCharacter(text, [&](UChar32 character, std::string_view bytes) {
        if (afterLatin && isAccent(character)) {
            return;
        }
        afterLatin = scriptOf(character) == USCRIPT_LATIN;
        if (afterLatin) {
            appendStripped(stripped, character);
        } else {
            stripped += bytes;
        }
    });
    return stripped;
}

std::string searchableName(const PlaceNames& names) {
    const std::vector<std::string> bases = baseNames(names);
    Joiner joiner;
    for (const std::string& base : bases) {
        joiner.add(base);
    }
    for (const std::string& base : bases) {
        if (!isAscii(base)) {
            joiner.add(lowerCase(base));
            joiner.add(upperCase(base));
        }
    }
    for (const std::string& base : bases) {
        if (names.turkishUpperCase && isLatin(base)) {
            joiner.add(upperCase(base, "tr"));
        }
        if (names.turkishLowerCase && isLatin(base)) {
            joiner.add(lowerCase(base, "tr"));
        }
    }
    return joiner.take();
}

} // namespace zorel::catalogue
