// SPDX-License-Identifier: Apache-2.0
#include "commands/Complete.h"

#include "commands/CataloguePlaces.h"
#include "commands/UserData.h"
#include "print/PlaceText.h"

#include "platform/foundation/Files.h"
#include "platform/foundation/FoldedName.h"
#include "platform/foundation/Locale.h"
#include "platform/foundation/Locations.h"
#include "platform/foundation/Utf8.h"
#include "store/NameResolution.h"

#include <fmt/format.h>

#include <algorithm>

namespace zorel::cli {

namespace {
constexpr std::size_t kMost = 24; ///< choices

/// Collects choices, none twice.
class Choices {
public:
    explicit Choices(const CompletionQuestion& question) : question_(question) {}

    /// @param folded the spelling that begins as the typed text does; empty: the name's own.
    void add(const std::string& name, const std::string& folded, const std::string& description) {
        const std::optional<std::string> whole = continued(name, folded);
        if (!whole || choices_.size() == kMost) {
            return;
        }
        std::string text = lastPart(*whole);
        if (!text.empty() && std::ranges::find(choices_, text, &CompletionChoice::text) == choices_.end()) {
            choices_.push_back({std::move(text), cleanText(description)});
        }
    }
    [[nodiscard]] bool isFull() const { return choices_.size() == kMost; }
    [[nodiscard]] std::vector<CompletionChoice> take() { return std::move(choices_); }

private:
    /// The name, when it begins with the typed letters; else the typed text and what is left of the spelling.
    [[nodiscard]] std::optional<std::string> continued(const std::string& name,
                                                       const std::string& folded) const {
        const std::string& typed = question_.typed;
        if (lowerCase(name).starts_with(lowerCase(typed))) {
            return name;
        }
        const std::string begun = foldedName(typed);
        const std::string spelling = folded.empty() ? foldedName(name) : folded;
        if (!spelling.starts_with(begun)) {
            return std::nullopt;
        }
        // What stands for a blank at the end ("al-") is not told by the folded text.
        std::string_view rest = std::string_view(spelling).substr(begun.size());
        if (rest.starts_with(' ') && foldedName(typed + 'x') != begun + 'x') {
            rest.remove_prefix(1);
        }
        std::string whole = typed + std::string(rest);
        return foldedName(whole) == spelling ? std::optional(std::move(whole)) : std::nullopt;
    }
    /// Without the words that stand on the line before the one that is being typed.
    [[nodiscard]] std::string lastPart(const std::string& whole) const {
        std::size_t begin = 0;
        for (std::size_t word = 0; word < question_.wordsBefore; ++word) {
            const std::size_t blank = whole.find(' ', begin);
            if (blank == std::string::npos) {
                return {};
            }
            begin = blank + 1;
        }
        return whole.substr(begin);
    }

    const CompletionQuestion& question_;
    std::vector<CompletionChoice> choices_;
};

void addOwnCities(const GlobalFuncs& services, Choices& choices) {
    for (const std::int32_t id : listedCityIds()) {
        bool readable = true;
        if (const auto row = placeById(services, id, readable)) {
            const ShownPlace place = shownPlace(*row);
            choices.add(place.place.name, "", countryName(place));
        } else if (!readable) {
            throw unreadableCatalogue(services);
        }
    }
}

const std::string& countryOf(const NamedPlace& place) {
    return languageInUse() == "tr" ? place.countryTr : place.countryEn;
}

std::string regionAndCountry(const NamedPlace& place) {
    const std::string& country = countryOf(place);
    return place.region.empty() || place.region == place.name ? country
                                                              : fmt::format("{}, {}", place.region, country);
}

/// "Paris, " goes on with the regions and countries that have a Paris.
void addRegions(const GlobalFuncs& services, const std::string& name, Choices& choices) {
    const auto called = resolveName(services, name);
    if (!called) {
        throw unreadableCatalogue(services);
    }
    for (const NamedPlace& place : called->places) {
        const std::string& country = countryOf(place);
        const bool sameName = place.region.empty() || foldedName(place.region) == foldedName(place.name);
        choices.add(fmt::format("{}, {}", name, sameName ? country : place.region), "", country);
    }
}

void addPlaces(const GlobalFuncs& services, const std::string& typed, Choices& choices) {
    if (typed.starts_with('-')) {
        return;
    }
    if (const std::size_t comma = typed.find(','); comma != std::string::npos) {
        addRegions(services, typed.substr(0, comma), choices);
        return;
    }
    const auto found = placesBeginningWith(services, typed, kMost);
    if (!found) {
        throw unreadableCatalogue(services);
    }
    for (const BeginningPlace& one : *found) {
        choices.add(one.place.name, one.spelling, regionAndCountry(one.place));
    }
}

void addRingtones(Choices& choices) {
    for (const std::string& path : entriesBelowPath(Locations::current().ringtones)) {
        choices.add(pathWithoutExtension(path), "", "");
    }
}
} // namespace

std::vector<CompletionChoice> completionChoices(const GlobalFuncs& services,
                                                const CompletionQuestion& question) {
    Choices choices(question);
    if (question.wanted == Wanted::place || question.wanted == Wanted::ownCity) {
        requireCatalogue(services);
        addOwnCities(services, choices);
    }
    if (question.wanted == Wanted::place) {
        addPlaces(services, question.typed, choices);
    }
    if (question.wanted == Wanted::ringtone) {
        addRingtones(choices);
    }
    std::vector<CompletionChoice> all = question.choices;
    std::ranges::move(choices.take(), std::back_inserter(all));
    return all;
}

void printChoices(std::ostream& out, const std::string& shell, const std::string& raw,
                  const CompletionQuestion& question, const std::vector<CompletionChoice>& choices) {
    if (question.wanted == Wanted::folder || question.wanted == Wanted::file) {
        out << (question.wanted == Wanted::folder ? ":folders\n" : ":files\n");
        return;
    }
    const bool bash = shell == "bash";
    const bool inQuotes = raw.starts_with('"') || raw.starts_with('\'');
    for (const CompletionChoice& choice : choices) {
        out << (bash && !inQuotes ? shellEscaped(choice.text) : choice.text);
        if (!bash && !choice.description.empty()) {
            out << '\t' << choice.description;
        }
        out << '\n';
    }
}

} // namespace zorel::cli
