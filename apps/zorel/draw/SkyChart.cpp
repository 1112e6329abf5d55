// SPDX-License-Identifier: Apache-2.0
#include "draw/SkyChart.h"

#include "print/Clockface.h"
#include "print/DayText.h"

#include <fmt/format.h>

#include <array>
#include <cmath>

namespace zorel::cli {

namespace {
constexpr std::chrono::minutes kStep{5};

// translators: the points of the compass as a map shortens them, one or two letters
constexpr std::array<const char*, kCompassPoints> kPoints{
    trLaterIn("compass", "N"),  trLaterIn("compass", "NE"), trLaterIn("compass", "E"),
    trLaterIn("compass", "SE"), trLaterIn("compass", "S"),  trLaterIn("compass", "SW"),
    trLaterIn("compass", "W"),  trLaterIn("compass", "NW")};

std::string phaseName(PrincipalPhase::Kind kind) {
    switch (kind) {
    case PrincipalPhase::fullMoon:
        return tr("full moon");
    case PrincipalPhase::firstQuarter:
        return tr("first quarter");
    case PrincipalPhase::lastQuarter:
        return tr("last quarter");
    default:
        return tr("new moon");
    }
}

std::vector<SkyFact> bodyFacts(const Context& context, const almanac::Standing& standing,
                               const almanac::BodyEvents& events, almanac::Date date) {
    const auto when = [&](const std::optional<almanac::SkyEvent>& event) {
        return event ? timeText(context, shownTime(event), date) : std::string("-");
    };
    return {{tr("altitude"), fmt::format("{:.1f}°", standing.altitude)},
            {tr("azimuth"), fmt::format("{:.1f}° {}", standing.azimuth, compassPoint(standing.azimuth))},
            {trIn("of the Sun or the Moon", "rise"), when(events.rise)},
            {trIn("of the Sun or the Moon", "transit"), when(events.transit)},
            {trIn("of the Sun or the Moon", "set"), when(events.set)}};
}
} // namespace

std::string compassPoint(std::size_t eighth) {
    return trIn("compass", kPoints[eighth % kPoints.size()]);
}

std::string compassPoint(double azimuth) {
    return compassPoint(static_cast<std::size_t>(std::lround(azimuth / 45.0)));
}

SkyChart skyChart(ShownPlace place, almanac::Instant at) {
    const almanac::Almanac almanac(place.place);
    const almanac::Date date = place.clock().dateAt(at);
    return {std::move(place), almanac.sky(at), almanac.course(date, kStep), almanac.qibla(date).bearing};
}

std::vector<SkyFact> sunFacts(const Context& context, const SkyChart& chart) {
    const almanac::Sky& sky = chart.sky;
    return bodyFacts(context, {sky.sun.altitude, sky.sun.azimuth}, sky.sunEvents, sky.at.date);
}

std::vector<SkyFact> moonFacts(const Context& context, const SkyChart& chart) {
    const almanac::Sky& sky = chart.sky;
    auto facts =
        bodyFacts(context, {sky.moon.apparentAltitude, sky.moon.azimuth}, sky.moonEvents, sky.at.date);
    facts.push_back({tr("illuminated"), sky.moon.waxing ? tr("{:.0f} %, waxing", sky.moon.illuminated)
                                                        : tr("{:.0f} %, waning", sky.moon.illuminated)});
    return facts;
}

std::vector<SkyFact> phaseFacts(const almanac::Sky& sky) {
    std::vector<SkyFact> facts;
    for (const almanac::MoonPhase& phase : sky.phases) {
        const almanac::LocalTime& at = phase.at.local;
        facts.push_back({phaseName(phase.kind),
                         fmt::format("{}  {}", almanac::isoDate(at.date),
                                     almanac::clockText(at.timeOfDay, almanac::Precision::minutes))});
    }
    return facts;
}

std::string skySubtitle(const SkyChart& chart) {
    const almanac::LocalTime& at = chart.sky.at;
    return fmt::format("{}  {}  UTC{}", longDate(at.date),
                       almanac::clockText(at.timeOfDay, almanac::Precision::minutes),
                       almanac::isoOffset(at.offset));
}

} // namespace zorel::cli
