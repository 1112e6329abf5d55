// SPDX-License-Identifier: Apache-2.0
/// @file
/// Marks behind a day whose times are unusual, with their legend.
#pragma once

#include "grammar/Context.h"

#include "almanac/Day.h"

#include <span>
#include <string>
#include <vector>

namespace zorel::cli {

/// "*" for a lowered latitude, "~" for a time of another day, "^" for a corrected one, among the times that
/// are shown.
[[nodiscard]] std::string marksOf(const almanac::Day& day, std::span<const almanac::Prayer> shown);
/// A sentence for each mark that occurs: "* no sunrise or sunset there that day ...".
[[nodiscard]] std::vector<std::string> legendOf(const std::string& marks);

} // namespace zorel::cli
