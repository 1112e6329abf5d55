// SPDX-License-Identifier: Apache-2.0
/// @file
/// What has been told to the user before.
#pragma once

#include <string_view>

namespace zorel::cli {

/// Whether this is told for the first time; from then on it is not. A small file in the user's data folder
/// keeps the last hundred of what was told ("ToldNames.txt"); when it cannot be written, everything is told
/// again.
[[nodiscard]] bool isToldFirst(std::string_view what);

} // namespace zorel::cli
