// SPDX-License-Identifier: Apache-2.0
/// @file
/// Lengths of time as people type them.
#pragma once

#include <CLI/CLI.hpp>

#include <chrono>
#include <optional>
#include <string_view>

namespace zorel::cli {

/// "90" (of `unit`), "90s", "2m", "2min", "1m30" (seconds behind minutes), "1m30s", "1h", "1h30" (minutes
/// behind hours), "1h30m15s". Nothing for any other text, and beyond 999999 of a unit.
[[nodiscard]] std::optional<std::chrono::seconds> parseDuration(std::string_view text,
                                                                std::chrono::seconds unit);

/// Whole minutes between two bounds, both included; the value becomes their number.
[[nodiscard]] CLI::Validator wholeMinutes(int smallest, int largest);

} // namespace zorel::cli
