// SPDX-License-Identifier: Apache-2.0
#include "Comparisons.h"
#include "Statistics.h"

#include <fmt/format.h>

#include <cmath>

namespace zorel::accuracy {
namespace {

std::string latitudeBand(double latitude) {
    const double size = std::abs(latitude);
    return size <= 61.0 ? "up to 61 degrees" : (size < 80.0 ? "61 to 80 degrees" : "80 degrees and beyond");
}

} // namespace

std::string riseSetName(const RiseSetEvent& event) {
    return fmt::format("{} {}, {}", event.moon ? "Moon" : "Sun", event.rise ? "rise" : "set",
                       latitudeBand(event.latitude));
}

void Nearest::offer(double julianDay) {
    if (!value_ || std::abs(julianDay - reference_) < std::abs(*value_ - reference_)) {
        value_ = julianDay;
    }
}

std::optional<double> Nearest::found() const {
    return value_ && std::abs(*value_ - reference_) <= kFarApart ? value_ : std::nullopt;
}

std::optional<double> engineRiseSet(FastAstro& engine, const RiseSetEvent& event) {
    const AstroGlobalFuncs calendar;
    Nearest nearest(event.julianDay);
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
        if (occurs) {
            nearest.offer(instant);
        }
    }
    return nearest.found();
}

void compareRiseSets(const std::string& folder, std::ostream& out) {
    Table table("Rise and set of Sun and Moon",
                "16 places from the equator to the poles, 1750 to 2050, against tables printed to the minute "
                "(a perfect program would show a median of 15 s and a largest difference of 30 s).");
    FastAstro engine;
    for (const RiseSetEvent& event : readRiseSets(folder + "/usno_riseset.tsv")) {
        engine.SetPlace(event.latitude, event.longitude, 0.0, 0, 0, 0, 0, 0, 0, 0);
        Statistics& row = table.row(riseSetName(event));
        const std::string where = fmt::format("{} at {}, {}", event.utc, event.latitude, event.longitude);
        const std::optional<double> ours = engineRiseSet(engine, event);
        if (!ours) {
            row.addMissed(where);
        } else {
            row.add((*ours - event.julianDay) * kSecondsOfDay, where);
        }
    }
    table.print(out);
}

} // namespace zorel::accuracy
