// SPDX-License-Identifier: Apache-2.0
/// @file
/// Key of the cipher in which the catalogue keeps its coordinates. The catalogue's builder enciphers with the
/// same table, so a change here makes every catalogue built before unreadable.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace zorel {

/// Ten values, taken in turn from position 1. All lie within 1 to 255: then every byte but 0 has exactly one
/// pair that deciphers to it, except 255 after the pair 00, which has two.
inline constexpr std::array<std::uint16_t, 10> kDecryptKey = {0x5A, 0xC3, 0x17, 0x8E, 0xD1,
                                                              0x2F, 0x74, 0xB8, 0x63, 0x9D};

/// Position of the value that deciphers the first byte.
inline constexpr std::size_t kFirstDecryptKey = 1;

} // namespace zorel
