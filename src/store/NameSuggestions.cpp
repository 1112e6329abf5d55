// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/FoldedName.h"
#include "platform/foundation/Slips.h"
#include "platform/foundation/Utf8.h"
#include "store/NameIndex.h"
#include "store/NameResolution.h"

#include <algorithm>
#include <bit>
#include <set>
#include <unordered_map>

namespace zorel {

namespace {

/// From so many letters on, two slips leave enough of a name to know it again.
constexpr std::size_t kLongForTwoSlips = 5;
/// Shorter texts are no misspelled names.
constexpr std::size_t kShortest = 3;
/// The largest places, in the order of rows. Others are suggested only for a beginning or one slip.
constexpr std::int32_t kLastLargeRow = 40'000;
/// The number of a place's row (the smaller, the larger the place) times one of these is how far off it is.
constexpr std::int64_t kBegins = 1;
constexpr std::int64_t kOneSlip = 1;
constexpr std::int64_t kWithin = 4;
constexpr std::int64_t kTwoSlips = 30;
/// And once more when it is not the shown name that is alike.
constexpr std::int64_t kOtherSpelling = 30;
/// So many of the best are kept, to have enough left when names occur twice.
constexpr std::size_t kKept = 24;

/// One bit for each of the 32 kinds of bytes that a text has.
std::uint32_t kindsOfBytes(std::string_view text) {
    std::uint32_t bits = 0;
    for (const char byte : text) {
        bits |= 1U << (static_cast<unsigned char>(byte) & 31U);
    }
    return bits;
}

std::size_t slipsAllowed(std::size_t characters) {
    if (characters < kShortest) {
        return 0;
    }
    return characters < kLongForTwoSlips ? 1 : 2;
}

/// How far a spelling is from the typed name.
class Likeness {
public:
    explicit Likeness(const std::string& folded)
        : folded_(folded), characters_(charactersOf(folded)), kinds_(kindsOfBytes(folded)),
          allowed_(slipsAllowed(characters_.size())) {}

    /// The factor, or nothing when they are not alike.
    [[nodiscard]] std::optional<std::int64_t> factor(const IndexedSpelling& spelling) const {
        const std::int64_t name = spelling.other ? kOtherSpelling : 1;
        if (spelling.folded.starts_with(folded_)) {
            return kBegins * name;
        }
        const std::size_t slips = slipsTo(spelling.folded);
        if (slips > allowed_ || (slips > 1 && spelling.row > kLastLargeRow)) {
            return std::nullopt;
        }
        return (slips > 1 ? kTwoSlips : kOneSlip) * name;
    }

private:
    /// Slips, or more than are allowed. Most spellings are left out by their length and their bytes: a slip
    /// changes one or two of them, or as many as a character has.
    [[nodiscard]] std::size_t slipsTo(std::string_view spelling) const {
        constexpr std::size_t kBytesOfCharacter = 4;
        const std::size_t longer = std::max(spelling.size(), folded_.size());
        const std::size_t shorter = std::min(spelling.size(), folded_.size());
        const std::size_t bytes = allowed_ * (folded_.size() == characters_.size() ? 1 : kBytesOfCharacter);
        const auto different = static_cast<std::size_t>(std::popcount(kindsOfBytes(spelling) ^ kinds_));
        if (longer - shorter > bytes || different > 2 * bytes) {
            return allowed_ + 1;
        }
        return slipsBetween(characters_, charactersOf(spelling), allowed_);
    }

    const std::string& folded_;
    std::u32string characters_;
    std::uint32_t kinds_;
    std::size_t allowed_;
};

/// What a spelling that is alike can begin with: with the first letter right; missing, or exchanged with the
/// second; or, in Latin letters, wrong.
std::set<std::string> beginnings(const std::string& folded) {
    const auto isFirstByte = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; };
    const auto second = std::find_if(folded.begin() + 1, folded.end(), isFirstByte);
    std::set<std::string> result{std::string(folded.begin(), second)};
    if (second != folded.end()) {
        const std::string next(second, std::find_if(second + 1, folded.end(), isFirstByte));
        result.insert(next);
        for (char letter = 'a'; letter <= 'z'; ++letter) {
            result.insert(letter + next);
        }
    }
    return result;
}

/// The distances of the places that are alike.
class Nearest {
public:
    void add(std::int32_t row, std::int64_t factor) {
        const auto [entry, isNew] = distanceOf_.try_emplace(row, factor * row);
        entry->second = std::min(entry->second, factor * row);
    }
    /// The nearest ones' rows, nearest first.
    [[nodiscard]] std::vector<std::int32_t> rows() const {
        std::vector<std::pair<std::int64_t, std::int32_t>> ordered;
        for (const auto& [row, distance] : distanceOf_) {
            ordered.emplace_back(distance, row);
        }
        const std::size_t count = std::min(kKept, ordered.size());
        std::ranges::partial_sort(ordered, ordered.begin() + static_cast<std::ptrdiff_t>(count));
        std::vector<std::int32_t> rows;
        for (std::size_t at = 0; at < count; ++at) {
            rows.push_back(ordered[at].second);
        }
        return rows;
    }

private:
    std::unordered_map<std::int32_t, std::int64_t> distanceOf_; ///< by row
};

std::vector<std::int32_t> rowsNearestTo(const std::string& name, const std::string& folded,
                                        NameIndex& index) {
    const Likeness likeness(folded);
    Nearest nearest;
    for (const std::string& beginning : beginnings(folded)) {
        index.forEachSpelling(beginning, [&](const IndexedSpelling& spelling) {
            if (const auto factor = likeness.factor(spelling)) {
                nearest.add(spelling.row, *factor);
            }
        });
    }
    index.forEachNameWith(' ' + name, kLastLargeRow, [&](std::int32_t row) { nearest.add(row, kWithin); });
    return nearest.rows();
}

std::vector<NamedPlace> placesNearestTo(const std::string& name, std::size_t most, NameIndex& index) {
    std::vector<NamedPlace> places;
    const std::string folded = foldedName(name);
    if (folded.empty()) {
        return places;
    }
    std::set<std::string> names;
    for (const std::int32_t row : rowsNearestTo(name, folded, index)) {
        auto place = index.placeOfRow(row);
        if (place && places.size() < most && names.insert(foldedName(place->name)).second) {
            places.push_back(*std::move(place));
        }
    }
    return places;
}

} // namespace

std::vector<NamedPlace> similarPlaces(const Bundle& bundle, std::string_view name, std::size_t most) {
    auto index = NameIndex::open(bundle);
    std::vector<NamedPlace> places;
    // The last word may be a region that nobody knows, or too much.
    for (std::string_view left = name; index && places.empty() && !left.empty();
         left =
             left.substr(0, left.find_last_of(' ') == std::string_view::npos ? 0 : left.find_last_of(' '))) {
        places = placesNearestTo(std::string(left), most, *index);
    }
    return places;
}

} // namespace zorel
