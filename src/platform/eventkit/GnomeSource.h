// SPDX-License-Identifier: Apache-2.0
/// @file
/// The calendar folder as a calendar of GNOME and Phosh (evolution-data-server).
#pragma once

#include <string>
#include <system_error>

namespace zorel {

/// The file that tells evolution-data-server of the calendar:
/// "$XDG_CONFIG_HOME/evolution/sources/zorel-alarms.source", else below "~/.config"; empty without either
/// variable.
[[nodiscard]] std::string gnomeSourcePath();

/// Whether GNOME was told of a calendar of ours. Whether it runs is not looked at.
[[nodiscard]] bool isGnomeConnected();

/// Hands the calendar folder to GNOME: the one file beside it, read only, with its reminders. GNOME follows
/// the files by itself.
[[nodiscard]] std::error_code connectGnome(const std::string& folder);
/// Takes both files away again; nothing to do where there are none.
[[nodiscard]] std::error_code disconnectGnome(const std::string& folder);

} // namespace zorel
