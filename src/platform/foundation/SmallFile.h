// SPDX-License-Identifier: Apache-2.0
/// @file
/// Reading files that fit into memory (POSIX).
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace zorel {

/// The bytes of a regular file of at most `limit` bytes; nothing for anything else.
[[nodiscard]] std::optional<std::string> readSmallFile(const std::string& path, std::size_t limit);

} // namespace zorel
