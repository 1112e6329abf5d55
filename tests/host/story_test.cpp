// SPDX-License-Identifier: Apache-2.0
// One whole story with the real pane, the real catalogue, a database and a calendar folder of its own.
#include "tests/host/PaneScreen.h"
#include "tests/host/Reader.h"

#include <QRegularExpression>

namespace zorel {
namespace {

using test::eventually;

class Story : public test::PaneScreen {
protected:
    Story() { withFirstPage = false; }

    void addCityAndGoBack(const QString& typed, const QString& name) {
        addCity(typed, name);
        goBack();
    }
    [[nodiscard]] int events() const {
        return static_cast<int>(QDir(folder.filePath("calendar")).entryList({"*.ics"}, QDir::Files).size());
    }
    [[nodiscard]] bool showsPart(const QString& part) {
        return screen->find([&](QQuickItem& item) {
            return item.property("text").toString().contains(part);
        }) != nullptr;
    }
};

TEST_F(Story, ACityIsAddedItsAlarmSetMovedAndAllOfItRemovedAgain) {
    open();
    see("No city added yet");

    addCityAndGoBack("Ankara", "Ankara");
    ASSERT_EQ(pane->userCities().size(), 1U);
    EXPECT_EQ(pane->homeCity()->name, "Ankara");
    EXPECT_TRUE(eventually([this] { return screen->text("No city added yet") == nullptr; }));

    tapText("Isha");
    ASSERT_TRUE(eventually([this] { return screen->showing(pane->alarmView().alarmEnabled()) != nullptr; }));
    QTest::qWait(300);
    screen->tap(*screen->showing(pane->alarmView().alarmEnabled()));
    EXPECT_TRUE(pane->dbFuncs().getAlarmInfo(205).active);
    EXPECT_EQ(events(), 1);

    screen->key(Qt::Key_Down);
    screen->key(Qt::Key_Left);
    EXPECT_EQ(pane->dbFuncs().getAlarmInfo(205).timeOffset, -1) << "a step of the wheel moves the alarm";
    EXPECT_EQ(events(), 1);
    screen->key(Qt::Key_Escape);
    EXPECT_TRUE(eventually([this] { return showsPart(" · Alarm "); })) << "the row says when it rings";

    addCityAndGoBack("Konya", "Konya");
    ASSERT_EQ(pane->userCities().size(), 2U);
    EXPECT_EQ(pane->homeCity()->name, "Ankara");

    // The second city's Home button.
    ASSERT_NE(homeButton(1), nullptr);
    screen->tap(*homeButton(1));
    EXPECT_EQ(pane->homeCity()->name, "Konya");
    EXPECT_EQ(events(), 1) << "the alarm moved with the home city";

    for (int left = 2; left > 0; --left) {
        ASSERT_NE(homeButton(0), nullptr);
        screen->drag(test::Screen::centre(*homeButton(0)), {-150, 0});
        tapText("Delete");
        EXPECT_EQ(pane->userCities().size(), static_cast<std::size_t>(left)) << "there is time to undo it";
        host->finish();
        QTest::qWait(200);
        EXPECT_EQ(pane->userCities().size(), static_cast<std::size_t>(left - 1));
    }
    see("No city added yet");
    EXPECT_EQ(events(), 0);
    EXPECT_FALSE(pane->dbFuncs().getAlarmInfo(205).active);
    close();
}

TEST_F(Story, AnAlarmWithoutACityIsRefusedWithAMessage) {
    open();
    tapText("Dhuhr");
    ASSERT_TRUE(eventually([this] { return screen->showing(pane->alarmView().alarmEnabled()) != nullptr; }));
    QTest::qWait(300);
    screen->tap(*screen->showing(pane->alarmView().alarmEnabled()));
    EXPECT_FALSE(pane->alarmView().alarmEnabled().isOn());
    const QString message = QString::fromStdString(*pane->glbFuncs().GetKeyValue(1022));
    EXPECT_TRUE(eventually([&] {
        return screen->find([&](QQuickItem& item) {
            const auto* handle = item.property("handle").value<ViewHandle*>();
            return handle != nullptr && handle->kind() == "plain" && handle->spoken() == message;
        }) != nullptr;
    }));
    close();
}

TEST_F(Story, ASearchWithoutResultsSaysSoAndTheKeyboardReachesTheResults) {
    open();
    tapAdd();
    see("City Search");
    screen->key(Qt::Key_Return);
    EXPECT_EQ(screen->text("Nothing found"), nullptr) << "nothing was searched for";
    screen->type("Qq");
    see("three letters, please");
    screen->type("zzxx");
    EXPECT_EQ(screen->text("Nothing found"), nullptr);
    EXPECT_EQ(screen->text("three letters, please"), nullptr);
    screen->key(Qt::Key_Return);
    see("Nothing found");
    screen->key(Qt::Key_Backspace);
    EXPECT_EQ(screen->text("Nothing found"), nullptr);
    for (int letter = 0; letter < 5; ++letter) {
        screen->key(Qt::Key_Backspace);
    }
    screen->type("isparta");
    screen->key(Qt::Key_Return);
    see("Isparta");
    EXPECT_EQ(screen->text("Nothing found"), nullptr);
    screen->key(Qt::Key_Down);
    EXPECT_TRUE(test::Reader(*window).says("item: Isparta, Türkiye, focused"));
    screen->key(Qt::Key_Up);
    EXPECT_TRUE(test::Reader(*window).says("edit: Search for a city, focused"));
    screen->key(Qt::Key_Down);
    screen->key(Qt::Key_Return);
    screen->key(Qt::Key_Return);
    ASSERT_EQ(pane->userCities().size(), 1U);
    close();
}

TEST_F(Story, TheSearchFollowsTheTypingAndMarksWhatIsThere) {
    open();
    tapAdd();
    see("City Search");
    QTest::qWait(300);
    screen->type("colog");
    see("North Rhine-Westphalia, Germany");
    tapText("Köln — Cologne");
    QTest::qWait(300);
    EXPECT_EQ(host->sheetTitle(), "Köln — Cologne / North Rhine-Westphalia / Germany");
    tapText("Add city");
    see("North Rhine-Westphalia, Germany ✓");
    ASSERT_EQ(pane->userCities().size(), 1U);
    close();
}

TEST_F(Story, AScreenReaderIsToldTheHomeCityAndTheAlarm) {
    open();
    addCityAndGoBack("Ankara", "Ankara");
    addCityAndGoBack("Konya", "Konya");
    QTest::qWait(300);
    const test::Reader cities(*window);
    for (const char* line :
         {"button: Cities, Add city, focused", "radio button: Ankara, Home city, Türkiye, checked",
          "radio button: Konya, Home city, Türkiye", "heading: Prayer time alarms"}) {
        EXPECT_TRUE(cities.says(line)) << line << " among\n" << cities.lines().join('\n').toStdString();
    }
    EXPECT_EQ(cities.lines().filter(QRegularExpression("^item: Isha, \\d\\d:\\d\\d$")).size(), 1);
    tapText("Isha");
    ASSERT_TRUE(eventually([this] { return screen->showing(pane->alarmView().alarmEnabled()) != nullptr; }));
    QTest::qWait(300);
    const test::Reader alarm(*window);
    for (const char* line :
         {"button: Back", "list: Alarm", "check box: Alarm, focused", "combo box: Alarm time, At prayer time",
          "combo box: Ringing duration, 5 seconds"}) {
        EXPECT_TRUE(alarm.says(line)) << line << " among\n" << alarm.lines().join('\n').toStdString();
    }
    close();
}

TEST_F(Story, WhatWasSetIsThereAfterARestart) {
    open();
    addCityAndGoBack("Edirne", "Edirne");
    close();
    open();
    ASSERT_EQ(pane->userCities().size(), 1U);
    EXPECT_EQ(pane->homeCity()->name, "Edirne");
    close();
}

} // namespace
} // namespace zorel
