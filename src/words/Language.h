// SPDX-License-Identifier: Apache-2.0
/// @file
/// The language in which the programs speak.
///
/// English is that of the sources: it needs no file, asks for none and costs nothing. For any other language
/// the C library's gettext reads "<folder>/<language>/LC_MESSAGES/zorel.mo". It would look only for the
/// language of a locale that is installed on the machine, and most machines have one or two; so the locale of
/// messages becomes "C.UTF-8", which every machine has, and the language is named to gettext by the variable
/// LANGUAGE, which outranks the locale's (GNU gettext manual, "The LANGUAGE variable", "Being a gettext
/// grok"). Numbers and dates of the C library are left alone: only LC_MESSAGES is set.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zorel {

/// What the environment asks for, best first: the list of LANGUAGE, then the first of LC_ALL, LC_MESSAGES and
/// LANG that is set. Where that one is "C", "POSIX" or missing, LANGUAGE does not count, as in all programs.
/// Encodings and variants are left out: "ar_EG.UTF-8" is "ar_EG". Empty: nothing but English.
[[nodiscard]] std::vector<std::string> languagesOfEnvironment();

/// Speaks the first of these languages that there is: English, one with a catalogue for its country
/// ("pt_BR"), or one with a catalogue ("pt"); none: English. May be called again at any time; calls of
/// tr(...) from then on are in the new language. Changes the environment: not while another thread reads it,
/// so a program calls it before it starts threads.
/// @param folder of the catalogues; empty: that of the program
void useLanguages(const std::vector<std::string>& wanted, const std::string& folder = {});
void useLanguageOfEnvironment();

/// Code of the language in use, as its catalogue is called: "en", "tr", "pt_BR".
[[nodiscard]] const std::string& languageInUse();
/// Whether it is written from right to left (Arabic, Persian, Urdu and others of these scripts).
[[nodiscard]] bool isRightToLeft(std::string_view language);

/// "share/locale" beside the program's bundle (foundation/ProgramLocations).
[[nodiscard]] std::string catalogueFolder();

} // namespace zorel
