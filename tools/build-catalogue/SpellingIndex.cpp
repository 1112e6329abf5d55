// SPDX-License-Identifier: Apache-2.0
#include "tools/build-catalogue/SpellingIndex.h"

#include "platform/foundation/FoldedName.h"
#include "tools/build-catalogue/Tables.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <unicode/locid.h>

namespace zorel::catalogue {

namespace {

/// Bytes of the shortest other spelling of a place that is not large: four Latin letters, or two of another
/// script.
constexpr std::size_t kShortestOfSmall = 4;

/// Soft and hard signs, hamza and ayn in Latin letters.
bool hasApostrophe(std::string_view name) {
    constexpr std::array<std::string_view, 10> kApostrophes{"'",      "`",      "\u00B4", "\u02B9", "\u02BB",
                                                            "\u02BC", "\u02BE", "\u02BF", "\u2018", "\u2019"};
    return std::ranges::any_of(kApostrophes, [name](std::string_view apostrophe) {
        return name.find(apostrophe) != std::string_view::npos;
    });
}

/// The spellings of one list, place after place.
class Collector {
public:
    void addShown(std::size_t place, std::string_view name) { add(place, name, SpellingKind::shown, 1); }
    /// @param shortest in bytes; shorter ones are left out
    void addOther(std::size_t place, std::string_view name, std::size_t shortest = 1) {
        add(place, name, hasApostrophe(name) ? SpellingKind::loose : SpellingKind::other, shortest);
    }
    void addAll(std::size_t place, std::string_view names, std::size_t shortest = 1) {
        forEachName(names, [&](std::string_view name) { addOther(place, name, shortest); });
    }
    /// Of several of one form the nearest to the shown name stays.
    [[nodiscard]] std::vector<Spelling> take() {
        std::ranges::sort(spellings_, {}, [](const Spelling& spelling) {
            return std::tie(spelling.folded, spelling.place, spelling.kind);
        });
        const auto repeated = std::ranges::unique(spellings_, {}, [](const Spelling& spelling) {
            return std::tie(spelling.folded, spelling.place);
        });
        spellings_.erase(repeated.begin(), repeated.end());
        return std::move(spellings_);
    }

private:
    void add(std::size_t place, std::string_view name, SpellingKind kind, std::size_t shortest) {
        std::string folded = foldedName(name);
        if (folded.size() >= shortest) {
            spellings_.push_back({std::move(folded), place, kind});
        }
    }

    std::vector<Spelling> spellings_;
};

std::string threeLetterCode(std::string_view country) {
    return icu::Locale("", std::string(country).c_str()).getISO3Country();
}

} // namespace

std::vector<Spelling> spellingsOf(const std::vector<PlacedPlace>& places) {
    Collector collector;
    for (std::size_t at = 0; at < places.size(); ++at) {
        const PlacedPlace& entry = places[at];
        collector.addShown(at, entry.place.name);
        collector.addOther(at, entry.place.asciiName);
        const std::size_t shortest = entry.place.population >= kLargePlace ? 1 : kShortestOfSmall;
        for (const std::string_view names :
             {entry.exactSpellings, entry.place.alternates, entry.moreSpellings}) {
            collector.addAll(at, names, shortest);
        }
    }
    return collector.take();
}

std::vector<Spelling> spellingsOf(const std::vector<Country>& countries) {
    Collector collector;
    for (std::size_t at = 0; at < countries.size(); ++at) {
        const Country& country = countries[at];
        collector.addShown(at, country.nameEn);
        for (const std::string_view name : {country.nameTr, country.code}) {
            collector.addOther(at, name);
        }
        collector.addOther(at, threeLetterCode(country.code));
        collector.addAll(at, country.names);
    }
    return collector.take();
}

} // namespace zorel::catalogue
