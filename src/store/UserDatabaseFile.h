// SPDX-License-Identifier: Apache-2.0
/// @file
/// The user database as it is when it is new.
#pragma once

#include <array>
#include <string>

namespace zorel {

/// The statements that make a new user database, in order.
struct UserSchema {
    std::string cities;
    std::string alarms;
    std::array<std::string, 6> alarmRows;
    std::string settings;
};
[[nodiscard]] const UserSchema& userSchema();

/// Makes the database file and the folders above it. An existing file is never altered, and a file under this
/// name is always complete: it is written beside its place and then moved there. Returns the error text of a
/// statement that failed; a file that cannot be written is not reported.
std::string createUserDatabase(const std::string& path);

} // namespace zorel
