// SPDX-License-Identifier: Apache-2.0
/// @file
/// Files that are on the disk when a call returns (POSIX). Paths are absolute or have a folder.
#pragma once

#include <string>
#include <string_view>

namespace zorel {

/// Writes a new file (mode 0600) and brings its bytes to the disk. False, with errno, when there is a file of
/// that name or a step fails; a part of the new file may then be left.
bool writeNewFile(const std::string& path, std::string_view bytes);

/// Brings a folder's entries to the disk after a change to them. Without that a power cut may still undo the
/// change, which is no failure: nothing is reported.
void syncFolder(const std::string& folder);

/// Writes the bytes to a temporary file beside `path` (mode 0600), brings them to the disk and gives the file
/// its name. A file that already has the name stays untouched. False when there is one or a step fails; then
/// nothing of the new file is left. A process killed on the way leaves at most the temporary file.
bool createFileDurably(const std::string& path, std::string_view bytes);

/// Removes the temporary files of `path` whose processes have ended.
void removeAbandonedTemporaries(const std::string& path);

} // namespace zorel
