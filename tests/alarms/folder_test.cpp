// SPDX-License-Identifier: Apache-2.0
// The alarms with the calendar folder in every state that a user or another program may leave it in.
#include "tests/alarms/CalendarFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

namespace zorel {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class AlarmFolder : public testing::Test {
protected:
    void place(double prayerTime = 13.0) {
        world.functions.updateAlarmDefinitions(202, 0, prayerTime, "Chime", 1);
    }
    [[nodiscard]] std::string eventPath() const { return folder + "/" + world.row(3).eventId + ".ics"; }

    ClockOverride clock{test::localInstant(2026, 11, 20, 12, 0)};
    test::AlarmWorld world;
    std::string folder = world.path("calendar");
};

TEST_F(AlarmFolder, TheFolderIsMadeWithTheFirstAlarm) {
    world.functions.clearAllAlarms(true);
    EXPECT_FALSE(fs::exists(folder));
    place();
    test::expectInStep(world, "first alarm");
}

TEST_F(AlarmFolder, AFolderThatTheUserDeletedIsMadeAgain) {
    place();
    const std::string identifier = world.row(3).eventId;
    fs::remove_all(folder);
    place();
    test::expectInStep(world, "folder deleted");
    EXPECT_NE(world.row(3).eventId, identifier);
}

TEST_F(AlarmFolder, RecomputingTwiceDoesNotTouchTheFile) {
    place();
    const std::string text = test::readFile(eventPath());
    const auto written = fs::last_write_time(eventPath());
    const ClockOverride later(test::localInstant(2026, 11, 20, 12, 30));
    world.functions.reCalculateAlarm(202);
    EXPECT_EQ(test::readFile(eventPath()), text);
    EXPECT_EQ(fs::last_write_time(eventPath()), written);
}

TEST_F(AlarmFolder, AMovedAlarmRaisesTheSequence) {
    place();
    place(14.0);
    EXPECT_THAT(test::readFile(eventPath()), HasSubstr("SEQUENCE:1\r\n"));
    test::expectInStep(world, "moved");
}

TEST_F(AlarmFolder, TheLastMinuteOfTheDayIsNotLost) {
    place(23.0 + 59.5 / 60.0);
    const std::string text = test::readFile(eventPath());
    const auto event = eventFromIcs(text);
    ASSERT_TRUE(event);
    EXPECT_EQ(test::localText(event->startDate), "2026-11-20 23:59");
    EXPECT_EQ(test::localText(event->endDate), "2026-11-21 00:00");
}

TEST_F(AlarmFolder, ABrokenEventFileIsLeftAloneAndTheAlarmGetsAnotherOne) {
    place();
    const std::string path = eventPath();
    test::writeFile(path, "BEGIN:VCALENDAR\r\nBEGIN:VEV");
    test::writeFile(folder + "/other.ics", "BEGIN:VCALENDAR\r\nBEGIN:VEV");
    place();
    EXPECT_NE(eventPath(), path);
    EXPECT_TRUE(fs::exists(eventPath()));
    EXPECT_EQ(test::readFile(folder + "/other.ics"), "BEGIN:VCALENDAR\r\nBEGIN:VEV");
}

TEST_F(AlarmFolder, AFolderInThePlaceOfAnEventDoesNotStopTheAlarm) {
    place();
    const std::string path = eventPath();
    fs::remove(path);
    fs::create_directory(path);
    place();
    EXPECT_NE(eventPath(), path);
    EXPECT_TRUE(fs::is_regular_file(eventPath()));
    EXPECT_TRUE(fs::is_directory(path));
}

TEST_F(AlarmFolder, AFileInThePlaceOfTheFolderLeavesTheRowsAsWithARefusingCalendar) {
    test::writeFile(folder, "not a folder");
    place();
    EXPECT_TRUE(world.row(3).active);
    EXPECT_EQ(world.row(3).eventId, "");
    fs::remove(folder);
    place();
    test::expectInStep(world, "folder possible again");
}

TEST_F(AlarmFolder, AUserWhoMayNotWriteInTheFolderGetsNoEvent) {
    if (geteuid() == 0) {
        // Root may write anywhere; a folder on a file system that refuses everyone stands in for the
        // forbidden one.
        fs::create_directory_symlink("/proc/self/task", folder);
    } else {
        fs::create_directory(folder);
        fs::permissions(folder, fs::perms(0555));
    }
    place();
    EXPECT_TRUE(world.row(3).active);
    EXPECT_EQ(world.row(3).eventId, "");
    if (geteuid() != 0) {
        fs::permissions(folder, fs::perms(0755));
    }
}

} // namespace
} // namespace zorel
