// SPDX-License-Identifier: Apache-2.0
#include "draw/Braille.h"
#include "draw/CompassRose.h"
#include "draw/SkyChart.h"

#include "almanac/Degrees.h"

#include <cmath>

namespace zorel::cli {

namespace {
constexpr std::size_t kColumns = 38;
constexpr std::size_t kRows = 19;
constexpr double kRadius = 35.0; ///< of the rim [dots]
constexpr double kNames = 29.0;  ///< of the points of the compass [dots]
constexpr std::string_view kIndent = "  ";
constexpr std::string_view kRim = "38;5;245";
constexpr std::string_view kQibla = "1;32";
constexpr std::string_view kMagnetic = "38;5;203";

class RoseLines {
public:
    RoseLines(const Context& context, const Compass& compass)
        : context_(context), compass_(compass), ground_(kColumns, kRows) {}

    [[nodiscard]] std::string text() {
        for (double bearing = 0.0; bearing < 360.0; bearing += 0.5) {
            const bool tick = std::remainder(bearing, 30.0) == 0.0;
            spoke(bearing, tick ? kRadius - 3.0 : kRadius, kRadius, 1, '.', kRim);
        }
        if (compass_.magnetic) {
            spoke(compass_.magnetic->declination, 0.0, kRadius - 3.0, 3, ':', kMagnetic);
        }
        if (compass_.qibla.bearing) {
            spoke(*compass_.qibla.bearing, 0.0, kRadius - 3.0, 1, '#', kQibla);
        }
        names();
        std::string text;
        for (std::size_t row = 0; row < kRows; ++row) {
            std::string line(kIndent);
            line += ground_.row(row, context_.style, context_.ascii());
            line.erase(line.find_last_not_of(' ') + 1);
            text += line + '\n';
        }
        return text;
    }

private:
    struct Dot {
        long x, y;
    };
    [[nodiscard]] Dot at(double bearing, double radius) const {
        const double angle = bearing * almanac::kRadian;
        return {std::lround((static_cast<double>(ground_.width()) - 1.0) / 2.0 + radius * std::sin(angle)),
                std::lround((static_cast<double>(ground_.height()) - 1.0) / 2.0 - radius * std::cos(angle))};
    }
    /// @param every how many dots lie between two that are drawn.
    void spoke(double bearing, double from, double to, int every, char letter, std::string_view colour) {
        int step = 0;
        for (double radius = from; radius <= to; radius += 0.5, ++step) {
            if (step / 2 % every == 0) {
                const Dot dot = at(bearing, radius);
                ground_.dot(dot.x, dot.y, letter, colour);
            }
        }
    }
    void name(double bearing, double radius, std::string_view text, std::string_view colour) {
        const Dot dot = at(bearing, radius);
        ground_.character(static_cast<std::size_t>(dot.x) / 2, static_cast<std::size_t>(dot.y) / 4, text,
                          colour);
    }
    /// The arrow's own end comes last: it may stand where a point of the compass is.
    void names() {
        for (std::size_t point = 0; point < kCompassPoints; point += 2) {
            name(45.0 * static_cast<double>(point), kNames, compassPoint(point), "1");
        }
        if (compass_.magnetic) {
            name(compass_.magnetic->declination, kRadius - 13.0, "m", kMagnetic);
        }
        if (compass_.qibla.bearing) {
            name(*compass_.qibla.bearing, kRadius, context_.ascii() ? "Q" : "◆", kQibla);
        }
    }

    const Context& context_;
    const Compass& compass_;
    DotGround ground_;
};
} // namespace

std::string roseText(const Context& context, const Compass& compass) {
    return RoseLines(context, compass).text();
}

} // namespace zorel::cli
