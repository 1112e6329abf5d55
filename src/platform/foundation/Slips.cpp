// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/Slips.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zorel {
namespace {

constexpr std::size_t kLongest = 64;
using Row = std::array<std::size_t, kLongest + 1>;

/// One row of the table of slips: the first `at` + 1 letters of `left` against every beginning of `right`.
/// @return the least number in the row
std::size_t fillRow(std::u32string_view left, std::u32string_view right, std::size_t at,
                    const Row& beforeLast, const Row& last, Row& row) {
    row[0] = at + 1;
    std::size_t least = row[0];
    for (std::size_t j = 0; j < right.size(); ++j) {
        row[j + 1] = std::min({last[j] + (left[at] == right[j] ? 0U : 1U), last[j + 1] + 1, row[j] + 1});
        const bool exchanged = at > 0 && j > 0 && left[at] == right[j - 1] && left[at - 1] == right[j];
        if (exchanged) {
            row[j + 1] = std::min(row[j + 1], beforeLast[j - 1] + 1);
        }
        least = std::min(least, row[j + 1]);
    }
    return least;
}

} // namespace

std::size_t slipsBetween(std::u32string_view left, std::u32string_view right, std::size_t most) {
    const std::size_t longer = std::max(left.size(), right.size());
    if (longer > kLongest || longer - std::min(left.size(), right.size()) > most) {
        return most + 1;
    }
    Row beforeLast{};
    Row last{};
    Row row{};
    for (std::size_t j = 0; j <= right.size(); ++j) {
        last[j] = j;
    }
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (fillRow(left, right, i, beforeLast, last, row) > most) {
            return most + 1;
        }
        beforeLast = std::exchange(last, row);
    }
    return std::min(last[right.size()], most + 1);
}

} // namespace zorel
