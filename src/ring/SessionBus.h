// SPDX-License-Identifier: Apache-2.0
/// @file
/// The bus of the user's session, and the name of the ring service on it.
#pragma once

#include "ring/Sd.h"

namespace zorel::ring {

inline constexpr const char* kBusName = "org.zorel.Ring";
inline constexpr const char* kBusPath = "/org/zorel/Ring";

/// A connection to the session bus: that of DBUS_SESSION_BUS_ADDRESS, else the socket "bus" in
/// XDG_RUNTIME_DIR. Empty when there is none.
///
/// The variables are read here: the library itself does not read them in a program that was given a
/// capability by its file.
[[nodiscard]] Bus sessionBus();

} // namespace zorel::ring
