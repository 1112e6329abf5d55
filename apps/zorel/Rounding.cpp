// SPDX-License-Identifier: Apache-2.0
#include "Rounding.h"

#include "engine/Records.h"

#include <fmt/format.h>

#include <cmath>

namespace zorel::cli {

namespace {
using std::chrono::days;
using std::chrono::milliseconds;
using std::chrono::seconds;
using std::chrono::sys_days;

constexpr double kFarthestHours = 240.0;

/// Milliseconds rounded to a whole number of steps.
milliseconds rounded(milliseconds time, milliseconds step, Rounding rounding) {
    const auto count = time.count();
    const auto size = step.count();
    const auto floorSteps = count >= 0 ? count / size : -((-count + size - 1) / size);
    const bool whole = floorSteps * size == count;
    return step * (floorSteps + (rounding == Rounding::later && !whole ? 1 : 0));
}
} // namespace

Rounding roundingOf(int index) {
    switch (index) {
    case PrayerTimes::dawn:
    case PrayerTimes::sunrise:
    case PrayerTimes::afternoonFiveDegrees:
    case PrayerTimes::transitMinusTemkin:
    case PrayerTimes::middleOfNight:
    case PrayerTimes::firstThirdOfNight:
        return Rounding::earlier;
    default:
        return Rounding::later;
    }
}

EventTime eventTime(const ZoneClock& clock, Date date, double hours, Rounding rounding, Precision precision) {
    if (!std::isfinite(hours) || hours == kNoSolarEvent || std::abs(hours) > kFarthestHours)
        return {};
    const milliseconds exact(std::llround(hours * 3'600'000.0));
    const seconds offset = clock.offsetOn(date);
    const auto correction =
        clock.changesWithinDay()
            ? clock.offsetAt(sys_days(date) + std::chrono::floor<seconds>(exact) - offset) - offset
            : seconds(0);
    const milliseconds step = precision == Precision::minutes ? milliseconds(60'000) : milliseconds(1'000);
    const auto local = std::chrono::floor<seconds>(rounded(exact + correction, step, rounding));
    const auto wall = sys_days(date) + local;
    const auto midnight = std::chrono::floor<days>(wall);
    return {true, wall - offset - correction, Date(midnight), wall - midnight, offset + correction};
}

EventTime eventAt(const ZoneClock& clock, UtcSeconds instant) {
    const seconds offset = clock.offsetAt(instant);
    const auto midnight = std::chrono::floor<days>(instant + offset);
    return {true, instant, Date(midnight), instant + offset - midnight, offset};
}

std::string clockText(seconds timeOfDay, Precision precision) {
    const std::chrono::hh_mm_ss<seconds> time(timeOfDay);
    const std::string text = fmt::format("{:02}:{:02}", time.hours().count(), time.minutes().count());
    return precision == Precision::minutes ? text : fmt::format("{}:{:02}", text, time.seconds().count());
}

} // namespace zorel::cli
