// SPDX-License-Identifier: Apache-2.0
// Whatever is typed as a place, an offset, a date or a moment is either understood or refused with a message.
#include "CliError.h"
#include "Dates.h"
#include "PlaceSpec.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string_view>

using namespace zorel::cli;

namespace {

void check(bool holds) {
    if (!holds)
        std::abort();
}

void readPlace(std::string_view text) {
    try {
        const PlaceSpec place = parsePlaceSpec(text);
        if (const auto* point = std::get_if<PlaceByCoordinates>(&place)) {
            check(std::abs(point->latitude) <= 90.0);
            check(std::abs(point->longitude) <= 180.0);
        }
        if (const auto* byName = std::get_if<PlaceByName>(&place))
            check(!byName->name.empty());
        if (const auto* byId = std::get_if<PlaceById>(&place))
            check(byId->id >= 0);
    } catch (const CliError& error) {
        check(error.code() == Exit::badUse && !error.hint().empty());
    }
}

void readDate(std::string_view text) {
    const Date today{std::chrono::year{2026}, std::chrono::November, std::chrono::day{21}};
    if (const auto date = parseDate(text, today))
        check(date->ok());
    if (const auto moment = parseMoment(text))
        check(moment->timeOfDay < std::chrono::hours(24));
    if (const auto offset = parseOffset(text))
        check(std::chrono::abs(*offset) <= std::chrono::hours(14));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    readPlace(text);
    readDate(text);
    const std::string shown = quote(text);
    for (const char character : shown)
        check(static_cast<unsigned char>(character) >= 0x20U);
    return 0;
}
