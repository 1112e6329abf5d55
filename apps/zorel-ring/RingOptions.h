// SPDX-License-Identifier: Apache-2.0
/// @file
/// The options of zorel-ring.
#pragma once

#include <string>
#include <vector>

namespace zorel::ring {

enum class RingCommand { wait, start, stop, snooze, test, status, help, version, badUse };

struct RingOptions {
    RingCommand command = RingCommand::wait;
    std::string prayer;                  ///< of test
    std::string data;                    ///< folder; empty: the user's
    std::string calendar;                ///< folder; empty: "calendar" in the data folder
    std::string helpers;                 ///< folder of the other two programs; empty: beside this one
    std::vector<std::string> forPlanner; ///< options that the planner is handed too
};

[[nodiscard]] RingOptions ringOptions(int argc, char** argv);
/// In the language in use.
[[nodiscard]] std::string ringHelp();

} // namespace zorel::ring
