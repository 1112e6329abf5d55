// SPDX-License-Identifier: Apache-2.0
/// @file
/// The three places where the pane finds its files, and the file manager's small questions.
#pragma once

#include <string>
#include <vector>

namespace zorel {

/// Folders of the bundle, the user's data and the ringtones. The defaults are those of the phone; a program
/// on Linux sets them at start, a test sets a temporary folder.
struct Locations {
    std::string bundle = "/System/Library/WeeAppPlugins/Zorel.bundle";
    std::string data = "/var/mobile/Library/Zorel";
    std::string ringtones = "/Library/Ringtones";

    /// The folders in force for the whole process.
    [[nodiscard]] static Locations& current();
};

/// Whether anything exists at the path.
[[nodiscard]] bool fileExistsAtPath(const std::string& path);
/// Whether there is certainly nothing at the path; false also where that cannot be found out.
[[nodiscard]] bool isMissingAtPath(const std::string& path);
/// Makes the folder and its parents (mode 0700 for new ones); false when that fails.
bool createDirectoryAtPath(const std::string& path);
/// Relative paths of everything below the folder, recursively, in the order the file system yields them;
/// empty when the folder is missing. Unreadable subfolders are skipped; symbolic links are listed, not
/// followed.
[[nodiscard]] std::vector<std::string> entriesBelowPath(const std::string& path);
/// The path without the extension of its last component ("a/Morning Call.m4r" -> "a/Morning Call").
[[nodiscard]] std::string pathWithoutExtension(const std::string& path);

} // namespace zorel
