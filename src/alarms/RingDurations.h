// SPDX-License-Identifier: Apache-2.0
/// @file
/// How long an alarm rings.
#pragma once

#include <array>
#include <chrono>

namespace zorel {

/// By the stored index of the duration, 0 to 7.
inline constexpr std::array<std::chrono::seconds, 8> kRingDurations{
    std::chrono::seconds(5),   std::chrono::seconds(10), std::chrono::seconds(20),
    std::chrono::seconds(30),  std::chrono::seconds(60), std::chrono::seconds(120),
    std::chrono::seconds(180), std::chrono::seconds(300)};

} // namespace zorel
