// SPDX-License-Identifier: Apache-2.0
/// @file
/// The program "zorel" as a function, so that tests can run it.
#pragma once

#include "grammar/Context.h"

#include <span>
#include <string>

namespace zorel::cli {

/// Runs one command line (without the program's name). Sets the process-wide locations and, with --now, the
/// clock. Never throws; the exit code says how it ended.
[[nodiscard]] int runZorel(std::span<const std::string> words, Streams& streams);

} // namespace zorel::cli
