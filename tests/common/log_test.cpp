// SPDX-License-Identifier: Apache-2.0
#include "common/GlobalFuncs.h"
#include "platform/foundation/Clock.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sstream>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zorel {
namespace {

class Log : public testing::Test {
protected:
    [[nodiscard]] std::string path() const { return locations_.folder.path("SettingsLog.txt"); }
    [[nodiscard]] std::string content() const { return test::readFile(path()); }
    [[nodiscard]] std::string older() const {
        return test::readFile(locations_.folder.path("SettingsLog.1.txt"));
    }

    test::TemporaryLocations locations_;
    GlobalFuncs functions_;
    TimeZoneOverride zone_{"UTC"};
    ClockOverride clock_{std::chrono::sys_days(std::chrono::year(2024) / 1 / 1) + std::chrono::hours(7) +
                         std::chrono::minutes(5)};
};

TEST_F(Log, AppendsLinesInTheOrderOfTheCalls) {
    functions_.NSLogToFile("first");
    functions_.NSLogToFile("second, İkindi");
    EXPECT_EQ(content(), "[2024-01-01 07:05:00] first\n[2024-01-01 07:05:00] second, İkindi\n");
}

TEST_F(Log, StartsWithTheLocalDateAndTime) {
    const TimeZoneOverride kathmandu("Asia/Kathmandu");
    functions_.NSLogToFile("");
    EXPECT_EQ(content(), "[2024-01-01 12:50:00] \n");
}

TEST_F(Log, FormatsNumbersTheSameInEveryLocale) {
    functions_.NSLogToFileStrInt("alarm", -7);
    functions_.NSLogToFileStrIntInt("row", 1, 2);
    functions_.NSLogToFileStrFloat("time", 13.5);
    functions_.NSLogToFileStrFloatFloat("place", 41.0082, -28.9784);
    EXPECT_EQ(content(), "[2024-01-01 07:05:00] alarm -7\n[2024-01-01 07:05:00] row 1, 2\n[2024-01-01 "
                         "07:05:00] time 13.500000\n"
                         "[2024-01-01 07:05:00] place 41.008200, -28.978400\n");
}

TEST_F(Log, TakesMessagesAsTheyAre) {
    functions_.NSLogToFile("100 % {} %s %d \"quoted\"");
    EXPECT_EQ(content(), "[2024-01-01 07:05:00] 100 % {} %s %d \"quoted\"\n");
}

TEST_F(Log, KeepsWhatIsThere) {
    test::writeFile(path(), "earlier\n");
    functions_.setDebugState(9);
    functions_.NSLogToFile("later");
    EXPECT_EQ(content(), "earlier\n[2024-01-01 07:05:00] later\n");
}

TEST_F(Log, FailsInSilence) {
    Locations::current().data = locations_.folder.path("missing");
    functions_.NSLogToFile("lost");
    EXPECT_FALSE(fileExistsAtPath(Locations::current().data));
    Locations::current().data = locations_.folder.path();
    std::filesystem::create_directory(path());
    functions_.NSLogToFile("lost");
    EXPECT_TRUE(std::filesystem::is_directory(path()));
}

TEST_F(Log, IsNotHeldUpByAPipe) {
    ASSERT_EQ(mkfifo(path().c_str(), 0600), 0);
    functions_.NSLogToFile("lost");
    EXPECT_TRUE(std::filesystem::is_fifo(path()));
}

TEST_F(Log, StaysBelow256KiBAndKeepsTheNewestLines) {
    for (int line = 0; line < 10'000; ++line) {
        functions_.NSLogToFileStrInt(std::string(100, 'x'), line);
        ASSERT_LE(std::filesystem::file_size(path()), 128U * 1024);
    }
    EXPECT_TRUE(content().ends_with(" 9999\n"));
    const std::string all = older() + content();
    EXPECT_GT(all.size(), 128U * 1024);
    EXPECT_LE(all.size(), 256U * 1024);
    const std::string last = "x 9000\n";
    EXPECT_NE(all.find(last), std::string::npos) << "no line is lost between the two";
    functions_.NSLogToFile(std::string(500'000, 'y'));
    EXPECT_LE(std::filesystem::file_size(path()), 128U * 1024);
}

TEST_F(Log, KeepsTheLinesOfSeveralProcessesWhole) {
    constexpr int kProcesses = 4;
    constexpr int kLines = 200;
    for (int process = 0; process < kProcesses; ++process) {
        if (fork() == 0) {
            for (int line = 0; line < kLines; ++line) {
                functions_.NSLogToFile(std::string(300, static_cast<char>('a' + process)));
            }
            _exit(0);
        }
    }
    while (wait(nullptr) > 0) {
    }
    std::istringstream lines(older() + content());
    int count = 0;
    for (std::string line; std::getline(lines, line); ++count) {
        EXPECT_EQ(line, "[2024-01-01 07:05:00] " + std::string(300, line.back()));
    }
    EXPECT_EQ(count, kProcesses * kLines);
}

} // namespace
} // namespace zorel
