// SPDX-License-Identifier: Apache-2.0
// The calendar folder in one file, and GNOME's source that names it.
#include "platform/eventkit/FolderCalendar.h"
#include "platform/eventkit/GnomeSource.h"
#include "platform/eventkit/OneFile.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sys/stat.h>

namespace zorel::test {
namespace {

using testing::HasSubstr;
using testing::Not;
namespace fs = std::filesystem;

EKEvent eventOf(const std::string& identifier, std::chrono::seconds at) {
    EKEvent event;
    event.eventIdentifier = identifier;
    event.title = "Prayer Alarm";
    event.startDate = Instant(at);
    event.endDate = event.startDate + std::chrono::minutes(1);
    event.alarms = {EKAlarm::alarmWithRelativeOffset(0)};
    return event;
}

struct OneFileTest : testing::Test {
    TemporaryFolder folder;
    FolderCalendar calendar{folder.path("calendar")};
    std::string error;

    OneFileTest() {
        setenv("XDG_CONFIG_HOME", folder.path("config").c_str(), 1);
        save("zorel-1-a", 1'800'000'000);
    }
    ~OneFileTest() override { unsetenv("XDG_CONFIG_HOME"); }

    void save(const std::string& identifier, int at) {
        EXPECT_TRUE(calendar.saveEvent(eventOf(identifier, std::chrono::seconds(at)), error)) << error;
    }
    [[nodiscard]] std::string oneFile() const { return readFile(oneFileOf(calendar.folder())); }
    [[nodiscard]] static std::size_t count(const std::string& text, const std::string& what) {
        std::size_t found = 0;
        for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) {
            ++found;
        }
        return found;
    }
};

TEST_F(OneFileTest, NobodyWhoDidNotAskHasIt) {
    EXPECT_FALSE(fs::exists(oneFileOf(calendar.folder())));
}

TEST_F(OneFileTest, HoldsEveryEventAndFollowsWhenChangesArePublished) {
    ASSERT_FALSE(connectGnome(calendar.folder()));
    EXPECT_EQ(count(oneFile(), "BEGIN:VEVENT\r\n"), 1U);
    save("zorel-1-b", 1'800'003'600);
    EXPECT_EQ(count(oneFile(), "BEGIN:VEVENT\r\n"), 1U) << "not yet";
    EXPECT_FALSE(calendar.isPublished());
    EXPECT_TRUE(calendar.publish(error)) << error;
    EXPECT_TRUE(calendar.isPublished());
    EXPECT_EQ(count(oneFile(), "BEGIN:VEVENT\r\n"), 2U);
    EXPECT_THAT(oneFile(), HasSubstr("DTSTART:20270115T080000Z"));
    save("zorel-1-a", 1'800'000'060);
    EXPECT_TRUE(calendar.publish(error)) << error;
    EXPECT_THAT(oneFile(), HasSubstr("DTSTART:20270115T080100Z"));
    EXPECT_THAT(oneFile(), Not(HasSubstr("DTSTART:20270115T080000Z")));
    EXPECT_TRUE(calendar.removeEvent("zorel-1-a", error));
    EXPECT_TRUE(calendar.removeEvent("zorel-1-b", error));
    EXPECT_TRUE(calendar.publish(error)) << error;
    EXPECT_EQ(count(oneFile(), "BEGIN:VEVENT\r\n"), 0U);
    EXPECT_EQ(count(oneFile(), "VCALENDAR\r\n"), 2U);
}

TEST_F(OneFileTest, WhatSaysTheSameIsNotWrittenAgain) {
    ASSERT_FALSE(connectGnome(calendar.folder()));
    const auto inode = [this] {
        struct stat status {};
        EXPECT_EQ(stat(oneFileOf(calendar.folder()).c_str(), &status), 0);
        return status.st_ino;
    };
    const auto before = inode();
    EXPECT_TRUE(calendar.publish(error)) << error;
    EXPECT_EQ(inode(), before);
}

TEST_F(OneFileTest, AnEventIsKnownByItsUidWhateverItsFileIsCalled) {
    fs::rename(folder.path("calendar/zorel-1-a.ics"), folder.path("calendar/3f2a.ics"));
    writeFile(folder.path("calendar/zorel-dentist.ics"),
              "BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nUID:dentist\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n");
    ASSERT_FALSE(writeOneFile(calendar.folder()));
    EXPECT_THAT(oneFile(), HasSubstr("UID:zorel-1-a\r\n"));
    EXPECT_THAT(oneFile(), Not(HasSubstr("dentist")));
}

TEST_F(OneFileTest, EventsOfOthersAreLeftOut) {
    writeFile(folder.path("calendar/dentist.ics"),
              "BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nUID:dentist\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n");
    ASSERT_FALSE(writeOneFile(calendar.folder()));
    EXPECT_THAT(oneFile(), Not(HasSubstr("dentist")));
}

TEST_F(OneFileTest, AFileWithoutAnEventAddsNothing) {
    writeFile(folder.path("calendar/zorel-x.ics"), "END:VEVENT\r\nBEGIN:VEVENT\r\n");
    ASSERT_FALSE(writeOneFile(calendar.folder()));
    EXPECT_EQ(count(oneFile(), "BEGIN:VEVENT\r\n"), 1U);
}

TEST_F(OneFileTest, WhatCannotBeReadIsNotTakenForNothing) {
    ASSERT_FALSE(writeOneFile(calendar.folder()));
    const std::string before = oneFile();
    fs::create_directory(folder.path("calendar/zorel-folder.ics"));
    EXPECT_TRUE(writeOneFile(calendar.folder()));
    EXPECT_EQ(oneFile(), before);
}

TEST_F(OneFileTest, AFileThatCannotBeKeptInStepIsToldByPublishing) {
    ASSERT_FALSE(connectGnome(calendar.folder()));
    fs::remove(oneFileOf(calendar.folder()));
    fs::create_directory(oneFileOf(calendar.folder()));
    EXPECT_FALSE(calendar.publish(error));
    EXPECT_THAT(error, HasSubstr("calendar.ics"));
    EXPECT_FALSE(calendar.isPublished());
}

TEST_F(OneFileTest, ASourceThatCannotBeReadIsNotTakenForNone) {
    fs::create_directories(gnomeSourcePath());
    EXPECT_FALSE(calendar.isPublished());
    EXPECT_FALSE(calendar.publish(error));
    EXPECT_THAT(error, HasSubstr("zorel-alarms.source"));
}

TEST_F(OneFileTest, AFileThatIsMissingComesAgain) {
    ASSERT_FALSE(connectGnome(calendar.folder()));
    fs::remove(oneFileOf(calendar.folder()));
    EXPECT_FALSE(calendar.isPublished());
    EXPECT_TRUE(calendar.publish(error)) << error;
    EXPECT_EQ(count(oneFile(), "BEGIN:VEVENT\r\n"), 1U);
}

TEST_F(OneFileTest, ACalendarThatGnomeDoesNotKnowHasNothingToPublish) {
    FolderCalendar other{folder.path("elsewhere/calendar")};
    EXPECT_TRUE(connectGnome(other.folder())) << "there is no folder for its file";
    EXPECT_FALSE(isGnomeConnected(other.folder())) << "else nobody would ring";
    fs::create_directory(folder.path("elsewhere"));
    ASSERT_FALSE(connectGnome(other.folder()));
    EXPECT_TRUE(isGnomeConnected(folder.path("config/../elsewhere/calendar")));
    EXPECT_FALSE(isGnomeConnected(calendar.folder()));
    EXPECT_TRUE(calendar.isPublished());
    EXPECT_TRUE(calendar.publish(error)) << error;
    EXPECT_FALSE(fs::exists(oneFileOf(calendar.folder())));
}

TEST_F(OneFileTest, GnomeIsToldOfTheFileAndForgetsItAgain) {
    EXPECT_FALSE(isGnomeConnected(calendar.folder()));
    ASSERT_FALSE(connectGnome(calendar.folder()));
    EXPECT_TRUE(isGnomeConnected(calendar.folder()));
    EXPECT_EQ(gnomeSourcePath(), folder.path("config/evolution/sources/zorel-alarms.source"));
    const std::string source = readFile(gnomeSourcePath());
    EXPECT_THAT(source, HasSubstr("CustomFile=file://" + oneFileOf(calendar.folder()) + "\n"));
    EXPECT_THAT(source, HasSubstr("[Alarms]\nIncludeMe=true\n"));
    EXPECT_EQ(count(oneFile(), "BEGIN:VEVENT\r\n"), 1U);
    ASSERT_FALSE(connectGnome(calendar.folder()));
    ASSERT_FALSE(disconnectGnome(calendar.folder()));
    EXPECT_FALSE(isGnomeConnected(calendar.folder()));
    EXPECT_FALSE(fs::exists(gnomeSourcePath()));
    EXPECT_EQ(count(oneFile(), "BEGIN:VEVENT\r\n"), 0U) << "whoever still reads it forgets the alarms";
    EXPECT_EQ(count(oneFile(), "VCALENDAR\r\n"), 2U);
    save("zorel-1-b", 1'800'003'600);
    EXPECT_TRUE(calendar.publish(error)) << error;
    EXPECT_EQ(count(oneFile(), "BEGIN:VEVENT\r\n"), 0U);
    ASSERT_FALSE(disconnectGnome(calendar.folder()));
    ASSERT_FALSE(connectGnome(calendar.folder()));
    EXPECT_EQ(count(oneFile(), "BEGIN:VEVENT\r\n"), 2U);
}

TEST_F(OneFileTest, AFolderWithOddLettersIsAUri) {
    const std::string odd = folder.path("Ümit's 100%/calendar");
    fs::create_directories(odd);
    ASSERT_FALSE(connectGnome(odd));
    EXPECT_THAT(readFile(gnomeSourcePath()), HasSubstr("/%C3%9Cmit%27s%20100%25/calendar.ics\n"));
}

TEST_F(OneFileTest, AConfigurationFolderThatCannotBeMadeIsSaid) {
    writeFile(folder.path("config"), "a file");
    EXPECT_TRUE(connectGnome(calendar.folder()));
    EXPECT_FALSE(isGnomeConnected(calendar.folder()));
    EXPECT_FALSE(fs::exists(oneFileOf(calendar.folder())));
}

} // namespace
} // namespace zorel::test
