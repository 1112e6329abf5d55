// SPDX-License-Identifier: Apache-2.0
#include "host/Freshness.h"

#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <chrono>

namespace zorel {
namespace {

class FreshnessTest : public testing::Test {
protected:
    void write(int second) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::Append));
        file.write("x");
        file.flush();
        ASSERT_TRUE(
            file.setFileTime(QDateTime::fromSecsSinceEpoch(second), QFileDevice::FileModificationTime));
    }

    QTemporaryDir folder;
    QString path = folder.filePath("file");
    TimeZoneOverride zone{"Europe/Istanbul"};
    Instant moment = instantFromLocal({.year = 2026, .month = 3, .day = 4, .hour = 23, .minute = 59});
    ClockOverride clock{[this] { return moment; }};
    int renewed = 0;
    Freshness freshness{path, [this] { ++renewed; }};
};

TEST_F(FreshnessTest, ANewDayIsSaidOnce) {
    freshness.look(false);
    EXPECT_EQ(renewed, 0);
    moment += std::chrono::minutes(1);
    freshness.look(false);
    freshness.look(false);
    EXPECT_EQ(renewed, 1);
}

TEST_F(FreshnessTest, AFileThatWasWrittenIsSaidWhenTheWindowComesToTheFront) {
    write(1'000'000);
    freshness.look(false);
    EXPECT_EQ(renewed, 0) << "nothing moves while the window is in use";
    emit qGuiApp->applicationStateChanged(Qt::ApplicationActive);
    EXPECT_EQ(renewed, 1);
    emit qGuiApp->applicationStateChanged(Qt::ApplicationActive);
    EXPECT_EQ(renewed, 1);
    write(2'000'000);
    emit qGuiApp->applicationStateChanged(Qt::ApplicationInactive);
    EXPECT_EQ(renewed, 1);
    emit qGuiApp->applicationStateChanged(Qt::ApplicationActive);
    EXPECT_EQ(renewed, 2);
}

} // namespace
} // namespace zorel
