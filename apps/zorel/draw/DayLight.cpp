// SPDX-License-Identifier: Apache-2.0
#include "draw/DayLight.h"

#include <algorithm>
#include <array>

namespace zorel::cli {

using almanac::Day;
using almanac::DayTime;
using almanac::Instant;
using almanac::Prayer;

namespace {
void addSpan(DayLight& into, Light light, const DayTime& from, const DayTime& to) {
    if (!from.exists() || !to.exists()) {
        return;
    }
    const Instant begin = std::max(from.shown, into.civil.begin);
    const Instant end = std::min(to.shown, into.civil.end);
    if (begin < end) {
        into.spans.push_back({light, begin, end});
    }
}

void addTimes(DayLight& into, const Day& day) {
    for (const Prayer prayer : almanac::kSixPrayers) {
        const DayTime& time = day[prayer];
        if (time.exists() && time.shown >= into.civil.begin && time.shown < into.civil.end) {
            into.times.push_back(time);
        }
    }
}
} // namespace

DayLight dayLight(const almanac::PlaceClock& clock, std::span<const Day, 3> days) {
    DayLight light{almanac::CivilDay(clock, days[1].date), {}, {}, false};
    light.known = days[1][Prayer::sunrise].exists() && days[1][Prayer::maghrib].exists();
    for (const Day& day : days) {
        addSpan(light, Light::dusk, day[Prayer::maghrib], day[Prayer::isha]);
        addSpan(light, Light::dawn, day[Prayer::fajr], day[Prayer::sunrise]);
        addTimes(light, day);
    }
    for (const Day& day : days) {
        addSpan(light, Light::day, day[Prayer::sunrise], day[Prayer::maghrib]);
    }
    std::ranges::stable_sort(light.times, {}, &DayTime::shown);
    return light;
}

DayLight dayLight(const almanac::Almanac& almanac, almanac::Memory& memory, almanac::Date date) {
    const std::array days{almanac.day(almanac::addDays(date, -1), memory), almanac.day(date, memory),
                          almanac.day(almanac::addDays(date, 1), memory)};
    return dayLight(almanac.place().clock, days);
}

Light lightAt(const DayLight& day, Instant instant) {
    Light light = Light::night;
    for (const LightSpan& span : day.spans) {
        if (span.begin <= instant && instant < span.end) {
            light = span.light;
        }
    }
    return light;
}

} // namespace zorel::cli
