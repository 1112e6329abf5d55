// SPDX-License-Identifier: Apache-2.0
/// @file
/// The statements that change a user database, as texts. Prayer ids are 200 to 205, rows of USER_ALARMS 1 to
/// 6 (`timeId`).
#pragma once

#include "store/AlarmRecords.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zorel::statements {

[[nodiscard]] std::string addCity(std::int32_t cityId, bool home);
/// Every row of the city.
[[nodiscard]] std::string removeCity(std::int32_t cityId);
[[nodiscard]] std::string unmarkHome();
[[nodiscard]] std::string markAsHome(std::int32_t cityId);

[[nodiscard]] std::string setActive(std::int64_t timeId, bool active);
[[nodiscard]] std::string setEventId(std::int64_t timeId, const std::string& eventId);
[[nodiscard]] std::string setPrayerTime(std::int64_t timeId, double prayerTime);
/// What an alarm's editor stores when it is switched on; the alarm is on then.
/// @param prayerTime [h] the time that it is counted from.
[[nodiscard]] std::string defineAlarm(std::int64_t timeId, const AlarmInfo& alarm, double prayerTime);
[[nodiscard]] std::string setMelodyName(std::int64_t timeId, const std::string& melodyName);
[[nodiscard]] std::string setMelodyTime(std::int64_t timeId, std::int32_t melodyTime);

// What is silent: rows of USER_SETTINGS, whose PARAM1 holds an instant [s since the beginning of 1970]. The
// row of an alarm has the number of its prayer id.

inline constexpr std::int32_t kPauseSetting = 100; ///< SETTINGID of the pause of all alarms

/// @param until nothing: not silent (any more).
[[nodiscard]] std::vector<std::string> setSilence(std::int32_t settingId, std::optional<std::int64_t> until);

} // namespace zorel::statements
