// SPDX-License-Identifier: Apache-2.0
/// @file
/// Examples of each command, for help texts, the manual page and the tests that run them.
#pragma once

#include <string>
#include <vector>

namespace zorel::cli {

/// Command lines with a comment behind "  # "; `command` "" is the program itself.
[[nodiscard]] std::vector<std::string> examplesOf(const std::string& command);

} // namespace zorel::cli
