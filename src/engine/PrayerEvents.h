// SPDX-License-Identifier: Apache-2.0
/// @file
/// The nine of the sixteen times that stand for an altitude of the Sun or the length of a shadow.
#pragma once

#include "engine/Records.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace zorel {

/// Positions in kPrayerEvents, in the order in which a day asks for them.
enum class PrayerEvent : std::uint8_t {
    dawn,
    sunrise,
    afternoon,
    secondAfternoon,
    sunset,
    nightfall,
    secondNightfall,
    morning5,
    afternoon5
};

struct PrayerEventRule {
    PrayerTimes::Index index;
    std::int32_t altitude;  ///< [deg]; 1 and 2: a shadow of so many staffs beyond that of noon
    std::int32_t direction; ///< -1 before noon, +1 after it
    std::int32_t temkin;    ///< its sign
    double addition;        ///< after the iteration [h]
};

inline constexpr std::array<PrayerEventRule, 9> kPrayerEvents{{
    {PrayerTimes::dawn, -19, -1, -1, 0.0},
    {PrayerTimes::sunrise, 0, -1, -1, -0.013888888992369175}, // 50 seconds
    {PrayerTimes::afternoon, 1, 1, 1, 0.0},
    {PrayerTimes::secondAfternoon, 2, 1, 1, 0.0},
    {PrayerTimes::sunset, 0, 1, 1, 0.05000000074505806}, // 3 minutes
    {PrayerTimes::nightfall, -17, 1, 1, 0.0},
    {PrayerTimes::secondNightfall, -19, 1, 1, 0.0},
    {PrayerTimes::morningFiveDegrees, 5, -1, 1, 0.0},
    {PrayerTimes::afternoonFiveDegrees, 5, 1, 0, 0.0},
}};

inline constexpr const PrayerEventRule& ruleOf(PrayerEvent event) {
    return kPrayerEvents[static_cast<std::size_t>(event)];
}

} // namespace zorel
