// SPDX-License-Identifier: Apache-2.0
#include "draw/YearChart.h"

#include "print/ClockNotices.h"
#include "print/DayMarks.h"
#include "print/PlaceText.h"

#include <fmt/format.h>

#include <algorithm>

namespace zorel::cli {

namespace {
/// The days of a year that carry one mark.
struct MarkedDays {
    int count = 0;
    almanac::Date first{};
    almanac::Date last{};
};

void addMarkNotes(std::vector<std::string>& notes, const ChartPlace& place,
                  const std::vector<almanac::Prayer>& curves) {
    std::vector<std::pair<char, MarkedDays>> marked{{'*', {}}, {'~', {}}, {'^', {}}};
    for (std::size_t i = 0; i < place.year.size(); ++i) {
        const almanac::Day& day = place.year[i];
        for (const char sign : marksOf(day, curves)) {
            MarkedDays& days = std::ranges::find(marked, sign, &std::pair<char, MarkedDays>::first)->second;
            days.first = days.count++ == 0 ? day.date : days.first;
            days.last = day.date;
        }
    }
    for (const auto& [sign, days] : marked) {
        if (days.count > 0) {
            const std::string legend = legendOf(std::string(1, sign)).front().substr(2);
            // translators: {1} and {2} are days such as 2026-11-21, {3} is what holds for them
            notes.push_back(trPlural("{0} day from {1} to {2}: {3}", "{0} days from {1} to {2}: {3}",
                                     days.count, almanac::isoDate(days.first), almanac::isoDate(days.last),
                                     legend));
        }
    }
}

void addClockNotes(std::vector<std::string>& notes, const Context& context, const ChartPlace& place) {
    ClockNotices clock(context, place.place);
    for (std::size_t i = 0; i < place.year.size(); ++i) {
        clock.add(place.year[i].date, place.year[i].clockNotice);
    }
    for (std::string& sentence : clock.sentences()) {
        notes.push_back(std::move(sentence));
    }
}

std::vector<std::string> notesOf(const Context& context, const ChartPlace& place,
                                 const std::vector<almanac::Prayer>& curves) {
    std::vector<std::string> notes;
    addMarkNotes(notes, place, curves);
    addClockNotes(notes, context, place);
    return notes;
}
} // namespace

std::string chartSubtitle(const YearChart& chart) {
    const int year = chart.first.year.year;
    if (chart.second) {
        return tr("Prayer times of {}", year);
    }
    const ShownPlace& place = chart.first.place;
    const std::string& zone = place.clock().zoneName();
    const int height = place.place.temkin == almanac::Temkin::upTo500m ? 500 : 250;
    if (zone.empty()) {
        // translators: {0} a year, {1} like "+03:00", {2} a height [m]; temkin is the margin of safety of the
        // times
        return tr("Prayer times of {0}, by a clock of UTC{1}, temkin for up to {2} m", year,
                  almanac::isoOffset(chart.first.year[0].offset), height);
    }
    // translators: {0} a year, {1} a time zone such as Europe/Istanbul, {2} a height [m]
    return tr("Prayer times of {0}, by the clock of {1}, temkin for up to {2} m", year, zone, height);
}

std::string chartLegend(const YearChart& chart) {
    if (!chart.second) {
        return {};
    }
    // translators: which of two places the solid lines of a chart show, and which the dashed ones
    return tr("solid: {0}; dashed: {1}; each by its own clock", placeText(chart.first.place),
              placeText(chart.second->place));
}

std::vector<std::string> chartNotes(const Context& context, const YearChart& chart) {
    std::vector<std::string> notes = notesOf(context, chart.first, chart.curves);
    if (chart.second) {
        for (const std::string& note : notesOf(context, *chart.second, chart.curves)) {
            notes.push_back(fmt::format("{}: {}", placeText(chart.second->place), note));
        }
    }
    return notes;
}

std::string clockChangeText(const ClockChange& change) {
    return clockChangeText(change.by);
}

} // namespace zorel::cli
