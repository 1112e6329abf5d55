// SPDX-License-Identifier: Apache-2.0
#include "draw/CompassRose.h"
#include "draw/SkyChart.h"
#include "draw/Svg.h"
#include "print/DayText.h"
#include "print/PlaceText.h"

#include "almanac/Degrees.h"

#include <fmt/format.h>

#include <array>
#include <cmath>

namespace zorel::cli {

namespace {
constexpr double kWidth = 600.0;
constexpr double kMiddleX = 300.0;
constexpr double kMiddleY = 338.0;
constexpr double kOuter = 206.0;      ///< rim of the ring of true bearings
constexpr double kOuterNames = 224.0; ///< its numbers
constexpr double kKaaba = 254.0;
constexpr double kInner = 150.0;      ///< rim of the ring of bearings by the compass
constexpr double kInnerNames = 121.0; ///< its numbers
constexpr double kNotes = 630.0;      ///< first line below the rose [y]
constexpr double kClear = 9.0;        ///< no number of the inner ring as near to an arrow [deg]

constexpr std::string_view kStyle =
    "text{font-family:'DejaVu Sans',Verdana,sans-serif;font-size:12px;fill:#223}"
    ".title{font-size:19px;font-weight:bold;fill:#111}.small{font-size:11px;fill:#445}"
    ".point{font-size:17px;font-weight:bold;fill:#111}.red{font-size:11px;fill:#b3261e}"
    ".note{font-size:13px;fill:#223}\n"
    ".page{fill:#fff}.ring{fill:none;stroke:#59647c}.inner{fill:none;stroke:#b3261e;stroke-opacity:.6}"
    ".tick{stroke:#59647c}.redtick{stroke:#b3261e;stroke-opacity:.7}.north{stroke:#59647c;stroke-width:1.2}"
    ".needle{stroke:#b3261e;stroke-width:2;stroke-dasharray:7 4}.redtip{fill:#b3261e}"
    ".qibla{stroke:#14603a;stroke-width:4}.tip{fill:#14603a}.cube{fill:#222}.band{fill:#d9a521}\n"
    "@media (prefers-color-scheme:dark){text,.note{fill:#dde2ee}.title,.point{fill:#fff}.small{fill:#b4bccd}"
    ".red{fill:#ff9b92}.page{fill:#14161c}.ring{stroke:#9aa3b5}.inner,.redtick,.needle{stroke:#ff9b92}"
    ".redtip{fill:#ff9b92}.tick,.north{stroke:#9aa3b5}.qibla{stroke:#5fd08f}.tip{fill:#5fd08f}"
    ".cube{fill:#000;stroke:#8d94ad}}\n";

SvgPoint at(double bearing, double radius) {
    const double angle = bearing * almanac::kRadian;
    return {kMiddleX + radius * std::sin(angle), kMiddleY - radius * std::cos(angle)};
}

std::string spoke(double bearing, double from, double to, std::string_view style) {
    const SvgPoint begin = at(bearing, from);
    const SvgPoint end = at(bearing, to);
    return svgLine(begin.x, begin.y, end.x, end.y, style);
}

/// @param foot half of the height of the letters [px].
std::string nameAt(double bearing, double radius, double foot, std::string_view style,
                   std::string_view name) {
    const SvgPoint point = at(bearing, radius);
    return svgText(point.x, point.y + foot, Anchor::middle, style, name);
}

std::string tip(double bearing, double radius, double length, double width, std::string_view style) {
    const std::array<SvgPoint, 3> corners{at(bearing, radius), at(bearing - width, radius - length),
                                          at(bearing + width, radius - length)};
    return svgPath(corners, Line::closed, style);
}

class RosePicture {
public:
    RosePicture(const Context& context, const Compass& compass) : context_(context), compass_(compass) {}

    [[nodiscard]] std::string document() {
        const std::string title = placeText(compass_.place);
        const std::string rose = trueRing() + magneticRing() + needle() + arrow();
        const std::string figures = notes();
        const double height = foot_ + 4.0;
        return svgDocument(
            kWidth, height, title, kStyle,
            svgRectangle(0, 0, kWidth, height, "page") + svgText(24, 30, Anchor::start, "title", title) +
                svgText(24, 52, Anchor::start, "small", longDate(compass_.date)) + rose + figures);
    }

private:
    [[nodiscard]] static std::string trueRing() {
        std::string text = svgCircle(kMiddleX, kMiddleY, kOuter, "ring") + spoke(0.0, 0.0, kOuter, "north");
        for (int bearing = 0; bearing < 360; bearing += 5) {
            text += spoke(bearing,
                          bearing % 30 == 0   ? kOuter - 16.0
                          : bearing % 10 == 0 ? kOuter - 10.0
                                              : kOuter - 5.0,
                          kOuter, "tick");
        }
        for (int bearing = 0; bearing < 360; bearing += 30) {
            const auto point = static_cast<std::size_t>(bearing / 45);
            text += bearing % 90 == 0
                        ? nameAt(bearing, kOuterNames, 6.0, "point", compassPoint(point))
                        : nameAt(bearing, kOuterNames, 4.0, "small", fmt::format("{}", bearing));
        }
        return text;
    }
    [[nodiscard]] bool isClear(double bearing) const {
        const auto apart = [&](double other) { return std::abs(std::remainder(bearing - other, 360.0)); };
        return (!compass_.qibla.bearing || apart(*compass_.qibla.bearing) > kClear) && apart(0.0) > kClear;
    }
    /// The same ring turned to magnetic north.
    [[nodiscard]] std::string magneticRing() const {
        if (!compass_.magnetic) {
            return {};
        }
        std::string text = svgCircle(kMiddleX, kMiddleY, kInner, "inner");
        for (int bearing = 0; bearing < 360; bearing += 10) {
            const double turned = bearing + compass_.magnetic->declination;
            text += spoke(turned, bearing % 30 == 0 ? kInner - 12.0 : kInner - 6.0, kInner, "redtick");
            if (bearing % 30 == 0 && bearing != 0 && isClear(turned)) {
                text += nameAt(turned, kInnerNames, 4.0, "red", fmt::format("{}", bearing));
            }
        }
        return text;
    }
    [[nodiscard]] std::string needle() const {
        if (!compass_.magnetic) {
            return {};
        }
        const double north = compass_.magnetic->declination;
        return spoke(north, 0.0, kInner, "needle") + tip(north, kInner + 16.0, 18.0, 3.0, "redtip");
    }
    [[nodiscard]] std::string arrow() const {
        if (!compass_.qibla.bearing) {
            return {};
        }
        const double bearing = *compass_.qibla.bearing;
        const SvgPoint kaaba = at(bearing, kKaaba);
        return spoke(bearing, 0.0, kOuter - 36.0, "qibla") + tip(bearing, kOuter - 14.0, 26.0, 4.5, "tip") +
               svgCircle(kMiddleX, kMiddleY, 5.0, "tip") +
               svgRectangle(kaaba.x - 9.0, kaaba.y - 9.0, 18.0, 18.0, "cube") +
               svgRectangle(kaaba.x - 9.0, kaaba.y - 4.0, 18.0, 3.0, "band");
    }

    void note(std::string& text, std::string_view swatch, std::string_view line) {
        if (!swatch.empty()) {
            text += svgRectangle(24, foot_ - 8.0, 18, 5, swatch);
        }
        text += svgText(50, foot_, Anchor::start, "note", line);
        foot_ += 21.0;
    }
    [[nodiscard]] std::string notes() {
        std::string text;
        if (!compass_.qibla.bearing) {
            note(text, "", tr("this is the Kaaba itself: every direction is the qibla"));
        } else {
            const std::string bearing = bearingText(*compass_.qibla.bearing);
            note(text, "tip",
                 compass_.magneticBearing ? tr("Qibla {0} from true north, {1} by the compass", bearing,
                                               bearingText(*compass_.magneticBearing))
                                          : tr("Qibla {} from true north", bearing));
            note(text, "", tr("Distance to the Kaaba: {}", distanceText(compass_.qibla.distance)));
            for (const almanac::SunAtQibla& instant : compass_.qibla.instants) {
                note(text, "",
                     fmt::format("{}: {}", context_.nameOf(almanac::Prayer::sunAtQibla),
                                 timeText(context_, instant.at.local, compass_.date)));
            }
        }
        if (compass_.magnetic) {
            note(text, "redtip", tr("Magnetic declination: {}", declinationText(*compass_.magnetic)));
            note(text, "", tr("Outer ring: true bearings. Inner ring: bearings by the compass."));
            if (const std::string warning = fieldWarning(*compass_.magnetic); !warning.empty()) {
                note(text, "", warning);
            }
        }
        return text;
    }

    const Context& context_;
    const Compass& compass_;
    double foot_ = kNotes;
};
} // namespace

std::string roseSvg(const Context& context, const Compass& compass) {
    return RosePicture(context, compass).document();
}

} // namespace zorel::cli
