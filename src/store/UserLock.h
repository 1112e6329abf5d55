// SPDX-License-Identifier: Apache-2.0
/// @file
/// Keeps the programs of one user from working on his cities and alarms at the same time.
#pragma once

#include "platform/foundation/FileLock.h"

#include <memory>
#include <string>

namespace zorel {

/// The lock of a user database: the file beside it with ".lock" at the end of its name. Readers share it; an
/// action has it alone, from before its first look at the rows until its last change of the calendar.
///
/// Within a process a lock on a database that is locked already joins the one that is held, when that is
/// exclusive or both are shared; it then ends with it. One thread uses it.
///
/// Where there is no database there is nothing to guard, and the lock counts as acquired.
class UserLock {
public:
    /// @param userDBPath path of the database. Waits at most five seconds.
    UserLock(const std::string& userDBPath, LockKind kind);
    UserLock(const UserLock&) = delete;
    UserLock& operator=(const UserLock&) = delete;
    ~UserLock();

    [[nodiscard]] LockState state() const { return state_; }
    [[nodiscard]] bool isHeld() const { return state_ == LockState::acquired; }
    /// Whether rows may be read. A folder that nobody can write into, and so not lock, can still be read.
    [[nodiscard]] bool allowsReading() const { return state_ != LockState::busy; }
    /// Why the lock is not held, for people; empty when it is.
    [[nodiscard]] std::string reason() const;

    /// Until when a connection to the database should be retried while another program's transaction holds it
    /// up: as long as the lock of this process on it would have waited; without a lock, not at all.
    [[nodiscard]] static FileLock::Deadline patience(const std::string& userDBPath);

private:
    [[nodiscard]] static const UserLock* holderOf(const std::string& path);
    void acquire();

    std::string path_;
    LockKind kind_;
    FileLock::Deadline deadline_;
    LockState state_ = LockState::acquired;
    std::string error_;
    std::unique_ptr<FileLock> lock_; ///< empty where another one of this process is joined
};

} // namespace zorel
