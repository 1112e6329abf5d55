// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/FoldedName.h"

#include "platform/foundation/Utf16.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <unicode/uchar.h>
#include <unicode/unorm2.h>
#include <unicode/uscript.h>
#include <unicode/utf16.h>

namespace zorel {
namespace {

constexpr std::string_view kDroppedAscii = "'`\".";
constexpr std::string_view kSpaceAscii = " \t\n\v\f\r-/,;()[]";

/// A letter and the plain ones that stand for it. Sorted.
struct PlainLetter {
    char16_t letter;
    std::u16string_view plain;
};
constexpr PlainLetter kPlainLetters[] = {
    {u'æ', u"ae"},          {u'ð', u"d"},           {u'ø', u"o"},           {u'þ', u"th"},
    {u'đ', u"d"},           {u'ħ', u"h"},           {u'ı', u"i"},           {u'ł', u"l"},
    {u'ŋ', u"n"},           {u'œ', u"oe"},          {u'ŧ', u"t"},           {u'ƙ', u"k"},
    {u'ƴ', u"y"},           {u'ǝ', u"e"},           {u'ɓ', u"b"},           {u'ɔ', u"o"},
    {u'ɖ', u"d"},           {u'ɗ', u"d"},           {u'ə', u"e"},           {u'ɛ', u"e"},
    {u'ɨ', u"i"},           {u'ɲ', u"n"},           {u'ʉ', u"u"},           {u'ґ', u"г"},
    {u'\u05DA', u"\u05DB"}, {u'\u05DD', u"\u05DE"}, {u'\u05DF', u"\u05E0"}, {u'\u05E3', u"\u05E4"},
    {u'\u05E5', u"\u05E6"}, {u'\u0621', u""},       {u'\u0629', u"\u0647"}, {u'\u0640', u""},
    {u'\u0649', u"\u064A"}, {u'\u0671', u"\u0627"}, {u'\u0672', u"\u0627"}, {u'\u0673', u"\u0627"},
    {u'\u0675', u"\u0627"}, {u'\u06A9', u"\u0643"}, {u'\u06AA', u"\u0643"}, {u'\u06BE', u"\u0647"},
    {u'\u06C1', u"\u0647"}, {u'\u06C3', u"\u0647"}, {u'\u06CC', u"\u064A"}, {u'\u06CD', u"\u064A"},
    {u'\u06D0', u"\u064A"}, {u'\u06D2', u"\u064A"}, {u'\u06D5', u"\u0647"},
};
static_assert(std::ranges::is_sorted(kPlainLetters, {}, &PlainLetter::letter));

constexpr UChar32 kVoicedMark = 0x3099;
constexpr UChar32 kHalfVoicedMark = 0x309A;
constexpr UChar32 kMiddleDot = 0xB7;
constexpr UChar32 kAcuteAccent = 0xB4; ///< typed for an apostrophe

bool isAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// Appends one space for any number of them, and none at the beginning.
template <typename Text> void appendSpace(Text& text) {
    if (!text.empty() && text.back() != ' ') {
        text += ' ';
    }
}

std::string foldedAscii(std::string_view text) {
    std::string folded;
    folded.reserve(text.size());
    for (const char c : text) {
        if (kSpaceAscii.find(c) != std::string_view::npos) {
            appendSpace(folded);
        } else if (kDroppedAscii.find(c) == std::string_view::npos) {
            folded += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        }
    }
    return folded;
}

/// Apostrophes in all their shapes, other quotes, full stops, and what has no shape at all.
bool isDropped(UChar32 character) {
    const bool modifier = character >= 0x2B9 && character <= 0x2CF;
    const bool quote =
        (character >= 0x2018 && character <= 0x201F) || (character >= 0x2032 && character <= 0x2036);
    const bool hebrewQuote = character == 0x5F3 || character == 0x5F4;
    return modifier || quote || hebrewQuote || character == kMiddleDot || character == kAcuteAccent ||
           u_charType(character) == U_FORMAT_CHAR ||
           (character < 0x80 && kDroppedAscii.find(static_cast<char>(character)) != std::string_view::npos);
}

bool isSpace(UChar32 character) {
    constexpr UChar32 kKatakanaDot = 0x30FB;
    constexpr UChar32 kArabicComma = 0x60C;
    constexpr UChar32 kMinus = 0x2212;
    return u_charType(character) == U_DASH_PUNCTUATION || u_isUWhiteSpace(character) != 0 ||
           character == kKatakanaDot || character == kArabicComma || character == kMinus ||
           (character < 0x80 && kSpaceAscii.find(static_cast<char>(character)) != std::string_view::npos);
}

/// A mark that the letter beneath it can do without. In the scripts of India and beyond marks are letters.
bool isAccent(UChar32 character) {
    if (u_charType(character) != U_NON_SPACING_MARK || character == kVoicedMark ||
        character == kHalfVoicedMark) {
        return false;
    }
    UErrorCode status = U_ZERO_ERROR;
    constexpr std::array kScripts{USCRIPT_INHERITED, USCRIPT_ARABIC, USCRIPT_CYRILLIC, USCRIPT_GREEK,
                                  USCRIPT_HEBREW,    USCRIPT_LATIN,  USCRIPT_SYRIAC};
    return std::ranges::find(kScripts, uscript_getScript(character, &status)) != kScripts.end();
}

void append(std::u16string& text, UChar32 character) {
    if (U_IS_SUPPLEMENTARY(character)) {
        text += U16_LEAD(character);
        text += U16_TRAIL(character);
    } else {
        text += static_cast<char16_t>(character);
    }
}

void appendPlain(std::u16string& text, UChar32 letter) {
    const auto* const found =
        std::ranges::lower_bound(kPlainLetters, letter, {},
                                 [](const PlainLetter& entry) { return static_cast<UChar32>(entry.letter); });
    if (found != std::end(kPlainLetters) && found->letter == letter) {
        text += found->plain;
    } else {
        append(text, letter);
    }
}

template <typename Take> void forEachCharacter(const std::u16string& text, Take take) {
    for (std::size_t at = 0; at < text.size();) {
        UChar32 character = 0;
        U16_NEXT(text.data(), at, text.size(), character);
        take(character);
    }
}

std::u16string withoutSigns(const std::u16string& text) {
    std::u16string letters;
    forEachCharacter(text, [&](UChar32 character) {
        if (isSpace(character)) {
            letters += u' ';
        } else if (!isDropped(character)) {
            append(letters, character);
        }
    });
    return letters;
}

std::u16string withoutAccents(const std::u16string& decomposed) {
    std::u16string letters;
    forEachCharacter(decomposed, [&](UChar32 character) {
        if (!isAccent(character)) {
            appendPlain(letters, character);
        }
    });
    return letters;
}

std::u16string normalized(const UNormalizer2* form, const std::u16string& text) {
    return filledText(text.size(), [&](char16_t* buffer, std::int32_t capacity, UErrorCode& status) {
        return unorm2_normalize(form, text.data(), static_cast<std::int32_t>(text.size()), buffer, capacity,
                                &status);
    });
}

/// Lower case without compatibility forms, decomposed, stripped and composed again.
std::u16string foldedLetters(const std::u16string& text) {
    UErrorCode status = U_ZERO_ERROR;
    const UNormalizer2* const caseless = unorm2_getNFKCCasefoldInstance(&status);
    const UNormalizer2* const decomposing = unorm2_getNFDInstance(&status);
    const UNormalizer2* const composing = unorm2_getNFCInstance(&status);
    if (U_FAILURE(status)) {
        return text;
    }
    return normalized(composing, withoutAccents(normalized(decomposing, normalized(caseless, text))));
}

std::string withSingleSpaces(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (c == ' ') {
            appendSpace(result);
        } else {
            result += c;
        }
    }
    return result;
}

std::string foldedUnicode(std::string_view text) {
    return withSingleSpaces(utf8FromUtf16(foldedLetters(withoutSigns(utf16FromUtf8(text)))));
}

} // namespace

std::string foldedName(std::string_view text) {
    std::string folded = isAscii(text) ? foldedAscii(text) : foldedUnicode(text);
    if (!folded.empty() && folded.back() == ' ') {
        folded.pop_back();
    }
    return folded;
}

} // namespace zorel
