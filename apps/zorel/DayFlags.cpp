// SPDX-License-Identifier: Apache-2.0
#include "DayFlags.h"

namespace zorel::cli {

namespace {
std::optional<Date> dateOfSource(FastAstro& engine, const Day& day, int index, bool fromOtherDay) {
    if (!fromOtherDay || !day.event(index).exists)
        return std::nullopt;
    return addDays(day.date, -engine.ExplainPrayTime(index, engineDate(day.date)).daysBack);
}
} // namespace

DayFlags flagsOf(DayComputer& computer, const Place& place, const Day& day) {
    DayFlags flags;
    if (day.record.latitudeLowered)
        flags.loweredLatitude = day.record.priorLatitude - 1.0;
    computer.prepare(place, day.date);
    FastAstro& engine = computer.engine();
    flags.dawnFrom = dateOfSource(engine, day, PrayerTimes::dawn, day.record.dawnFromOtherDay);
    flags.nightfallFrom = dateOfSource(engine, day, PrayerTimes::nightfall, day.record.nightfallFromOtherDay);
    flags.secondNightfallFrom =
        dateOfSource(engine, day, PrayerTimes::secondNightfall, day.record.secondNightfallFromOtherDay);
    flags.fiveDegreesFrom =
        dateOfSource(engine, day, PrayerTimes::morningFiveDegrees, day.record.secondNightfallFromOtherDay);
    return flags;
}

} // namespace zorel::cli
