// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/FoldedName.h"
#include "store/NameIndex.h"
#include "store/NameResolution.h"

#include <algorithm>

namespace zorel {

namespace {

/// A place that is known by the spelling only comes behind those of so many times its rank that are called
/// so.
constexpr std::int64_t kOtherSpelling = 30;

struct Found {
    std::int64_t rank = 0; ///< the smaller the better
    std::int32_t row = 0;
    std::string spelling;
};

/// The best few of many spellings, each place once.
class Best {
public:
    explicit Best(std::size_t most) : most_(most) {}

    void add(const IndexedSpelling& one) {
        const std::int64_t rank = one.row * (one.other ? kOtherSpelling : 1);
        if (most_ == 0 || (found_.size() == most_ && rank >= found_.back().rank)) {
            return;
        }
        const auto known = std::ranges::find(found_, one.row, &Found::row);
        if (known != found_.end() && known->rank <= rank) {
            return;
        }
        if (known != found_.end()) {
            found_.erase(known);
        } else if (found_.size() == most_) {
            found_.pop_back();
        }
        found_.insert(std::ranges::lower_bound(found_, rank, {}, &Found::rank),
                      {rank, one.row, std::string(one.folded)});
    }
    [[nodiscard]] const std::vector<Found>& found() const { return found_; }

private:
    std::size_t most_;
    std::vector<Found> found_; ///< by rank
};

} // namespace

std::optional<std::vector<BeginningPlace>> placesBeginningWith(const Bundle& bundle, std::string_view text,
                                                               std::size_t most) {
    auto index = NameIndex::open(bundle);
    if (!index) {
        return std::nullopt;
    }
    Best best(most);
    if (const std::string folded = foldedName(text); !folded.empty()) {
        index->forEachSpelling(folded, [&](const IndexedSpelling& one) { best.add(one); });
    }
    std::vector<BeginningPlace> places;
    for (const Found& one : best.found()) {
        if (auto place = index->placeOfRow(one.row)) {
            places.push_back({*std::move(place), one.spelling});
        }
    }
    return index->isSound() ? std::optional(std::move(places)) : std::nullopt;
}

} // namespace zorel
