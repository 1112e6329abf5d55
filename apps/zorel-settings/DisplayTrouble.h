// SPDX-License-Identifier: Apache-2.0
/// @file
/// What is said when there is no display to open a window on.
#pragma once

#include <string>

namespace zorel {

constexpr int kNoDisplay = 4; ///< exit code

/// Why no window can be opened, with the remedy, on one line.
/// @param platform value of QT_QPA_PLATFORM, "" when not set; likewise the other two
[[nodiscard]] std::string displayTrouble(const std::string& platform, const std::string& waylandDisplay,
                                         const std::string& display);

/// Qt ends the process itself when it finds no display, with a message for programmers. While this object
/// lives, the message is displayTrouble() and the exit code kNoDisplay; what else Qt has to say comes
/// afterwards.
class DisplayGuard {
public:
    DisplayGuard();
    DisplayGuard(const DisplayGuard&) = delete;
    DisplayGuard& operator=(const DisplayGuard&) = delete;
    ~DisplayGuard();
};

} // namespace zorel
