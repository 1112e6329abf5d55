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

} // namespace

PrayTimeExplanation FastAstro::ExplainPrayTime(int index) const {
    return ExplainPrayTime(index, iCurrentDate);
}

PrayTimeExplanation FastAstro::ExplainPrayTime(int index, const DateTimeRecord& date) const {
    PrayTimeExplanation out;
    out.index = index;
    if (index < 0 || index > 15 || ruleOf(index) == PrayTimeRule::none) {
        return out;
    }
    FastAstro engine = *this; // the day is computed once more, beside this engine
    engine.SetLatLon(iPlace.latitude, iPlace.longitude);
    PrayerTimes times;
    PrayerTrace trace;
    const QiblaRecord qibla = engine.KibleAcisi(iPlace.latitude, iPlace.longitude);
    PrayerDay(engine, iPlace.latitude, iPlace.longitude, date, iPlace.elevation, times, qibla, &trace).run();

    const PrayerTrace::Entry& entry = trace.entries[static_cast<std::size_t>(index)];
    out.rule = ruleOf(index);
    out.date = DateRecordMake(entry.date.day, entry.date.month, entry.date.year, 0, 0, 0);
    const DateTimeRecord asked = DateRecordMake(date.day, date.month, date.year, 0, 0, 0);
    out.daysBack = static_cast<int>(
        std::round(astroGlobalFuncs.JulianDay(asked) - astroGlobalFuncs.JulianDay(out.date)));
    out.latitude = entry.latitude;
    out.latitudeLowered = times.latitudeLowered;
    out.temkin = entry.temkin;
    out.addition = entry.addition;
    out.time = times.times[static_cast<std::size_t>(index)];
    out.occurs = out.time != kNoSolarEvent;
    if (out.rule == PrayTimeRule::altitude || out.rule == PrayTimeRule::shadow) {
        explainIteration(entry, out);
    } else if (out.rule == PrayTimeRule::partOfNight) {
        explainPartOfNight(out);
    }
    return out;
}

} // namespace zorel
