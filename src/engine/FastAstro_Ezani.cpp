// SPDX-License-Identifier: Apache-2.0
// The sunset-based clock: 12:00 is the sunset prayer, on a dial of twelve hours.
#include "engine/FastAstro.h"
#include "engine/Integers.h"

#include <cmath>

namespace zorel {

double FastAstro::TimeToHourDeg(double hours) const {
    const double minutes = toInt(astroGlobalFuncs.frac(hours) * 60.0);
    return static_cast<double>(static_cast<float>(toInt(hours) + minutes / 60.0));
}

double FastAstro::CalculateEzaniTimes(double time, const PrayerTimes& times) const {
    const double sunset = TimeToHourDeg(times.times[PrayerTimes::sunset]);
    const double ezani = 24.0 - (sunset - TimeToHourDeg(time));
    if (!(ezani > 13.0)) {
        return ezani;
    }
    // What repeated subtraction of 12 leaves: above 1, at most 13.
    const double rest = std::fmod(ezani, 12.0);
    return rest > 1.0 ? rest : rest + 12.0;
}

void FastAstro::CalculateAllEzaniTimes(PrayerTimes& times) const {
    // A missing time at an index other than 0 is converted as the number -1.
    for (int i = 0; i < 16; ++i) {
        const bool missingDawn = i == PrayerTimes::dawn && times.times[0] == kNoSolarEvent;
        if (i != PrayerTimes::unused && !missingDawn) {
            times.ezani[i] = CalculateEzaniTimes(times.times[i], times);
        }
    }
    times.ezani[PrayerTimes::sunset] = 12.0;
}

} // namespace zorel
