// SPDX-License-Identifier: Apache-2.0
/// @file
/// The real pane in a window, with the real catalogue, a database and a calendar folder of its own.
#pragma once

#include "tests/host/Screen.h"

#include "host/FirstPage.h"
#include "platform/foundation/Clock.h"
#include "platform/foundation/Locale.h"
#include "platform/foundation/Locations.h"
#include "settings/ZorelSettingsController.h"
#include "store/DatabaseFunctions.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <memory>

namespace zorel::test {

class PaneScreen : public testing::Test {
protected:
    PaneScreen() {
        Locations& places = Locations::current();
        places.bundle = ZOREL_BINARY_DIR "/share/zorel/Zorel.bundle";
        places.ringtones = ZOREL_SOURCE_DIR "/resources/Ringtones";
        places.data = folder.path().toStdString();
    }
    ~PaneScreen() override { Locations::current() = Locations(); }

    void open(QSize size = {390, 780}) {
        host = std::make_unique<Host>();
        host->setScreenSize(size.width(), size.height());
        pane = std::make_unique<ZorelSettingsController>();
        navigation = std::make_unique<UINavigationController>(*pane);
        host->show(*navigation);
        if (withFirstPage) {
            first = std::make_unique<FirstPage>(*host, *pane, true);
            host->setFirstPage(first.get());
        }
        window = std::make_unique<Window>(*host, size);
        screen = std::make_unique<Screen>(*window);
        window->show();
        window->requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        ASSERT_TRUE(eventually([this] { return screen->showing(pane->cityHeaderView()) != nullptr; }));
    }
    void close() {
        host->finish();
        window.reset();
        first.reset();
        navigation.reset();
        pane.reset();
        host.reset();
    }
    void see(const QString& text) {
        ASSERT_TRUE(eventually([&] { return screen->text(text) != nullptr; })) << text.toStdString();
    }
    /// Taps a text once the screen that it belongs to has come to rest.
    void tapText(const QString& text) {
        see(text);
        QTest::qWait(300);
        screen->tap(*screen->text(text));
    }
    void tapAdd() {
        const QQuickItem* button = screen->showing(pane->cityHeaderView().buttonAdd());
        ASSERT_NE(button, nullptr);
        screen->tap(*button);
    }
    /// The Home button of a city's row; nullptr where it is not on show.
    [[nodiscard]] const QQuickItem* homeButton(int row) const {
        const UIView* view = pane->table().cellForRowAtIndexPath({0, row})->accessoryView();
        const auto* city = dynamic_cast<const UICityView*>(view);
        return city != nullptr ? screen->showing(city->buttonHome()) : nullptr;
    }
    [[nodiscard]] QString word(std::int32_t key) const {
        return QString::fromStdString(*pane->glbFuncs().GetKeyValue(key));
    }
    /// Searches for a city and adds the one of this name and region.
    void addCity(const QString& typed, const QString& name) {
        tapAdd();
        see("City Search");
        QTest::qWait(300);
        screen->type(typed.toLower());
        screen->key(Qt::Key_Return);
        tapText(name);
        tapText(word(1025));
        QTest::qWait(200);
    }
    void goBack() { tapText(word(1030)); }

    bool withFirstPage = true;
    QTemporaryDir folder;
    LocaleOverride english{"en_US"};
    TimeZoneOverride zone{"Europe/Istanbul"};
    ClockOverride clock{Instant(std::chrono::seconds(1'790'000'000))}; // 21 September 2026, 17:13 in Istanbul
    std::unique_ptr<Host> host;
    std::unique_ptr<ZorelSettingsController> pane;
    std::unique_ptr<UINavigationController> navigation;
    std::unique_ptr<FirstPage> first;
    std::unique_ptr<Window> window;
    std::unique_ptr<Screen> screen;
};

} // namespace zorel::test
