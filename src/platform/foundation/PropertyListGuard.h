// SPDX-License-Identifier: Apache-2.0
/// @file
/// A look at the bytes of a property list before libplist gets them. The library recurses without a limit and
/// copies an object as often as it is referred to, so that a few hundred bytes can exhaust the stack or the
/// memory.
#pragma once

#include <cstddef>
#include <string_view>

namespace zorel {

inline constexpr std::size_t kLargestPropertyList = 262144;     ///< [bytes]
inline constexpr std::size_t kMostPropertyContainers = 4096;    ///< lists and dictionaries in one file
inline constexpr std::size_t kLargestPropertyContent = 4194304; ///< [bytes] when every reference is copied

[[nodiscard]] bool isBinaryPropertyList(std::string_view bytes);
/// Whether no text holds a zero (libplist's reader asserts that there is none) and size, number of containers
/// and references keep within bounds: in a binary list no container is referred to twice, so that it is a
/// tree.
[[nodiscard]] bool isHarmlessPropertyList(std::string_view bytes);

} // namespace zorel
