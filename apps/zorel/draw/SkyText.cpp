// SPDX-License-Identifier: Apache-2.0
#include "draw/Braille.h"
#include "draw/LabelRows.h"
#include "draw/MoonFace.h"
#include "draw/Panorama.h"
#include "draw/SkyChart.h"
#include "print/PlaceText.h"
#include "terminal/Wrap.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace zorel::cli {

namespace {
constexpr std::size_t kAxis = 4; ///< columns of the altitudes
constexpr std::size_t kRows = 18;
constexpr std::size_t kFaceRows = 7;
constexpr std::size_t kNarrowFaceRows = 6;
constexpr std::size_t kNarrow = 44; ///< columns below which there is no room for more
constexpr std::string_view kSunColour = "38;5;220";
constexpr std::string_view kMoonColour = "38;5;153";
constexpr std::string_view kHorizonColour = "38;5;108";
constexpr std::string_view kQiblaColour = "1;32";

class SkyLines {
public:
    SkyLines(const Context& context, const SkyChart& chart)
        : context_(context), chart_(chart),
          panorama_(middleOfSky(chart.place.place.latitude, chart.sky.sun.declination)),
          columns_(context.columns() - kAxis), ground_(columns_, kRows) {}

    [[nodiscard]] std::string text() {
        drawHorizon();
        drawWay(Body::moon);
        drawWay(Body::sun);
        drawBody(Body::moon);
        drawBody(Body::sun);
        return context_.style.bold(placeText(chart_.place)) + '\n' +
               paragraph(skySubtitle(chart_), "", "", context_.columns()) + '\n' + plot() + directions() +
               '\n' + figures();
    }

private:
    [[nodiscard]] bool ascii() const { return context_.ascii(); }
    [[nodiscard]] long dotX(double right) const {
        return std::lround(right * (static_cast<double>(ground_.width()) - 1.0));
    }
    [[nodiscard]] long dotY(double altitude) const {
        return std::lround((kTopOfSky - altitude) * (static_cast<double>(ground_.height()) - 1.0) /
                           (kTopOfSky - kBottomOfSky));
    }
    void drawHorizon() {
        for (long x = 0; x < static_cast<long>(ground_.width()); ++x) {
            ground_.dot(x, dotY(0.0), '-', kHorizonColour);
        }
    }
    /// Below the horizon every third dot.
    void drawWay(Body body) {
        const bool sun = body == Body::sun;
        for (const PanoramaPiece& piece : panorama_.way(chart_.course, body)) {
            for (std::size_t i = 1; i < piece.points.size(); ++i) {
                const PanoramaPoint& from = piece.points[i - 1];
                const PanoramaPoint& to = piece.points[i];
                const long steps = std::max({std::abs(dotX(to.right) - dotX(from.right)),
                                             std::abs(dotY(to.altitude) - dotY(from.altitude)), 1L});
                for (long step = 0; step <= steps; ++step) {
                    const double part = static_cast<double>(step) / static_cast<double>(steps);
                    const long x = dotX(std::lerp(from.right, to.right, part));
                    if (piece.above || x % 3 == 0) {
                        ground_.dot(x, dotY(std::lerp(from.altitude, to.altitude, part)), sun ? '*' : '.',
                                    sun ? kSunColour : kMoonColour);
                    }
                }
            }
        }
    }
    void drawBody(Body body) {
        const bool sun = body == Body::sun;
        const PanoramaPoint at = panorama_.point(
            sun ? almanac::Standing{chart_.sky.sun.altitude, chart_.sky.sun.azimuth}
                : almanac::Standing{chart_.sky.moon.apparentAltitude, chart_.sky.moon.azimuth});
        if (at.altitude < kBottomOfSky) {
            return;
        }
        const std::string_view sign = sun ? (ascii() ? "S" : "☀") : (ascii() ? "M" : "☾");
        ground_.character(static_cast<std::size_t>(dotX(at.right)) / 2,
                          static_cast<std::size_t>(dotY(at.altitude)) / 4, sign,
                          sun ? kSunColour : kMoonColour);
    }

    [[nodiscard]] std::string plot() const {
        std::string text;
        for (std::size_t row = 0; row < kRows; ++row) {
            std::string axis(kAxis, ' ');
            for (const int altitude : {0, 30, 60, 90}) {
                if (static_cast<std::size_t>(dotY(altitude)) / 4 == row) {
                    axis = fmt::format("{:2}° ", altitude);
                }
            }
            std::string line = context_.style.dim(axis) + ground_.row(row, context_.style, ascii());
            line.erase(line.find_last_not_of(' ') + 1);
            text += line + '\n';
        }
        return text;
    }

    /// The points of the compass, and the direction of the Kaaba among them or below.
    [[nodiscard]] std::string directions() const {
        struct Name {
            std::size_t column;
            std::string name;
        };
        std::vector<Name> names;
        for (std::size_t i = 0; i < kCompassPoints; ++i) {
            const double at = panorama_.right(45.0 * static_cast<double>(i));
            names.push_back({static_cast<std::size_t>(dotX(at)) / 2, compassPoint(i)});
        }
        std::ranges::sort(names, {}, &Name::column);
        LabelRows row(columns_);
        for (const Name& name : names) {
            row.add(name.column, name.name);
        }
        const std::string indent(kAxis, ' ');
        std::string text = context_.style.dim(withoutLineFeed(row.text(indent))) + '\n';
        if (chart_.qibla) {
            LabelRows qibla(columns_);
            qibla.add(static_cast<std::size_t>(dotX(panorama_.right(*chart_.qibla))) / 2,
                      fmt::format("{} {}", ascii() ? "^" : "▲", tr("qibla")));
            text += context_.style.paint(kQiblaColour, withoutLineFeed(qibla.text(indent))) + '\n';
        }
        return text;
    }
    static std::string withoutLineFeed(std::string text) {
        text.pop_back();
        return text;
    }

    /// The Moon's face, a line for each row.
    [[nodiscard]] std::vector<std::string> face() const {
        const MoonFace face(chart_.sky.moon.illuminated / 100.0, chart_.sky.litSide);
        const std::size_t rows = context_.columns() < kNarrow ? kNarrowFaceRows : kFaceRows;
        DotGround ground(2 * rows, rows);
        const double radius = static_cast<double>(ground.width()) / 2.0;
        for (std::size_t y = 0; y < ground.height(); ++y) {
            for (std::size_t x = 0; x < ground.width(); ++x) {
                const FacePoint point{(static_cast<double>(x) + 0.5) / radius - 1.0,
                                      (static_cast<double>(y) + 0.5) / radius - 1.0};
                const double distance = std::hypot(point.x, point.y);
                const bool rim = distance <= 1.0 && distance > 1.0 - 1.6 / radius;
                if (face.isLit(point)) {
                    ground.dot(static_cast<long>(x), static_cast<long>(y), '#', kMoonColour);
                } else if (rim || (ascii() && distance <= 1.0)) {
                    ground.dot(static_cast<long>(x), static_cast<long>(y), '.', kMoonColour);
                }
            }
        }
        std::vector<std::string> lines;
        for (std::size_t row = 0; row < rows; ++row) {
            lines.push_back(ground.row(row, context_.style, ascii()));
        }
        return lines;
    }

    [[nodiscard]] std::vector<std::string> facts(std::string_view heading,
                                                 const std::vector<SkyFact>& facts) const {
        TextTable table("ll");
        for (const SkyFact& fact : facts) {
            table.add({fact.name, fact.value});
        }
        std::vector<std::string> lines{std::string(heading)};
        std::string text = table.text(Style(false));
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t end = text.find('\n', at);
            lines.push_back(text.substr(at, end - at));
            at = end + 1;
        }
        return lines;
    }
    /// The face, the Sun and the Moon side by side where there is room, else below one another.
    [[nodiscard]] std::string figures() const {
        const auto sun = facts(tr("Sun"), sunFacts(context_, chart_));
        const auto moon = facts(tr("Moon"), moonFacts(context_, chart_));
        const auto disc = face();
        const auto widest = [](const std::vector<std::string>& lines) {
            std::size_t width = 0;
            for (const std::string& line : lines) {
                width = std::max(width, displayWidth(line));
            }
            return width;
        };
        const std::size_t sunWidth = widest(sun) + 3;
        const std::size_t faceWidth = 2 * disc.size();
        const bool beside = faceWidth + 3 + sunWidth + widest(moon) <= context_.columns();
        std::string text;
        for (std::size_t row = 0; row < std::max({disc.size(), moon.size(), sun.size()}); ++row) {
            std::string line =
                (row < disc.size() ? disc[row] : std::string(faceWidth, ' ')) + (beside ? "   " : "  ");
            if (beside) {
                line += row < sun.size() ? padded(sun[row], sunWidth, row == 0) : std::string(sunWidth, ' ');
            }
            line += row < moon.size() ? padded(moon[row], 0, row == 0) : std::string();
            line.erase(line.find_last_not_of(' ') + 1);
            text += line + '\n';
        }
        return beside ? text : text + '\n' + joined(sun);
    }
    [[nodiscard]] std::string padded(const std::string& line, std::size_t width, bool heading) const {
        const std::size_t used = displayWidth(line);
        return (heading ? context_.style.bold(line) : line) +
               std::string(width > used ? width - used : 0, ' ');
    }
    [[nodiscard]] std::string joined(const std::vector<std::string>& lines) const {
        std::string text;
        for (std::size_t row = 0; row < lines.size(); ++row) {
            text += padded(lines[row], 0, row == 0) + '\n';
        }
        return text;
    }

    const Context& context_;
    const SkyChart& chart_;
    Panorama panorama_;
    std::size_t columns_;
    DotGround ground_;
};
} // namespace

std::string skyText(const Context& context, const SkyChart& chart) {
    return SkyLines(context, chart).text();
}

} // namespace zorel::cli
