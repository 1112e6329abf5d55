// SPDX-License-Identifier: Apache-2.0
/// @file
/// What a name is looked up by: every spelling in its folded form.
#pragma once

#include "tools/build-catalogue/Sources.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace zorel::catalogue {

/// What a folded spelling was before, the nearest first; the values are those of the table.
enum class SpellingKind : std::uint8_t {
    shown = 0, ///< the name that is shown
    other = 1, ///< another name
    loose = 2, ///< another name with an apostrophe, which stands for a letter: "Kozan'" is not "Kozan"
};

/// One folded spelling of one place or country.
struct Spelling {
    std::string folded;    ///< foldedName()
    std::size_t place = 0; ///< position in the list
    SpellingKind kind = SpellingKind::shown;
};

/// Every spelling of every place, each once, in the order of the bytes and then of the list. Left out are
/// spellings that fold to nothing, and other spellings of up to three Latin letters ("Ank" of 'Inak) of
/// places with fewer than 100,000 people: whoever types so little has only begun a name.
[[nodiscard]] std::vector<Spelling> spellingsOf(const std::vector<PlacedPlace>& places);
/// Every name of every country, and its ISO 3166-1 codes of two and three letters; ordered likewise.
[[nodiscard]] std::vector<Spelling> spellingsOf(const std::vector<Country>& countries);

} // namespace zorel::catalogue
