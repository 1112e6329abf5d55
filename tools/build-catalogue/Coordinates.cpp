// SPDX-License-Identifier: Apache-2.0
#include "tools/build-catalogue/Coordinates.h"

#include "common/DecryptKey.h"

#include <cmath>
#include <fmt/format.h>
#include <stdexcept>

namespace zorel::catalogue {

namespace {

constexpr std::int64_t kThousandthsPerMinute = 60'000;
constexpr std::int64_t kThousandthsPerDegree = 60 * kThousandthsPerMinute;

/// "7.2" for 7200 thousandths of a second.
std::string secondsText(std::int64_t thousandths) {
    std::string text = fmt::format("{}.{:03}", thousandths / 1000, thousandths % 1000);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') {
        text.pop_back();
    }
    return text;
}

/// The pair C for which the decipherer, with `key` XOR C at hand, finds `byte` above `previous`. Where the
/// sum leaves the eight bits the decipherer adds 255 back, unless a key of more than eight bits keeps the
/// value above `previous`.
std::uint8_t cipherPair(std::uint8_t byte, std::uint8_t previous, std::uint16_t key) {
    constexpr unsigned kByteMask = 0xFF;
    unsigned value = static_cast<unsigned>(previous) + byte;
    if (value > kByteMask && key <= kByteMask) {
        value -= kByteMask;
    }
    return static_cast<std::uint8_t>((value ^ key) & kByteMask);
}

/// A small checksum of the text (FNV-1a), so that equal digits do not look equal in every row.
std::uint8_t firstPairFor(std::string_view text) {
    std::uint32_t hash = 2166136261U;
    for (const char c : text) {
        hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
    }
    return static_cast<std::uint8_t>(hash >> 24U);
}

} // namespace

std::string sexagesimalText(double degrees) {
    const std::int64_t all = std::llround(std::abs(degrees) * static_cast<double>(kThousandthsPerDegree));
    const std::int64_t belowDegree = all % kThousandthsPerDegree;
    return fmt::format("{}{};{};{}", degrees < 0.0 && all > 0 ? "-" : "", all / kThousandthsPerDegree,
                       belowDegree / kThousandthsPerMinute, secondsText(belowDegree % kThousandthsPerMinute));
}

std::string encipher(std::string_view bytes, std::uint8_t first, std::span<const std::uint16_t, 10> key) {
    if (bytes.find('\0') != std::string_view::npos) {
        throw std::invalid_argument("the cipher cannot carry a zero byte");
    }
    std::string hexadecimal = fmt::format("{:02X}", first);
    std::uint8_t previous = first;
    std::size_t position = kFirstDecryptKey;
    for (const char byte : bytes) {
        previous = cipherPair(static_cast<std::uint8_t>(byte), previous, key[position]);
        position = (position + 1) % key.size();
        fmt::format_to(std::back_inserter(hexadecimal), "{:02X}", previous);
    }
    return hexadecimal;
}

std::string encipheredCoordinate(double degrees) {
    const std::string text = sexagesimalText(degrees);
    return encipher(text, firstPairFor(text), kDecryptKey);
}

} // namespace zorel::catalogue
