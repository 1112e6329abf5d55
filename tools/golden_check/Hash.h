// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <fmt/format.h>
#include <string>

namespace zorel::golden {

/// FNV-1a over the bits of doubles; every not-a-number counts as the same one.
class Hash {
public:
    void add(double value) {
        ++values_;
        std::uint64_t bits = std::isnan(value) ? 0x7ff8000000000000U : std::bit_cast<std::uint64_t>(value);
        for (int i = 0; i < 8; ++i, bits >>= 8U) {
            hash_ = (hash_ ^ (bits & 0xffU)) * 0x100000001b3U;
        }
    }
    /// How many values went in.
    [[nodiscard]] std::uint64_t values() const { return values_; }
    /// Sixteen hexadecimal digits.
    [[nodiscard]] std::string text() const { return fmt::format("{:016x}", hash_); }

private:
    std::uint64_t hash_ = 0xcbf29ce484222325U;
    std::uint64_t values_ = 0;
};

} // namespace zorel::golden
