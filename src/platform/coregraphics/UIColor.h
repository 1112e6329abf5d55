// SPDX-License-Identifier: Apache-2.0
/// @file
/// A colour: red, green, blue and opacity, each 0 to 1. No colour spaces, no patterns.
#pragma once

namespace zorel {

class UIColor {
public:
    /// Clear.
    constexpr UIColor() = default;

    [[nodiscard]] static constexpr UIColor colorWithRed(double red, double green, double blue, double alpha) {
        return UIColor(red, green, blue, alpha);
    }
    [[nodiscard]] static constexpr UIColor clearColor() { return {}; }
    [[nodiscard]] static constexpr UIColor whiteColor() { return UIColor(1.0, 1.0, 1.0, 1.0); }
    [[nodiscard]] static constexpr UIColor blackColor() { return UIColor(0.0, 0.0, 0.0, 1.0); }
    [[nodiscard]] static constexpr UIColor lightGrayColor() {
        return UIColor(2.0 / 3.0, 2.0 / 3.0, 2.0 / 3.0, 1.0);
    }
    /// The ground behind the sections of a grouped table. A host that knows dark surroundings shows its own
    /// shade.
    [[nodiscard]] static constexpr UIColor groupTableViewBackgroundColor() {
        return UIColor(239.0 / 255.0, 239.0 / 255.0, 244.0 / 255.0, 1.0);
    }

    [[nodiscard]] constexpr double red() const { return red_; }
    [[nodiscard]] constexpr double green() const { return green_; }
    [[nodiscard]] constexpr double blue() const { return blue_; }
    [[nodiscard]] constexpr double alpha() const { return alpha_; }

    friend constexpr bool operator==(const UIColor&, const UIColor&) = default;

private:
    constexpr UIColor(double red, double green, double blue, double alpha)
        : red_(red), green_(green), blue_(blue), alpha_(alpha) {}

    double red_ = 0.0;
    double green_ = 0.0;
    double blue_ = 0.0;
    double alpha_ = 0.0;
};

} // namespace zorel
