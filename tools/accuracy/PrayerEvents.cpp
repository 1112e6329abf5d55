// SPDX-License-Identifier: Apache-2.0
#include "Comparisons.h"
#include "Statistics.h"

#include <fmt/format.h>

#include <array>
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

std::string season(const DateTimeRecord& day) {
    constexpr std::array<const char*, 4> names{"December to February", "March to May", "June to August",
                                               "September to November"};
    return names[static_cast<std::size_t>(day.month % 12 / 3)];
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

PrayTimeExplanation PrayerEvents::explain(const SunEvent& event) {
    compute(event);
    return engine_.ExplainPrayTime(indexOf(event));
}

double PrayerEvents::anyInstant(const SunEvent& event, const PrayTimeExplanation& why) {
    const double hour = why.time - why.temkin - why.addition - zoneOf(event);
    return AstroGlobalFuncs().JulianDay(event.day) + hour / 24.0;
}

std::optional<double> PrayerEvents::ownInstant(const SunEvent& event, const PrayTimeExplanation& why) {
    if (!why.occurs || why.daysBack != 0 || why.latitudeLowered) {
        return std::nullopt;
    }
    return anyInstant(event, why);
}

std::optional<double> PrayerEvents::instant(const SunEvent& event) {
    return ownInstant(event, explain(event));
}

namespace {

class PrayerComparison {
public:
    void add(const SunEvent& event) {
        const PrayTimeExplanation why = events_.explain(event);
        if (why.daysBack != 0 && event.julianDay) {
            addOfEarlierDay(event, why);
            return;
        }
        const std::optional<double> ours = PrayerEvents::ownInstant(event, why);
        const std::string where = placeAndDay(event) + " " + event.event;
        for (Statistics* row :
             {&byEvent_.row(event.event), &byPlace_.row(event.place), &bySeason_.row(season(event.day))}) {
            if (ours.has_value() != event.julianDay.has_value()) {
                row->addMissed(where);
            } else if (ours) {
                row->add(secondsApart(*ours, *event.julianDay), where);
            }
        }
    }
    void print(std::ostream& out) const {
        byEvent_.print(out);
        byPlace_.print(out);
        bySeason_.print(out);
    }

private:
    /// In the summer of the north the 5-degree times are computed with the Sun of the day on which the second
    /// nightfall was found: they occur, but are those of that day.
    void addOfEarlierDay(const SunEvent& event, const PrayTimeExplanation& why) {
        byEvent_.row(event.event + ", with the Sun of an earlier day")
            .add(secondsApart(PrayerEvents::anyInstant(event, why), *event.julianDay),
                 fmt::format("{}, {} days back", placeAndDay(event), why.daysBack));
    }

    PrayerEvents events_;
    Table byEvent_{
        "Events of the prayer times, by event",
        "12 places, every fifth day of 2026 and 2027; temkin, the 50 seconds, the 3 minutes and the zone "
        "offset taken off. Times taken over from an earlier day are left out; the event does not occur "
        "then."};
    Table byPlace_{"Events of the prayer times, by place", "The same events."};
    Table bySeason_{"Events of the prayer times, by season", "The same events."};
};

} // namespace

void comparePrayerEvents(const std::string& folder, std::ostream& out) {
    PrayerComparison comparison;
    for (const SunEvent& event : readSunEvents(folder + "/sun_events.tsv")) {
        comparison.add(event);
    }
    comparison.print(out);
}

} // namespace zorel::accuracy
