// SPDX-License-Identifier: Apache-2.0
/// @file
/// The Moon's disc as one sees it: which part of it is lit, and where.
#pragma once

#include <vector>

namespace zorel::cli {

/// On a disc of radius 1 around 0,0.
struct FacePoint {
    double x = 0.0; ///< to the right
    double y = 0.0; ///< downwards
};

/// The lit part lies between half of the limb and half an ellipse, the border of light and shadow.
class MoonFace {
public:
    /// @param lit part of the disc, 0 to 1. @param side the middle of the lit limb, clockwise from the top
    /// [deg] (almanac::litSide).
    MoonFace(double lit, double side);

    /// Whether a point of the disc is lit; false outside of it.
    [[nodiscard]] bool isLit(FacePoint point) const;
    /// The border of the lit part, once around.
    [[nodiscard]] std::vector<FacePoint> outline() const;

private:
    double flatness_; // half width of the ellipse: 1 at new moon, 0 at the quarters, -1 at full moon
    double sine_;
    double cosine_;
};

} // namespace zorel::cli
