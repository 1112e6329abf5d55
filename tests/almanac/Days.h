// SPDX-License-Identifier: Apache-2.0
/// @file
/// Places and readings for the tests of days.
#pragma once

#include "almanac/Almanac.h"

#include <cmath>
#include <string>

namespace zorel::almanac::tests {

/// A place whose clock always stands the same.
inline Place placeAt(double latitude, double longitude, double offset) {
    Place place;
    place.latitude = latitude;
    place.longitude = longitude;
    place.clock = PlaceClock::fixed(std::chrono::seconds(std::llround(offset * 3600.0)));
    return place;
}

inline Place placeIn(double latitude, double longitude, const std::string& zone) {
    Place place = placeAt(latitude, longitude, 0.0);
    place.clock = PlaceClock::ofZone(zone).value();
    return place;
}

/// Seconds of the wall clock after 0:00 of a date, from an exact instant.
inline double wallSeconds(const DayTime& time, Date date) {
    const auto wall = time.exact + time.offset - std::chrono::sys_days(date);
    return static_cast<double>(wall.count()) / 1000.0;
}

inline constexpr double clockSeconds(int hour, int minute, int second = 0) {
    return hour * 3600.0 + minute * 60.0 + second;
}

/// "2027-04-30 23:56".
inline std::string shownText(const DayTime& time) {
    return isoDate(time.local.date) + ' ' + clockText(time.local.timeOfDay, Precision::minutes);
}

} // namespace zorel::almanac::tests
