// SPDX-License-Identifier: Apache-2.0
#include "draw/Braille.h"
#include "draw/Curve.h"
#include "draw/LabelRows.h"
#include "draw/YearChart.h"
#include "print/PlaceText.h"
#include "terminal/Wrap.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace zorel::cli {

using almanac::Prayer;

namespace {
constexpr std::size_t kAxis = 3;  ///< columns of the hours
constexpr std::size_t kRows = 24; ///< an hour each

struct Ink {
    Prayer prayer;
    char letter;
    std::string_view colour;
};

constexpr std::array kInks{
    Ink{Prayer::fajr, 'F', "38;5;75"},     Ink{Prayer::sunrise, 'S', "38;5;208"},
    Ink{Prayer::dhuhr, 'D', "38;5;178"},   Ink{Prayer::asr, 'A', "38;5;71"},
    Ink{Prayer::maghrib, 'M', "38;5;203"}, Ink{Prayer::isha, 'I', "38;5;141"},
};

Ink inkOf(Prayer prayer) {
    const auto* found = std::ranges::find(kInks, prayer, &Ink::prayer);
    return found == kInks.end() ? Ink{prayer, '.', "38;5;245"} : *found;
}

class ChartLines {
public:
    ChartLines(const Context& context, const YearChart& chart)
        : context_(context), chart_(chart), year_(chart.first.year), names_(namesWidth()),
          columns_(context.columns() - kAxis - names_ - 1), ground_(columns_, kRows) {}

    [[nodiscard]] std::string text() {
        drawDays();
        for (auto prayer = chart_.curves.rbegin(); prayer != chart_.curves.rend(); ++prayer) {
            if (chart_.second) {
                draw(chart_.second->year, *prayer, 2);
            }
            draw(year_, *prayer, 1);
        }
        return heading() + changes() + plot() + months() + notes();
    }

private:
    [[nodiscard]] std::size_t namesWidth() const {
        std::size_t width = 0;
        for (const Prayer prayer : chart_.curves) {
            width = std::max(width, displayWidth(context_.nameOf(prayer)));
        }
        return width;
    }
    [[nodiscard]] long dotX(std::size_t day) const {
        return static_cast<long>(day * ground_.width() / year_.size());
    }
    [[nodiscard]] std::size_t columnOf(almanac::Date date) const {
        return static_cast<std::size_t>(dotX(year_.indexOf(date))) / 2;
    }
    [[nodiscard]] long dotY(double hour) const {
        const auto height = static_cast<double>(ground_.height());
        return std::lround((24.0 - hour) * (height - 1.0) / 24.0);
    }
    void drawDays() {
        if (!chart_.today) {
            return;
        }
        for (long y = 0; y < static_cast<long>(ground_.height()); y += 2) {
            ground_.dot(dotX(year_.indexOf(*chart_.today)), y, ':', "38;5;203");
        }
    }
    /// @param every which dots are drawn: 1 all, 2 every other.
    void draw(const YearOfPlace& year, Prayer prayer, std::size_t every) {
        const Ink ink = inkOf(prayer);
        for (const CurvePiece& piece : curveOf(year, prayer)) {
            for (const CurvePoint& point : piece) {
                if (dotX(point.day) / 2 % static_cast<long>(every) == 0) {
                    ground_.dot(dotX(point.day), dotY(point.hour), ink.letter, ink.colour);
                }
            }
        }
    }

    [[nodiscard]] std::string heading() const {
        std::string text = context_.style.bold(placeText(chart_.first.place)) + '\n' +
                           paragraph(chartSubtitle(chart_), "", "", context_.columns());
        const std::string legend = chartLegend(chart_);
        return text + (legend.empty() ? legend : paragraph(legend, "", "", context_.columns())) + '\n';
    }

    /// Ramadan and the changes of the clock above the plot.
    [[nodiscard]] std::string changes() const {
        LabelRows months(columns_);
        LabelRows clocks(columns_);
        for (const RamadanDays& days : year_.ramadans) {
            std::string mark;
            for (std::size_t column = columnOf(days.first); column <= columnOf(days.last); ++column) {
                mark += context_.ascii() ? "=" : "━";
            }
            months.add(columnOf(days.first), fmt::format("{} {}", mark, hijriMonthName(9)));
        }
        for (const ClockChange& change : year_.clockChanges) {
            clocks.add(columnOf(change.date), "|" + clockChangeText(change));
        }
        const std::string indent(kAxis, ' ');
        return months.text(indent) + clocks.text(indent);
    }

    /// The names of the curves on the rows in which they end, each on one of its own.
    [[nodiscard]] std::array<std::string, kRows> names() const {
        std::array<std::string, kRows> names;
        for (const Prayer prayer : chart_.curves) {
            const auto pieces = curveOf(year_, prayer);
            const auto last = std::ranges::max_element(
                pieces, {}, [](const CurvePiece& piece) { return piece.back().day; });
            if (last == pieces.end()) {
                continue;
            }
            auto row = static_cast<std::size_t>(dotY(last->back().hour)) / 4;
            while (row > 0 && !names[row].empty()) {
                --row;
            }
            while (row + 1 < kRows && !names[row].empty()) {
                ++row;
            }
            names[row] = named(prayer);
        }
        return names;
    }
    [[nodiscard]] std::string named(Prayer prayer) const {
        const Ink ink = inkOf(prayer);
        return context_.style.paint(ink.colour, context_.nameOf(prayer)) +
               (context_.ascii() ? fmt::format(" {}", ink.letter) : std::string());
    }

    [[nodiscard]] std::string plot() const {
        const auto labels = names();
        std::string text;
        for (std::size_t row = 0; row < kRows; ++row) {
            const std::size_t hour = 24 - row;
            const std::string axis = hour % 3 == 0 ? fmt::format("{:2} ", hour) : std::string(kAxis, ' ');
            std::string line = context_.style.dim(axis) + ground_.row(row, context_.style, context_.ascii());
            line += labels[row].empty() ? labels[row] : ' ' + labels[row];
            line.erase(line.find_last_not_of(' ') + 1);
            text += line + '\n';
        }
        return text;
    }

    [[nodiscard]] std::string months() const {
        LabelRows rows(columns_);
        for (unsigned month = 1; month <= 12; ++month) {
            const almanac::Date first{std::chrono::year(year_.year), std::chrono::month(month),
                                      std::chrono::day(1)};
            rows.add(columnOf(first), columns_ >= 48 ? shortMonthName(month) : fmt::format("{}", month));
        }
        std::string text = rows.text(std::string(kAxis, ' '));
        if (chart_.today) {
            LabelRows today(columns_);
            today.add(columnOf(*chart_.today), "^ " + tr("today, {}", dayAndMonth(*chart_.today)));
            text += today.text(std::string(kAxis, ' '));
        }
        return text;
    }
    [[nodiscard]] std::string notes() const {
        std::string text;
        for (const std::string& note : chartNotes(context_, chart_)) {
            text += paragraph(note, "! ", "  ", context_.columns());
        }
        return text;
    }

    const Context& context_;
    const YearChart& chart_;
    const YearOfPlace& year_;
    std::size_t names_;
    std::size_t columns_;
    DotGround ground_;
};
} // namespace

std::string chartText(const Context& context, const YearChart& chart) {
    return ChartLines(context, chart).text();
}

} // namespace zorel::cli
