// SPDX-License-Identifier: Apache-2.0
/// @file
/// Whole numbers out of floating-point ones, without undefined behaviour at any value.
#pragma once

#include <cstdint>
#include <limits>

namespace zorel {

/// x truncated toward zero; the nearest 32-bit number when out of range, 0 for not-a-number.
constexpr std::int32_t toInt(double x) {
    using Limits = std::numeric_limits<std::int32_t>;
    if (!(x > static_cast<double>(Limits::min()))) {
        return x != x ? 0 : Limits::min();
    }
    return x < static_cast<double>(Limits::max()) ? static_cast<std::int32_t>(x) : Limits::max();
}

/// A 64-bit number brought into the 32-bit range.
constexpr std::int32_t clampInt(std::int64_t x) {
    using Limits = std::numeric_limits<std::int32_t>;
    if (x < Limits::min()) {
        return Limits::min();
    }
    return x > Limits::max() ? Limits::max() : static_cast<std::int32_t>(x);
}

/// a + b, at the end of the range instead of beyond it.
constexpr std::int32_t addInt(std::int32_t a, std::int32_t b) {
    return clampInt(static_cast<std::int64_t>(a) + b);
}

} // namespace zorel
