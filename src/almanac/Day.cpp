// SPDX-License-Identifier: Apache-2.0
#include "almanac/Day.h"

#include "engine/FastAstro.h"

namespace zorel::almanac {

std::optional<double> Day::loweredLatitude() const {
    return record.latitudeLowered ? std::optional(record.priorLatitude - 1.0) : std::nullopt;
}

Corrections Day::corrections() const {
    Corrections all;
    for (const DayTime& time : times) {
        all |= time.why.corrections;
    }
    return all;
}

/// By the hours that pass, not by a clock that changes within the day.
std::array<std::optional<double>, kPrayers> ezaniHours(const Day& day) {
    std::array<std::optional<double>, kPrayers> hours;
    const DayTime& sunset = day[Prayer::maghrib];
    if (!sunset.exists()) {
        return hours;
    }
    PrayerTimes ofSunset;
    ofSunset.times[PrayerTimes::sunset] = sunset.hours;
    const FastAstro engine;
    for (const DayTime& time : day.times) {
        if (time.exists()) {
            hours[static_cast<std::size_t>(time.prayer)] = engine.CalculateEzaniTimes(time.hours, ofSunset);
        }
    }
    return hours;
}

} // namespace zorel::almanac
