// SPDX-License-Identifier: Apache-2.0
/// @file
/// Small records of the prayer alarms.
#pragma once

#include <cstdint>
#include <string>

namespace zorel {

/// Number of the alarm row of a prayer id (200 to 205): 1 to 6.
inline constexpr std::int32_t kFirstAlarmPrayerId = 200;
inline constexpr std::int32_t kTimeIdOffset = 199;

/// What the alarm editor shows of one alarm.
struct AlarmInfo {
    bool active = false;
    std::int32_t timeOffset = 0; ///< [min]
    std::int32_t melodyTime = 0; ///< index of the ringing duration
    std::string melodyName;
};

struct AlarmPrayerIdPrayerTime {
    std::int32_t prayerId = 0;
    double prayerTime = 0.0; ///< [h]
};

struct AlarmTimeIdEventId {
    std::int32_t timeId = 0;
    std::string eventId;
};

} // namespace zorel
