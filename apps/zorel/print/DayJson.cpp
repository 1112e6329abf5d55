// SPDX-License-Identifier: Apache-2.0
#include "print/DayJson.h"

#include "print/PlaceText.h"

#include "platform/foundation/Utf8.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string_view>

namespace zorel::cli {

using almanac::Correction;
using almanac::Corrections;
using almanac::Date;
using almanac::Day;
using almanac::Prayer;

namespace {
Json dateOrNull(const std::optional<Date>& date) {
    return date ? Json(almanac::isoDate(*date)) : Json(nullptr);
}

std::string_view sourceKey(const ShownPlace& place, Date date) {
    if (place.meridianClock) {
        return "meridian";
    }
    switch (place.clock().sourceOn(date)) {
    case almanac::ClockSource::zoneData:
        return "zone_data";
    case almanac::ClockSource::rule:
        return "rule";
    default:
        return "fixed";
    }
}

Json noticeJson(almanac::ClockNotice notice) {
    switch (notice) {
    case almanac::ClockNotice::ruleOnly:
        return "rule_only";
    case almanac::ClockNotice::ruleIsNewer:
        return "rule_is_newer";
    case almanac::ClockNotice::systemIsOlder:
        return "system_is_older";
    default:
        return nullptr;
    }
}

/// A character as JSON writes it in ASCII: "\u0085", two such for one beyond U+FFFF.
std::string escaped(char32_t code) {
    if (code < 0x10000) {
        return fmt::format("\\u{:04x}", static_cast<std::uint32_t>(code));
    }
    const std::uint32_t rest = code - 0x10000U;
    return fmt::format("\\u{:04x}\\u{:04x}", 0xD800U + (rest >> 10U), 0xDC00U + (rest & 0x3FFU));
}

/// The writer of JSON has escaped the controls of ASCII, but for the last; what is left are its own line
/// feeds.
bool mayDisturb(char byte) {
    return static_cast<unsigned char>(byte) >= 0x7F;
}

/// Moves the first character of `rest` to `text`, escaped if it would disturb a terminal.
void appendEscaped(std::string& text, std::string_view& rest) {
    const Utf8Character character = firstCharacter(rest);
    text += disturbsTerminal(character.code) ? escaped(character.code)
                                             : std::string(rest.substr(0, character.bytes));
    rest.remove_prefix(character.bytes);
}

Json ownerJson(const std::optional<ClockOwner>& owner) {
    if (!owner) {
        return nullptr;
    }
    return Json{{"id", owner->id}, {"name", owner->name}, {"distance_km", numberJson(owner->distance, 1)}};
}
} // namespace

Json placeJson(const ShownPlace& shown) {
    const almanac::Place& place = shown.place;
    const std::string& zone = place.clock.zoneName();
    return Json{{"id", shown.id == 0 ? Json(nullptr) : Json(shown.id)},
                {"name", place.name},
                {"region", shown.region},
                {"country", countryName(shown)},
                {"latitude", place.latitude},
                {"longitude", place.longitude},
                {"zone", zone.empty() ? Json(nullptr) : Json(zone)},
                {"temkin", place.temkin == almanac::Temkin::upTo500m ? 500 : 250}};
}

Json clockJson(const ShownPlace& place, Date date) {
    const auto other = place.clock().otherOffsetOn(date);
    return Json{{"source", sourceKey(place, date)},
                {"notice", noticeJson(place.clock().noticeOn(date))},
                {"other_offset", other ? Json(almanac::isoOffset(*other)) : Json(nullptr)},
                {"of_place", ownerJson(place.clockOwner)}};
}

Json timeJson(const ShownTime& time) {
    return time ? Json(almanac::isoDateTime(*time)) : Json(nullptr);
}

Json timesJson(const Day& day, std::span<const Prayer> prayers, const Clockface& clock) {
    Json times = Json::object();
    for (const Prayer prayer : prayers) {
        times[std::string(almanac::keyOf(prayer))] = timeJson(clock.of(day[prayer]));
    }
    return times;
}

Json sunAtQiblaJson(const almanac::Qibla& qibla) {
    Json instants = Json::array();
    for (const almanac::SunAtQibla& instant : qibla.instants) {
        instants.push_back(timeJson(instant.at.local));
    }
    return instants;
}

Json correctionsJson(Corrections corrections) {
    Json keys = Json::array();
    for (std::size_t i = 0; i < almanac::kCorrections; ++i) {
        const auto correction = static_cast<Correction>(i);
        if (corrections.has(correction)) {
            keys.push_back(almanac::keyOf(correction));
        }
    }
    return keys;
}

Json correctionsJson(const Day& day, std::span<const Prayer> prayers) {
    Json corrected = Json::object();
    for (const Prayer prayer : prayers) {
        if (const Corrections corrections = day[prayer].why.corrections; !corrections.none()) {
            corrected[std::string(almanac::keyOf(prayer))] = correctionsJson(corrections);
        }
    }
    return corrected;
}

Json calendarsJson(const AllCalendarRecord& calendars) {
    const Json hijri{{"year", calendars.hijriYear},
                     {"month", calendars.hijriMonth},
                     {"day", calendars.hijriDay},
                     {"text", hijriText(calendars)}};
    const Json rumi{{"year", calendars.rumiYear},
                    {"month", calendars.rumiMonth},
                    {"day", calendars.rumiDay},
                    {"text", rumiText(calendars)}};
    return Json{{"weekday", calendars.weekday},
                {"hijri", calendars.hijriYear < 1 ? Json(nullptr) : hijri},
                {"rumi", rumi},
                {"half_year", calendars.summerHalf == 1 ? "hizir" : "kasim"},
                {"day_of_half_year", calendars.dayOfHalf}};
}

Json flagsJson(const Day& day) {
    const auto latitude = day.loweredLatitude();
    return Json{{"latitude_lowered_to", latitude ? Json(*latitude) : Json(nullptr)},
                {"fajr_taken_from", dateOrNull(day[Prayer::fajr].takenFrom())},
                {"isha_taken_from", dateOrNull(day[Prayer::isha].takenFrom())},
                {"isha_second_taken_from", dateOrNull(day[Prayer::ishaSecond].takenFrom())},
                {"five_degrees_taken_from", dateOrNull(day[Prayer::morningFiveDegrees].takenFrom())}};
}

Json numberJson(double value, int decimals) {
    const double scale = std::pow(10.0, decimals);
    return std::isfinite(value) ? Json(std::round(value * scale) / scale) : Json(nullptr);
}

std::string jsonText(const Json& document, int indent) {
    const std::string plain = document.dump(indent, ' ', false, Json::error_handler_t::replace);
    std::string text;
    text.reserve(plain.size());
    for (std::string_view rest = plain; !rest.empty();) {
        const auto ascii = std::ranges::find_if(rest, mayDisturb) - rest.begin();
        text += rest.substr(0, static_cast<std::size_t>(ascii));
        rest.remove_prefix(static_cast<std::size_t>(ascii));
        if (!rest.empty()) {
            appendEscaped(text, rest);
        }
    }
    return text;
}

void writeJson(const Context& context, const Json& document) {
    context.streams.out << jsonText(document, 2) << '\n';
}

} // namespace zorel::cli
