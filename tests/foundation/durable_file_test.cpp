// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/DurableFile.h"
#include "tests/support/FaultPoints.h"
#include "tests/support/TemporaryFolder.h"

#include <cerrno>
#include <fmt/format.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zorel {
namespace {

using test::readFile;
using test::TemporaryFolder;
using test::writeFile;

std::size_t filesIn(const TemporaryFolder& folder) {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder.path()), {}));
}

TEST(DurableFile, HoldsTheBytesAndIsTheOwnersOnly) {
    const TemporaryFolder folder;
    const std::string bytes = std::string(100000, 'x') + '\0' + "end";
    EXPECT_TRUE(createFileDurably(folder.path("file"), bytes));
    EXPECT_EQ(readFile(folder.path("file")), bytes);
    struct stat status {};
    ASSERT_EQ(stat(folder.path("file").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
    EXPECT_EQ(filesIn(folder), 1U);
}

TEST(DurableFile, NeverReplacesAFile) {
    const TemporaryFolder folder;
    writeFile(folder.path("file"), "old");
    EXPECT_FALSE(createFileDurably(folder.path("file"), "new"));
    EXPECT_EQ(readFile(folder.path("file")), "old");
    EXPECT_EQ(filesIn(folder), 1U);
}

TEST(DurableFile, FailsWithoutALeftoverWhereverAStepFails) {
    for (int nth = 1; nth <= 4; ++nth) { // create, write, sync, rename
        const TemporaryFolder folder;
        faults::arm(faults::Effect::fail, nth, EIO);
        EXPECT_FALSE(createFileDurably(folder.path("file"), "bytes"));
        faults::disarm();
        EXPECT_EQ(filesIn(folder), 0U);
    }
}

TEST(DurableFile, StandsWhenOnlyTheFolderIsNotSynced) {
    const TemporaryFolder folder;
    faults::arm(faults::Effect::fail, 5, EIO);
    EXPECT_TRUE(createFileDurably(folder.path("file"), "bytes"));
    EXPECT_EQ(faults::disarm(), 5);
    EXPECT_EQ(readFile(folder.path("file")), "bytes");
}

TEST(DurableFile, GetsItsNameWhereFilesCannotBeMovedInOneStep) {
    for (const int unsupported : {EINVAL, ENOSYS}) {
        const TemporaryFolder folder;
        for (const bool expected : {true, false}) { // the second time the name is taken
            faults::arm(faults::Effect::fail, 4, unsupported);
            EXPECT_EQ(createFileDurably(folder.path("file"), expected ? "bytes" : "new"), expected);
            faults::disarm();
            EXPECT_EQ(readFile(folder.path("file")), "bytes");
            EXPECT_EQ(filesIn(folder), 1U);
        }
    }
}

TEST(DurableFile, IsCompleteOrMissingAfterAKillAtAnyStep) {
    int deaths = 0;
    for (const auto effect : {faults::Effect::die, faults::Effect::tear}) {
        for (int nth = 1;; ++nth, ++deaths) {
            const TemporaryFolder folder;
            const std::string path = folder.path("file");
            const int status = faults::runInChild(effect, nth, [&] { createFileDurably(path, "bytes"); });
            const std::string found = readFile(path);
            EXPECT_TRUE(found.empty() || found == "bytes") << found;
            removeAbandonedTemporaries(path);
            EXPECT_EQ(filesIn(folder), found.empty() ? 0U : 1U);
            if (status == 0) {
                break;
            }
            ASSERT_EQ(status, faults::kDied);
        }
    }
    EXPECT_EQ(deaths, 10);
}

TEST(DurableFile, FailsWhereItCannotBe) {
    const TemporaryFolder folder;
    writeFile(folder.path("plain"), "");
    EXPECT_FALSE(createFileDurably(folder.path("missing/file"), "bytes"));
    EXPECT_FALSE(createFileDurably(folder.path("plain/file"), "bytes"));
    EXPECT_FALSE(createFileDurably("", "bytes"));
}

TEST(AbandonedTemporaries, OfLivingProcessesAndOtherFilesStay) {
    const TemporaryFolder folder;
    const std::string path = folder.path("file");
    writeFile(path + fmt::format(".new-{}", getppid()), "of a living process");
    writeFile(path + fmt::format(".new-{}", getpid()), "of this process, which is writing none");
    writeFile(path + ".new-0", "of no process");
    writeFile(path + ".new-x", "of no process");
    writeFile(path + ".newer", "another file");
    removeAbandonedTemporaries(path);
    EXPECT_EQ(filesIn(folder), 2U);
    EXPECT_TRUE(fileExistsAtPath(path + fmt::format(".new-{}", getppid())));
    EXPECT_TRUE(fileExistsAtPath(path + ".newer"));
}

TEST(AbandonedTemporaries, OfAMissingFolderAreNone) {
    const TemporaryFolder folder;
    removeAbandonedTemporaries(folder.path("missing/file"));
    EXPECT_EQ(filesIn(folder), 0U);
}

} // namespace
} // namespace zorel
