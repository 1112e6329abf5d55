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

/// Whether GNOME was told of this calendar folder. Whether it runs is not looked at.
[[nodiscard]] bool isGnomeConnected(const std::string& folder);
/// The same. `error`: out, why that cannot be told; then the answer is false.
[[nodiscard]] bool isGnomeConnected(const std::string& folder, std::error_code& error);

/// Hands the calendar folder to GNOME: the one file beside it (OneFile.h), read only, with its reminders.
/// GNOME follows both files by itself; Calendar::publish keeps them in step.
[[nodiscard]] std::error_code connectGnome(const std::string& folder);
/// Takes the calendar back. Its one file stays, without an event: evolution-data-server 3.46 goes on to ring
/// for what it has read of a calendar that is gone, but not for what has gone from a calendar. Nothing to do
/// where there are no such files.
[[nodiscard]] std::error_code disconnectGnome(const std::string& folder);

} // namespace zorel
