// SPDX-License-Identifier: Apache-2.0
#include "host/Contrast.h"

#include <algorithm>
#include <cmath>

namespace zorel {

namespace {

constexpr double kUnseen = 1.05;

/// Relative luminance of a colour of sRGB (IEC 61966-2-1), as WCAG 2 defines it.
double luminance(const QColor& color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

} // namespace

double contrastOf(const QColor& one, const QColor& other) {
    const double first = luminance(one);
    const double second = luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

QColor withContrast(const QColor& color, const QColor& ground, double contrast) {
    if (contrastOf(color, ground) < kUnseen) {
        return color;
    }
    constexpr float step = 0.01F;
    float hue = 0.0F;
    float saturation = 0.0F;
    float lightness = 0.0F;
    color.getHslF(&hue, &saturation, &lightness);
    const float way = luminance(ground) > 0.5 ? -step : step;
    QColor moved = color;
    while (contrastOf(moved, ground) < contrast && lightness > 0.0F && lightness < 1.0F) {
        lightness = std::clamp(lightness + way, 0.0F, 1.0F);
        moved = QColor::fromHslF(hue, saturation, lightness, color.alphaF());
    }
    return moved;
}

} // namespace zorel
