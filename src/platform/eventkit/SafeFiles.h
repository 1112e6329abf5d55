// SPDX-License-Identifier: Apache-2.0
/// @file
/// Small files that are never half written, and a lock between processes (POSIX).
#pragma once

#include "platform/foundation/Descriptor.h"

#include <chrono>
#include <string>
#include <string_view>

namespace zorel {

/// Holds an advisory lock on a file while it lives, against other processes and other FileLocks of this one.
/// The file is made when missing and stays. The kernel frees the lock of a process that dies.
class FileLock {
public:
    /// Waits for the lock up to `patience`; a program that hangs with the lock in hand must not hang others.
    explicit FileLock(const std::string& path, std::chrono::milliseconds patience = std::chrono::seconds{5});
    /// False when the file could not be made (read-only folder) or the patience ran out.
    [[nodiscard]] bool held() const { return held_; }

private:
    Descriptor descriptor_;
    bool held_ = false;
};

/// Puts `content` into the file `folder`/`name` so that a reader, or a crash at any moment, sees the old
/// content or the new one: temporary file, fsync, rename, fsync of the folder. Mode 0600. `error`: out, why
/// it failed.
bool replaceFile(const std::string& folder, const std::string& name, std::string_view content,
                 std::string& error);
/// Removes the file for good (unlink, fsync of the folder). `error`: out, why it failed.
bool removeFile(const std::string& folder, const std::string& name, std::string& error);
/// Removes what interrupted calls of replaceFile left in the folder; call it only while no other writes
/// there.
void removeStaleTemporaryFiles(const std::string& folder);
/// Sixteen random hexadecimal digits.
[[nodiscard]] std::string randomHexadecimal();

} // namespace zorel
