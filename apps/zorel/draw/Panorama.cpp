// SPDX-License-Identifier: Apache-2.0
#include "draw/Panorama.h"

#include <array>
#include <cmath>
#include <utility>

namespace zorel::cli {

namespace {
/// Adds strokes to pieces; a stroke that goes on where the last one ended, on the same side of the horizon,
/// lengthens it.
class Strokes {
public:
    void add(PanoramaPoint from, PanoramaPoint to) {
        const double middle = (from.altitude + to.altitude) / 2.0;
        if (middle < kBottomOfSky) {
            open_ = false;
            return;
        }
        const bool above = middle >= 0.0;
        if (!open_ || pieces_.back().above != above) {
            pieces_.push_back({above, {from}});
        }
        pieces_.back().points.push_back(to);
        open_ = true;
    }
    void lift() { open_ = false; }
    [[nodiscard]] std::vector<PanoramaPiece> take() { return std::move(pieces_); }

private:
    std::vector<PanoramaPiece> pieces_;
    bool open_ = false;
};

PanoramaPoint between(PanoramaPoint from, PanoramaPoint to, double part) {
    return {std::lerp(from.right, to.right, part), std::lerp(from.altitude, to.altitude, part)};
}

/// A stroke that does not leave the picture by its sides, in parts that end at the horizon and the bottom.
void addStroke(Strokes& strokes, PanoramaPoint from, PanoramaPoint to) {
    std::array<double, 4> parts{};
    std::size_t count = 1;
    for (const double level : {0.0, kBottomOfSky}) {
        if ((from.altitude < level) != (to.altitude < level)) {
            parts[count++] = (level - from.altitude) / (to.altitude - from.altitude);
        }
    }
    if (count == 3 && parts[1] > parts[2]) {
        std::swap(parts[1], parts[2]);
    }
    parts[count++] = 1.0;
    for (std::size_t i = 0; i + 1 < count; ++i) {
        strokes.add(between(from, to, parts[i]), between(from, to, parts[i + 1]));
    }
}

/// A stroke over the edge: to the edge on one side, and on from the other.
void addOverEdge(Strokes& strokes, PanoramaPoint from, PanoramaPoint to) {
    const double edge = from.right > to.right ? 1.0 : 0.0;
    const double further = to.right + 2.0 * edge - 1.0;
    const double part = further == from.right ? 0.0 : (edge - from.right) / (further - from.right);
    const double altitude = std::lerp(from.altitude, to.altitude, part);
    addStroke(strokes, from, {edge, altitude});
    strokes.lift();
    addStroke(strokes, {1.0 - edge, altitude}, to);
}
} // namespace

double Panorama::right(double azimuth) const {
    const double turn = (azimuth - left_) / 360.0;
    return turn - std::floor(turn);
}

std::vector<PanoramaPiece> Panorama::way(std::span<const almanac::SkyMoment> course, Body body) const {
    const auto at = [&](const almanac::SkyMoment& moment) {
        return point(body == Body::sun ? moment.sun : moment.moon);
    };
    Strokes strokes;
    for (std::size_t i = 1; i < course.size(); ++i) {
        const PanoramaPoint from = at(course[i - 1]);
        const PanoramaPoint to = at(course[i]);
        if (std::abs(to.right - from.right) > 0.5) {
            addOverEdge(strokes, from, to);
        } else {
            addStroke(strokes, from, to);
        }
    }
    return strokes.take();
}

double middleOfSky(double latitude, double sunDeclination) {
    return sunDeclination > latitude ? 0.0 : 180.0;
}

} // namespace zorel::cli
