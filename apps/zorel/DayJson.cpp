// SPDX-License-Identifier: Apache-2.0
#include "DayJson.h"

namespace zorel::cli {

namespace {
Json dateOrNull(const std::optional<Date>& date) {
    return date ? Json(isoDate(*date)) : Json(nullptr);
}
} // namespace

Json placeJson(const Context& context, const Place& place) {
    return Json{{"id", place.id == 0 ? Json(nullptr) : Json(place.id)},
                {"name", place.name},
                {"region", place.region},
                {"country", place.country(context.language)},
                {"latitude", place.latitude},
                {"longitude", place.longitude},
                {"zone", place.zoneName.empty() ? Json(nullptr) : Json(place.zoneName)},
                {"temkin", place.highTemkin ? 500 : 250}};
}

Json eventJson(const EventTime& event) {
    return event.exists ? Json(isoDateTime(event.date, event.timeOfDay, event.offset)) : Json(nullptr);
}

Json timesJson(const Day& day, std::span<const int> indices) {
    Json times = Json::object();
    for (const int index : indices)
        times[std::string(keyOf(index))] = eventJson(day.event(index));
    return times;
}

Json calendarsJson(const Context& context, const AllCalendarRecord& calendars) {
    const Json hijri{{"year", calendars.hijriYear},
                     {"month", calendars.hijriMonth},
                     {"day", calendars.hijriDay},
                     {"text", hijriText(calendars, context.language)}};
    const Json rumi{{"year", calendars.rumiYear},
                    {"month", calendars.rumiMonth},
                    {"day", calendars.rumiDay},
                    {"text", rumiText(calendars, context.language)}};
    return Json{{"weekday", calendars.weekday},
                {"hijri", calendars.hijriYear < 1 ? Json(nullptr) : hijri},
                {"rumi", rumi},
                {"half_year", calendars.summerHalf == 1 ? "hizir" : "kasim"},
                {"day_of_half_year", calendars.dayOfHalf}};
}

Json flagsJson(const DayFlags& flags) {
    return Json{{"latitude_lowered_to", flags.loweredLatitude ? Json(*flags.loweredLatitude) : Json(nullptr)},
                {"fajr_taken_from", dateOrNull(flags.dawnFrom)},
                {"isha_taken_from", dateOrNull(flags.nightfallFrom)},
                {"isha_second_taken_from", dateOrNull(flags.secondNightfallFrom)},
                {"five_degrees_taken_from", dateOrNull(flags.fiveDegreesFrom)}};
}

void writeJson(const Context& context, const Json& document) {
    context.streams.out << document.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

} // namespace zorel::cli
