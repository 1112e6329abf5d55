// SPDX-License-Identifier: Apache-2.0
#include "Commands.h"

#include "DayJson.h"
#include "DayText.h"
#include "Moments.h"
#include "PlaceResolver.h"

#include "engine/MoonDay.h"

#include <fmt/format.h>

#include <cmath>

namespace zorel::cli {

namespace {
constexpr int kPhases = 4;

struct BodyEvents {
    EventTime rise;
    EventTime transit;
    EventTime set;
};

struct Phase {
    PrincipalPhase::Kind kind;
    EventTime at;
};

struct Sky {
    Place place;
    EventTime at;
    SunDetails sun;
    BodyEvents sunEvents;
    MoonInfo moon;
    BodyEvents moonEvents;
    std::vector<Phase> phases;
};

BodyEvents eventsOf(const Place& place, Date date, const DayEvents& hours) {
    return {nearestMinute(place, date, hours.rise), nearestMinute(place, date, hours.transit),
            nearestMinute(place, date, hours.set)};
}

std::vector<Phase> phasesAfter(const Place& place, UtcSeconds instant) {
    std::vector<Phase> phases;
    for (const PrincipalPhase& phase : NextPhases(julianDayOf(instant), kPhases)) {
        const auto nearest = std::chrono::floor<std::chrono::minutes>(instantOfJulianDay(phase.julianDay) +
                                                                      std::chrono::seconds(30));
        phases.push_back({phase.kind, eventAt(place.clock, nearest)});
    }
    return phases;
}

Sky skyOf(Place place, UtcSeconds instant) {
    FastAstro engine;
    const Date date = place.clock.dateAt(instant);
    const DateTimeRecord universal = engineInstant(instant);
    const Observer observer = observerOf(place, date);
    Sky sky;
    sky.at = eventAt(place.clock, instant);
    sky.sun = engine.SunInformation(universal, place.latitude, place.longitude);
    sky.sunEvents = eventsOf(place, date, SunEventsOfDay(observer, engineDate(date)));
    sky.moon = engine.MoonInformation(universal, place.latitude, place.longitude);
    sky.moonEvents = eventsOf(place, date, MoonEventsOfDay(observer, engineDate(date)));
    sky.phases = phasesAfter(place, instant);
    sky.place = std::move(place);
    return sky;
}

Word phaseWord(PrincipalPhase::Kind kind) {
    switch (kind) {
    case PrincipalPhase::fullMoon:
        return Word::fullMoon;
    case PrincipalPhase::firstQuarter:
        return Word::firstQuarter;
    case PrincipalPhase::lastQuarter:
        return Word::lastQuarter;
    default:
        return Word::newMoon;
    }
}

std::string_view phaseKey(PrincipalPhase::Kind kind) {
    switch (kind) {
    case PrincipalPhase::fullMoon:
        return "full_moon";
    case PrincipalPhase::firstQuarter:
        return "first_quarter";
    case PrincipalPhase::lastQuarter:
        return "last_quarter";
    default:
        return "new_moon";
    }
}

// Text

/// A table of one body, built row by row.
class BodyTable {
public:
    explicit BodyTable(const Context& context) : context_(context), table_("lr") {}

    void add(Word name, const std::string& value) { table_.add({std::string(context_.word(name)), value}); }
    void addNumber(Word name, double value, int decimals, std::string_view unit) {
        add(name, std::isfinite(value) ? fmt::format("{:.{}f}{}", value, decimals, unit) : "-");
    }
    void addEvents(const BodyEvents& events, Date date) {
        add(Word::rise, eventText(context_, events.rise, date));
        add(Word::transit, eventText(context_, events.transit, date));
        add(Word::set, eventText(context_, events.set, date));
    }
    [[nodiscard]] std::string text(Word heading) const {
        return context_.style.bold(context_.word(heading)) + '\n' + table_.text(context_.style, "  ");
    }

private:
    const Context& context_;
    TextTable table_;
};

std::string sunText(const Context& context, const Sky& sky) {
    BodyTable table(context);
    table.addEvents(sky.sunEvents, sky.at.date);
    table.addNumber(Word::altitude, sky.sun.altitude, 2, "°");
    table.addNumber(Word::azimuth, sky.sun.azimuth, 2, "°");
    table.addNumber(Word::declination, sky.sun.declination, 3, "°");
    table.addNumber(Word::rightAscension, sky.sun.rightAscension, 4, " h");
    table.addNumber(Word::equationOfTime, sky.sun.equationOfTime, 2, " min");
    table.addNumber(Word::distance, sky.sun.distance, 5, " au");
    table.addNumber(Word::diameter, sky.sun.diameter, 2, "′");
    if (sky.sun.altitude > 0.0)
        table.addNumber(Word::shadow, sky.sun.shadowRatio, 2, "");
    return table.text(Word::sun);
}

std::string moonText(const Context& context, const Sky& sky) {
    BodyTable table(context);
    table.addEvents(sky.moonEvents, sky.at.date);
    table.addNumber(Word::altitude, sky.moon.apparentAltitude, 2, "°");
    table.addNumber(Word::azimuth, sky.moon.azimuth, 2, "°");
    table.addNumber(Word::declination, sky.moon.declination, 3, "°");
    table.addNumber(Word::rightAscension, sky.moon.rightAscension, 4, " h");
    table.addNumber(Word::distance, sky.moon.distance, 0, " km");
    table.addNumber(Word::diameter, sky.moon.semiDiameter * 120.0, 2, "′");
    table.addNumber(Word::elongation, sky.moon.elongation, 2, "°");
    table.add(Word::illuminated, fmt::format("{:.0f} %, {}", sky.moon.illuminated,
                                             context.word(sky.moon.waxing ? Word::waxing : Word::waning)));
    return table.text(Word::moon);
}

std::string phasesText(const Context& context, const Sky& sky) {
    TextTable table("lr");
    for (const Phase& phase : sky.phases)
        table.add({std::string(context.word(phaseWord(phase.kind))),
                   fmt::format("{}  {}", isoDate(phase.at.date),
                               clockText(phase.at.timeOfDay, Precision::minutes))});
    return context.style.bold(context.word(Word::nextPhases)) + '\n' + table.text(context.style, "  ");
}

void printText(const Context& context, const Sky& sky) {
    context.streams.out << context.style.bold(placeText(sky.place, context.language)) << '\n'
                        << longDate(sky.at.date, context.language) << "  "
                        << clockText(sky.at.timeOfDay, Precision::minutes) << "  UTC"
                        << isoOffset(sky.at.offset) << "\n\n"
                        << sunText(context, sky) << '\n'
                        << moonText(context, sky) << '\n'
                        << phasesText(context, sky);
}

// JSON

/// Rounded to some decimals, so that the last bits of the C library do not show; null when not finite.
Json number(double value, int decimals) {
    const double scale = std::pow(10.0, decimals);
    return std::isfinite(value) ? Json(std::round(value * scale) / scale) : Json(nullptr);
}

Json eventsJson(const BodyEvents& events) {
    return Json{{"rise", eventJson(events.rise)},
                {"transit", eventJson(events.transit)},
                {"set", eventJson(events.set)}};
}

Json sunJson(const Sky& sky) {
    Json sun = eventsJson(sky.sunEvents);
    sun.update(Json{{"altitude", number(sky.sun.altitude, 3)},
                    {"azimuth", number(sky.sun.azimuth, 3)},
                    {"declination", number(sky.sun.declination, 4)},
                    {"right_ascension_hours", number(sky.sun.rightAscension, 5)},
                    {"equation_of_time_minutes", number(sky.sun.equationOfTime, 3)},
                    {"distance_au", number(sky.sun.distance, 6)},
                    {"diameter_arcminutes", number(sky.sun.diameter, 2)}});
    return sun;
}

Json moonJson(const Sky& sky) {
    Json moon = eventsJson(sky.moonEvents);
    moon.update(Json{{"altitude", number(sky.moon.apparentAltitude, 3)},
                     {"azimuth", number(sky.moon.azimuth, 3)},
                     {"declination", number(sky.moon.declination, 4)},
                     {"right_ascension_hours", number(sky.moon.rightAscension, 5)},
                     {"distance_km", number(sky.moon.distance, 0)},
                     {"diameter_arcminutes", number(sky.moon.semiDiameter * 120.0, 2)},
                     {"elongation", number(sky.moon.elongation, 2)},
                     {"illuminated_percent", number(sky.moon.illuminated, 0)},
                     {"waxing", sky.moon.waxing}});
    return moon;
}

void printJson(const Context& context, const Sky& sky) {
    Json phases = Json::array();
    for (const Phase& phase : sky.phases)
        phases.push_back(Json{{"phase", phaseKey(phase.kind)}, {"at", eventJson(phase.at)}});
    writeJson(context, Json{{"schema", "zorel/sky/1"},
                            {"place", placeJson(context, sky.place)},
                            {"at", eventJson(sky.at)},
                            {"sun", sunJson(sky)},
                            {"moon", moonJson(sky)},
                            {"next_phases", phases}});
}
} // namespace

Exit runSky(const Context& context) {
    Place place = resolvePlace(context);
    const UtcSeconds instant = momentOf(context, place, context.options.at);
    const Sky sky = skyOf(std::move(place), instant);
    if (context.options.json)
        printJson(context, sky);
    else
        printText(context, sky);
    return Exit::ok;
}

} // namespace zorel::cli
