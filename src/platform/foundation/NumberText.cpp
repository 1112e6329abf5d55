// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/NumberText.h"

#include <algorithm>
#include <charconv>
#include <fmt/format.h>
#include <limits>

namespace zorel {
namespace {

constexpr std::string_view kBlanks = " \t\n\v\f\r";

bool startsWithDigit(std::string_view text) {
    return !text.empty() && text.front() >= '0' && text.front() <= '9';
}

std::string_view withoutLeading(std::string_view text, std::string_view characters) {
    text.remove_prefix(std::min(text.find_first_not_of(characters), text.size()));
    return text;
}

struct SignedText {
    bool negative = false;
    std::string_view rest;
};

SignedText takeSign(std::string_view text) {
    text = withoutLeading(text, kBlanks);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    return {negative, text};
}

/// Whether a decimal number that no double can hold is too large rather than too small.
bool isOverflow(std::string_view number) {
    const std::size_t mantissaEnd = std::min(number.find_first_of("eE"), number.size());
    const std::string_view mantissa = number.substr(0, mantissaEnd);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const auto firstDigit = static_cast<std::int64_t>(mantissa.find_first_not_of("0."));
    const std::int32_t exponent = integerValue(number.substr(std::min(mantissaEnd + 1, number.size())));
    return exponent + static_cast<std::int64_t>(point) - firstDigit > 0;
}

bool startsNumber(std::string_view text) {
    return startsWithDigit(text) || (text.starts_with('.') && startsWithDigit(text.substr(1)));
}

} // namespace

std::int32_t integerValue(std::string_view text) {
    constexpr std::int64_t smallest = std::numeric_limits<std::int32_t>::min();
    constexpr std::int64_t largest = std::numeric_limits<std::int32_t>::max();
    const auto [negative, digits] = takeSign(text);
    if (!startsWithDigit(digits)) {
        return 0;
    }
    std::int64_t magnitude = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), magnitude);
    if (result.ec == std::errc::result_out_of_range) {
        magnitude = std::numeric_limits<std::int64_t>::max();
    }
    return static_cast<std::int32_t>(std::clamp(negative ? -magnitude : magnitude, smallest, largest));
}

double doubleValue(std::string_view text) {
    const auto [negative, number] = takeSign(text);
    if (!startsNumber(number)) {
        return 0.0;
    }
    double magnitude = 0.0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), magnitude);
    if (result.ec == std::errc::result_out_of_range) {
        const std::string_view read(number.data(), static_cast<std::size_t>(result.ptr - number.data()));
        magnitude = isOverflow(read) ? std::numeric_limits<double>::infinity() : 0.0;
    }
    return negative ? -magnitude : magnitude;
}

std::string sixDecimals(double value) {
    return fmt::format("{:f}", value);
}

} // namespace zorel
