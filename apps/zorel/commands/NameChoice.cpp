// SPDX-License-Identifier: Apache-2.0
#include "commands/NameChoice.h"

#include "commands/CataloguePlaces.h"
#include "commands/ToldOnce.h"
#include "print/PlaceText.h"

#include <fmt/format.h>

#include <algorithm>

namespace zorel::cli {

namespace {
constexpr std::size_t kMostSuggested = 3;

std::string textOf(const NamedPlace& named) {
    ShownPlace place;
    place.id = named.id;
    place.place.name = named.name;
    place.region = named.region;
    place.countryEn = named.countryEn;
    place.countryTr = named.countryTr;
    return placeText(place);
}

/// "there are: Paris / Texas / United States (4717560); ...".
std::string thereAre(const std::vector<NamedPlace>& places) {
    std::vector<std::string> texts;
    for (std::size_t at = 0; at < std::min(places.size(), kMostSuggested); ++at) {
        texts.push_back(fmt::format("{} ({})", textOf(places[at]), places[at].id));
    }
    return tr("there are: {}", fmt::format("{}", fmt::join(texts, "; ")));
}

[[noreturn]] void failToResolve(const Context& context, const NameResolution& found) {
    if (!found.elsewhere.empty()) {
        throw CliError(
            Exit::noResult,
            tr("no place called {0} lies in {1}", printable(found.name), printable(found.unmatched)),
            thereAre(found.elsewhere));
    }
    throw CliError(Exit::noResult, nothingCalled(context, found.name),
                   tr("a part of the name is enough for: zorel search TEXT; or give LAT,LON,ZONE"));
}

/// One short line for a name that several places have, and for one that a much larger place has too.
std::string choiceText(const NameResolution& found) {
    const std::string name = printable(found.name);
    const std::string chosen = textOf(found.places.front());
    const auto called = std::ranges::count(found.places, false, &NamedPlace::otherSpelling);
    if (found.passedOver != 0) {
        // translators: {0} is what was typed, {1} and {2} are places, {3} the name to search for
        return tr("{0} is taken for {1}, not for {2}; zorel search {3} lists them", name, chosen,
                  textOf(found.places[found.passedOver]), name);
    }
    if (called > 1 && !found.places.front().otherSpelling) {
        // translators: {0} is a place, {1} a number of places, {2} the name to search for
        return tr("this is {0}, the largest of {1}; zorel search {2} lists them", chosen, called, name);
    }
    return "";
}

void tellChoice(const Context& context, const NameResolution& found, Telling telling) {
    const std::string text = context.options.json ? "" : choiceText(found);
    if (text.empty()) {
        return;
    }
    const bool first = isToldFirst(fmt::format("{} {}", found.places.front().id, printable(found.name)));
    if (first || telling == Telling::always) {
        context.note(text);
    }
}
} // namespace

NameResolution resolveNameOrFail(const Context& context, const std::string& text) {
    requireCatalogue(context.services);
    auto found = resolveName(context.services, text);
    if (!found) {
        throw unreadableCatalogue(context.services);
    }
    return *std::move(found);
}

std::int32_t idOfName(const Context& context, const std::string& text, Telling telling) {
    const NameResolution found = resolveNameOrFail(context, text);
    if (found.places.empty()) {
        failToResolve(context, found);
    }
    tellChoice(context, found, telling);
    return found.places.front().id;
}

std::string nothingCalled(const Context& context, const std::string& name) {
    std::vector<std::string> names;
    for (const NamedPlace& place : similarPlaces(context.services, name, kMostSuggested)) {
        names.push_back(place.name);
    }
    return names.empty() ? tr("no place is called {}", printable(name))
                         // translators: {1} is a list of names
                         : tr("no place is called {0}; did you mean {1}?", printable(name),
                              fmt::format("{}", fmt::join(names, ", ")));
}

} // namespace zorel::cli
