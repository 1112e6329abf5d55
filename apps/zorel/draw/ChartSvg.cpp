// SPDX-License-Identifier: Apache-2.0
#include "draw/Curve.h"
#include "draw/DayLight.h"
#include "draw/Svg.h"
#include "draw/YearChart.h"
#include "print/PlaceText.h"
#include "terminal/Wrap.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <span>

namespace zorel::cli {

using almanac::Prayer;

namespace {
constexpr double kWidth = 1060.0;
constexpr double kLeft = 46.0;
constexpr double kRight = 866.0;
constexpr double kTop = 92.0;
constexpr double kBottom = 548.0;
constexpr double kLabelGap = 14.0;      ///< between the names at the right edge
constexpr std::size_t kNoteWidth = 150; ///< characters of a line of notes
constexpr double kNoteHeight = 14.0;

constexpr std::string_view kStyle =
    "text{font-family:'DejaVu Sans',Verdana,sans-serif;font-size:12px;fill:#333}"
    ".title{font-size:19px;font-weight:bold;fill:#111}.small{font-size:10.5px;fill:#555}\n"
    ".page{fill:#fff}.night{fill:#ccd3e6}.dawn{fill:#f4d9bd}.day{fill:#fdf6d8}.dusk{fill:#e3c9dd}\n"
    ".grid{stroke:#7d869c;stroke-opacity:.28}.ramadan{fill:#2e7d4f;fill-opacity:.16}"
    ".change{stroke:#555;stroke-dasharray:3 "
    "3}.today{stroke:#d11;stroke-width:1.5}.red{fill:#c00;font-size:11px}\n"
    ".green{fill:#1f6b40;font-size:11px}path{fill:none;stroke-linejoin:round}.fill{stroke:none}\n"
    ".lead{stroke:#999;stroke-width:.7}.other{stroke:#6b7280;stroke-width:1}.second{stroke-dasharray:7 4}\n"
    ".fajr{stroke:#174a86}.sunrise{stroke:#d9731a}.dhuhr{stroke:#a07800}.asr{stroke:#4f8a2b}"
    ".maghrib{stroke:#b8322a}.isha{stroke:#65318f}.main{stroke-width:2.2}\n"
    "@media "
    "(prefers-color-scheme:dark){text{fill:#d5d8e0}.title{fill:#fff}.small{fill:#a9afbd}.page{fill:#14161c}"
    ".night{fill:#10182c}.dawn{fill:#4a3826}.day{fill:#5a5536}.dusk{fill:#432f47}.grid{stroke:#aab}"
    ".ramadan{fill:#5fd08f}.change{stroke:#bbb}.today{stroke:#ff6b6b}.red{fill:#ff8a8a}.green{fill:#7fd8a4}"
    ".other{stroke:#9aa3b5}.fajr{stroke:#7db2f2}.sunrise{stroke:#ffa95c}.dhuhr{stroke:#e6c44d}"
    ".asr{stroke:#9bd873}.maghrib{stroke:#ff8178}.isha{stroke:#c79bf0}}\n";

std::string_view nameOf(Light light) {
    constexpr std::array<std::string_view, 4> names{"night", "dawn", "day", "dusk"};
    return names[static_cast<std::size_t>(light)];
}

class ChartPicture {
public:
    ChartPicture(const Context& context, const YearChart& chart)
        : context_(context), chart_(chart), year_(chart.first.year) {
        for (const std::string& note : chartNotes(context, chart)) {
            for (std::string& line : wrapped(note, kNoteWidth)) {
                notes_.push_back(std::move(line));
            }
        }
    }

    [[nodiscard]] std::string document() const {
        const double height = kBottom + 48.0 + kNoteHeight * static_cast<double>(notes_.size());
        const std::string title = placeText(chart_.first.place);
        return svgDocument(kWidth, height, fmt::format("{}: {}", title, chartSubtitle(chart_)), kStyle,
                           svgRectangle(0, 0, kWidth, height, "page") + heading(title) + ground() +
                               ramadans() + grid() + curves() + clockChanges() + today() + notes());
    }

private:
    [[nodiscard]] double dayWidth() const { return (kRight - kLeft) / static_cast<double>(year_.size()); }
    /// The middle of a day.
    [[nodiscard]] double x(std::size_t day) const {
        return kLeft + (static_cast<double>(day) + 0.5) * dayWidth();
    }
    [[nodiscard]] static double y(double hour) { return kBottom - hour * (kBottom - kTop) / 24.0; }

    [[nodiscard]] std::string heading(const std::string& title) const {
        const std::string legend = chartLegend(chart_);
        return svgText(kLeft, 26, Anchor::start, "title", title) +
               svgText(kLeft, 46, Anchor::start, "small",
                       legend.empty() ? chartSubtitle(chart_)
                                      : fmt::format("{} - {}", chartSubtitle(chart_), legend));
    }

    /// A kind of light as one path of upright strips, a day each.
    [[nodiscard]] std::string ground() const {
        std::array<std::string, 4> paths;
        for (std::size_t i = 0; i < year_.size(); ++i) {
            const DayLight light =
                dayLight(chart_.first.place.clock(), std::span<const almanac::Day, 3>(&year_.days[i], 3));
            for (const LightSpan& span : light.spans) {
                addStrip(paths[static_cast<std::size_t>(span.light)], i, span, light.civil.end);
            }
        }
        std::string text = svgRectangle(kLeft, kTop, kRight - kLeft, kBottom - kTop, "night");
        for (const Light light : {Light::dawn, Light::dusk, Light::day}) {
            text += fmt::format(
                "<path shape-rendering=\"crispEdges\" class=\"{}\" style=\"stroke:none\" d=\"{}\"/>\n",
                nameOf(light), paths[static_cast<std::size_t>(light)]);
        }
        return text;
    }
    void addStrip(std::string& path, std::size_t day, const LightSpan& span,
                  almanac::Instant midnight) const {
        const double left = x(day) - 0.5 * dayWidth();
        const double top = span.end == midnight ? kTop : y(hourOf(span.end));
        path += fmt::format("M{} {}H{}V{}H{}z", coordinate(left), coordinate(y(hourOf(span.begin))),
                            coordinate(left + dayWidth()), coordinate(top), coordinate(left));
    }
    [[nodiscard]] double hourOf(almanac::Instant instant) const {
        const auto local = chart_.first.place.clock().localTime(instant);
        return static_cast<double>(local.timeOfDay.count()) / 3600.0;
    }

    [[nodiscard]] std::string ramadans() const {
        std::string text;
        for (const RamadanDays& days : year_.ramadans) {
            const double left = x(year_.indexOf(days.first)) - 0.5 * dayWidth();
            const double right = x(year_.indexOf(days.last)) + 0.5 * dayWidth();
            const std::string name = hijriMonthAndYear(9, days.hijriYear);
            text += svgRectangle(left, kTop, right - left, kBottom - kTop, "ramadan") +
                    svgText(std::clamp(0.5 * (left + right), kLeft + 45.0, kRight - 45.0), kTop - 22.0,
                            Anchor::middle, "green", name);
        }
        return text;
    }

    [[nodiscard]] std::string grid() const {
        std::string text;
        for (int hour = 0; hour <= 24; hour += 3) {
            text += svgLine(kLeft, y(hour), kRight, y(hour), "grid") +
                    svgText(kLeft - 6.0, y(hour) + 4.0, Anchor::end, "small", fmt::format("{}:00", hour));
        }
        for (unsigned month = 1; month <= 12; ++month) {
            const almanac::Date first = std::chrono::year(year_.year) / static_cast<int>(month) / 1;
            const double left = x(year_.indexOf(first)) - 0.5 * dayWidth();
            text +=
                (month > 1 ? svgLine(left, kTop, left, kBottom, "grid") : std::string()) +
                svgText(left + 15.0 * dayWidth(), kBottom + 16.0, Anchor::middle, "small", monthName(month));
        }
        return text;
    }

    [[nodiscard]] std::string curve(const YearOfPlace& year, Prayer prayer, std::string_view style) const {
        std::string path;
        for (const CurvePiece& piece : curveOf(year, prayer)) {
            char command = 'M';
            for (const CurvePoint& point : piece) {
                path += fmt::format("{}{} {}", command, coordinate(x(point.day)), coordinate(y(point.hour)));
                command = 'L';
            }
            if (piece.size() == 1) { // a dot
                path += "h.1";
            }
        }
        return path.empty() ? path : fmt::format("<path class=\"{}\" d=\"{}\"/>\n", style, path);
    }
    [[nodiscard]] static std::string styleOf(Prayer prayer) {
        const bool main = std::ranges::find(almanac::kSixPrayers, prayer) != almanac::kSixPrayers.end();
        return main ? "main " + std::string(almanac::keyOf(prayer)) : "other";
    }
    [[nodiscard]] std::string curves() const {
        std::string text;
        for (auto prayer = chart_.curves.rbegin(); prayer != chart_.curves.rend();
             ++prayer) { // the six on top
            if (chart_.second) {
                text += curve(chart_.second->year, *prayer, "second " + styleOf(*prayer));
            }
            text += curve(year_, *prayer, styleOf(*prayer));
        }
        return text + names();
    }

    struct Name {
        Prayer prayer;
        double last = 0.0;  ///< end of the curve [x]
        double end = 0.0;   ///< end of the curve [y]
        double place = 0.0; ///< of the name [y]
    };
    /// Names at the right edge at the heights of their curves' ends, pushed apart where they would touch.
    [[nodiscard]] std::vector<Name> placedNames() const {
        std::vector<Name> names;
        for (const Prayer prayer : chart_.curves) {
            const auto pieces = curveOf(year_, prayer);
            const auto last = std::ranges::max_element(
                pieces, {}, [](const CurvePiece& piece) { return piece.back().day; });
            if (last != pieces.end()) {
                const double height = y(last->back().hour);
                names.push_back({prayer, x(last->back().day), height, height});
            }
        }
        std::ranges::sort(names, {}, &Name::end);
        double least = kTop;
        for (Name& name : names) {
            name.place = std::max(name.place, least);
            least = name.place + kLabelGap;
        }
        double most = kBottom;
        for (auto name = names.rbegin(); name != names.rend(); ++name) {
            name->place = std::min(name->place, most);
            most = name->place - kLabelGap;
        }
        return names;
    }
    [[nodiscard]] std::string names() const {
        std::string text;
        for (const Name& name : placedNames()) {
            text += svgLine(name.last, name.end, kRight + 14.0, name.place, "lead") +
                    svgText(kRight + 18.0, name.place + 4.0, Anchor::start,
                            styleOf(name.prayer) == "other" ? "small" : "name", context_.nameOf(name.prayer));
        }
        return text;
    }

    [[nodiscard]] std::string clockChanges() const {
        std::string text;
        double free = 0.0; // the texts before end here
        for (const ClockChange& change : year_.clockChanges) {
            const double at = x(year_.indexOf(change.date)) - 0.5 * dayWidth();
            const double begin = std::max(std::clamp(at - 30.0, kLeft, kRight - 60.0), free);
            text += svgLine(at, kTop, at, kBottom, "change") +
                    svgText(begin, kTop - 6.0, Anchor::start, "small", clockChangeText(change));
            free = begin + 66.0;
        }
        return text;
    }

    [[nodiscard]] std::string today() const {
        if (!chart_.today) {
            return {};
        }
        const double at = x(year_.indexOf(*chart_.today));
        return svgLine(at, kTop, at, kBottom + 20.0, "today") +
               svgText(std::clamp(at, kLeft + 80.0, kRight - 80.0), kBottom + 33.0, Anchor::middle, "red",
                       tr("today, {}", dayAndMonth(*chart_.today)));
    }

    [[nodiscard]] std::string notes() const {
        std::string text;
        double at = kBottom + 52.0;
        for (const std::string& line : notes_) {
            text += svgText(kLeft, at, Anchor::start, "small", line);
            at += kNoteHeight;
        }
        return text;
    }

    const Context& context_;
    const YearChart& chart_;
    const YearOfPlace& year_;
    std::vector<std::string> notes_;
};
} // namespace

std::string chartSvg(const Context& context, const YearChart& chart) {
    return ChartPicture(context, chart).document();
}

} // namespace zorel::cli
