// SPDX-License-Identifier: Apache-2.0
#include "almanac/CivilDay.h"

#include <chrono>
#include <cmath>

namespace zorel::almanac {

using std::chrono::duration;
using std::chrono::milliseconds;
using std::chrono::minutes;
using std::chrono::seconds;

CivilDay::CivilDay(const PlaceClock& clock, Date date)
    : begin(clock.instantOf(date, seconds(0))), end(clock.instantOf(addDays(date, 1), seconds(0))) {}

double CivilDay::hours() const {
    return duration<double, std::ratio<3600>>(end - begin).count();
}

SkyEvent toldByMinute(const PlaceClock& clock, ExactInstant exact) {
    const seconds offset = clock.offsetAt(std::chrono::floor<seconds>(exact));
    const auto wall = std::chrono::floor<minutes>(exact + offset + seconds(30));
    const Instant told = wall - offset;
    return {told, clock.localTime(told)};
}

ExactInstant hoursAfter(Instant instant, double hours) {
    return instant + milliseconds(std::llround(hours * 3'600'000.0));
}

} // namespace zorel::almanac
