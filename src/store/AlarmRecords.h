// SPDX-License-Identifier: Apache-2.0
/// @file
/// Small records of the prayer alarms.
#pragma once

#include <cstdint>
#include <string>

namespace zorel {

/// Prayer id of the first of the six alarms.
inline constexpr std::int32_t kFirstAlarmPrayerId = 200;
/// What lies between a prayer id (200 to 205) and the number of its row of USER_ALARMS (1 to 6).
inline constexpr std::int32_t kTimeIdOffset = kFirstAlarmPrayerId - 1;

/// What the alarm editor shows of one alarm.
struct AlarmInfo {
    bool active = false;
    std::int32_t timeOffset = 0; ///< [min]
    std::int32_t melodyTime = 0; ///< index of the ringing duration, 0 to 7
    std::string melodyName;      ///< path below the ringtone folder
};

/// An alarm and the time it is counted from.
struct AlarmPrayerIdPrayerTime {
    std::int32_t prayerId = 0;
    double prayerTime = 0.0; ///< [h] local, -1: there is none
};

/// An alarm and the event that carries it.
struct AlarmTimeIdEventId {
    std::int32_t timeId = 0; ///< row of USER_ALARMS
    std::string eventId;
};

} // namespace zorel
