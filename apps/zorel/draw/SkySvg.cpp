// SPDX-License-Identifier: Apache-2.0
#include "draw/LabelBoxes.h"
#include "draw/MoonFace.h"
#include "draw/Panorama.h"
#include "draw/SkyChart.h"
#include "draw/Svg.h"
#include "print/PlaceText.h"
#include "terminal/Style.h"

#include <fmt/format.h>

#include <array>
#include <cmath>
#include <numbers>

namespace zorel::cli {

namespace {
constexpr double kWidth = 980.0;
constexpr double kHeight = 588.0;
constexpr double kLeft = 44.0;
constexpr double kRight = 944.0;
constexpr double kTop = 64.0;
constexpr double kBottom = 398.0;
constexpr double kLetter = 7.4;         ///< width of a letter of 12 px, with some room
constexpr double kBoldLetter = 9.6;     ///< of 13 px and bold
constexpr double kBodyRadius = 10.0;    ///< of Sun and Moon in the sky
constexpr double kFaceRadius = 62.0;    ///< of the Moon below
constexpr double kSunAtHorizon = -0.83; ///< [deg]
constexpr int kLabelHours = 3;

constexpr std::string_view kStyle =
    "text{font-family:'DejaVu Sans',Verdana,sans-serif;font-size:12px;fill:#223}"
    ".title{font-size:19px;font-weight:bold;fill:#111}.small{font-size:11px;fill:#445}"
    ".head{font-size:13px;font-weight:bold;fill:#111}.kaaba{font-size:12px;fill:#14603a}\n"
    ".page{fill:#fff}.day{fill:#d6e9fb}.twilight{fill:#e8d9e0}.night{fill:#c9d0e6}.ground{fill:#dcd7c6}"
    ".grid{stroke:#59647c;stroke-opacity:.25}.horizon{stroke:#6b6047;stroke-width:1.5}\n"
    "path{fill:none;stroke-linejoin:round}.way{stroke-width:2}.below{stroke-dasharray:3 4;stroke-width:1.4}"
    ".sunway{stroke:#d07a00}.moonway{stroke:#5b62a8}.sunhour{fill:#d07a00}.moonhour{fill:#5b62a8}"
    ".suntime{font-size:11px;fill:#8a5000}.moontime{font-size:11px;fill:#474e95}\n"
    ".sun{fill:#ffc42e;stroke:#b86a00}.rays{stroke:#d07a00;stroke-width:1.6}.down{fill:none;stroke-dasharray:"
    "2 "
    "2}.moon{fill:#4a4f66;stroke:#4a4f66}.lit{fill:#fff9e2;stroke:none}.qibla{stroke:#14603a;stroke-width:2}"
    "\n"
    "@media (prefers-color-scheme:dark){text{fill:#dde2ee}.title,.head{fill:#fff}.small{fill:#b4bccd}"
    ".kaaba{fill:#7fd8a4}.page{fill:#14161c}.day{fill:#24425f}.twilight{fill:#3b2f42}.night{fill:#10182c}"
    ".ground{fill:#2b291f}.grid{stroke:#aab}.horizon{stroke:#b9ab86}.sunway{stroke:#ffb347}"
    ".moonway{stroke:#a9b1f2}.sunhour{fill:#ffb347}.moonhour{fill:#a9b1f2}.suntime{fill:#ffc57f}.moontime{"
    "fill:#c3c9f8}.sun{stroke:#ffdd80}"
    ".rays{stroke:#ffcf66}.moon{fill:#3a3f52;stroke:#8d94ad}.lit{fill:#f6f0d8}.qibla{stroke:#7fd8a4}}\n";

class SkyPicture {
public:
    SkyPicture(const Context& context, const SkyChart& chart)
        : context_(context), chart_(chart),
          panorama_(middleOfSky(chart.place.place.latitude, chart.sky.sun.declination)),
          labels_({kLeft, kTop, kRight, kBottom}) {}

    [[nodiscard]] std::string document() {
        const std::string title = placeText(chart_.place);
        const std::string subtitle = skySubtitle(chart_);
        std::string content = svgRectangle(0, 0, kWidth, kHeight, "page") +
                              svgText(kLeft, 28, Anchor::start, "title", title) +
                              svgText(kLeft, 50, Anchor::start, "small", subtitle) + sky() + qibla();
        // The bodies' names come first: a name of an hour gives way to them.
        const std::string bodies = moon() + sun();
        content += ways(Body::moon) + ways(Body::sun) + hours(Body::sun) + hours(Body::moon) + bodies;
        return svgDocument(kWidth, kHeight, fmt::format("{}: {}", title, subtitle), kStyle,
                           content + below());
    }

private:
    [[nodiscard]] static double x(double right) { return kLeft + right * (kRight - kLeft); }
    [[nodiscard]] static double y(double altitude) {
        return kTop + (kTopOfSky - altitude) * (kBottom - kTop) / (kTopOfSky - kBottomOfSky);
    }
    [[nodiscard]] almanac::Standing standing(Body body) const {
        return body == Body::sun
                   ? almanac::Standing{chart_.sky.sun.altitude, chart_.sky.sun.azimuth}
                   : almanac::Standing{chart_.sky.moon.apparentAltitude, chart_.sky.moon.azimuth};
    }
    [[nodiscard]] std::string_view light() const {
        const double altitude = chart_.sky.sun.altitude;
        return altitude > kSunAtHorizon ? "day" : altitude > kBottomOfSky ? "twilight" : "night";
    }

    [[nodiscard]] static double widthOf(std::string_view name, double letter) {
        return letter * static_cast<double>(displayWidth(name));
    }
    /// Where a name stands, its first letter at `left` and its foot at `foot`.
    [[nodiscard]] static LabelBox boxOf(double left, double foot, double width) {
        return {left - 2.0, foot - 11.0, left + width + 2.0, foot + 4.0};
    }

    [[nodiscard]] std::string sky() {
        std::string text = svgRectangle(kLeft, kTop, kRight - kLeft, y(0.0) - kTop, light()) +
                           svgRectangle(kLeft, y(0.0), kRight - kLeft, kBottom - y(0.0), "ground");
        for (const int altitude : {0, 30, 60, 90}) {
            text +=
                svgLine(kLeft, y(altitude), kRight, y(altitude), altitude == 0 ? "horizon" : "grid") +
                svgText(kLeft - 6.0, y(altitude) + 4.0, Anchor::end, "small", fmt::format("{}°", altitude));
        }
        return text + directions();
    }
    /// The points of the compass below the horizon; that at the edges stands on both.
    [[nodiscard]] std::string directions() {
        std::string text;
        const double foot = y(0.0) + 15.0;
        for (std::size_t i = 0; i < kCompassPoints; ++i) {
            const double at = panorama_.right(45.0 * static_cast<double>(i));
            const std::string name = compassPoint(i);
            const double width = widthOf(name, kBoldLetter);
            if (at == 0.0) {
                text += svgText(kLeft + 4.0, foot, Anchor::start, "head", name) +
                        svgText(kRight - 4.0, foot, Anchor::end, "head", name);
                labels_.occupy(boxOf(kLeft + 4.0, foot, width));
                labels_.occupy(boxOf(kRight - 4.0 - width, foot, width));
                continue;
            }
            text += svgLine(x(at), kTop, x(at), y(0.0) + 3.0, "grid") +
                    svgText(x(at), foot, Anchor::middle, "head", name);
            labels_.occupy(boxOf(x(at) - width / 2.0, foot, width));
        }
        return text;
    }
    /// The direction of the Kaaba on the horizon.
    [[nodiscard]] std::string qibla() {
        if (!chart_.qibla) {
            return {};
        }
        const double at = x(panorama_.right(*chart_.qibla));
        const double foot = y(0.0) + 33.0;
        const std::string name = tr("qibla");
        const double width = widthOf(name, kLetter);
        const double left = std::clamp(at - width / 2.0, kLeft + 4.0, kRight - 4.0 - width);
        labels_.occupy(boxOf(left, foot, width));
        return svgLine(at, y(0.0) - 12.0, at, y(0.0) + 20.0, "qibla") +
               svgText(left + width / 2.0, foot, Anchor::middle, "kaaba", name);
    }

    [[nodiscard]] std::string ways(Body body) const {
        std::string text;
        for (const PanoramaPiece& piece : panorama_.way(chart_.course, body)) {
            std::vector<SvgPoint> points;
            for (const PanoramaPoint& point : piece.points) {
                points.push_back({x(point.right), y(point.altitude)});
            }
            text += svgPath(points, Line::open,
                            fmt::format("way {}{}", body == Body::sun ? "sunway" : "moonway",
                                        piece.above ? "" : " below"));
        }
        return text;
    }

    /// A dot at each full hour; at every third one its name, where it has room.
    [[nodiscard]] std::string hours(Body body) {
        const std::string_view style = body == Body::sun ? "sunhour" : "moonhour";
        std::string dots;
        std::string names;
        for (std::size_t i = 0; i < chart_.course.size(); ++i) {
            const auto time = chart_.place.clock().localTime(chart_.course[i].instant).timeOfDay;
            const almanac::Standing at = standing(body, i);
            if (time % std::chrono::hours(1) != std::chrono::seconds(0) || at.altitude < 0.0) {
                continue;
            }
            const SvgPoint point = placed(at);
            dots += svgCircle(point.x, point.y, 2.4, style);
            const auto hour = i > 0 && i + 1 == chart_.course.size() ? 24 : time / std::chrono::hours(1);
            if (hour % kLabelHours == 0) {
                const SvgPoint before = placed(standing(body, i > 0 ? i - 1 : 0));
                const SvgPoint after = placed(standing(body, std::min(i + 1, chart_.course.size() - 1)));
                names += hourName(point, {after.x - before.x, after.y - before.y},
                                  body == Body::sun ? "suntime" : "moontime", fmt::format("{}:00", hour));
            }
        }
        return dots + names;
    }
    [[nodiscard]] almanac::Standing standing(Body body, std::size_t moment) const {
        return body == Body::sun ? chart_.course[moment].sun : chart_.course[moment].moon;
    }
    [[nodiscard]] SvgPoint placed(const almanac::Standing& at) const {
        const PanoramaPoint point = panorama_.point(at);
        return {x(point.right), y(point.altitude)};
    }
    /// Above a level way, else on its outer side. @param course where the way leads.
    [[nodiscard]] std::string hourName(SvgPoint at, SvgPoint course, std::string_view style,
                                       const std::string& name) {
        const double width = widthOf(name, kLetter);
        const bool level = std::abs(course.y) < 0.5 * std::abs(course.x);
        const SvgPoint above{at.x - width / 2.0, at.y - 8.0};
        const SvgPoint left{at.x - width - 8.0, at.y - 2.0};
        const SvgPoint right{at.x + 8.0, at.y - 2.0};
        const bool leftFirst = (course.y < 0.0) == (course.x > 0.0);
        const std::array<SvgPoint, 3> feet{level       ? above
                                           : leftFirst ? left
                                                       : right,
                                           leftFirst ? left : right, leftFirst ? right : left};
        for (const SvgPoint& foot : feet) {
            if (labels_.take(boxOf(foot.x, foot.y, width))) {
                return svgText(foot.x, foot.y, Anchor::start, style, name);
            }
        }
        return {};
    }

    /// A body's name beside it, on the first side that is free.
    [[nodiscard]] std::string bodyName(double atX, double atY, std::string_view name) {
        const double width = widthOf(name, kBoldLetter);
        const double away = kBodyRadius + 7.0;
        const std::array<SvgPoint, 6> feet{{{atX + away, atY + 4.0},
                                            {atX - away - width, atY + 4.0},
                                            {atX - width / 2.0, atY - away},
                                            {atX - width / 2.0, atY + away + 9.0},
                                            {atX + away, atY - away},
                                            {atX - away - width, atY - away}}};
        for (const SvgPoint& foot : feet) {
            if (labels_.take(boxOf(foot.x, foot.y, width))) {
                return svgText(foot.x, foot.y, Anchor::start, "head", name);
            }
        }
        return {};
    }
    /// The middle of a body; one that stands lower than the picture is drawn at its bottom.
    [[nodiscard]] SvgPoint middleOf(Body body) {
        const PanoramaPoint point = panorama_.point(standing(body));
        const SvgPoint middle{std::clamp(x(point.right), kLeft + 16.0, kRight - 16.0),
                              std::clamp(y(point.altitude), kTop + 16.0, kBottom - 16.0)};
        labels_.occupy({middle.x - kBodyRadius - 4.0, middle.y - kBodyRadius - 4.0,
                        middle.x + kBodyRadius + 4.0, middle.y + kBodyRadius + 4.0});
        return middle;
    }

    [[nodiscard]] std::string sun() {
        const SvgPoint at = middleOf(Body::sun);
        const bool up = chart_.sky.sun.altitude > kSunAtHorizon;
        std::string text = svgCircle(at.x, at.y, kBodyRadius - 2.0, up ? "sun" : "sun down");
        for (int ray = 0; up && ray < 8; ++ray) {
            const double angle = ray * std::numbers::pi / 4.0;
            text += svgLine(at.x + kBodyRadius * std::cos(angle), at.y + kBodyRadius * std::sin(angle),
                            at.x + 14.0 * std::cos(angle), at.y + 14.0 * std::sin(angle), "rays");
        }
        return text + bodyName(at.x, at.y, tr("Sun"));
    }
    [[nodiscard]] std::string moon() {
        const SvgPoint at = middleOf(Body::moon);
        return face(at.x, at.y, kBodyRadius) + bodyName(at.x, at.y, tr("Moon"));
    }
    [[nodiscard]] std::string face(double atX, double atY, double radius) const {
        const MoonFace face(chart_.sky.moon.illuminated / 100.0, chart_.sky.litSide);
        std::vector<SvgPoint> lit;
        for (const FacePoint& point : face.outline()) {
            lit.push_back({atX + radius * point.x, atY + radius * point.y});
        }
        return svgCircle(atX, atY, radius, "moon") + svgPath(lit, Line::closed, "lit");
    }

    /// The Moon large, and the figures.
    [[nodiscard]] std::string below() const {
        const double top = kBottom + 28.0;
        std::string text = face(kLeft + kFaceRadius + 8.0, top + kFaceRadius, kFaceRadius) +
                           svgText(kLeft + kFaceRadius + 8.0, top + 2.0 * kFaceRadius + 24.0, Anchor::middle,
                                   "small", tr("the Moon as it looks from here"));
        text += column(290.0, tr("Sun"), sunFacts(context_, chart_));
        text += column(490.0, tr("Moon"), moonFacts(context_, chart_));
        return text + column(720.0, tr("Next phases"), phaseFacts(chart_.sky));
    }
    [[nodiscard]] static std::string column(double left, std::string_view heading,
                                            const std::vector<SkyFact>& facts) {
        double foot = kBottom + 38.0;
        std::string text = svgText(left, foot, Anchor::start, "head", heading);
        for (const SkyFact& fact : facts) {
            foot += 19.0;
            text += svgText(left, foot, Anchor::start, "small", fact.name) +
                    svgText(left + 92.0, foot, Anchor::start, "value", fact.value);
        }
        return text;
    }

    const Context& context_;
    const SkyChart& chart_;
    Panorama panorama_;
    LabelBoxes labels_;
};
} // namespace

std::string skySvg(const Context& context, const SkyChart& chart) {
    return SkyPicture(context, chart).document();
}

} // namespace zorel::cli
