// SPDX-License-Identifier: Apache-2.0
#include "commands/Commands.h"

#include "commands/PlaceResolver.h"
#include "draw/SkyChart.h"
#include "grammar/DateArgument.h"
#include "print/ClockNotices.h"
#include "print/DayJson.h"
#include "print/DayText.h"
#include "print/PlaceText.h"

#include "almanac/Almanac.h"

#include <fmt/format.h>

#include <cmath>

namespace zorel::cli {

using almanac::BodyEvents;
using almanac::Instant;
using almanac::Sky;

namespace {
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

    void add(std::string name, std::string value) { table_.add({std::move(name), std::move(value)}); }
    void addNumber(std::string name, double value, int decimals, std::string_view unit) {
        add(std::move(name), std::isfinite(value) ? fmt::format("{:.{}f}{}", value, decimals, unit) : "-");
    }
    void addEvents(const BodyEvents& events, almanac::Date date) {
        add(trIn("of the Sun or the Moon", "rise"), timeText(context_, shownTime(events.rise), date));
        add(trIn("of the Sun or the Moon", "transit"), timeText(context_, shownTime(events.transit), date));
        add(trIn("of the Sun or the Moon", "set"), timeText(context_, shownTime(events.set), date));
    }
    [[nodiscard]] std::string text(std::string_view heading) const {
        return context_.style.bold(heading) + '\n' + table_.text(context_.style, "  ");
    }

private:
    const Context& context_;
    TextTable table_;
};

std::string sunText(const Context& context, const Sky& sky) {
    BodyTable table(context);
    table.addEvents(sky.sunEvents, sky.at.date);
    table.addNumber(tr("altitude"), sky.sun.altitude, 2, "°");
    table.addNumber(tr("azimuth"), sky.sun.azimuth, 2, "°");
    table.addNumber(trIn("of the Sun or the Moon", "declination"), sky.sun.declination, 3, "°");
    table.addNumber(tr("right ascension"), sky.sun.rightAscension, 4, " h");
    table.addNumber(tr("equation of time"), sky.sun.equationOfTime, 2, " min");
    table.addNumber(tr("distance"), sky.sun.distance, 5, " au");
    table.addNumber(tr("diameter"), sky.sun.diameter, 2, "′");
    if (sky.sun.altitude > 0.0) {
        table.addNumber(tr("shadow of a staff of 1"), sky.sun.shadowRatio, 2, "");
    }
    return table.text(tr("Sun"));
}

std::string moonText(const Context& context, const Sky& sky) {
    BodyTable table(context);
    table.addEvents(sky.moonEvents, sky.at.date);
    table.addNumber(tr("altitude"), sky.moon.apparentAltitude, 2, "°");
    table.addNumber(tr("azimuth"), sky.moon.azimuth, 2, "°");
    table.addNumber(trIn("of the Sun or the Moon", "declination"), sky.moon.declination, 3, "°");
    table.addNumber(tr("right ascension"), sky.moon.rightAscension, 4, " h");
    table.addNumber(tr("distance"), sky.moon.distance, 0, " km");
    table.addNumber(tr("diameter"), sky.moon.semiDiameter * 120.0, 2, "′");
    table.addNumber(tr("elongation"), sky.moon.elongation, 2, "°");
    table.add(tr("illuminated"), sky.moon.waxing ? tr("{:.0f} %, waxing", sky.moon.illuminated)
                                                 : tr("{:.0f} %, waning", sky.moon.illuminated));
    return table.text(tr("Moon"));
}

std::string phasesText(const Context& context, const Sky& sky) {
    TextTable table("lr");
    for (const SkyFact& phase : phaseFacts(sky)) {
        table.add({phase.name, phase.value});
    }
    return context.style.bold(tr("Next phases")) + '\n' + table.text(context.style, "  ");
}

void printText(const Context& context, const ShownPlace& place, const Sky& sky) {
    context.streams.out << context.style.bold(placeText(place)) << '\n'
                        << longDate(sky.at.date) << "  "
                        << almanac::clockText(sky.at.timeOfDay, almanac::Precision::minutes) << "  UTC"
                        << almanac::isoOffset(sky.at.offset) << "\n\n"
                        << sunText(context, sky) << '\n'
                        << moonText(context, sky) << '\n'
                        << phasesText(context, sky) << clockNoticeLine(context, place, sky.at.date);
}

// JSON

Json eventsJson(const BodyEvents& events) {
    return Json{{"rise", timeJson(shownTime(events.rise))},
                {"transit", timeJson(shownTime(events.transit))},
                {"set", timeJson(shownTime(events.set))}};
}

Json sunJson(const Sky& sky) {
    Json sun = eventsJson(sky.sunEvents);
    sun.update(Json{{"altitude", numberJson(sky.sun.altitude, 3)},
                    {"azimuth", numberJson(sky.sun.azimuth, 3)},
                    {"declination", numberJson(sky.sun.declination, 4)},
                    {"right_ascension_hours", numberJson(sky.sun.rightAscension, 5)},
                    {"equation_of_time_minutes", numberJson(sky.sun.equationOfTime, 3)},
                    {"distance_au", numberJson(sky.sun.distance, 6)},
                    {"diameter_arcminutes", numberJson(sky.sun.diameter, 2)}});
    return sun;
}

Json moonJson(const Sky& sky) {
    Json moon = eventsJson(sky.moonEvents);
    moon.update(Json{{"altitude", numberJson(sky.moon.apparentAltitude, 3)},
                     {"azimuth", numberJson(sky.moon.azimuth, 3)},
                     {"declination", numberJson(sky.moon.declination, 4)},
                     {"right_ascension_hours", numberJson(sky.moon.rightAscension, 5)},
                     {"distance_km", numberJson(sky.moon.distance, 0)},
                     {"diameter_arcminutes", numberJson(sky.moon.semiDiameter * 120.0, 2)},
                     {"elongation", numberJson(sky.moon.elongation, 2)},
                     {"illuminated_percent", numberJson(sky.moon.illuminated, 0)},
                     {"waxing", sky.moon.waxing}});
    return moon;
}

void printJson(const Context& context, const ShownPlace& place, const Sky& sky) {
    Json phases = Json::array();
    for (const almanac::MoonPhase& phase : sky.phases) {
        phases.push_back(Json{{"phase", phaseKey(phase.kind)}, {"at", timeJson(phase.at.local)}});
    }
    writeJson(context, Json{{"schema", "zorel/sky/1"},
                            {"place", placeJson(place)},
                            {"at", timeJson(sky.at)},
                            {"clock", clockJson(place, sky.at.date)},
                            {"sun", sunJson(sky)},
                            {"moon", moonJson(sky)},
                            {"next_phases", phases}});
}

/// The moment that an option names, by the place's clock when it has no offset; without one the present.
Instant momentOf(const Context& context, const almanac::PlaceClock& clock) {
    const std::string& text = context.options.at;
    if (text.empty()) {
        return context.now();
    }
    const auto moment = almanac::parseMoment(text);
    if (!moment) {
        throw CliError(Exit::badUse, tr("--at: {} is not a moment", quote(text)),
                       tr("write it as 2026-11-21T15:04, 2026-11-21T15:04+03:00, or 15:04 for today"));
    }
    return instantOf(*moment, clock, clock.dateAt(context.now()));
}
} // namespace

Exit runSky(const Context& context) {
    ShownPlace place = resolvePlace(context);
    const Instant at = momentOf(context, place.clock());
    const Options& options = context.options;
    if (options.svg || options.chart) {
        const SkyChart chart = skyChart(std::move(place), at);
        context.streams.out << (options.svg ? skySvg(context, chart)
                                            : skyText(context, chart) +
                                                  clockNoticeLine(context, chart.place, chart.sky.at.date));
        return Exit::ok;
    }
    const Sky sky = almanac::Almanac(place.place).sky(at);
    if (options.json) {
        printJson(context, place, sky);
    } else {
        printText(context, place, sky);
    }
    return Exit::ok;
}

} // namespace zorel::cli
