// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/FileLock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>

namespace zorel {
namespace {

constexpr std::chrono::milliseconds kPause{5};

/// A reader asks for no right to write; a pipe of that name holds nobody.
int openFlags(LockKind kind) {
    return (kind == LockKind::shared ? O_RDONLY : O_RDWR) | O_CREAT | O_CLOEXEC | O_NONBLOCK;
}

} // namespace

FileLock::Deadline FileLock::inFiveSeconds() {
    return std::chrono::steady_clock::now() + std::chrono::seconds{5};
}

FileLock::FileLock(const std::string& path, LockKind kind, Deadline deadline)
    : descriptor_(open(path.c_str(), openFlags(kind), 0600)) {
    if (descriptor_.get() < 0) {
        fail();
        return;
    }
    wait((kind == LockKind::shared ? LOCK_SH : LOCK_EX) | LOCK_NB, deadline);
}

void FileLock::wait(int operation, Deadline deadline) {
    while (flock(descriptor_.get(), operation) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) {
            fail();
            return;
        }
        if (std::chrono::steady_clock::now() >= deadline) {
            return;
        }
        std::this_thread::sleep_for(kPause);
    }
    state_ = LockState::acquired;
}

void FileLock::fail() {
    state_ = LockState::cannotLock;
    error_ = {errno, std::generic_category()};
}

} // namespace zorel
