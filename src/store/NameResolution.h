// SPDX-License-Identifier: Apache-2.0
/// @file
/// From a name as a person types it to a place of the catalogue: the place that is called so, or nothing. A
/// beginning, a part or a misspelling of a name is never taken for the name; similarPlaces() suggests what
/// may have been meant.
#pragma once

#include "store/NamedPlace.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorel {

class Bundle;

/// What a typed name means.
struct NameResolution {
    /// Every place of that name, the one that is meant first: places whose shown name it is, then places that
    /// have it as another spelling, the larger first among each. Empty: no place is called so.
    std::vector<NamedPlace> places;
    /// The first of them is not called so on maps: it comes before a place that is, because that one has
    /// fewer than 100,000 people and the first ten times as many ("Calcutta", "Roma"). A place whose people
    /// nobody has counted is taken for a small town of 10,000; a spelling with an apostrophe, which stands
    /// for a letter, does not count ("Kozan'", of Kazan).
    bool largerFirst = false;
    /// The position in `places` of the one that could have been meant just as well: the place that is called
    /// so when a larger one comes first, else a place of ten times as many people that has the name as
    /// another spelling ("St. Petersburg"). 0: there is none.
    std::size_t passedOver = 0;
    /// The name alone, without region and country. With no place found, the name that was looked for.
    std::string name;
    /// The region or country that was looked for in vain, when there are places of that name elsewhere.
    std::string unmatched;
    /// Those places, in the order of `places`.
    std::vector<NamedPlace> elsewhere;
};

/// Resolves a name, on its own ("Köln", "koln", "Cologne", "كولونيا") or with region or country behind
/// commas, slashes or spaces ("Paris, Texas", "Paris / TX / US", "Paris Texas"). Spellings are compared in
/// their folded form (foldedName()). A region is meant by its name, whole words of its name or its usual
/// code, a country by any of its names or its ISO 3166-1 code of two or three letters.
/// @param text UTF-8 as typed; nothing in it is a wildcard
/// @return nothing when the catalogue cannot be read
[[nodiscard]] std::optional<NameResolution> resolveName(const Bundle& bundle, std::string_view text);

/// A place, and its spelling (folded, foldedName()) that begins as the text does.
struct BeginningPlace {
    NamedPlace place;
    std::string spelling;
};

/// Places with a spelling that begins with a text, the largest first; those that are called otherwise on maps
/// come after much smaller ones. An empty text begins no name.
/// @return at most `most`; nothing when the catalogue cannot be read
[[nodiscard]] std::optional<std::vector<BeginningPlace>>
placesBeginningWith(const Bundle& bundle, std::string_view text, std::size_t most);

/// Places that may have been meant by a name that no place has: names that begin with it or contain it as
/// words, and names one or two slips of the hand away (a letter too much, missing, wrong or exchanged with
/// its neighbour; two from five letters on), the larger and the nearer first. When there are none, what is
/// like the name without its last word.
/// @return at most `most`, no two of one name; empty also when the catalogue cannot be read
[[nodiscard]] std::vector<NamedPlace> similarPlaces(const Bundle& bundle, std::string_view name,
                                                    std::size_t most);

} // namespace zorel
