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
    std::string moment = "one day";
    int renewed = 0;
    Freshness freshness{path, [this] { return moment; }, [this] { ++renewed; }};
};

TEST_F(FreshnessTest, ANewMomentIsSaidOnce) {
    freshness.look(false);
    EXPECT_EQ(renewed, 0);
    moment = "another day";
    freshness.look(false);
    freshness.look(false);
    EXPECT_EQ(renewed, 1);
}

TEST_F(FreshnessTest, AClockThatWasSetIsSaidOnce) {
    freshness.look(false);
    EXPECT_EQ(renewed, 0);
    for (const auto set : {std::chrono::hours{2}, -std::chrono::hours{3}}) {
        renewed = 0;
        const ClockOverride clock(now() + set);
        freshness.look(false);
        freshness.look(false);
        EXPECT_EQ(renewed, 1) << set.count();
        const Instant before = now();
        const ClockOverride steered(before + std::chrono::seconds{3});
        freshness.look(false);
        EXPECT_EQ(renewed, 1);
    }
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
