// SPDX-License-Identifier: Apache-2.0
// What stands above the editor of an alarm, its short ways, and the ringtone that can be listened to.
#include "tests/host/PaneScreen.h"
#include "tests/host/Reader.h"

#include <QFile>
#include <gtest/gtest.h>

namespace zorel {
namespace {

using test::eventually;

class AlarmEditorTest : public test::PaneScreen {
protected:
    /// The editor of Maghrib (19:10), the next prayer, by a person with a home city.
    void openEditor(bool on) {
        open();
        first->useSuggestion();
        if (on) {
            first->alarms()->toggle(4);
        }
        pane->table().userSelectsRow({1, 4});
        ASSERT_TRUE(eventually([this] { return editor().open(); }));
        QTest::qWait(400);
    }
    [[nodiscard]] AlarmEditor& editor() const { return *first->editor(); }
    [[nodiscard]] int offset() const { return pane->dbFuncs().getAlarmInfo(204).timeOffset; }
    [[nodiscard]] QQuickItem* chip(const QString& name) const {
        return screen->find(
            [&](QQuickItem& item) { return item.property("name") == name && item.inherits("QQuickItem"); });
    }
};

TEST_F(AlarmEditorTest, NamesThePrayerItsTimeAndTheNextRing) {
    openEditor(true);
    EXPECT_EQ(editor().name(), "Maghrib");
    EXPECT_EQ(editor().time(), first->today()->six().value(4).toMap()["time"].toString());
    see("Maghrib  " + editor().time());
    EXPECT_EQ(editor().text(), "rings today " + editor().time());
    see("Rings today " + editor().time());
    host->back();
    EXPECT_FALSE(editor().open());
    close();
}

TEST_F(AlarmEditorTest, AQuickOffsetTurnsTheWheelAndTheHeadFollows) {
    openEditor(true);
    const QQuickItem* quarter = chip("15 min before");
    ASSERT_NE(quarter, nullptr);
    screen->tap(*quarter);
    EXPECT_EQ(offset(), -15);
    EXPECT_EQ(pane->alarmView().pickerTime().selectedRow(), 44);
    EXPECT_NE(editor().text(), "rings today " + editor().time());
    EXPECT_TRUE(test::Reader(*window).says("radio button: 15 min before, checked"));
    screen->tap(*chip("At prayer time"));
    EXPECT_EQ(offset(), 0);
    screen->tap(*chip("10 min after"));
    EXPECT_EQ(offset(), 10);
    close();
}

TEST_F(AlarmEditorTest, WhatAnOffsetWouldDoIsSaidWhileTheWheelTurns) {
    openEditor(true);
    const QString now = editor().text();
    editor().pass(29);
    EXPECT_NE(editor().text(), now);
    EXPECT_TRUE(editor().text().startsWith("rings today ")) << editor().text().toStdString();
    EXPECT_EQ(offset(), 0) << "nothing is stored yet";
    editor().rest();
    EXPECT_EQ(editor().text(), now);
    QQuickItem* wheel = screen->showing(pane->alarmView().pickerTime());
    ASSERT_NE(wheel, nullptr);
    screen->drag(test::Screen::centre(*wheel), {0, 90});
    EXPECT_TRUE(eventually([this] { return offset() < 0; }));
    EXPECT_TRUE(eventually([&] { return editor().text() != now; }));
    close();
}

TEST_F(AlarmEditorTest, TheWheelsRestWhileTheAlarmIsOff) {
    openEditor(false);
    see("Off. Switch it on to choose when and how it rings.");
    screen->tap(*chip("15 min before"));
    editor().chooseOffset(-15);
    EXPECT_EQ(pane->alarmView().timeOffset(), 0);
    QQuickItem* wheel = screen->showing(pane->alarmView().pickerTime());
    ASSERT_NE(wheel, nullptr);
    screen->drag(test::Screen::centre(*wheel), {0, 90});
    screen->notches(*wheel, 1);
    screen->key(Qt::Key_Down);
    screen->key(Qt::Key_Left);
    QTest::qWait(300);
    EXPECT_EQ(pane->alarmView().timeOffset(), 0) << "nothing that would be lost can be chosen";
    screen->tap(*screen->showing(pane->alarmView().alarmEnabled()));
    EXPECT_TRUE(editor().on());
    screen->key(Qt::Key_Down);
    screen->key(Qt::Key_Left);
    EXPECT_EQ(offset(), -1) << "once it is on, they turn";
    close();
}

class TonePreviewTest : public testing::Test {
protected:
    /// A stand-in for the program that plays.
    QString program(const QByteArray& script) {
        const QString path = folder.filePath("play");
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\n" + script);
        file.close();
        file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        return path;
    }
    [[nodiscard]] QByteArray written() const {
        QFile file(folder.filePath("words"));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir folder;
};

TEST_F(TonePreviewTest, PlaysForSomeSeconds) {
    TonePreview preview(program("echo \"$@\" > " + folder.filePath("words").toUtf8()));
    preview.play("/tones/Dawn Bell.wav");
    EXPECT_TRUE(preview.playing());
    EXPECT_TRUE(eventually([&] { return !preview.playing(); }));
    EXPECT_FALSE(preview.failed());
    EXPECT_EQ(written(), "--seconds 6 /tones/Dawn Bell.wav\n");
}

TEST_F(TonePreviewTest, StopsWhenAsked) {
    TonePreview preview(program("exec sleep 60"));
    preview.play("a");
    ASSERT_TRUE(preview.playing());
    preview.stop();
    EXPECT_TRUE(eventually([&] { return !preview.playing(); }));
    EXPECT_FALSE(preview.failed()) << "that it was stopped is no failure";
    preview.play("b");
    preview.play("c");
    EXPECT_TRUE(preview.playing()) << "one instead of the other";
}

TEST_F(TonePreviewTest, SaysThatItCouldNotBePlayed) {
    TonePreview preview(program("exit 5"));
    preview.play("a");
    EXPECT_TRUE(eventually([&] { return preview.failed(); }));
    TonePreview missing(folder.filePath("nothing"));
    missing.play("a");
    EXPECT_TRUE(eventually([&] { return missing.failed(); }));
    TonePreview without{QString()};
    without.play("a");
    EXPECT_FALSE(without.available());
    EXPECT_FALSE(without.playing());
}

} // namespace
} // namespace zorel
