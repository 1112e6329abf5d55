// SPDX-License-Identifier: Apache-2.0
// What the rows and the first page say of the alarms, and whether somebody rings.
#include "tests/host/PaneScreen.h"

#include "host/RingCheck.h"

#include <QFile>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace zorel {
namespace {

using test::eventually;

class AlarmRowsTest : public test::PaneScreen {
protected:
    void openWithHome() {
        open({1040, 760});
        first->useSuggestion();
    }
    [[nodiscard]] QVariantMap row(int index) const { return first->alarms()->rows().value(index).toMap(); }
};

TEST_F(AlarmRowsTest, WithoutACityThereIsNothingToSay) {
    open();
    EXPECT_TRUE(first->alarms()->rows().empty());
    EXPECT_EQ(first->alarms()->next()["text"].toString(), "");
    EXPECT_FALSE(first->alarms()->anyOn());
    close();
}

TEST_F(AlarmRowsTest, TheSwitchOfARowDoesWhatThatOfTheEditorDoes) {
    openWithHome();
    EXPECT_EQ(row(4)["text"].toString(), "off");
    EXPECT_EQ(first->alarms()->next()["text"].toString(), "Its alarm is off");
    first->alarms()->toggle(4); // Maghrib, the next prayer
    EXPECT_TRUE(pane->dbFuncs().getAlarmInfo(204).active);
    EXPECT_TRUE(row(4)["on"].toBool());
    EXPECT_EQ(row(4)["text"].toString(), "rings today " + row(4)["time"].toString());
    EXPECT_TRUE(first->alarms()->next()["rings"].toBool());
    see("Rings today " + row(4)["time"].toString());
    EXPECT_EQ(QDir(folder.filePath("calendar")).entryList({"*.ics"}, QDir::Files).size(), 1);
    first->alarms()->toggle(4);
    EXPECT_FALSE(pane->dbFuncs().getAlarmInfo(204).active);
    EXPECT_EQ(row(4)["text"].toString(), "off");
    close();
}

TEST_F(AlarmRowsTest, AnAlarmThatRingsTomorrowSaysSo) {
    openWithHome();
    first->alarms()->toggle(0); // Fajr has passed
    EXPECT_TRUE(row(0)["text"].toString().startsWith("rings tomorrow 0"))
        << row(0)["text"].toString().toStdString();
    EXPECT_TRUE(first->alarms()->anyOn());
    close();
}

TEST_F(AlarmRowsTest, WhatIsLeftOutIsSaid) {
    openWithHome();
    first->alarms()->toggle(4);
    const QString time = row(4)["time"].toString();
    EXPECT_TRUE(pane->actions().skipNext(204).isDone());
    pane->loadAllUserCities();
    first->alarms()->follow();
    EXPECT_TRUE(row(4)["text"].toString().startsWith("rings tomorrow 1"))
        << row(4)["text"].toString().toStdString();
    EXPECT_TRUE(row(4)["text"].toString().endsWith("skips today " + time))
        << row(4)["text"].toString().toStdString();
    const auto until = std::chrono::floor<std::chrono::seconds>(now()) + std::chrono::days(4);
    EXPECT_TRUE(pane->actions().pauseUntil(until).isDone());
    pane->loadAllUserCities();
    first->alarms()->follow();
    EXPECT_TRUE(row(4)["text"].toString().contains("paused until "))
        << row(4)["text"].toString().toStdString();
    EXPECT_FALSE(row(4)["text"].toString().contains("skips"));
    EXPECT_TRUE(row(4)["rings"].toBool());
    close();
}

TEST_F(AlarmRowsTest, AFingerOnTheSwitchAndTheSpaceBarToggle) {
    openWithHome();
    QTest::qWait(200);
    const QQuickItem* toggle =
        screen->find([](QQuickItem& item) { return item.property("name") == "Alarm Asr"; });
    ASSERT_NE(toggle, nullptr);
    screen->tap(*toggle);
    EXPECT_TRUE(pane->dbFuncs().getAlarmInfo(203).active);
    EXPECT_EQ(navigation->topViewController(), pane.get()) << "the editor stays closed";
    close();
}

TEST_F(AlarmRowsTest, ACalendarThatCannotBeWrittenPutsTheSwitchBackAndSaysWhy) {
    openWithHome();
    QFile(folder.filePath("calendar")).remove();
    QDir(folder.filePath("calendar")).removeRecursively();
    QFile blocked(folder.filePath("calendar"));
    ASSERT_TRUE(blocked.open(QIODevice::WriteOnly));
    const QSignalSpy said(host.get(), &Host::announced);
    first->alarms()->toggle(4);
    EXPECT_FALSE(row(4)["on"].toBool());
    EXPECT_FALSE(pane->dbFuncs().getAlarmInfo(204).active);
    EXPECT_TRUE(row(4)["bad"].toBool());
    EXPECT_TRUE(row(4)["text"].toString().startsWith("This could not be done and was taken back:"))
        << row(4)["text"].toString().toStdString();
    see(row(4)["text"].toString());
    EXPECT_EQ(said.size(), 1) << "and told to a screen reader";
    QFile(folder.filePath("calendar")).remove();
    first->alarms()->toggle(4);
    EXPECT_TRUE(row(4)["on"].toBool());
    EXPECT_FALSE(row(4)["bad"].toBool()) << "the reason is gone with the next use";
    close();
}

class RingCheckTest : public testing::Test {
protected:
    /// A stand-in that answers as zorel-ring does.
    QString program(const QByteArray& script) {
        const QString path = folder.filePath("ring");
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\n" + script);
        file.close();
        file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        return path;
    }

    QTemporaryDir folder;
};

TEST_F(RingCheckTest, TellsAServiceThatRingsTheseAlarms) {
    RingCheck check(program("printf 'next\\tnever\\ndata\\t/my/data\\n'"), "/my/data");
    int changes = 0;
    QObject::connect(&check, &RingCheck::changed, [&] { ++changes; });
    check.ask();
    QTest::qWait(500);
    EXPECT_FALSE(check.missing());
    EXPECT_EQ(changes, 0);
}

TEST_F(RingCheckTest, TellsThatNobodyRingsAndStartsIt) {
    const QByteArray mark = folder.filePath("started").toUtf8();
    RingCheck check(program("if [ \"$1\" = --start ]; then touch " + mark + "; exit 0; fi\n[ -e " + mark +
                            " ] && printf 'data\\t/my/data\\n'"),
                    "/my/data");
    EXPECT_FALSE(check.missing()) << "not known yet";
    check.ask();
    EXPECT_TRUE(eventually([&] { return check.missing(); }));
    check.start();
    EXPECT_TRUE(eventually([&] { return !check.missing(); }));
}

TEST_F(RingCheckTest, AServiceForOtherDataDoesNotRingThese) {
    RingCheck check(program("printf 'data\\t/other\\n'"), "/my/data");
    check.ask();
    EXPECT_TRUE(eventually([&] { return check.missing(); }));
}

TEST_F(RingCheckTest, WithoutTheProgramNothingIsClaimed) {
    RingCheck check({}, "/my/data");
    check.ask();
    check.start();
    EXPECT_FALSE(check.missing());
}

} // namespace
} // namespace zorel
