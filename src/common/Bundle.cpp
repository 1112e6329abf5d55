// SPDX-License-Identifier: Apache-2.0
#include "common/Bundle.h"

#include "common/DecryptKey.h"
#include "platform/foundation/CodePage1254.h"
#include "platform/foundation/NumberText.h"

#include <cstdint>
#include <optional>

namespace zorel {
namespace {

constexpr double kMinutesPerDegree = 60.0;
constexpr double kSecondsPerDegree = 3600.0;
constexpr std::uint32_t kSubtractionBase = 255; ///< not 256: the cipher's own arithmetic

/// Value of an unsigned sexagesimal text [deg].
double sexagesimalValue(std::string_view text) {
    std::size_t end = text.find(';');
    double value = doubleValue(text.substr(0, end));
    while (end != std::string_view::npos) {
        text.remove_prefix(end + 1);
        end = text.find(';');
        const bool endsWithSemicolon = end != std::string_view::npos;
        value +=
            doubleValue(text.substr(0, end)) / (endsWithSemicolon ? kMinutesPerDegree : kSecondsPerDegree);
    }
    return value;
}

/// Value of a hexadecimal digit.
std::optional<std::uint32_t> hexadecimalDigit(char digit) {
    if (digit >= '0' && digit <= '9') {
        return static_cast<std::uint32_t>(digit - '0');
    }
    const char small = static_cast<char>(digit | 0x20);
    return small >= 'a' && small <= 'f' ? std::optional(static_cast<std::uint32_t>(small - 'a') + 10U)
                                        : std::nullopt;
}

/// The number of a pair of hexadecimal digits.
std::optional<std::uint32_t> hexadecimalPair(std::string_view pair) {
    if (pair.size() != 2) {
        return std::nullopt;
    }
    const auto high = hexadecimalDigit(pair[0]);
    const auto low = hexadecimalDigit(pair[1]);
    return high && low ? std::optional(*high * 16U + *low) : std::nullopt;
}

char decipheredByte(std::uint32_t key, std::uint32_t previous, std::uint32_t pair) {
    const std::uint32_t mixed = key ^ pair;
    const std::uint32_t byte = mixed > previous ? mixed - previous : mixed + kSubtractionBase - previous;
    return static_cast<char>(static_cast<std::uint8_t>(byte));
}

/// Deciphers up to the first pair that is none.
std::string decipheredBytes(std::string_view hexadecimal) {
    std::string bytes;
    std::size_t key = kFirstDecryptKey;
    auto previous = hexadecimalPair(hexadecimal.substr(0, 2));
    for (std::size_t at = 2; previous && at < hexadecimal.size(); at += 2) {
        const auto pair = hexadecimalPair(hexadecimal.substr(at, 2));
        if (pair) {
            bytes += decipheredByte(kDecryptKey[key], *previous, *pair);
        }
        previous = pair;
        key = (key + 1) % kDecryptKey.size();
    }
    return bytes;
}

} // namespace

std::string Bundle::getFloatStr(std::string_view text) const {
    const bool negative = text.starts_with('-');
    const double value = sexagesimalValue(negative ? text.substr(1) : text);
    return sixDecimals(negative ? -value : value);
}

std::string Bundle::Decrypt(std::string_view hexadecimal) const {
    const std::string bytes = decipheredBytes(hexadecimal);
    return utf8FromCodePage1254(bytes.substr(0, bytes.find('\0')));
}

} // namespace zorel
