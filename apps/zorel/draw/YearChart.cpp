// SPDX-License-Identifier: Apache-2.0
#include "draw/YearChart.h"

#include "draw/ChartTexts.h"
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

void addMarkNotes(std::vector<std::string>& notes, const Context& context, const ChartPlace& place,
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
            const std::string legend = legendOf(context, std::string(1, sign)).front().substr(2);
            notes.push_back(fmt::format(fmt::runtime(chart_texts::kDaysOf), fmt::arg("days", days.count),
                                        fmt::arg("first", almanac::isoDate(days.first)),
                                        fmt::arg("last", almanac::isoDate(days.last)),
                                        fmt::arg("what", legend)));
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
    addMarkNotes(notes, context, place, curves);
    addClockNotes(notes, context, place);
    return notes;
}
} // namespace

std::string chartSubtitle(const YearChart& chart) {
    const ShownPlace& place = chart.first.place;
    const std::string& zone = place.clock().zoneName();
    const std::string clock =
        zone.empty() ? fmt::format(fmt::runtime(chart_texts::kByOffset),
                                   fmt::arg("offset", almanac::isoOffset(chart.first.year[0].offset)))
                     : fmt::format(fmt::runtime(chart_texts::kByClock), fmt::arg("zone", zone));
    const int height = place.place.temkin == almanac::Temkin::upTo500m ? 500 : 250;
    return fmt::format(
        "{}, {}, {}", fmt::format(fmt::runtime(chart_texts::kTitle), fmt::arg("year", chart.first.year.year)),
        clock, fmt::format(fmt::runtime(chart_texts::kTemkin), fmt::arg("height", height)));
}

std::string chartLegend(const Context& context, const YearChart& chart) {
    if (!chart.second) {
        return {};
    }
    return fmt::format(fmt::runtime(chart_texts::kLines),
                       fmt::arg("first", placeText(chart.first.place, context.language)),
                       fmt::arg("second", placeText(chart.second->place, context.language)));
}

std::vector<std::string> chartNotes(const Context& context, const YearChart& chart) {
    std::vector<std::string> notes = notesOf(context, chart.first, chart.curves);
    if (chart.second) {
        for (const std::string& note : notesOf(context, *chart.second, chart.curves)) {
            notes.push_back(fmt::format("{}: {}", placeText(chart.second->place, context.language), note));
        }
    }
    return notes;
}

std::string clockChangeText(const ClockChange& change) {
    const double hours = static_cast<double>(change.by.count()) / 3600.0;
    return fmt::format(fmt::runtime(chart_texts::kClockChange),
                       fmt::arg("hours", fmt::format("{:+g}", hours)));
}

} // namespace zorel::cli
