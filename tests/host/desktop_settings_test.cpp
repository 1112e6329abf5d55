// SPDX-License-Identifier: Apache-2.0
// Contrast, motion and darkness as the desktop is asked for them.
#include "tests/host/Screen.h"
#include "tests/host/TestPane.h"

#include "host/DesktopSettings.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace zorel {
namespace {

constexpr const char* kAppearance = "org.freedesktop.appearance";
constexpr const char* kGnome = "org.gnome.desktop.interface";

/// A variable of the environment while it lives.
class Variable {
public:
    Variable(const char* name, const QByteArray& value) : name_(name), before_(qgetenv(name)) {
        qputenv(name, value);
    }
    ~Variable() { before_.isNull() ? qunsetenv(name_) : qputenv(name_, before_); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* name_;
    QByteArray before_;
};

void tell(DesktopSettings& settings, const char* space, const char* key, const QVariant& value) {
    settings.take(space, key, QDBusVariant(value));
}

class DesktopSettingsTest : public testing::Test {
protected:
    QTemporaryDir folder;
    Variable config{"XDG_CONFIG_HOME", folder.path().toUtf8()};
};

TEST_F(DesktopSettingsTest, NothingIsWishedForAtFirst) {
    const DesktopSettings settings;
    EXPECT_FALSE(settings.highContrast());
    EXPECT_FALSE(settings.reducedMotion());
    EXPECT_FALSE(settings.dark().has_value());
}

TEST_F(DesktopSettingsTest, FollowsEveryWayInWhichDesktopsSayContrast) {
    for (const auto& [space, key, on, off] :
         {std::tuple{kAppearance, "contrast", QVariant(1U), QVariant(0U)},
          std::tuple{"org.gnome.desktop.a11y.interface", "high-contrast", QVariant(true), QVariant(false)},
          std::tuple{kGnome, "gtk-theme", QVariant("HighContrastInverse"), QVariant("Adwaita")}}) {
        DesktopSettings settings;
        const QSignalSpy changed(&settings, &DesktopSettings::changed);
        tell(settings, space, key, on);
        EXPECT_TRUE(settings.highContrast()) << key;
        tell(settings, space, key, off);
        EXPECT_FALSE(settings.highContrast()) << key;
        EXPECT_EQ(changed.size(), 2) << key;
    }
}

TEST_F(DesktopSettingsTest, FollowsEveryWayInWhichDesktopsSayLessMotion) {
    for (const auto& [space, key, on, off] :
         {std::tuple{kAppearance, "reduced-motion", QVariant(1U), QVariant(0U)},
          std::tuple{kGnome, "enable-animations", QVariant(false), QVariant(true)},
          std::tuple{"org.kde.kdeglobals.KDE", "AnimationDurationFactor", QVariant("0"), QVariant("1")}}) {
        DesktopSettings settings;
        tell(settings, space, key, on);
        EXPECT_TRUE(settings.reducedMotion()) << key;
        tell(settings, space, key, off);
        EXPECT_FALSE(settings.reducedMotion()) << key;
    }
}

TEST_F(DesktopSettingsTest, ADarkGroundIsPreferredOrNotOrItIsNotSaid) {
    DesktopSettings settings;
    tell(settings, kAppearance, "color-scheme", 1U);
    EXPECT_EQ(settings.dark(), true);
    tell(settings, kAppearance, "color-scheme", 2U);
    EXPECT_EQ(settings.dark(), false);
    tell(settings, kAppearance, "color-scheme", 0U);
    EXPECT_FALSE(settings.dark().has_value());
    const QSignalSpy changed(&settings, &DesktopSettings::changed);
    tell(settings, kAppearance, "accent-color", 1U);
    tell(settings, kGnome, "clock-format", "12h");
    EXPECT_EQ(changed.size(), 0) << "what is not known here is left alone";
}

TEST_F(DesktopSettingsTest, TheSettingsFileOfGtkIsReadWhereThereIsNoPortal) {
    ASSERT_TRUE(QDir(folder.path()).mkpath("gtk-3.0"));
    QFile file(folder.filePath("gtk-3.0/settings.ini"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[Settings]\ngtk-enable-animations=0\ngtk-theme-name=HighContrast\n");
    file.close();
    const DesktopSettings settings;
    EXPECT_TRUE(settings.highContrast());
    EXPECT_TRUE(settings.reducedMotion());
}

TEST_F(DesktopSettingsTest, TheEnvironmentDecides) {
    const Variable contrast("ZOREL_CONTRAST", "more");
    const Variable motion("ZOREL_MOTION", "normal");
    DesktopSettings settings;
    tell(settings, kGnome, "enable-animations", false);
    EXPECT_TRUE(settings.highContrast());
    EXPECT_FALSE(settings.reducedMotion());
}

TEST_F(DesktopSettingsTest, TheWindowFollows) {
    Host host;
    test::TestPane pane;
    UINavigationController navigation(pane);
    host.show(navigation);
    Window window(host, QSize(390, 780));
    test::Screen screen(window);
    window.show();
    ASSERT_TRUE(test::eventually([&] { return screen.text("Alpha") != nullptr; }));
    const QColor usual = screen.picture().pixelColor(4, 300);
    tell(host.desktop(), kAppearance, "contrast", 1U);
    EXPECT_EQ(screen.picture().pixelColor(4, 300), QColor(Qt::white));
    EXPECT_NE(usual, QColor(Qt::white));
    tell(host.desktop(), kAppearance, "color-scheme", 1U);
    EXPECT_EQ(screen.picture().pixelColor(4, 300), QColor(Qt::black));
    tell(host.desktop(), kGnome, "enable-animations", false);
    screen.tap(*screen.text("Open"));
    EXPECT_TRUE(test::eventually([&] { return screen.text("Alpha") == nullptr; }));
    const QQuickItem* title = screen.text("All");
    EXPECT_NE(title, nullptr) << "the next screen is there without sliding";
}

} // namespace
} // namespace zorel
