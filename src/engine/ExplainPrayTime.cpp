// SPDX-License-Identifier: Apache-2.0
#include "engine/ExplainPrayTime.h"

#include "engine/FastAstro.h"
#include "engine/PrayerDay.h"
#include "engine/Single.h"

#include <cmath>

namespace zorel {

namespace {

PrayTimeRule ruleOf(int index) {
    switch (index) {
    case PrayerTimes::noon:
    case PrayerTimes::transitMinusTemkin:
        return PrayTimeRule::transit;
    case PrayerTimes::afternoon:
    case PrayerTimes::secondAfternoon:
        return PrayTimeRule::shadow;
    case PrayerTimes::lastSixthOfNight:
    case PrayerTimes::middleOfNight:
    case PrayerTimes::firstThirdOfNight:
        return PrayTimeRule::partOfNight;
    case PrayerTimes::qiblaTime:
        return PrayTimeRule::qibla;
    case PrayerTimes::unused:
        return PrayTimeRule::none;
    default:
        return PrayTimeRule::altitude;
    }
}

void explainIteration(const PrayerTrace::Entry& entry, PrayTimeExplanation& out) {
    out.targetAltitude = entry.result.altitude / kRadiansPerDegree;
    if (out.rule == PrayTimeRule::altitude) {
        out.targetAltitude = entry.input.altitude;
    } else {
        out.shadowFactor = entry.input.altitude;
    }
    out.morning = entry.input.direction < 0;
    out.rounds = entry.result.rounds;
    out.converged = entry.result.converged;
}

void explainPartOfNight(PrayTimeExplanation& out) {
    const bool fromDawn = out.index == PrayerTimes::lastSixthOfNight;
    out.nightFrom = fromDawn ? PrayerTimes::dawn : PrayerTimes::sunset;
    if (fromDawn) {
        out.partOfNight = -1.0 / 6.0;
    } else {
        out.partOfNight = out.index == PrayerTimes::middleOfNight ? 1.0 / 2.0 : 1.0 / 3.0;
    }
}

int daysBetween(const AstroGlobalFuncs& calendar, const DateTimeRecord& from, const DateTimeRecord& to) {
    if (from.day == to.day && from.month == to.month && from.year == to.year) {
        return 0;
    }
    const double first = calendar.CalculateJulianDay(from.year, from.month, from.day, 0, 0, 0);
    const double last = calendar.CalculateJulianDay(to.year, to.month, to.day, 0, 0, 0);
    return static_cast<int>(std::round(last - first));
}

/// One computed day.
struct TracedDay {
    DateTimeRecord date; // asked about
    PrayerTimes times;
    PrayerTrace trace;
};

/// @param out as it was made.
void explain(int index, const TracedDay& day, const AstroGlobalFuncs& calendar, PrayTimeExplanation& out) {
    out.index = index;
    out.rule = ruleOf(index);
    if (out.rule == PrayTimeRule::none) {
        return;
    }
    const PrayerTrace::Entry& entry = day.trace.entries[static_cast<std::size_t>(index)];
    out.date = DateRecordMake(entry.date.day, entry.date.month, entry.date.year, 0, 0, 0);
    out.daysBack = daysBetween(calendar, out.date, day.date);
    out.latitude = entry.latitude;
    out.latitudeLowered = day.times.latitudeLowered;
    out.temkin = entry.temkin;
    out.addition = entry.addition;
    out.time = day.times.times[static_cast<std::size_t>(index)];
    out.occurs = out.time != kNoSolarEvent;
    if (out.rule == PrayTimeRule::altitude || out.rule == PrayTimeRule::shadow) {
        explainIteration(entry, out);
    } else if (out.rule == PrayTimeRule::partOfNight) {
        explainPartOfNight(out);
    }
}

/// The day at the engine's place, which must be the one of iPlace, with its qibla.
void compute(FastAstro& engine, TracedDay& day) {
    const PlaceRecord& place = engine.iPlace;
    PrayerDay(engine, place.latitude, place.longitude, day.date, place.elevation, day.times, place.qibla,
              PrayerDay::Extent::timesOnly, &day.trace)
        .run();
}

} // namespace

PrayTimeExplanation FastAstro::ExplainPrayTime(int index) const {
    return ExplainPrayTime(index, iCurrentDate);
}

PrayTimeExplanation FastAstro::ExplainPrayTime(int index, const DateTimeRecord& date) const {
    PrayTimeExplanation out;
    if (index < 0 || index > 15) {
        out.index = index;
        return out;
    }
    FastAstro engine = *this; // the day is computed once more, beside this engine
    engine.SetLatLon(iPlace.latitude, iPlace.longitude);
    engine.iPlace.qibla = engine.qiblaOfPlace();
    TracedDay day{date, {}, {}};
    compute(engine, day);
    explain(index, day, astroGlobalFuncs, out);
    return out;
}

ExplainedPrayTimes FastAstro::CalculateExplainedPrayTimes() {
    TracedDay day{DateRecordMake(iCurrentDate.day, iCurrentDate.month, iCurrentDate.year, 0, 0, 0), {}, {}};
    iPlace.qibla = qiblaOfPlace();
    compute(*this, day);
    ExplainedPrayTimes out;
    out.times = day.times;
    for (int index = 0; index < 16; ++index) {
        explain(index, day, astroGlobalFuncs, out.explanations[static_cast<std::size_t>(index)]);
    }
    return out;
}

} // namespace zorel
