// SPDX-License-Identifier: Apache-2.0
/// @file
/// How a look at the user database, or a change of it, ended.
#pragma once

#include <cstdint>
#include <string>

namespace zorel {

enum class StoreState : std::uint8_t {
    done,    ///< every row was read, or every statement took effect
    missing, ///< there is no user database
    busy,    ///< another program held it for longer than one waits
    failed,  ///< it cannot be read or written
};

/// The state, and the reason in SQLite's or the system's words unless it is `done`.
struct StoreResult {
    StoreState state = StoreState::failed;
    std::string reason;

    [[nodiscard]] bool isDone() const { return state == StoreState::done; }
};

} // namespace zorel
