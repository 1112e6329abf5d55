// SPDX-License-Identifier: Apache-2.0
/// @file
/// What the values of options and arguments may be. A value that fails is named in the error text.
#pragma once

#include <CLI/CLI.hpp>

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace zorel::cli {

/// One of some words, in any case; the value becomes lower case. Its description ("{tr,en}") lists them.
[[nodiscard]] CLI::Validator oneOf(const std::vector<std::string>& choices);

/// A whole number between two bounds, both included.
[[nodiscard]] CLI::Validator wholeNumber(std::int64_t smallest,
                                         std::int64_t largest = std::numeric_limits<std::int32_t>::max());

/// Any text but the empty one: an unset variable of a script shall not mean "today" or "the usual folder".
[[nodiscard]] CLI::Validator someText();

} // namespace zorel::cli
