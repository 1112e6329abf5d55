// SPDX-License-Identifier: Apache-2.0
/// @file
/// The ring service, as the command line asks it: through the program zorel-ring, so that this one need not
/// link a bus.
#pragma once

#include "grammar/Context.h"

#include <map>
#include <optional>
#include <string>

namespace zorel::cli {

/// What the ring service says of itself.
struct RingStatus {
    bool runs = false;                        ///< in this session, for the data folder in use
    std::map<std::string, std::string> words; ///< "wakes", "keeper", "last", "trouble" ... of one that runs
};

[[nodiscard]] RingStatus ringStatus();
/// Starts the service for the folders in use unless one runs in this session.
void startRinging(const Context& context);
/// Whether the alarms were handed to GNOME's own calendar. Whether that runs is not looked at.
[[nodiscard]] bool isGnomeRinging();
/// Who rings, in one line for people: "rings through zorel-ring", "rings through GNOME", "nobody rings yet:
/// ...".
[[nodiscard]] std::string whoRings(const RingStatus& status);
/// Sees to it that somebody rings for the user's own alarms, and notes who does.
void tellWhoRings(const Context& context);

} // namespace zorel::cli
