// SPDX-License-Identifier: Apache-2.0
// accuracy FOLDER: compares the engine with the reference events of a folder and prints tables in Markdown.
#include "Reference.h"
#include "Statistics.h"

#include "engine/FastAstro.h"
#include "engine/MoonDay.h"

#include <fmt/format.h>

#include <array>
#include <cmath>
#include <iostream>
#include <map>

namespace zorel::accuracy {
namespace {

constexpr double kSecondsOfDay = 86400.0;
constexpr double kFarApart = 0.25; ///< [d] further apart are two different events

std::string season(const DateTimeRecord& day) {
    constexpr std::array<const char*, 4> names{"December to February", "March to May", "June to August",
                                               "September to November"};
    return names[static_cast<std::size_t>(day.month % 12 / 3)];
}

std::string dateText(const DateTimeRecord& day) {
    return fmt::format("{:04}-{:02}-{:02}", day.year, day.month, day.day);
}

std::string latitudeBand(double latitude) {
    const double size = std::abs(latitude);
    return size <= 61.0 ? "up to 61 degrees" : (size < 80.0 ? "61 to 80 degrees" : "80 degrees and beyond");
}

// Rise and set.

/// The engine's own event nearest to the reference instant, from the search of its day and the two beside it.
std::optional<double> engineEvent(FastAstro& engine, const RiseSetEvent& event) {
    const AstroGlobalFuncs calendar;
    std::optional<double> nearest;
    for (int shift = -1; shift <= 1; ++shift) {
        DateTimeRecord day;
        calendar.JulianToCalendar(std::floor(event.julianDay + 0.5) - 0.5 + shift, day, 1);
        double hour = 0.0;
        if (event.moon && event.rise) {
            engine.MoonRiseTime(day.day, day.month, day.year);
            hour = engine.MoonRise;
        } else if (event.moon) {
            engine.MoonSetTime(day.day, day.month, day.year);
            hour = engine.MoonSet;
        } else {
            engine.SunRiseSet(day.day, day.month, day.year);
            hour = event.rise ? engine.UTRise : engine.UTSet;
        }
        const bool occurs = event.moon ? hour > -100.0 : hour != kNoSolarEvent;
        const double instant =
            calendar.CalculateJulianDay(day.year, day.month, day.day, 0, 0, 0) + hour / 24.0;
        if (occurs &&
            (!nearest || std::abs(instant - event.julianDay) < std::abs(*nearest - event.julianDay))) {
            nearest = instant;
        }
    }
    return nearest;
}

void compareRiseSets(const std::string& folder, std::ostream& out) {
    Table table("Rise and set of Sun and Moon",
                "16 places from the equator to the poles, 1750 to 2050, against tables printed to the minute "
                "(a perfect program would show a median of 15 s and a largest difference of 30 s).");
    FastAstro engine;
    for (const RiseSetEvent& event : readRiseSets(folder + "/usno_riseset.tsv")) {
        engine.SetPlace(event.latitude, event.longitude, 0.0, 0, 0, 0, 0, 0, 0, 0);
        Statistics& row = table.row(fmt::format("{} {}, {}", event.moon ? "Moon" : "Sun",
                                                event.rise ? "rise" : "set", latitudeBand(event.latitude)));
        const std::string where = fmt::format("{} at {}, {}", event.utc, event.latitude, event.longitude);
        const std::optional<double> ours = engineEvent(engine, event);
        if (!ours || std::abs(*ours - event.julianDay) > kFarApart) {
            row.addMissed(where);
        } else {
            row.add((*ours - event.julianDay) * kSecondsOfDay, where);
        }
    }
    table.print(out);
}

// Phases.

void comparePhases(const std::string& folder, std::ostream& out) {
    constexpr std::array<const char*, 4> names{"new Moon", "first quarter", "full Moon", "last quarter"};
    constexpr std::array<int, 4> codes{0, 2, 1, 3};
    constexpr std::array<int, 4> kinds{PrincipalPhase::newMoon, PrincipalPhase::firstQuarter,
                                       PrincipalPhase::fullMoon, PrincipalPhase::lastQuarter};
    Table raw("Phases as the engine's series gives them",
              "`MoonPhaze` leaves out a constant of 0.09765 day and counts in uniform time.");
    Table shown("Phases as people are shown them", "`NextPhases`: the constant put back, in universal time.");
    const FastAstro engine;
    for (const PhaseEvent& event : readPhases(folder + "/usno_moonphases.tsv")) {
        const auto quarter = static_cast<std::size_t>(event.quarter);
        const double year = 2000.0 + (event.julianDay - 2451545.0) / 365.25;
        double best = 1e9;
        for (int month = -1; month <= 1; ++month) {
            const double difference =
                engine.MoonPhaze(year + month / 12.3685, codes[quarter]) - event.julianDay;
            best = std::abs(difference) < std::abs(best) ? difference : best;
        }
        raw.row(names[quarter]).add(best * kSecondsOfDay, event.utc);
        for (const PrincipalPhase& phase : NextPhases(event.julianDay - 1.0, 1)) {
            if (phase.kind == kinds[quarter]) {
                shown.row(names[quarter]).add((phase.julianDay - event.julianDay) * kSecondsOfDay, event.utc);
            } else {
                shown.row(names[quarter]).addMissed(event.utc);
            }
        }
    }
    raw.print(out);
    shown.print(out);
}

// Prayer times.

const std::map<std::string, int>& indices() {
    static const std::map<std::string, int> map{
        {"dawn_-19", 0}, {"rise_0", 1},   {"transit", 2},  {"shadow_1", 3},   {"set_0", 4},
        {"dusk_-17", 5}, {"shadow_2", 6}, {"dusk_-19", 7}, {"morning_+5", 8}, {"afternoon_+5", 9}};
    return map;
}

/// The time without what is added on purpose, as a Julian day; nothing when it is of another day or does not
/// occur.
std::optional<double> withoutAdditions(const FastAstro& engine, int index, const DateTimeRecord& day) {
    const PrayTimeExplanation why = engine.ExplainPrayTime(index);
    if (!why.occurs || why.daysBack != 0 || why.latitudeLowered) {
        return std::nullopt;
    }
    const double hour = why.time - why.temkin - why.addition - engine.iPlace.timeZone;
    return AstroGlobalFuncs().CalculateJulianDay(day.year, day.month, day.day, 0, 0, 0) + hour / 24.0;
}

class PrayerComparison {
public:
    void add(const SunEvent& event) {
        compute(event);
        const int index = indices().at(event.event);
        if (engine_.ExplainPrayTime(index).daysBack != 0 && event.julianDay) {
            addOfEarlierDay(event, index);
            return;
        }
        const std::optional<double> ours = withoutAdditions(engine_, index, event.day);
        const std::string where = fmt::format("{} {} {}", event.place, dateText(event.day), event.event);
        for (Statistics* row :
             {&byEvent_.row(event.event), &byPlace_.row(event.place), &bySeason_.row(season(event.day))}) {
            if (ours.has_value() != event.julianDay.has_value()) {
                row->addMissed(where);
            } else if (ours) {
                // An event after local midnight belongs to the evening before: whole days do not count.
                double days = *ours - *event.julianDay;
                days -= std::round(days);
                row->add(days * kSecondsOfDay, where);
            }
        }
    }
    /// In the summer of the north the 5-degree times are computed with the Sun of the day on which the second
    /// nightfall was found: they occur, but are those of that day.
    void addOfEarlierDay(const SunEvent& event, int index) {
        const PrayTimeExplanation why = engine_.ExplainPrayTime(index);
        const double hour = why.time - why.temkin - why.addition - engine_.iPlace.timeZone;
        double days = AstroGlobalFuncs().JulianDay(event.day) + hour / 24.0 - *event.julianDay;
        days -= std::round(days);
        byEvent_.row(event.event + ", with the Sun of an earlier day")
            .add(days * kSecondsOfDay,
                 fmt::format("{} {}, {} days back", event.place, dateText(event.day), why.daysBack));
    }
    void print(std::ostream& out) const {
        byEvent_.print(out);
        byPlace_.print(out);
        bySeason_.print(out);
    }

private:
    void compute(const SunEvent& event) {
        const std::string key = event.place + dateText(event.day);
        if (key == last_) {
            return;
        }
        last_ = key;
        engine_.SetCurrentDate(event.day.day, event.day.month, event.day.year);
        engine_.SetPlace(event.latitude, event.longitude, std::round(event.longitude / 15.0), 0, 0, 0, 0, 0,
                         0, 0);
        engine_.CalculatePrayTimes();
    }

    FastAstro engine_;
    std::string last_;
    Table byEvent_{
        "Events of the prayer times, by event",
        "12 places, every fifth day of 2026 and 2027; temkin, the 50 seconds, the 3 minutes and the zone "
        "offset taken off. Times taken over from an earlier day are left out; the event does not occur "
        "then."};
    Table byPlace_{"Events of the prayer times, by place", "The same events."};
    Table bySeason_{"Events of the prayer times, by season", "The same events."};
};

int run(const std::string& folder) {
    compareRiseSets(folder, std::cout);
    comparePhases(folder, std::cout);
    PrayerComparison prayers;
    for (const SunEvent& event : readSunEvents(folder + "/sun_events.tsv")) {
        prayers.add(event);
    }
    prayers.print(std::cout);
    return 0;
}

} // namespace
} // namespace zorel::accuracy

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: accuracy FOLDER   (resources/reference)\n";
        return 2;
    }
    try {
        return zorel::accuracy::run(argv[1]);
    } catch (const std::exception& error) {
        std::cerr << "accuracy: " << error.what() << '\n';
        return 3;
    }
}
