// SPDX-License-Identifier: Apache-2.0
#include "store/MatchedSpelling.h"

#include "common/Bundle.h"
#include "platform/foundation/FoldedName.h"
#include "platform/foundation/NumberText.h"
#include "store/CatalogueLike.h"
#include "store/CatalogueRow.h"

#include <algorithm>
#include <sqlite3.h>

namespace zorel {

namespace {

constexpr char kSeparator = '|';

template <typename Take> void forEachPart(std::string_view spellings, Take take) {
    while (!spellings.empty()) {
        const std::size_t end = std::min(spellings.find(kSeparator), spellings.size());
        take(spellings.substr(0, end));
        spellings.remove_prefix(std::min(end + 1, spellings.size()));
    }
}

/// The spelling that is the text, ASCII letters in either case, or else the first that is after folding.
std::string_view equalSpelling(std::string_view spellings, std::string_view text) {
    const std::string folded = foldedName(text);
    const ContainedText wanted('%' + std::string(text) + '%');
    std::string_view found;
    bool exact = false;
    forEachPart(spellings, [&](std::string_view part) {
        const bool same = part.size() == text.size() && wanted.isIn(part);
        if (!exact && (same || (found.empty() && foldedName(part) == folded))) {
            found = part;
            exact = same;
        }
    });
    return found;
}

/// The first of the spellings that have the text nearest to their beginning, as the search compares them.
std::string_view containingSpelling(std::string_view spellings, std::string_view text) {
    const ContainedText wanted('%' + std::string(text) + '%');
    std::string_view begins;
    std::string_view contains;
    forEachPart(spellings, [&](std::string_view part) {
        if (begins.empty() && wanted.isIn(part.substr(0, text.size()))) {
            begins = part;
        }
        if (contains.empty() && wanted.isIn(part)) {
            contains = part;
        }
    });
    return begins.empty() ? contains : begins;
}

} // namespace

std::string matchedSpelling(std::string_view name, std::string_view spellings, std::string_view text) {
    if (text.empty() || foldedName(name).find(foldedName(text)) != std::string::npos) {
        return "";
    }
    const std::string_view equal = equalSpelling(spellings, text);
    return std::string(equal.empty() ? containingSpelling(spellings, text) : equal);
}

std::vector<FoundDetails> detailsOfFound(const Bundle& bundle, std::span<const FoundCity> cities,
                                         std::string_view text) {
    std::vector<FoundDetails> details(cities.size());
    const auto catalogue = Database::openCatalogue(cataloguePath(bundle));
    if (!catalogue) {
        return details;
    }
    Statement row = catalogue->prepare("SELECT C.NAMESRC, C.POPULATION FROM CITY C WHERE C.ID = ?1");
    for (std::size_t at = 0; at < cities.size() && row.isPrepared(); ++at) {
        sqlite3_reset(row.get());
        sqlite3_bind_int(row.get(), 1, integerValue(cities[at].cityId));
        if (row.nextRow()) {
            details[at] = {matchedSpelling(cities[at].name, row.text(0), text),
                           sqlite3_column_int64(row.get(), 1)};
        }
    }
    return details;
}

} // namespace zorel
