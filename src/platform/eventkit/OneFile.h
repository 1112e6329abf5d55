// SPDX-License-Identifier: Apache-2.0
/// @file
/// The events of a calendar folder in one file, for programs that read no folders.
#pragma once

#include <string>
#include <system_error>

namespace zorel {

/// The file beside a calendar folder that holds all of our events of it: "<folder>.ics". It is kept only
/// while it is there: whoever wants it makes it with writeOneFile, and removes it again.
[[nodiscard]] std::string oneFileOf(const std::string& folder);

/// Writes the file anew from the folder, whole or not at all. Events of other programs are left out: their
/// time zones might be unknown to the file. A folder that is not there has no events.
[[nodiscard]] std::error_code writeOneFile(const std::string& folder);

/// Writes it anew if it is there.
[[nodiscard]] std::error_code keepOneFile(const std::string& folder);

} // namespace zorel
