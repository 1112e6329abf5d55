// SPDX-License-Identifier: Apache-2.0
#include "platform/eventkit/SafeFiles.h"
#include "platform/foundation/SmallFile.h"
#include "tests/support/FaultPoints.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zorel {
namespace {

namespace fs = std::filesystem;

class SafeFiles : public testing::Test {
protected:
    [[nodiscard]] std::ptrdiff_t filesInFolder() const {
        return std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator());
    }

    test::TemporaryFolder folder;
    std::string error;
};

TEST_F(SafeFiles, makesAndReplacesAFile) {
    ASSERT_TRUE(replaceFile(folder.path(), "a", "one", error)) << error;
    EXPECT_EQ(test::readFile(folder.path("a")), "one");
    ASSERT_TRUE(replaceFile(folder.path(), "a", "two", error)) << error;
    EXPECT_EQ(test::readFile(folder.path("a")), "two");
    EXPECT_EQ(filesInFolder(), 1);
    struct stat status {};
    ASSERT_EQ(stat(folder.path("a").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(SafeFiles, aReplacementThatFailsLeavesTheOldFileAndSaysWhy) {
    ASSERT_TRUE(replaceFile(folder.path(), "a", "one", error));
    int tried = 0;
    for (const int code : {ENOSPC, EIO, EROFS}) {
        for (int nth = 1; nth <= 4; ++nth, ++tried) { // create, write, fsync, rename
            faults::arm(faults::Effect::fail, nth, code);
            const bool done = replaceFile(folder.path(), "a", "two", error);
            faults::disarm();
            EXPECT_FALSE(done) << nth;
            EXPECT_NE(error.find(folder.path()), std::string::npos) << error;
            EXPECT_EQ(test::readFile(folder.path("a")), "one");
            EXPECT_EQ(filesInFolder(), 1);
        }
    }
    EXPECT_EQ(tried, 12);
    faults::arm(faults::Effect::fail, 5, EIO); // fsync of the folder: the file is in place by then
    EXPECT_TRUE(replaceFile(folder.path(), "a", "two", error));
    EXPECT_EQ(faults::disarm(), 5);
}

TEST_F(SafeFiles, anInterruptedWriteGoesOn) {
    faults::arm(faults::Effect::fail, 2, EINTR);
    EXPECT_TRUE(replaceFile(folder.path(), "a", "one", error)) << error;
    faults::disarm();
    EXPECT_EQ(test::readFile(folder.path("a")), "one");
}

TEST_F(SafeFiles, aProcessKilledAnywhereLeavesTheOldOrTheNewFile) {
    ASSERT_TRUE(replaceFile(folder.path(), "a", "one", error));
    int deaths = 0;
    for (const auto effect : {faults::Effect::die, faults::Effect::tear}) {
        for (int nth = 1;; ++nth) {
            const int status =
                faults::runInChild(effect, nth, [this] { replaceFile(folder.path(), "a", "two", error); });
            const std::string content = test::readFile(folder.path("a"));
            EXPECT_TRUE(content == "one" || content == "two") << content;
            removeStaleTemporaryFiles(folder.path());
            EXPECT_EQ(filesInFolder(), 1);
            if (status == 0) {
                break;
            }
            ASSERT_EQ(status, faults::kDied);
            ++deaths;
            ASSERT_TRUE(replaceFile(folder.path(), "a", "one", error));
        }
    }
    EXPECT_EQ(deaths, 10);
}

TEST_F(SafeFiles, sweepsOnlyItsOwnTemporaryFiles) {
    test::writeFile(folder.path(".zorel-0123456789abcdef.tmp"), "half");
    test::writeFile(folder.path(".other.tmp"), "theirs");
    test::writeFile(folder.path("zorel-a.ics"), "event");
    fs::create_directory(folder.path(".zorel-folder.tmp"));
    removeStaleTemporaryFiles(folder.path());
    EXPECT_EQ(filesInFolder(), 3);
    EXPECT_FALSE(fs::exists(folder.path(".zorel-0123456789abcdef.tmp")));
    removeStaleTemporaryFiles(folder.path("missing"));
}

TEST_F(SafeFiles, readsOnlyRegularFilesUpToALimit) {
    test::writeFile(folder.path("a"), "12345");
    EXPECT_EQ(readSmallFile(folder.path("a"), 5), "12345");
    EXPECT_EQ(readSmallFile(folder.path("a"), 4), std::nullopt);
    EXPECT_EQ(readSmallFile(folder.path("missing"), 5), std::nullopt);
    EXPECT_EQ(readSmallFile(folder.path(), 5), std::nullopt);
    ASSERT_EQ(mkfifo(folder.path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(readSmallFile(folder.path("pipe"), 5), std::nullopt);
}

TEST_F(SafeFiles, removesAFileForGood) {
    test::writeFile(folder.path("a"), "1");
    EXPECT_TRUE(removeFile(folder.path(), "a", error));
    EXPECT_EQ(filesInFolder(), 0);
    EXPECT_FALSE(removeFile(folder.path(), "a", error));
    EXPECT_NE(error, "");
}

TEST_F(SafeFiles, aLockIsHeldByOneOnly) {
    const std::string path = folder.path("lock");
    {
        const FileLock first(path);
        EXPECT_TRUE(first.held());
        const FileLock second(path, std::chrono::milliseconds{20});
        EXPECT_FALSE(second.held());
    }
    EXPECT_TRUE(FileLock(path).held());
}

TEST_F(SafeFiles, aLockOfADeadProcessIsFree) {
    const std::string path = folder.path("lock");
    const pid_t child = fork();
    if (child == 0) {
        const FileLock lock(path);
        _exit(lock.held() ? 7 : 8);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 7);
    EXPECT_TRUE(FileLock(path).held());
}

TEST_F(SafeFiles, aLockThatCannotBeMadeIsNotHeld) {
    EXPECT_FALSE(FileLock(folder.path("missing") + "/lock").held());
}

TEST_F(SafeFiles, randomTextsDiffer) {
    EXPECT_EQ(randomHexadecimal().size(), 16U);
    EXPECT_NE(randomHexadecimal(), randomHexadecimal());
}

} // namespace
} // namespace zorel
