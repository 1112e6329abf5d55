// SPDX-License-Identifier: Apache-2.0
#include "Moments.h"

#include <fmt/format.h>

#include <cmath>

namespace zorel::cli {

namespace {
constexpr double kJulianDayOf1970 = 2440587.5;
constexpr double kSecondsPerDay = 86400.0;
} // namespace

UtcSeconds instantOfJulianDay(double julianDay) {
    return UtcSeconds(std::chrono::seconds(std::llround((julianDay - kJulianDayOf1970) * kSecondsPerDay)));
}

double julianDayOf(UtcSeconds instant) {
    return kJulianDayOf1970 + static_cast<double>(instant.time_since_epoch().count()) / kSecondsPerDay;
}

Observer observerOf(const Place& place, Date date) {
    return {place.latitude, place.longitude,
            static_cast<double>(place.clock.offsetOn(date).count()) / 3600.0};
}

EventTime nearestMinute(const Place& place, Date date, const std::optional<double>& hour) {
    if (!hour)
        return {};
    return eventTime(place.clock, date, *hour + 1.0 / 120.0, Rounding::earlier, Precision::minutes);
}

UtcSeconds momentOf(const Context& context, const Place& place, const std::string& text) {
    if (text.empty())
        return context.now();
    const auto moment = parseMoment(text);
    if (!moment)
        throw CliError(Exit::badUse, fmt::format("--at: {} is not a moment", quote(text)),
                       "write it as 2026-11-21T15:04, 2026-11-21T15:04+03:00, or 15:04 for today");
    const Date date = moment->date ? *moment->date : place.clock.dateAt(context.now());
    const UtcSeconds wall = std::chrono::sys_days(date) + moment->timeOfDay;
    const UtcSeconds guess = wall - place.clock.offsetOn(date);
    return wall - (moment->offset ? *moment->offset : place.clock.offsetAt(guess));
}

} // namespace zorel::cli
