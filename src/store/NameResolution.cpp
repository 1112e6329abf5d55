// SPDX-License-Identifier: Apache-2.0
#include "store/NameResolution.h"

#include "platform/foundation/FoldedName.h"
#include "store/NameIndex.h"

#include <algorithm>
#include <unordered_map>

namespace zorel {

namespace {

/// More words than any name with region and country has; what follows is looked for as one word.
constexpr std::size_t kMostWords = 24;
/// A place of fewer people gives way to a place of so many times its people that has its name as another
/// spelling.
constexpr std::int64_t kSureOfItsName = 100'000;
constexpr std::int64_t kMuchLarger = 10;
/// Places whose people nobody has counted are seats of districts, mostly.
constexpr std::int64_t kUncounted = 10'000;
/// Shorter words ("de", "and") say nothing about a region.
constexpr std::size_t kShortestWord = 4;

constexpr std::string_view kSpaces = " \t\n\r";
constexpr std::string_view kBoundaries = ",/";

/// A word of the typed text.
struct Word {
    std::size_t begin = 0;
    std::size_t end = 0;
    bool afterBoundary = false; ///< a comma or slash stands between it and the word before
};

std::vector<Word> wordsOf(std::string_view text) {
    std::vector<Word> words;
    bool boundary = false;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t begin = text.find_first_not_of(kSpaces, at);
        if (begin == std::string_view::npos) {
            break;
        }
        if (kBoundaries.find(text[begin]) != std::string_view::npos) {
            boundary = true;
            at = begin + 1;
            continue;
        }
        const bool last = words.size() + 1 == kMostWords;
        const std::size_t found = last ? std::string_view::npos : text.find_first_of(" \t\n\r,/", begin);
        at = std::min(found, text.size());
        words.push_back({begin, at, boundary && !words.empty()});
        boundary = false;
    }
    return words;
}

/// Whether whole words of a region's name are the text; both folded.
bool hasWords(const std::string& region, const std::string& text) {
    return text.size() >= kShortestWord && (' ' + region + ' ').find(' ' + text + ' ') != std::string::npos;
}

std::int64_t peopleOf(const NamedPlace& place) {
    return place.population > 0 ? place.population : kUncounted;
}

/// What a name leads to besides the first place.
struct Order {
    bool largerFirst = false;
    std::size_t passedOver = 0;
};

/// Other spellings stand behind shown names, except for a much larger place in front. Both parts are ordered
/// by population already.
Order putInOrder(std::vector<NamedPlace>& places) {
    const auto others =
        std::ranges::stable_partition(places, [](const NamedPlace& place) { return !place.otherSpelling; });
    if (others.begin() == places.begin() || others.empty()) {
        return {};
    }
    const std::int64_t people = peopleOf(places.front());
    const auto isMuchLarger = [people](const NamedPlace& place) {
        return place.population >= kMuchLarger * people;
    };
    const auto spelled = std::ranges::find(others, false, &NamedPlace::looseSpelling);
    if (people < kSureOfItsName && spelled != others.end() && isMuchLarger(*spelled)) {
        std::rotate(places.begin(), spelled, spelled + 1);
        return {true, 1};
    }
    const auto first = static_cast<std::size_t>(others.begin() - places.begin());
    return {false, isMuchLarger(others.front()) ? first : 0};
}

/// One typed text and the index that it is looked up in.
class Resolver {
public:
    Resolver(NameIndex& index, std::string_view text) : index_(index), text_(text), words_(wordsOf(text)) {}

    NameResolution resolve() {
        NameResolution result;
        for (std::size_t count = words_.size(); count > 0 && result.places.empty(); --count) {
            takePlaces(result, count);
        }
        if (result.places.empty()) {
            tellWhatFailed(result);
        } else {
            const Order order = putInOrder(result.places);
            result.largerFirst = order.largerFirst;
            result.passedOver = order.passedOver;
        }
        return result;
    }

private:
    [[nodiscard]] std::string part(std::size_t first, std::size_t end) const {
        return std::string(text_.substr(words_[first].begin, words_[end - 1].end - words_[first].begin));
    }

    std::vector<NamedPlace> placesCalled(std::size_t count) {
        const std::string folded = foldedName(part(0, count));
        return folded.empty() ? std::vector<NamedPlace>() : index_.placesCalled(folded);
    }

    /// Takes the first words for the name and the others for where the place lies.
    void takePlaces(NameResolution& result, std::size_t count) {
        result.places = placesCalled(count);
        std::erase_if(result.places, [&](const NamedPlace& place) { return !liesWithin(place, count); });
        if (!result.places.empty()) {
            result.name = part(0, count);
        }
    }

    /// Whether the words from `first` on can be divided into parts that each name the place's region or
    /// country.
    bool liesWithin(const NamedPlace& place, std::size_t first) {
        if (first == words_.size()) {
            return true;
        }
        std::size_t most = first + 1;
        while (most < words_.size() && !words_[most].afterBoundary) {
            ++most;
        }
        for (std::size_t end = most; end > first; --end) {
            if (names(part(first, end), place) && liesWithin(place, end)) {
                return true;
            }
        }
        return false;
    }

    bool names(const std::string& where, const NamedPlace& place) {
        const std::string folded = foldedName(where);
        const std::string& region = foldedOnce(place.region);
        const auto& countries = countriesCalled(folded);
        return region == folded || hasWords(region, folded) ||
               (!place.regionCode.empty() && foldedOnce(place.regionCode) == folded) ||
               std::ranges::find(countries, place.countryNumber) != countries.end();
    }

    const std::string& foldedOnce(const std::string& name) {
        const auto [entry, isNew] = folded_.try_emplace(name);
        if (isNew) {
            entry->second = foldedName(name);
        }
        return entry->second;
    }

    const std::vector<std::int32_t>& countriesCalled(const std::string& folded) {
        const auto [entry, isNew] = countries_.try_emplace(folded);
        if (isNew) {
            entry->second = index_.countriesCalled(folded);
        }
        return entry->second;
    }

    /// The words before the first comma or slash.
    [[nodiscard]] std::size_t wordsOfName() const {
        const auto boundary = std::ranges::find_if(words_, &Word::afterBoundary);
        return static_cast<std::size_t>(boundary - words_.begin());
    }

    void tellWhatFailed(NameResolution& result) {
        const std::size_t count = wordsOfName();
        result.name = count == 0 ? std::string(text_) : part(0, count);
        if (count < words_.size()) {
            result.elsewhere = placesCalled(count);
        }
        if (!result.elsewhere.empty()) {
            putInOrder(result.elsewhere);
            result.unmatched = part(count, words_.size());
        }
    }

    NameIndex& index_;
    std::string_view text_;
    std::vector<Word> words_;
    std::unordered_map<std::string, std::string> folded_;
    std::unordered_map<std::string, std::vector<std::int32_t>> countries_;
};

} // namespace

std::optional<NameResolution> resolveName(const Bundle& bundle, std::string_view text) {
    auto index = NameIndex::open(bundle);
    if (!index) {
        return std::nullopt;
    }
    NameResolution result = Resolver(*index, text).resolve();
    return index->isSound() ? std::optional(std::move(result)) : std::nullopt;
}

} // namespace zorel
