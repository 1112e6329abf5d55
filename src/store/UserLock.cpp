// SPDX-License-Identifier: Apache-2.0
#include "store/UserLock.h"

#include "platform/foundation/Locations.h"

#include <algorithm>
#include <vector>

namespace zorel {
namespace {

std::vector<const UserLock*>& livingLocks() {
    thread_local std::vector<const UserLock*> locks;
    return locks;
}

} // namespace

UserLock::UserLock(const std::string& userDBPath, LockKind kind)
    : path_(userDBPath), kind_(kind), deadline_(FileLock::inFiveSeconds()) {
    if (const UserLock* holder = holderOf(path_)) {
        deadline_ = holder->deadline_;
        const bool joins = holder->kind_ == LockKind::exclusive || kind == LockKind::shared;
        state_ = joins ? LockState::acquired : LockState::busy;
    } else if (!isMissingAtPath(path_)) {
        acquire();
    }
    livingLocks().push_back(this);
}

UserLock::~UserLock() {
    std::erase(livingLocks(), this);
}

void UserLock::acquire() {
    lock_ = std::make_unique<FileLock>(path_ + ".lock", kind_, deadline_);
    state_ = lock_->state();
    error_ = state_ == LockState::cannotLock ? lock_->error().message() : std::string();
    if (state_ == LockState::acquired) {
        deadline_ = FileLock::inFiveSeconds();
    }
}

const UserLock* UserLock::holderOf(const std::string& path) {
    const auto& locks = livingLocks();
    const auto found = std::ranges::find_if(locks, [&](const UserLock* lock) {
        return lock->path_ == path && lock->lock_ && lock->state_ == LockState::acquired;
    });
    return found == locks.end() ? nullptr : *found;
}

FileLock::Deadline UserLock::patience(const std::string& userDBPath) {
    const UserLock* holder = holderOf(userDBPath);
    return holder == nullptr ? FileLock::Deadline::min() : holder->deadline_;
}

std::string UserLock::reason() const {
    switch (state_) {
    case LockState::busy:
        return "another program is working on your cities and alarms";
    case LockState::cannotLock:
        return "cannot lock " + path_ + ".lock: " + error_;
    default:
        return {};
    }
}

} // namespace zorel
