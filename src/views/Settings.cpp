// SPDX-License-Identifier: Apache-2.0
#include "views/Settings.h"

#include <array>
#include <cstddef>

namespace zorel {
namespace {

constexpr std::size_t kColorsPerTheme = 5;

struct Rgb {
    int red;
    int green;
    int blue;
};

/// Five colours for each of the six themes, first to fifth. Themes 0 and 1 share their second colour.
constexpr std::array<Rgb, 30> kThemes = {{
    {239, 236, 202}, {230, 226, 175}, {167, 163, 126}, {4, 99, 128},    {0, 47, 47},  // 0
    {219, 238, 226}, {230, 226, 175}, {119, 196, 211}, {234, 46, 73},   {51, 55, 69}, // 1
    {255, 250, 213}, {255, 211, 78},  {219, 158, 54},  {189, 73, 50},   {16, 91, 99}, // 2
    {242, 242, 242}, {198, 224, 112}, {145, 196, 108}, {40, 125, 125},  {28, 52, 77}, // 3
    {245, 252, 208}, {227, 219, 154}, {199, 183, 115}, {177, 194, 179}, {19, 34, 45}, // 4
    {242, 207, 102}, {4, 217, 217},   {242, 153, 135}, {170, 75, 35},   {1, 10, 38},  // 5
}};

UIColor themeColor(std::int32_t theme, std::size_t which) {
    const Rgb& rgb = kThemes.at(static_cast<std::size_t>(theme) * kColorsPerTheme + which);
    return UIColor::colorWithRed(rgb.red / 255.0, rgb.green / 255.0, rgb.blue / 255.0, 1.0);
}

} // namespace

void Settings::setUIColors() {
    const std::array<UIColor*, kColorsPerTheme> colors = {&firstColor, &secondColor, &thirdColor,
                                                          &fourthColor, &fifthColor};
    for (std::size_t which = 0; which < colors.size(); ++which) {
        *colors[which] = themeColor(uiControlColorId, which);
    }
}

} // namespace zorel
