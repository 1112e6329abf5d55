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

/// The spellings of one list, place after place.
class Collector {
public:
    /// @param shortest in bytes; shorter ones are left out
    void add(std::size_t place, std::string_view name, bool other, std::size_t shortest = 1) {
        std::string folded = foldedName(name);
        if (folded.size() >= shortest) {
            spellings_.push_back({std::move(folded), place, other});
        }
    }
    void addAll(std::size_t place, std::string_view names, std::size_t shortest = 1) {
        forEachName(names, [&](std::string_view name) { add(place, name, true, shortest); });
    }
    /// The shown name stands before an other one of the same form.
    [[nodiscard]] std::vector<Spelling> take() {
        std::ranges::sort(spellings_, {}, [](const Spelling& spelling) {
            return std::tie(spelling.folded, spelling.place, spelling.other);
        });
        const auto repeated = std::ranges::unique(spellings_, {}, [](const Spelling& spelling) {
            return std::tie(spelling.folded, spelling.place);
        });
        spellings_.erase(repeated.begin(), repeated.end());
        return std::move(spellings_);
    }

private:
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
        collector.add(at, entry.place.name, false);
        collector.add(at, entry.place.asciiName, true);
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
        collector.add(at, country.nameEn, false);
        for (const std::string_view name : {country.nameTr, country.code}) {
            collector.add(at, name, true);
        }
        collector.add(at, threeLetterCode(country.code), true);
        collector.addAll(at, country.names);
    }
    return collector.take();
}

} // namespace zorel::catalogue
