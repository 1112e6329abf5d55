// SPDX-License-Identifier: Apache-2.0
/// @file
/// What zorel-settings was asked for.
#pragma once

#include <optional>
#include <string>

namespace zorel {

/// Options of the window program; empty folders stand for the usual ones.
struct WindowOptions {
    std::string dataDir;
    std::string bundle;
    std::string ringtones;
    std::string calendar;
    bool timeStart = false; ///< print the time to the first frame and the memory, and leave
    std::string screenshot; ///< file of the picture; "" opens the window
    std::string screen = "cities";
    std::string searchText; ///< typed and searched for on the search screen
    std::string at;         ///< the time that the picture is drawn for; "" for the present
    int width = 390;        ///< [pt]
    int height = 780;       ///< [pt]
    double textScale = 0.0; ///< 0: as the desktop has it
    std::string appearance; ///< "light", "dark" or "" for the desktop's
};

/// Reads the command line.
/// @param exitCode out: the code to leave with when the answer is false (help, version, a mistake; said
/// already)
[[nodiscard]] bool readWindowOptions(int argc, char** argv, WindowOptions& options, int& exitCode);

} // namespace zorel
