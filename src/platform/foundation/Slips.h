// SPDX-License-Identifier: Apache-2.0
/// @file
/// How far a misspelled word is from another one.
#pragma once

#include <cstddef>
#include <string_view>

namespace zorel {

/// Slips of the hand that make one word of the other: a letter too much, missing, wrong, or exchanged with
/// its neighbour (the restricted distance of Damerau, 1964). At most a word of 64 letters is compared.
/// @param most what is of interest; any larger number of slips is answered with most + 1
[[nodiscard]] std::size_t slipsBetween(std::u32string_view left, std::u32string_view right, std::size_t most);

} // namespace zorel
