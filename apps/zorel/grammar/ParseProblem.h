// SPDX-License-Identifier: Apache-2.0
/// @file
/// What to tell somebody whose command line cannot be understood.
#pragma once

#include <CLI/CLI.hpp>

#include <string>

namespace zorel::cli {

struct ParseProblem {
    std::string what; ///< what is wrong
    std::string hint; ///< what to do about it
};

/// Name of the command that was being read ("alarms on"); empty before the first one.
[[nodiscard]] std::string commandReached(const CLI::App& program);

/// @param program after its parse has thrown `error`.
[[nodiscard]] ParseProblem problemOf(const CLI::App& program, const CLI::ParseError& error);

} // namespace zorel::cli
