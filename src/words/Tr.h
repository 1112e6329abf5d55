// SPDX-License-Identifier: Apache-2.0
/// @file
/// What a program says to a person, in the person's language. The sources hold the English sentences; GNU
/// gettext finds their translations in the catalogue of the language in use (words/Language.h).
/// docs/translating.md tells how texts are written so that they can be translated.
///
/// In a QObject the bare name `tr` is Qt's: write zorel::tr there.
#pragma once

#include <fmt/core.h>

#include <string>

namespace zorel {

namespace words {
/// What is said for an English text; the text itself in English and where the catalogue has none. Lasts.
[[nodiscard]] const char* translation(const char* english);
[[nodiscard]] const char* translationIn(const char* context, const char* english);
[[nodiscard]] const char* translationOf(const char* one, const char* many, unsigned long long count);
/// Fills placeholders; a translation that cannot be filled gives way to the English text.
[[nodiscard]] std::string filled(fmt::string_view translated, fmt::string_view english,
                                 fmt::format_args arguments);
} // namespace words

/// A text as it stands: braces are braces. Also for texts that trLater has marked.
[[nodiscard]] inline std::string tr(const char* english) {
    return words::translation(english);
}

/// A text with placeholders of {fmt}: "{}" for a single one, "{0}" and "{1}" for several, so that a
/// translation can put them in its own order. The compiler holds the English text against the arguments.
template <typename First, typename... Rest>
[[nodiscard]] std::string tr(fmt::format_string<First, Rest...> english, First&& first, Rest&&... rest) {
    const fmt::string_view text = english;
    return words::filled(words::translation(text.data()), text, fmt::make_format_args(first, rest...));
}

/// The same for a text that needs to be told from others which are written alike in English.
/// @param context for the translator, what it is about: "Rumi month". Part of the catalogue's key.
[[nodiscard]] inline std::string trIn(const char* context, const char* english) {
    return words::translationIn(context, english);
}

template <typename First, typename... Rest>
[[nodiscard]] std::string trIn(const char* context, fmt::format_string<First, Rest...> english, First&& first,
                               Rest&&... rest) {
    const fmt::string_view text = english;
    return words::filled(words::translationIn(context, text.data()), text,
                         fmt::make_format_args(first, rest...));
}

/// A text that depends on a number: trPlural("{} place", "{} places", count). The number is the first of the
/// placeholders; the language's own rule chooses among its forms.
template <typename... Rest>
[[nodiscard]] std::string trPlural(fmt::format_string<unsigned long long&, Rest...> one,
                                   fmt::format_string<unsigned long long&, Rest...> many,
                                   unsigned long long count, Rest&&... rest) {
    const fmt::string_view single = one;
    const fmt::string_view several = many;
    return words::filled(words::translationOf(single.data(), several.data(), count),
                         count == 1 ? single : several, fmt::make_format_args(count, rest...));
}

/// Marks a text of a table for the catalogue; tr(...) says it later.
[[nodiscard]] constexpr const char* trLater(const char* english) {
    return english;
}
/// The same for trIn(context, ...).
[[nodiscard]] constexpr const char* trLaterIn(const char* /*context*/, const char* english) {
    return english;
}

} // namespace zorel
