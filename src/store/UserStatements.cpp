// SPDX-License-Identifier: Apache-2.0
#include "store/UserStatements.h"

#include "platform/foundation/NumberText.h"
#include "store/StatementText.h"

#include <fmt/format.h>

namespace zorel::statements {

std::string addCity(std::int32_t cityId, bool home) {
    return fmt::format("INSERT INTO USER_CITY (ID,SETASHOME) VALUES ({}, {})", cityId, home ? 1 : 0);
}

std::string removeCity(std::int32_t cityId) {
    return fmt::format("DELETE FROM USER_CITY WHERE ID = {}", cityId);
}

std::string unmarkHome() {
    return "UPDATE USER_CITY SET SETASHOME = 0";
}

std::string markAsHome(std::int32_t cityId) {
    return fmt::format("UPDATE USER_CITY SET SETASHOME={} WHERE ID={}", 1, cityId);
}

std::string setActive(std::int64_t timeId, bool active) {
    return fmt::format(" UPDATE USER_ALARMS SET ACTIVE = {}  WHERE TIMEID = {} ", active ? 1 : 0, timeId);
}

std::string setEventId(std::int64_t timeId, const std::string& eventId) {
    return fmt::format(" UPDATE USER_ALARMS SET EVENTID = '{}'  WHERE TIMEID = {} ", statementText(eventId),
                       timeId);
}

std::string setPrayerTime(std::int64_t timeId, double prayerTime) {
    return fmt::format(" UPDATE USER_ALARMS SET  PRAYTIME = {}  WHERE TIMEID = {} ", sixDecimals(prayerTime),
                       timeId);
}

std::string defineAlarm(std::int64_t timeId, const AlarmInfo& alarm, double prayerTime) {
    return fmt::format(
        " UPDATE USER_ALARMS SET  MINUTE = {}, ACTIVE = 1, MELODYTIME = {}, MELODYNAME = '{}', "
        "PRAYTIME = {}  WHERE TIMEID = {} ",
        alarm.timeOffset, alarm.melodyTime, statementText(alarm.melodyName), sixDecimals(prayerTime), timeId);
}

std::string setMelodyName(std::int64_t timeId, const std::string& melodyName) {
    return fmt::format(" UPDATE USER_ALARMS SET MELODYNAME = '{}'  WHERE TIMEID = {} ",
                       statementText(melodyName), timeId);
}

std::string setMelodyTime(std::int64_t timeId, std::int32_t melodyTime) {
    return fmt::format(" UPDATE USER_ALARMS SET MELODYTIME = {}  WHERE TIMEID = {} ", melodyTime, timeId);
}

std::vector<std::string> setSilence(std::int32_t settingId, std::optional<std::int64_t> until) {
    std::vector<std::string> texts{fmt::format("DELETE FROM USER_SETTINGS WHERE SETTINGID = {}", settingId)};
    if (until) {
        texts.push_back(
            fmt::format("INSERT INTO USER_SETTINGS (SETTINGID,PARAM1) VALUES ({}, {})", settingId, *until));
    }
    return texts;
}

} // namespace zorel::statements
