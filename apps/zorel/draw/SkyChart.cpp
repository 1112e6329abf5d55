// SPDX-License-Identifier: Apache-2.0
#include "draw/SkyChart.h"

#include "draw/SkyTexts.h"
#include "print/Clockface.h"
#include "print/DayText.h"

#include <fmt/format.h>

#include <cmath>

namespace zorel::cli {

namespace {
constexpr std::chrono::minutes kStep{5};

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

std::vector<SkyFact> bodyFacts(const Context& context, const almanac::Standing& standing,
                               const almanac::BodyEvents& events, almanac::Date date) {
    const auto when = [&](const std::optional<almanac::SkyEvent>& event) {
        return event ? timeText(context, shownTime(event), date) : std::string("-");
    };
    return {{std::string(context.word(Word::altitude)), fmt::format("{:.1f}°", standing.altitude)},
            {std::string(context.word(Word::azimuth)),
             fmt::format("{:.1f}° {}", standing.azimuth, compassPoint(standing.azimuth))},
            {std::string(context.word(Word::rise)), when(events.rise)},
            {std::string(context.word(Word::transit)), when(events.transit)},
            {std::string(context.word(Word::set)), when(events.set)}};
}
} // namespace

std::string_view compassPoint(double azimuth) {
    const auto eighth = static_cast<std::size_t>(std::lround(azimuth / 45.0));
    return sky_texts::kPoints[eighth % sky_texts::kPoints.size()];
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
    facts.push_back({std::string(context.word(Word::illuminated)),
                     fmt::format("{:.0f} %, {}", sky.moon.illuminated,
                                 context.word(sky.moon.waxing ? Word::waxing : Word::waning))});
    return facts;
}

std::vector<SkyFact> phaseFacts(const Context& context, const almanac::Sky& sky) {
    std::vector<SkyFact> facts;
    for (const almanac::MoonPhase& phase : sky.phases) {
        const almanac::LocalTime& at = phase.at.local;
        facts.push_back({std::string(context.word(phaseWord(phase.kind))),
                         fmt::format("{}  {}", almanac::isoDate(at.date),
                                     almanac::clockText(at.timeOfDay, almanac::Precision::minutes))});
    }
    return facts;
}

std::string skySubtitle(const Context& context, const SkyChart& chart) {
    const almanac::LocalTime& at = chart.sky.at;
    return fmt::format("{}  {}  UTC{}", longDate(at.date, context.language),
                       almanac::clockText(at.timeOfDay, almanac::Precision::minutes),
                       almanac::isoOffset(at.offset));
}

} // namespace zorel::cli
