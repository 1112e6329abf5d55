// SPDX-License-Identifier: Apache-2.0
/// @file
/// A new file that appears under its name only when it is complete and on the disk.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace zorel {

/// What happens while a file is made, in this order.
enum class FileStep { create, write, sync, rename, syncFolder };

/// Writes the bytes to a temporary file beside `path` (mode 0600), brings them to the disk and gives the file
/// its name. A file that already has the name stays untouched. False when there is one or a step fails; then
/// nothing of the new file is left. A process killed on the way leaves at most the temporary file.
bool createFileDurably(const std::string& path, std::string_view bytes);

/// Removes the temporary files of `path` whose processes have ended.
void removeAbandonedTemporaries(const std::string& path);

/// While it lives, the function is asked before each step and fails the step by answering false.
class FileStepOverride {
public:
    explicit FileStepOverride(std::function<bool(FileStep)> mayProceed);
    FileStepOverride(const FileStepOverride&) = delete;
    FileStepOverride& operator=(const FileStepOverride&) = delete;
    ~FileStepOverride();

private:
    std::function<bool(FileStep)> previous_;
};

} // namespace zorel
