// SPDX-License-Identifier: Apache-2.0
#include "platform/eventkit/FolderCalendar.h"
#include "tests/eventkit/SampleEvent.h"
#include "tests/support/FaultPoints.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zorel {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kUid = "zorel-a-1";

class FolderCalendarTest : public testing::Test {
protected:
    [[nodiscard]] std::string path(const std::string& name = {}) const {
        return folder + (name.empty() ? "" : "/" + name);
    }
    bool save(const EKEvent& event) { return FolderCalendar(folder).saveEvent(event, error); }
    [[nodiscard]] std::string text(const std::string& name = "zorel-a-1.ics") const {
        return test::readFile(path(name));
    }

    static EKEvent later(EKEvent event) {
        event.startDate += std::chrono::hours{1};
        event.endDate += std::chrono::hours{1};
        return event;
    }

    /// Runs the function as a user who may not write where it is forbidden (root may anywhere).
    static int asOrdinaryUser(const std::function<int()>& function) {
        const pid_t child = fork();
        if (child == 0) {
            constexpr unsigned nobody = 65534;
            const bool ordinary = geteuid() != 0 || (setgid(nobody) == 0 && setuid(nobody) == 0);
            _exit(ordinary ? function() : 120);
        }
        int status = 0;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    test::TemporaryFolder temporary;
    std::string folder = temporary.path("calendar");
    std::string error;
};

TEST_F(FolderCalendarTest, MakesTheFolderAtTheFirstSaveWithNameAndColour) {
    FolderCalendar calendar(folder);
    EXPECT_FALSE(fs::exists(folder));
    EXPECT_FALSE(calendar.eventWithIdentifier(kUid));
    EXPECT_FALSE(calendar.removeEvent(kUid, error));
    EXPECT_FALSE(fs::exists(folder));
    ASSERT_TRUE(calendar.saveEvent(sampleEvent(kUid), error)) << error;
    EXPECT_EQ(text("displayname"), "Prayer alarms");
    EXPECT_EQ(text("color"), "#008080");
    EXPECT_EQ(calendar.description(), (EKCalendar{folder, "Prayer alarms"}));
}

TEST_F(FolderCalendarTest, DoesNotNameAFolderOfTheUser) {
    fs::create_directory(folder);
    ASSERT_TRUE(save(sampleEvent(kUid)));
    EXPECT_FALSE(fs::exists(path("displayname")));
    EXPECT_FALSE(fs::exists(path("color")));
    test::writeFile(path("displayname"), "Mine");
    EXPECT_EQ(FolderCalendar(folder).description().title, "Mine");
}

TEST_F(FolderCalendarTest, NamesTheFileAfterTheUidAndKeepsIt) {
    ASSERT_TRUE(save(sampleEvent(kUid)));
    EXPECT_THAT(text(), HasSubstr("UID:zorel-a-1\r\n"));
    EXPECT_THAT(text(), HasSubstr("SEQUENCE:0\r\n"));
    ASSERT_TRUE(save(later(sampleEvent(kUid))));
    EXPECT_THAT(text(), HasSubstr("UID:zorel-a-1\r\n"));
    EXPECT_THAT(text(), HasSubstr("SEQUENCE:1\r\n"));
    EXPECT_EQ(FolderCalendar(folder).identifiersWithPrefix("").size(), 1U);
}

TEST_F(FolderCalendarTest, DoesNotWriteWhatDidNotChange) {
    EKEvent backwards = sampleEvent(kUid);
    backwards.endDate = backwards.startDate - std::chrono::hours{23};
    ASSERT_TRUE(save(backwards));
    const std::string before = text();
    struct stat first {};
    ASSERT_EQ(stat(path("zorel-a-1.ics").c_str(), &first), 0);
    {
        const ClockOverride tomorrow(now() + std::chrono::hours{24});
        ASSERT_TRUE(save(backwards));
    }
    struct stat second {};
    ASSERT_EQ(stat(path("zorel-a-1.ics").c_str(), &second), 0);
    EXPECT_EQ(text(), before);
    EXPECT_EQ(first.st_ino, second.st_ino);
}

TEST_F(FolderCalendarTest, FindsAndMovesAnEventInAFileOfAnotherName) {
    ASSERT_TRUE(save(sampleEvent(kUid)));
    fs::rename(path("zorel-a-1.ics"), path("renamed by a server.ics"));
    EXPECT_TRUE(FolderCalendar(folder).eventWithIdentifier(kUid));
    ASSERT_TRUE(save(later(sampleEvent(kUid))));
    EXPECT_FALSE(fs::exists(path("zorel-a-1.ics")));
    EXPECT_THAT(text("renamed by a server.ics"), HasSubstr("SEQUENCE:1\r\n"));
    EXPECT_TRUE(FolderCalendar(folder).removeEvent(kUid, error));
    EXPECT_FALSE(fs::exists(path("renamed by a server.ics")));
}

TEST_F(FolderCalendarTest, ListsEventsByTheirUidWhateverTheirFilesAreCalled) {
    ASSERT_TRUE(save(sampleEvent(kUid)));
    ASSERT_TRUE(save(sampleEvent("zorel-a-2")));
    fs::rename(path("zorel-a-1.ics"), path("from a server.ics"));
    // A file that only looks like one of ours, and one of several events.
    test::writeFile(path("zorel-a-3.ics"), "BEGIN:VCALENDAR\r\nUID:dentist\r\nEND:VCALENDAR\r\n");
    test::writeFile(path("zorel-a-4.ics"), "UID:zorel-a-4\r\nUID:zorel-a-5\r\n");
    FolderCalendar calendar(folder);
    EXPECT_THAT(calendar.identifiersWithPrefix("zorel-a-"), ElementsAre(kUid, "zorel-a-2"));
    EXPECT_FALSE(calendar.removeEvent("zorel-a-3", error));
    EXPECT_FALSE(calendar.removeEvent("zorel-a-4", error));
    EXPECT_TRUE(calendar.removeEvent(kUid, error)) << error;
    EXPECT_FALSE(fs::exists(path("from a server.ics")));
}

/// Guests of the folder whose parsing would take minutes: nobody asks for them, so that nobody parses them.
TEST_F(FolderCalendarTest, FilesOfOthersAreNotParsed) {
    ASSERT_TRUE(save(sampleEvent(kUid)));
    for (int i = 0; i < 20; ++i) {
        test::writeFile(path("guest " + std::to_string(i) + ".ics"),
                        "BEGIN:VCALENDAR\r\nBEGIN:VTIMEZONE\r\nTZID:Odd\r\nBEGIN:STANDARD\r\n"
                        "DTSTART:00010101T000000\r\nRRULE:FREQ=SECONDLY\r\nTZOFFSETFROM:+0200\r\n"
                        "TZOFFSETTO:+0100\r\nEND:STANDARD\r\nEND:VTIMEZONE\r\nBEGIN:VEVENT\r\nUID:guest\r\n"
                        "DTSTART;TZID=Odd:20260328T043000\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n");
    }
    const auto before = std::chrono::steady_clock::now();
    FolderCalendar calendar(folder);
    EXPECT_FALSE(calendar.eventWithIdentifier("zorel-a-7"));
    EXPECT_FALSE(calendar.eventWithIdentifier("guest"));
    EXPECT_TRUE(calendar.saveEvent(later(sampleEvent(kUid)), error)) << error;
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(2));
}

/// Whoever knows our identifiers can put one into a file that no parser may have: it can be removed.
TEST_F(FolderCalendarTest, AnUnfitFileWithOurUidCanBeRemovedAndWrittenAnew) {
    fs::create_directory(folder);
    test::writeFile(path("odd.ics"), "BEGIN:VCALENDAR\r\nUID:zorel-a-1\r\n");
    FolderCalendar calendar(folder);
    EXPECT_FALSE(calendar.eventWithIdentifier(kUid));
    EXPECT_THAT(calendar.identifiersWithPrefix("zorel-a-"), ElementsAre(kUid));
    ASSERT_TRUE(calendar.saveEvent(sampleEvent(kUid), error)) << error;
    EXPECT_TRUE(calendar.eventWithIdentifier(kUid));
    EXPECT_TRUE(calendar.removeEvent(kUid, error)) << error;
    EXPECT_TRUE(calendar.removeEvent(kUid, error)) << error;
    EXPECT_THAT(calendar.identifiersWithPrefix("zorel-a-"), IsEmpty());
}

TEST_F(FolderCalendarTest, SweepsTemporaryFilesWhenItStarts) {
    test::writeFile(path(".zorel-00112233445566ff.tmp"), "half an eve");
    const FolderCalendar calendar(folder);
    EXPECT_FALSE(fs::exists(path(".zorel-00112233445566ff.tmp")));
}

TEST_F(FolderCalendarTest, DoesNotSweepWhileAnotherProcessWrites) {
    // The other process holds the folder's lock; this start waits for it and then sweeps.
    test::writeFile(path(".zorel.lock"), "");
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t writer = fork();
    if (writer == 0) {
        faults::disarm();
        const int file = open(path(".zorel.lock").c_str(), O_RDWR);
        const bool locked = flock(file, LOCK_EX) == 0;
        test::writeFile(path(".zorel-1.tmp"), "event");
        const bool told = write(ready[1], "x", 1) == 1;
        usleep(50'000);
        const bool renamed = rename(path(".zorel-1.tmp").c_str(), path("zorel-a-9.ics").c_str()) == 0;
        _exit(locked && told && renamed ? 0 : 1);
    }
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    const FolderCalendar calendar(folder);
    int status = 0;
    waitpid(writer, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(text("zorel-a-9.ics"), "event");
}

TEST_F(FolderCalendarTest, LeavesForeignAndBrokenFilesAlone) {
    const std::string foreign =
        "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nBEGIN:VEVENT\r\nUID:dentist\r\nDTSTART:20260401T080000Z\r\n"
        "END:VEVENT\r\nEND:VCALENDAR\r\n";
    const std::vector<std::string> names{"dentist.ics", "broken.ics",  "notes.txt",
                                         "empty.ics",   ".hidden.ics", "zorel-a.ics"};
    test::writeFile(path(names[0]), foreign);
    test::writeFile(path(names[1]), "BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nUID:zorel-a-1\r\nDTST");
    test::writeFile(path(names[2]), "UID:zorel-a-1");
    test::writeFile(path(names[3]), "");
    test::writeFile(path(names[4]), foreign);
    test::writeFile(path(names[5]), std::string(3'000'000, 'x'));
    fs::create_directory(path("folder.ics"));
    ASSERT_EQ(mkfifo(path("pipe.ics").c_str(), 0600), 0);
    std::vector<std::string> before;
    std::ranges::transform(names, std::back_inserter(before),
                           [this](const auto& name) { return text(name); });

    FolderCalendar calendar(folder);
    EXPECT_FALSE(calendar.eventWithIdentifier(kUid));
    ASSERT_TRUE(calendar.saveEvent(sampleEvent(kUid), error)) << error;
    ASSERT_TRUE(calendar.saveEvent(later(sampleEvent(kUid)), error)) << error;
    EXPECT_TRUE(calendar.eventWithIdentifier("dentist"));
    ASSERT_TRUE(calendar.removeEvent(kUid, error)) << error;

    for (std::size_t index = 0; index < names.size(); ++index) {
        EXPECT_EQ(text(names[index]), before[index]) << names[index];
    }
    EXPECT_TRUE(fs::is_directory(path("folder.ics")));
    EXPECT_TRUE(fs::exists(path("pipe.ics")));
}

TEST_F(FolderCalendarTest, AnEventReplacedByAFolderIsGoneAndCannotBeOverwritten) {
    ASSERT_TRUE(save(sampleEvent(kUid)));
    fs::remove(path("zorel-a-1.ics"));
    fs::create_directory(path("zorel-a-1.ics"));
    FolderCalendar calendar(folder);
    EXPECT_FALSE(calendar.eventWithIdentifier(kUid));
    EXPECT_FALSE(calendar.saveEvent(sampleEvent(kUid), error));
    EXPECT_THAT(error, HasSubstr("cannot write"));
    EXPECT_TRUE(calendar.saveEvent(sampleEvent("zorel-a-2"), error)) << error;
}

TEST_F(FolderCalendarTest, AFileInThePlaceOfTheFolderRefusesEverything) {
    test::writeFile(folder, "not a folder");
    FolderCalendar calendar(folder);
    EXPECT_FALSE(calendar.saveEvent(sampleEvent(kUid), error));
    EXPECT_THAT(error, HasSubstr(folder));
    EXPECT_FALSE(calendar.removeEvent(kUid, error));
    EXPECT_FALSE(calendar.eventWithIdentifier(kUid));
    EXPECT_THAT(calendar.identifiersWithPrefix(""), IsEmpty());
    EXPECT_EQ(test::readFile(folder), "not a folder");
}

TEST_F(FolderCalendarTest, AReadOnlyFolderCanBeReadButNotChanged) {
    ASSERT_TRUE(save(sampleEvent(kUid)));
    fs::permissions(path("zorel-a-1.ics"), fs::perms(0644));
    fs::permissions(temporary.path(), fs::perms(0755));
    fs::permissions(folder, fs::perms(0555));
    const int result = asOrdinaryUser([this] {
        FolderCalendar calendar(folder);
        const bool read = calendar.eventWithIdentifier(kUid).has_value();
        const bool changed = calendar.saveEvent(later(sampleEvent(kUid)), error);
        const bool added = calendar.saveEvent(sampleEvent("zorel-a-2"), error);
        const bool removed = calendar.removeEvent(kUid, error);
        return (read ? 1 : 0) + (changed ? 2 : 0) + (added ? 4 : 0) + (removed ? 8 : 0) +
               (error.empty() ? 16 : 0);
    });
    EXPECT_EQ(result, 1);
    EXPECT_THAT(text(), HasSubstr("SEQUENCE:0\r\n"));
    fs::permissions(folder, fs::perms(0755));
}

TEST_F(FolderCalendarTest, AFullDiskLeavesEverythingAsItWas) {
    ASSERT_TRUE(save(sampleEvent(kUid)));
    const std::string before = text();
    FolderCalendar calendar(folder);
    for (int nth = 1; nth <= 5; ++nth) { // from the lock file to the rename
        faults::arm(faults::Effect::fail, nth, ENOSPC, true);
        const bool done = calendar.saveEvent(later(sampleEvent(kUid)), error);
        faults::disarm();
        EXPECT_FALSE(done) << nth;
        EXPECT_EQ(text(), before);
    }
    EXPECT_TRUE(calendar.saveEvent(later(sampleEvent(kUid)), error)) << error;
}

TEST_F(FolderCalendarTest, AnIdentifierCannotLeaveTheFolder) {
    test::writeFile(temporary.path("secret.ics"), "secret");
    FolderCalendar calendar(folder);
    for (const char* identifier : {"../secret", "/etc/passwd", ".hidden", "a/b", "a b", "ü"}) {
        EXPECT_FALSE(calendar.saveEvent(sampleEvent(identifier), error)) << identifier;
        EXPECT_FALSE(calendar.eventWithIdentifier(identifier)) << identifier;
        EXPECT_FALSE(calendar.removeEvent(identifier, error)) << identifier;
    }
    EXPECT_FALSE(calendar.saveEvent(sampleEvent(std::string(300, 'a')), error));
    EXPECT_EQ(test::readFile(temporary.path("secret.ics")), "secret");
}

TEST_F(FolderCalendarTest, RefusesATimeThatCannotBeWritten) {
    EKEvent event = sampleEvent(kUid);
    event.startDate = Instant::max();
    event.endDate = Instant::max();
    EXPECT_FALSE(save(event));
    EXPECT_THAT(error, HasSubstr("iCalendar"));
}

TEST_F(FolderCalendarTest, ALinkedFolderWorks) {
    fs::create_directory(temporary.path("real"));
    fs::create_directory_symlink(temporary.path("real"), folder);
    ASSERT_TRUE(save(sampleEvent(kUid))) << error;
    EXPECT_TRUE(fs::exists(temporary.path("real/zorel-a-1.ics")));
}

} // namespace
} // namespace zorel
