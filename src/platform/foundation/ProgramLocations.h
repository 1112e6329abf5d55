// SPDX-License-Identifier: Apache-2.0
/// @file
/// Where a program on Linux finds its folders: beside its own file, and in the user's home.
#pragma once

#include <optional>
#include <string>

namespace zorel {

/// The nearest "share/zorel/Zorel.bundle" in a folder above a file (where its links lead); without one, the
/// phone's place.
[[nodiscard]] std::string bundleAbove(const std::string& file);
/// The same above the program's own file. "<prefix>/bin/zorel" finds "<prefix>/share/zorel/Zorel.bundle".
[[nodiscard]] std::string bundleBesideProgram();
/// "$XDG_DATA_HOME/zorel", else "~/.local/share/zorel"; nothing when neither variable says where (XDG base
/// directories; a relative path does not count).
[[nodiscard]] std::optional<std::string> userDataDirectory();
/// "$XDG_CONFIG_HOME", else "~/.config"; nothing when neither variable says where.
[[nodiscard]] std::optional<std::string> userConfigDirectory();
/// The folder "Ringtones" beside a bundle.
[[nodiscard]] std::string ringtonesBesideBundle(const std::string& bundle);

} // namespace zorel
