// SPDX-License-Identifier: Apache-2.0
/// @file
/// Whose alarm events are these?
#pragma once

#include <string>

namespace zorel {

/// Sixteen hexadecimal digits that stand for a user database on this machine: a digest of the machine's
/// identity and the file's path. Events of the same owner are this database's own; events of another machine
/// that share the calendar through a server, or of another user's database, are not.
[[nodiscard]] std::string alarmOwner(const std::string& userDBPath);

} // namespace zorel
