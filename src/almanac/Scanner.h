// SPDX-License-Identifier: Apache-2.0
/// @file
/// Reads a short text from left to right: fixed runs of digits, single characters.
#pragma once

#include <charconv>
#include <cstddef>
#include <optional>
#include <string_view>

namespace zorel::almanac {

/// A position in a text. Every reader moves on only when it succeeds.
class Scanner {
public:
    explicit Scanner(std::string_view text) : rest_(text) {}

    [[nodiscard]] bool atEnd() const { return rest_.empty(); }
    [[nodiscard]] std::string_view rest() const { return rest_; }

    bool take(char wanted) {
        if (rest_.empty() || rest_.front() != wanted) {
            return false;
        }
        rest_.remove_prefix(1);
        return true;
    }

    /// Exactly `count` digits, nine at most.
    std::optional<int> digits(std::size_t count) {
        if (leadingDigits() < count) {
            return std::nullopt;
        }
        return read(count);
    }

    /// One digit or more, at most `largest`.
    std::optional<int> number(int largest) {
        const std::size_t count = leadingDigits();
        if (count == 0 || count > 9) {
            return std::nullopt;
        }
        const Scanner before = *this;
        const auto value = read(count);
        if (*value > largest) {
            *this = before;
            return std::nullopt;
        }
        return value;
    }

private:
    [[nodiscard]] std::size_t leadingDigits() const {
        const std::size_t end = rest_.find_first_not_of("0123456789");
        return end == std::string_view::npos ? rest_.size() : end;
    }

    std::optional<int> read(std::size_t count) {
        int value = 0;
        std::from_chars(rest_.data(), rest_.data() + count, value);
        rest_.remove_prefix(count);
        return value;
    }

    std::string_view rest_;
};

} // namespace zorel::almanac
