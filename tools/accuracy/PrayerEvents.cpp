// SPDX-License-Identifier: Apache-2.0
#include "Comparisons.h"

#include <fmt/format.h>

#include <cmath>
#include <map>

namespace zorel::accuracy {
namespace {

int indexOf(const SunEvent& event) {
    static const std::map<std::string, int> indices{
        {"dawn_-19", 0}, {"rise_0", 1},   {"transit", 2},  {"shadow_1", 3},   {"set_0", 4},
        {"dusk_-17", 5}, {"shadow_2", 6}, {"dusk_-19", 7}, {"morning_+5", 8}, {"afternoon_+5", 9}};
    return indices.at(event.event);
}

} // namespace

double secondsApart(double ours, double theirs) {
    const double days = ours - theirs;
    return (days - std::round(days)) * kSecondsOfDay;
}

double zoneOf(const SunEvent& event) {
    return std::round(event.longitude / 15.0);
}

std::string placeAndDay(const SunEvent& event) {
    return fmt::format("{} {:04}-{:02}-{:02}", event.place, event.day.year, event.day.month, event.day.day);
}

void PrayerEvents::compute(const SunEvent& event) {
    const std::string key = placeAndDay(event);
    if (key == last_) {
        return;
    }
    last_ = key;
    engine_.SetCurrentDate(event.day.day, event.day.month, event.day.year);
    engine_.SetPlace(event.latitude, event.longitude, zoneOf(event), 0, 0, 0, 0, 0, 0, 0);
    engine_.CalculatePrayTimes();
}

std::optional<double> PrayerEvents::instant(const SunEvent& event) {
    compute(event);
    const PrayTimeExplanation why = engine_.ExplainPrayTime(indexOf(event));
    if (!why.occurs || why.daysBack != 0 || why.latitudeLowered) {
        return std::nullopt;
    }
    const double hour = why.time - why.temkin - why.addition - zoneOf(event);
    return AstroGlobalFuncs().JulianDay(event.day) + hour / 24.0;
}

} // namespace zorel::accuracy
