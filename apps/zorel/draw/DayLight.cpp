// SPDX-License-Identifier: Apache-2.0
#include "draw/DayLight.h"

#include <algorithm>

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

DayLight dayLight(const almanac::Almanac& almanac, almanac::Memory& memory, almanac::Date date) {
    DayLight light{almanac::CivilDay(almanac.place().clock, date), {}, {}, false};
    std::vector<LightSpan> days;
    for (const int shift : {-1, 0, 1}) {
        const Day day = almanac.day(almanac::addDays(date, shift), memory);
        light.known |= shift == 0 && day[Prayer::sunrise].exists() && day[Prayer::maghrib].exists();
        addSpan(light, Light::dusk, day[Prayer::maghrib], day[Prayer::isha]);
        addSpan(light, Light::dawn, day[Prayer::fajr], day[Prayer::sunrise]);
        addTimes(light, day);
        std::swap(days, light.spans);
        addSpan(light, Light::day, day[Prayer::sunrise], day[Prayer::maghrib]);
        std::swap(days, light.spans);
    }
    light.spans.insert(light.spans.end(), days.begin(), days.end());
    std::ranges::stable_sort(light.times, {}, &DayTime::shown);
    return light;
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
