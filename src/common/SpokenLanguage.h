// SPDX-License-Identifier: Apache-2.0
/// @file
/// The language of the pane's texts where the program knows it. GlobalFuncs by itself tells only Turkish
/// from English, as the phone does; a program that speaks another language, or was asked for one, says so
/// here before it makes the first of them.
#pragma once

#include <string>

namespace zorel {

/// `languageId` of a language that has no number of its own: its file is "Languages/<code>.plist".
inline constexpr int kLanguageWithoutNumber = 4;

/// Every GlobalFuncs that is made from now on has the texts of this language ("ar"); empty: they choose
/// themselves.
void speakInPane(const std::string& code);
[[nodiscard]] const std::string& languageOfPane();

} // namespace zorel
