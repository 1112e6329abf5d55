// SPDX-License-Identifier: Apache-2.0
#include "PlaceResolver.h"

#include "CataloguePlaces.h"
#include "UserData.h"

#include "platform/foundation/Locale.h"
#include "platform/foundation/NumberText.h"

#include <fmt/format.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>

namespace zorel::cli {

namespace {
constexpr std::size_t kMostMatches = 2000;
constexpr std::size_t kMostNamed = 5;
constexpr std::size_t kShortestName = 3;

/// Lower case without accents: "turkiye" of "Türkiye".
std::string folded(const std::string& text) {
    UErrorCode failure = U_ZERO_ERROR;
    const icu::Normalizer2* decomposing = icu::Normalizer2::getNFDInstance(failure);
    if (U_FAILURE(failure) != 0)
        return lowerCase(text);
    const icu::UnicodeString letters =
        decomposing->normalize(icu::UnicodeString::fromUTF8(lowerCase(text)), failure);
    icu::UnicodeString plain;
    for (std::int32_t i = 0; i < letters.length(); i = letters.moveIndex32(i, 1)) {
        if (u_getCombiningClass(letters.char32At(i)) == 0)
            plain.append(letters.char32At(i));
    }
    std::string result;
    return plain.toUTF8String(result);
}

bool containsFolded(const std::string& text, const std::string& wantedFolded) {
    return folded(text).find(wantedFolded) != std::string::npos;
}

bool liesWithin(const City& city, const std::string& part) {
    const std::string wanted = folded(part);
    return containsFolded(city.nameParent, wanted) || containsFolded(city.countryNameEn, wanted) ||
           containsFolded(city.countryNameTr, wanted);
}

bool liesWithinAll(const City& city, const std::vector<std::string>& parts) {
    return std::all_of(parts.begin(), parts.end(),
                       [&](const std::string& part) { return liesWithin(city, part); });
}

std::string cityText(const City& city, Language language) {
    Place place;
    place.id = integerValue(city.cityId);
    place.name = city.name;
    place.region = city.nameParent;
    place.countryEn = city.countryNameEn;
    place.countryTr = city.countryNameTr;
    return fmt::format("{} ({})", placeText(place, language), place.id);
}

Place placeOfId(const Context& context, std::int32_t id) {
    requireCatalogue(context.services);
    const auto row = placeById(context.services, id);
    if (!row)
        throw CliError(Exit::noResult, fmt::format("no place has the catalogue id {}", id),
                       "find the id with: zorel search NAME");
    return placeOf(*row);
}

/// The first few of the places that have the very same name as the best one.
std::vector<std::string> namesakes(const Context& context, const std::vector<City>& matches) {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < matches.size() && names.size() < kMostNamed + 1; ++i) {
        if (folded(matches[i].name) == folded(matches[0].name))
            names.push_back(cityText(matches[i], context.language));
    }
    return names;
}

/// Places of the very same name as the one taken are worth a word, others are not.
void tellAboutOthers(const Context& context, const std::vector<City>& matches) {
    const auto names = namesakes(context, matches);
    if (names.size() > 1)
        context.note(fmt::format("this is {}; there are also: {}", names.front(),
                                 fmt::join(names.begin() + 1, names.end(), "; ")));
}

/// "Istanbul, Turkey" fails at the country's name only: then the places of the bare name help.
std::string hintFor(const Context& context, const PlaceByName& wanted) {
    const auto matches =
        wanted.within.empty() ? std::vector<City>() : citiesByName(context, PlaceByName{wanted.name, {}});
    if (matches.empty())
        return "try another spelling or a part of the name (zorel search TEXT), or give LAT,LON,ZONE";
    return fmt::format("there are: {}", fmt::join(namesakes(context, matches), "; "));
}

Place placeOfName(const Context& context, const PlaceByName& wanted) {
    const auto matches = citiesByName(context, wanted);
    if (matches.empty())
        throw CliError(Exit::noResult, fmt::format("no place {} in the catalogue", quote(context.argument())),
                       hintFor(context, wanted));
    tellAboutOthers(context, matches);
    return placeOfId(context, integerValue(matches.front().cityId));
}

ZoneClock clockOf(const ZoneQuery& zone) {
    if (const auto* offset = std::get_if<std::chrono::seconds>(&zone))
        return ZoneClock(FixedClock{*offset});
    const auto* name = std::get_if<std::string>(&zone);
    return ZoneClock(NamedClock{name == nullptr ? std::string() : *name});
}

Place placeOfPoint(const PlaceByCoordinates& point) {
    Place place;
    place.latitude = point.latitude;
    place.longitude = point.longitude;
    place.clock = clockOf(point.zone);
    place.zoneName =
        std::holds_alternative<std::monostate>(point.zone) ? systemZoneName() : place.clock.zoneName();
    return place;
}

std::string noPlaceIn(const std::string& zone) {
    return zone.empty() ? zone : fmt::format(", nor a place in the system's time zone {}", quote(zone));
}

Place defaultPlace(const Context& context) {
    if (const std::int32_t id = homeCityId(); id != 0)
        return placeOfId(context, id);
    requireCatalogue(context.services);
    const std::string zone = systemZoneName();
    const auto largest = largestPlaceOfTimeZone(context.services, zone);
    if (!largest)
        throw CliError(Exit::badUse, "no place was given and there is no home city" + noPlaceIn(zone),
                       "give a place (zorel today Ankara) or choose one for good: zorel cities add Ankara");
    context.note(
        fmt::format("no home city yet, so the largest place of {} is taken; choose yours with: zorel cities "
                    "add NAME",
                    zone));
    return placeOf(*largest);
}

struct Resolve {
    const Context& context;
    Place operator()(const PlaceById& wanted) const { return placeOfId(context, wanted.id); }
    Place operator()(const PlaceByName& wanted) const { return placeOfName(context, wanted); }
    Place operator()(const PlaceByCoordinates& wanted) const { return placeOfPoint(wanted); }
};
} // namespace

std::vector<City> citiesByName(const Context& context, const PlaceByName& wanted) {
    if (displayWidth(wanted.name) < kShortestName)
        throw CliError(Exit::badUse, fmt::format("{} is too short for a name", quote(wanted.name)),
                       "type three characters or more");
    requireCatalogue(context.services);
    auto matches = matchPlaces(context.services, wanted.name, kMostMatches);
    std::erase_if(matches, [&](const City& city) { return !liesWithinAll(city, wanted.within); });
    return matches;
}

Place resolvePlace(const Context& context) {
    Place place = context.options.words.empty()
                      ? defaultPlace(context)
                      : std::visit(Resolve{context}, parsePlaceQuery(context.argument()));
    if (context.options.temkin != 0)
        place.highTemkin = context.options.temkin == 500;
    return place;
}

} // namespace zorel::cli
