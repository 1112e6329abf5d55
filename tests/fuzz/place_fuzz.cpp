// SPDX-License-Identifier: Apache-2.0
// What is typed for a place, a date or a moment: it is understood within its limits or refused with a
// sentence that is safe to print.
#include "almanac/PlaceClock.h"
#include "almanac/Time.h"
#include "grammar/PlaceQuery.h"
#include "platform/foundation/Utf8.h"
#include "terminal/CliError.h"
#include "tests/fuzz/Fuzz.h"

#include <cmath>

namespace {

using namespace zorel::cli;
using zorel::fuzz::require;

constexpr std::chrono::seconds kLargestOffset = std::chrono::hours(14);

struct Check {
    void operator()(const PlaceById& place) const { require(place.id >= 0); }
    void operator()(const PlaceByName& place) const {
        require(place.text.find_first_not_of(" \t,/") != std::string::npos && place.text.size() <= 200);
    }
    void operator()(const PlaceByCoordinates& place) const {
        require(std::abs(place.latitude) <= 90.0 && std::abs(place.longitude) <= 180.0);
        if (const auto* offset = std::get_if<std::chrono::seconds>(&place.zone)) {
            require(std::chrono::abs(*offset) <= kLargestOffset);
        } else if (const auto* zone = std::get_if<std::string>(&place.zone);
                   zone != nullptr && zorel::almanac::PlaceClock::ofZone(*zone)) {
            require(zone->find("..") == std::string::npos && zone->front() != '/');
        }
    }
};

bool isPrintable(const std::string& text) {
    return zorel::cleanText(text) == text;
}

void readPlace(std::string_view text) {
    try {
        std::visit(Check{}, parsePlaceQuery(text));
    } catch (const CliError& error) {
        require(error.code() == Exit::badUse && isPrintable(error.what()) && !error.hint().empty());
    }
}

void readTime(std::string_view text) {
    using namespace zorel::almanac;
    constexpr Date today{std::chrono::year(2026), std::chrono::month(11), std::chrono::day(20)};
    if (const auto date = parseDate(text, today)) {
        require(date->ok() && date->year() >= std::chrono::year(1583) &&
                date->year() <= std::chrono::year(9998));
        require(parseDate(isoDate(*date), today) == date);
    }
    if (const auto moment = parseMoment(text)) {
        require(moment->timeOfDay >= std::chrono::seconds(0) && moment->timeOfDay < std::chrono::hours(24));
        require(!moment->offset || std::chrono::abs(*moment->offset) <= kLargestOffset);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = zorel::fuzz::textOf(data, size);
    readPlace(text);
    readTime(text);
    const auto offset = parseOffset(text);
    require(!offset || std::chrono::abs(*offset) <= kLargestOffset);
    require(isPrintable(quote(text)));
    return 0;
}
