// SPDX-License-Identifier: Apache-2.0
/// @file
/// Another program, run to its end.
#pragma once

#include <string>
#include <vector>

namespace zorel::cli {

struct ProgramResult {
    int status = -1;    ///< exit status; -1: it was killed or could not be started
    std::string output; ///< what it wrote to its standard output
};

/// Runs a program that is found as a shell finds it and waits for it; its error output is dropped.
/// @param words its name and its arguments.
[[nodiscard]] ProgramResult runProgram(const std::vector<std::string>& words);
/// The same for a program of the folder of this one.
[[nodiscard]] ProgramResult runSibling(std::vector<std::string> words);

} // namespace zorel::cli
