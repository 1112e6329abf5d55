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
    almanac::Date today{std::chrono::year{2026}, std::chrono::March, std::chrono::day{4}};
    int renewed = 0;
    Freshness freshness{path, [this] { return today; }, [this] { ++renewed; }};
};

TEST_F(FreshnessTest, ANewDayIsSaidOnce) {
    freshness.look(false);
    EXPECT_EQ(renewed, 0);
    today = almanac::addDays(today, 1);
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
