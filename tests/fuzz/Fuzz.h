// SPDX-License-Identifier: Apache-2.0
/// @file
/// What the fuzz targets share: the input as text, and the end of a run that breaks a rule.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace zorel::fuzz {

[[nodiscard]] inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// Ends the run, and keeps the input, when a rule that holds for every input does not.
inline void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

} // namespace zorel::fuzz
