// SPDX-License-Identifier: Apache-2.0
// Rise, set and prayer events by libnova and libitl, from the same reference events as ours. libitl is asked
// with our angles of dawn and dusk, without rounding; its sunrise and sunset are those of the visible limb.
#include "Comparisons.h"
#include "Statistics.h"

#include <fmt/format.h>

#include <itl/prayer.h>
#include <libnova/libnova.h>

#include <array>
#include <cmath>
#include <map>
#include <vector>

namespace zorel::accuracy {
namespace {

constexpr double kHighest = 61.0;           ///< [deg] up to where rise and set are compared
constexpr double kRiseHorizon = -50.0 / 60; ///< [deg] altitude at which the Sun rises and sets

// libnova.

enum class Part { rise, transit, set };

double pick(const ln_rst_time& times, Part part) {
    return part == Part::rise ? times.rise : (part == Part::set ? times.set : times.transit);
}

/// libnova tells the first event after an instant: asked half a day ahead, that is the one looked for.
/// @param compute asks libnova; 0 when the event occurs
template <class Compute> std::optional<double> nova(double julianDay, Part part, const Compute& compute) {
    ln_rst_time times{};
    Nearest nearest(julianDay);
    if (compute(julianDay - 0.5, &times) == 0) {
        nearest.offer(pick(times, part));
    }
    return nearest.found();
}

std::optional<double> novaRiseSet(const RiseSetEvent& event) {
    ln_lnlat_posn place{event.longitude, event.latitude};
    return nova(event.julianDay, event.rise ? Part::rise : Part::set, [&](double day, ln_rst_time* times) {
        return event.moon ? ln_get_lunar_rst(day, &place, times)
                          : ln_get_solar_rst_horizon(day, &place, kRiseHorizon, times);
    });
}

struct AltitudeEvent {
    double altitude; ///< [deg]
    Part part;
};

const std::map<std::string, AltitudeEvent>& novaEvents() {
    static const std::map<std::string, AltitudeEvent> events{
        {"dawn_-19", {-19.0, Part::rise}},  {"rise_0", {0.0, Part::rise}},
        {"morning_+5", {5.0, Part::rise}},  {"transit", {kRiseHorizon, Part::transit}},
        {"afternoon_+5", {5.0, Part::set}}, {"set_0", {0.0, Part::set}},
        {"dusk_-17", {-17.0, Part::set}},   {"dusk_-19", {-19.0, Part::set}}};
    return events;
}

std::optional<double> novaSunEvent(const SunEvent& event) {
    const auto entry = novaEvents().find(event.event);
    if (entry == novaEvents().end() || !event.julianDay) {
        return std::nullopt;
    }
    ln_lnlat_posn place{event.longitude, event.latitude};
    return nova(*event.julianDay, entry->second.part, [&](double day, ln_rst_time* times) {
        return ln_get_solar_rst_horizon(day, &place, entry->second.altitude, times);
    });
}

// libitl.

Method methodWithDusk(double duskDepression, int staffs) {
    Method method{};
    getMethod(0, &method);
    method.fajrAng = 19.0;
    method.ishaaAng = duskDepression;
    method.mathhab = staffs;
    method.round = 0;
    method.extreme = 0;
    return method;
}

/// One of the six times of a day [JD UT]; nothing where it does not occur.
std::optional<double> itlTime(double latitude, double longitude, double zone, const DateTimeRecord& day,
                              const Method& method, std::size_t index) {
    const Location place{longitude, latitude, zone, 0, 0.0, 1010.0, 10.0};
    const Date date{day.day, day.month, day.year};
    std::array<Prayer, 6> prayers{};
    getPrayerTimes(&place, &method, &date, prayers.data());
    const Prayer& time = prayers.at(index);
    if (time.hour >= 24 || time.isExtreme != 0) {
        return std::nullopt;
    }
    const double midnight = AstroGlobalFuncs().CalculateJulianDay(day.year, day.month, day.day, 0, 0, 0);
    return midnight + (time.hour - zone + time.minute / 60.0 + time.second / 3600.0) / 24.0;
}

std::optional<double> itlRiseSet(const RiseSetEvent& event) {
    Nearest nearest(event.julianDay);
    for (int shift = -1; shift <= 1; ++shift) {
        DateTimeRecord day;
        AstroGlobalFuncs().JulianToCalendar(std::floor(event.julianDay + 0.5) - 0.5 + shift, day, 1);
        const std::optional<double> time =
            itlTime(event.latitude, event.longitude, 0.0, day, methodWithDusk(17.0, 1), event.rise ? 1 : 4);
        if (time) {
            nearest.offer(*time);
        }
    }
    return nearest.found();
}

struct PrayerQuestion {
    std::size_t index;
    double dusk; ///< depression of the Sun at nightfall [deg]
    int staffs;
};

const std::map<std::string, PrayerQuestion>& itlQuestions() {
    static const std::map<std::string, PrayerQuestion> questions{
        {"dawn_-19", {0, 17.0, 1}}, {"transit", {2, 17.0, 1}},  {"shadow_1", {3, 17.0, 1}},
        {"shadow_2", {3, 17.0, 2}}, {"dusk_-17", {5, 17.0, 1}}, {"dusk_-19", {5, 19.0, 1}}};
    return questions;
}

std::optional<double> itlSunEvent(const SunEvent& event) {
    const auto entry = itlQuestions().find(event.event);
    if (entry == itlQuestions().end()) {
        return std::nullopt;
    }
    const PrayerQuestion& question = entry->second;
    return itlTime(event.latitude, event.longitude, zoneOf(event), event.day,
                   methodWithDusk(question.dusk, question.staffs), question.index);
}

// Side by side.

constexpr std::array<const char*, 3> kPrograms{"Zorel", "libnova", "libitl"};
using Answers = std::array<std::optional<double>, kPrograms.size()>; ///< [JD UT]

/// Rows of events, a column for each program. An event counts when every program that knows the row has it.
class Beside {
public:
    /// @param knows which programs have an answer to this kind of event at all
    void add(const std::string& name, const Answers& answers, const std::array<bool, 3>& knows,
             double reference) {
        Row& row = rowOf(name, knows);
        for (std::size_t i = 0; i < kPrograms.size(); ++i) {
            if (knows.at(i) && !answers.at(i)) {
                ++row.left;
                return;
            }
        }
        for (std::size_t i = 0; i < kPrograms.size(); ++i) {
            if (knows.at(i)) {
                row.programs.at(i).add(secondsApart(*answers.at(i), reference), name);
            }
        }
    }
    void print(std::ostream& out) const;

private:
    struct Row {
        std::string name;
        std::array<bool, 3> knows{};
        std::array<Statistics, kPrograms.size()> programs;
        std::size_t left = 0;
    };
    Row& rowOf(const std::string& name, const std::array<bool, 3>& knows) {
        for (Row& row : rows_) {
            if (row.name == name) {
                return row;
            }
        }
        rows_.push_back({name, knows, {}, 0});
        return rows_.back();
    }

    std::vector<Row> rows_;
};

void Beside::print(std::ostream& out) const {
    out << "### Beside other libraries\n\n"
           "Median / 95 % / largest difference, over the events that all programs of a row have. Rise and "
           "set up to "
           "61 degrees.\n\n"
           "| | events | left out | Zorel | libnova | libitl |\n|---|---:|---:|---:|---:|---:|\n";
    for (const Row& row : rows_) {
        out << fmt::format("| {} | {} | {} |", row.name, row.programs[0].count(), row.left);
        for (std::size_t i = 0; i < kPrograms.size(); ++i) {
            const Statistics& program = row.programs.at(i);
            out << (row.knows.at(i) ? fmt::format(" {:.1f} / {:.1f} / {:.1f} s |", program.quantile(0.5),
                                                  program.quantile(0.95), program.quantile(1.0))
                                    : " |");
        }
        out << '\n';
    }
    out << '\n';
}

} // namespace

void comparePeers(const std::string& folder, std::ostream& out) {
    Beside beside;
    FastAstro engine;
    for (const RiseSetEvent& event : readRiseSets(folder + "/usno_riseset.tsv")) {
        if (std::abs(event.latitude) > kHighest) {
            continue;
        }
        engine.SetPlace(event.latitude, event.longitude, 0.0, 0, 0, 0, 0, 0, 0, 0);
        beside.add(
            riseSetName(event),
            {engineRiseSet(engine, event), novaRiseSet(event), event.moon ? std::nullopt : itlRiseSet(event)},
            {true, true, !event.moon}, event.julianDay);
    }
    PrayerEvents events;
    for (const SunEvent& event : readSunEvents(folder + "/sun_events.tsv")) {
        if (event.julianDay) {
            beside.add(event.event, {events.instant(event), novaSunEvent(event), itlSunEvent(event)},
                       {true, novaEvents().contains(event.event), itlQuestions().contains(event.event)},
                       *event.julianDay);
        }
    }
    beside.print(out);
}

} // namespace zorel::accuracy
