// SPDX-License-Identifier: Apache-2.0
/// @file
/// Points, sizes and rectangles of the screen. Lengths are in points [pt]; x grows to the right, y downwards.
#pragma once

#include <algorithm>

namespace zorel {

struct CGPoint {
    double x = 0.0; ///< [pt]
    double y = 0.0; ///< [pt]

    friend bool operator==(const CGPoint&, const CGPoint&) = default;
};

struct CGSize {
    double width = 0.0;  ///< [pt]
    double height = 0.0; ///< [pt]

    friend bool operator==(const CGSize&, const CGSize&) = default;
};

/// A rectangle by its top left corner and its size.
struct CGRect {
    double x = 0.0;      ///< [pt]
    double y = 0.0;      ///< [pt]
    double width = 0.0;  ///< [pt]
    double height = 0.0; ///< [pt]

    [[nodiscard]] double minX() const { return x; }
    [[nodiscard]] double midX() const { return x + width * 0.5; }
    [[nodiscard]] double maxX() const { return x + width; }
    [[nodiscard]] double minY() const { return y; }
    [[nodiscard]] double midY() const { return y + height * 0.5; }
    [[nodiscard]] double maxY() const { return y + height; }
    [[nodiscard]] CGPoint origin() const { return {x, y}; }
    [[nodiscard]] CGSize size() const { return {width, height}; }
    [[nodiscard]] bool isEmpty() const { return !(width > 0.0 && height > 0.0); }

    /// The rectangle made smaller by dx on the left and right and dy at the top and bottom; never below size
    /// 0.
    [[nodiscard]] CGRect inset(double dx, double dy) const {
        return {x + dx, y + dy, std::max(0.0, width - 2.0 * dx), std::max(0.0, height - 2.0 * dy)};
    }
    /// Whether the point lies inside; the right and bottom edges do not belong to the rectangle.
    [[nodiscard]] bool contains(CGPoint point) const {
        return point.x >= x && point.y >= y && point.x < maxX() && point.y < maxY();
    }

    friend bool operator==(const CGRect&, const CGRect&) = default;
};

} // namespace zorel
