// SPDX-License-Identifier: Apache-2.0
#include "views/Settings.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace zorel {
namespace {

UIColor rgb(int red, int green, int blue) {
    return UIColor::colorWithRed(red / 255.0, green / 255.0, blue / 255.0, 1.0);
}

struct Theme {
    std::int32_t id;
    UIColor first, second, third, fourth, fifth;
};

void expectColors(const Settings& settings, const Theme& theme) {
    EXPECT_EQ(settings.firstColor, theme.first) << theme.id;
    EXPECT_EQ(settings.secondColor, theme.second) << theme.id;
    EXPECT_EQ(settings.thirdColor, theme.third) << theme.id;
    EXPECT_EQ(settings.fourthColor, theme.fourth) << theme.id;
    EXPECT_EQ(settings.fifthColor, theme.fifth) << theme.id;
}

const Theme kThemes[] = {
    {0, rgb(239, 236, 202), rgb(230, 226, 175), rgb(167, 163, 126), rgb(4, 99, 128), rgb(0, 47, 47)},
    {1, rgb(219, 238, 226), rgb(230, 226, 175), rgb(119, 196, 211), rgb(234, 46, 73), rgb(51, 55, 69)},
    {2, rgb(255, 250, 213), rgb(255, 211, 78), rgb(219, 158, 54), rgb(189, 73, 50), rgb(16, 91, 99)},
    {3, rgb(242, 242, 242), rgb(198, 224, 112), rgb(145, 196, 108), rgb(40, 125, 125), rgb(28, 52, 77)},
    {4, rgb(245, 252, 208), rgb(227, 219, 154), rgb(199, 183, 115), rgb(177, 194, 179), rgb(19, 34, 45)},
    {5, rgb(242, 207, 102), rgb(4, 217, 217), rgb(242, 153, 135), rgb(170, 75, 35), rgb(1, 10, 38)},
};

TEST(Settings, BeginWithTheDefaultLook) {
    const Settings settings;
    EXPECT_FALSE(settings.languageChanged);
    EXPECT_FALSE(settings.fontChanged);
    EXPECT_EQ(settings.buttonType, 1);
    EXPECT_EQ(settings.buttonShape, 5);
    EXPECT_EQ(settings.language, 0);
    EXPECT_EQ(settings.fontSize, 15);
    EXPECT_EQ(settings.uiControlColorId, 1);
    EXPECT_EQ(settings.fontName, "Verdana");
    expectColors(settings, kThemes[1]);
}

TEST(Settings, TakeEveryThemesFiveColors) {
    for (const Theme& theme : kThemes) {
        Settings settings;
        settings.uiControlColorId = theme.id;
        settings.setUIColors();
        expectColors(settings, theme);
    }
}

TEST(Settings, KeepTheirColorsUntilTheyAreTakenAnew) {
    Settings settings;
    settings.uiControlColorId = 5;
    expectColors(settings, kThemes[1]);
}

TEST(Settings, RefuseAThemeThatDoesNotExist) {
    for (const std::int32_t theme : {-1, 6, 2147483647, -2147483647 - 1}) {
        Settings settings;
        settings.uiControlColorId = theme;
        EXPECT_THROW(settings.setUIColors(), std::out_of_range);
        expectColors(settings, kThemes[1]);
    }
}

} // namespace
} // namespace zorel
