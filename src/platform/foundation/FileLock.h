// SPDX-License-Identifier: Apache-2.0
/// @file
/// A lock between processes (POSIX).
#pragma once

#include "platform/foundation/Descriptor.h"

#include <chrono>
#include <string>
#include <system_error>

namespace zorel {

/// Readers share a lock; a writer has it alone.
enum class LockKind { shared, exclusive };

/// How an attempt to lock ended.
enum class LockState {
    acquired,   ///< held until the FileLock ends
    busy,       ///< somebody else held it until the deadline
    cannotLock, ///< there is no lock file and none can be made, or the file system has no locks
};

/// Holds an advisory lock on a file while it lives, against other processes and other FileLocks of this one.
/// The file is made when missing (mode 0600) and stays. The kernel frees the lock of a process that dies.
class FileLock {
public:
    using Deadline = std::chrono::steady_clock::time_point;

    /// The usual wait: long enough for any action of another program, short enough not to hang with one that
    /// hangs.
    [[nodiscard]] static Deadline inFiveSeconds();

    /// Waits for the lock until the deadline. A deadline that is over asks once. One deadline may serve
    /// several locks.
    explicit FileLock(const std::string& path, LockKind kind = LockKind::exclusive,
                      Deadline deadline = inFiveSeconds());

    [[nodiscard]] LockState state() const { return state_; }
    /// Why the file cannot be locked; empty in the other states.
    [[nodiscard]] std::error_code error() const { return error_; }

private:
    void wait(int operation, Deadline deadline);
    void fail();

    Descriptor descriptor_;
    LockState state_ = LockState::busy;
    std::error_code error_;
};

} // namespace zorel
