// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/FileLock.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace zorel {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

class FileLocks : public testing::Test {
protected:
    [[nodiscard]] LockState tryLock(LockKind kind) const {
        return FileLock(path, kind, steady_clock::now()).state();
    }

    test::TemporaryFolder folder;
    const std::string path = folder.path("lock");
};

TEST_F(FileLocks, AWriterIsAlone) {
    const FileLock writer(path);
    EXPECT_EQ(writer.state(), LockState::acquired);
    EXPECT_EQ(tryLock(LockKind::exclusive), LockState::busy);
    EXPECT_EQ(tryLock(LockKind::shared), LockState::busy);
}

TEST_F(FileLocks, ReadersShare) {
    const FileLock reader(path, LockKind::shared);
    EXPECT_EQ(reader.state(), LockState::acquired);
    EXPECT_EQ(tryLock(LockKind::shared), LockState::acquired);
    EXPECT_EQ(tryLock(LockKind::exclusive), LockState::busy);
}

TEST_F(FileLocks, AreFreeAfterwards) {
    for (const LockKind kind : {LockKind::exclusive, LockKind::shared, LockKind::exclusive}) {
        EXPECT_EQ(tryLock(kind), LockState::acquired);
    }
}

TEST_F(FileLocks, BusyComesAtTheDeadline) {
    const FileLock writer(path);
    const auto before = steady_clock::now();
    const FileLock second(path, LockKind::exclusive, before + milliseconds(30));
    EXPECT_EQ(second.state(), LockState::busy);
    EXPECT_EQ(second.error(), std::error_code());
    EXPECT_GE(steady_clock::now() - before, milliseconds(30));
}

TEST_F(FileLocks, AWaitingOneTakesItWhenItBecomesFree) {
    auto writer = std::make_unique<FileLock>(path);
    std::thread holder([&writer] {
        std::this_thread::sleep_for(milliseconds(20));
        writer.reset();
    });
    EXPECT_EQ(FileLock(path).state(), LockState::acquired);
    holder.join();
}

TEST_F(FileLocks, OfADeadProcessAreFree) {
    const pid_t child = fork();
    if (child == 0) {
        const FileLock lock(path);
        _exit(lock.state() == LockState::acquired ? 7 : 8);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 7);
    EXPECT_EQ(tryLock(LockKind::exclusive), LockState::acquired);
}

TEST_F(FileLocks, TheFileIsTheOwnersOnlyAndStays) {
    EXPECT_EQ(tryLock(LockKind::shared), LockState::acquired);
    struct stat status {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(FileLocks, ThatCannotBeMadeSayWhyAtOnce) {
    const FileLock missing(folder.path("missing") + "/lock");
    EXPECT_EQ(missing.state(), LockState::cannotLock);
    EXPECT_EQ(missing.error(), std::errc::no_such_file_or_directory);
    const FileLock itsFolder(folder.path(), LockKind::exclusive);
    EXPECT_EQ(itsFolder.state(), LockState::cannotLock);
    EXPECT_EQ(itsFolder.error(), std::errc::is_a_directory);
}

TEST_F(FileLocks, APipeOfThatNameHoldsNobody) {
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(tryLock(LockKind::shared), LockState::acquired);
}

} // namespace
} // namespace zorel
