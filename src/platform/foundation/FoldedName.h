// SPDX-License-Identifier: Apache-2.0
/// @file
/// When two spellings of a name count as the same.
#pragma once

#include <string>
#include <string_view>

namespace zorel {

/// What is left of a name when everything is taken away that people leave out or write in several ways: two
/// spellings are the same name exactly when their folded forms are equal.
///
/// - capitals, accents ("é", "ё", "ή"), vowel signs and hamza of Arabic, points of Hebrew
/// - strokes and ligatures: ø ł đ ı ß æ œ ð þ ə and their kind become plain letters
/// - letters that have a form of their own at a word's end, or in another language of the same script: ς, ם,
///   ة, ى, ی, ک, ە
/// - apostrophes, full stops and invisible characters are dropped; hyphens, slashes, commas and brackets
///   count as a space, several spaces as one
///
/// Vowel signs of Indian scripts and voicing marks of Kana are letters and stay; so do %, _, * and all
/// other signs.
/// @param text UTF-8; malformed bytes stay different from every letter.
/// @return UTF-8 in Unicode's composed form
[[nodiscard]] std::string foldedName(std::string_view text);

} // namespace zorel
