// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/DurableFile.h"
#include "tests/support/TemporaryFolder.h"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zorel {
namespace {

using test::readFile;
using test::TemporaryFolder;
using test::writeFile;

constexpr FileStep kSteps[] = {FileStep::create, FileStep::write, FileStep::sync, FileStep::rename,
                               FileStep::syncFolder};

std::size_t filesIn(const TemporaryFolder& folder) {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder.path()), {}));
}

/// A child process that makes the file and is gone, as if killed, before the given step.
void createAndDieBefore(FileStep last, const std::string& path, std::string_view bytes) {
    const pid_t child = fork();
    if (child == 0) {
        const FileStepOverride killer([last](FileStep step) {
            if (step == last) {
                _exit(1);
            }
            return true;
        });
        createFileDurably(path, bytes);
        _exit(0);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_EQ(WEXITSTATUS(status), 1);
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

TEST(DurableFile, NeverReplacesAFileThatAppearsMeanwhile) {
    const TemporaryFolder folder;
    const FileStepOverride rival([&folder](FileStep step) {
        if (step == FileStep::rename) {
            writeFile(folder.path("file"), "rival");
        }
        return true;
    });
    EXPECT_FALSE(createFileDurably(folder.path("file"), "new"));
    EXPECT_EQ(readFile(folder.path("file")), "rival");
    EXPECT_EQ(filesIn(folder), 1U);
}

TEST(DurableFile, FailsWithoutALeftoverWhereverAStepFails) {
    for (const FileStep failing : kSteps) {
        const TemporaryFolder folder;
        const FileStepOverride fault([failing](FileStep step) { return step != failing; });
        const bool inPlace = failing == FileStep::syncFolder;
        EXPECT_EQ(createFileDurably(folder.path("file"), "bytes"), inPlace);
        EXPECT_EQ(filesIn(folder), inPlace ? 1U : 0U);
    }
}

TEST(DurableFile, IsCompleteOrMissingAfterAKillAtAnyStep) {
    for (const FileStep last : kSteps) {
        const TemporaryFolder folder;
        createAndDieBefore(last, folder.path("file"), "bytes");
        const std::string found = readFile(folder.path("file"));
        EXPECT_TRUE(found.empty() || found == "bytes");
        removeAbandonedTemporaries(folder.path("file"));
        EXPECT_EQ(filesIn(folder), last == FileStep::syncFolder ? 1U : 0U);
    }
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
