// SPDX-License-Identifier: Apache-2.0
/// @file
/// The events of a calendar folder in one file, for programs that read no folders.
#pragma once

#include <string>
#include <system_error>

namespace zorel {

/// The file beside a calendar folder that holds all of our events of it: "<folder>.ics".
[[nodiscard]] std::string oneFileOf(const std::string& folder);

/// Writes the file anew from the folder, whole or not at all. Our events are known by their UIDs, whatever
/// their files are called; those of other programs are left out: their time zones might be unknown to the
/// file. A folder that is not there has no events.
[[nodiscard]] std::error_code writeOneFile(const std::string& folder);

/// Writes the file without an event. Whoever still reads it has to forget them all.
[[nodiscard]] std::error_code emptyOneFile(const std::string& folder);

/// Whether the file holds what writeOneFile would write.
[[nodiscard]] bool isOneFileInStep(const std::string& folder);

} // namespace zorel
