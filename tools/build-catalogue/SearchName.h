// SPDX-License-Identifier: Apache-2.0
/// @file
/// The text of a place that the city search looks into.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zorel::catalogue {

/// What a place is called, and how far Turkish spelling matters for it.
struct PlaceNames {
    std::string_view name;
    std::string_view asciiName;               ///< empty when it is the name
    std::vector<std::string_view> alternates; ///< lists, each separated by commas
    bool turkishUpperCase = false; ///< add the Turkish upper-case form (i to dotted I) of Latin names
    bool turkishLowerCase = false; ///< add the Turkish lower-case form (I to dotless i) too
};

/// The spellings of a place, joined by "|": its names, the same without accents, then the lower-case and
/// upper-case forms of names that are not pure ASCII, then the Turkish forms. The search folds only ASCII
/// letters, so every other spelling has to stand here. A spelling that is contained, ASCII case aside, in
/// those before it is left out.
[[nodiscard]] std::string searchableName(const PlaceNames& names);

/// The text with its Latin letters stripped of accents; also dotless i, o with stroke, l with stroke, sharp
/// s, ae, oe, eth, thorn and schwa. Letters of other scripts stay as they are.
[[nodiscard]] std::string withoutLatinAccents(std::string_view text);

} // namespace zorel::catalogue
