// SPDX-License-Identifier: Apache-2.0
/// @file
/// What zorel-ring does when it is not the one that waits: it asks that one over the bus. Each command
/// answers with the program's exit status.
#pragma once

#include <string>
#include <vector>

namespace zorel::ring {

/// Has the bus start the service; where the bus does not know it, starts this program itself, in a session of
/// its own. @param words this program and its options, without the command.
[[nodiscard]] int startService(const std::vector<std::string>& words);
[[nodiscard]] int callService(const char* member);
[[nodiscard]] int testService(const std::string& prayer);
[[nodiscard]] int printStatus();

} // namespace zorel::ring
