// SPDX-License-Identifier: Apache-2.0
/// @file
/// Files that are never half written, and small files read whole (POSIX).
///
/// Whoever writes here writes a temporary file in the same folder (mode 0600), brings its bytes to the disk
/// and gives it the name in one step. A reader, a kill or a power cut at any moment therefore meets the old
/// file or the new one, whole. After a kill the temporary file may be left; sweepTemporaryFiles removes it.
///
/// A change answers with an empty code when it was done and with the errno of the step that failed when not;
/// then the old file is as it was and no temporary file is left. Done means that the bytes are on the disk
/// and that every program sees them under the name. The folder is brought to the disk too; should only that
/// fail, a power cut may bring the old file back, which is told to nobody.
///
/// Nothing here waits for another program or keeps it out: that is what FileLock is for.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace zorel {

/// Makes a file of these bytes. Never replaces one: std::errc::file_exists when the name is taken.
[[nodiscard]] std::error_code createFile(const std::string& path, std::string_view bytes);

/// Puts these bytes in the place of whatever file has the name; makes the file when there is none.
[[nodiscard]] std::error_code replaceFile(const std::string& path, std::string_view bytes);

/// Puts a finished file of the same folder in the place of whatever file has the name. Its own name is gone
/// then.
[[nodiscard]] std::error_code replaceFileWith(const std::string& path, const std::string& finished);

/// Removes the file; std::errc::no_such_file_or_directory when there is none.
[[nodiscard]] std::error_code removeFile(const std::string& path);

/// The bytes of a regular file of at most `limit` bytes; nothing for a larger one, for a folder, pipe or
/// device, and where there is no file or it cannot be read. Never waits for a writer.
[[nodiscard]] std::optional<std::string> readSmallFile(const std::string& path, std::size_t limit);

/// The same, with the reason when there is nothing: no_such_file_or_directory, what the system says, or
/// file_too_large, or not_supported for what is no regular file.
[[nodiscard]] std::optional<std::string> readSmallFile(const std::string& path, std::size_t limit,
                                                       std::error_code& error);

/// Removes the temporary files that ended processes left in the folder. Those of this process count as left:
/// call it only while no thread writes there.
void sweepTemporaryFiles(const std::string& folder);

} // namespace zorel
