// SPDX-License-Identifier: Apache-2.0
/// @file
/// The sky around a place, unrolled: directions from left to right, altitudes upwards.
#pragma once

#include "almanac/Sky.h"

#include <span>
#include <vector>

namespace zorel::cli {

inline constexpr double kTopOfSky = 90.0;     ///< [deg]
inline constexpr double kBottomOfSky = -18.0; ///< [deg]; what stands lower is not drawn

struct PanoramaPoint {
    double right = 0.0;    ///< 0: left edge, 1: right edge
    double altitude = 0.0; ///< [deg]
};

/// A piece of a way that can be drawn in one stroke, all above the horizon or all below it.
struct PanoramaPiece {
    bool above = false;
    std::vector<PanoramaPoint> points;
};

enum class Body : std::uint8_t { sun, moon };

class Panorama {
public:
    /// @param middle azimuth in the middle of the picture [deg].
    explicit Panorama(double middle) : left_(middle - 180.0) {}

    [[nodiscard]] double right(double azimuth) const;
    [[nodiscard]] PanoramaPoint point(const almanac::Standing& standing) const {
        return {right(standing.azimuth), standing.altitude};
    }
    /// The way of a body: cut where it crosses the horizon, the bottom and the edges.
    [[nodiscard]] std::vector<PanoramaPiece> way(std::span<const almanac::SkyMoment> course, Body body) const;

private:
    double left_;
};

/// The side on which the Sun is highest: 180 (south) or 0 (north) [deg].
[[nodiscard]] double middleOfSky(double latitude, double sunDeclination);

} // namespace zorel::cli
