// SPDX-License-Identifier: Apache-2.0
/// @file
/// What the tests of the alarms share: a database in a temporary folder, a look at its rows, a settable local
/// time.
#pragma once

#include "common/GlobalFuncs.h"
#include "platform/eventkit/EKEventStore.h"
#include "platform/foundation/Clock.h"
#include "store/City.h"
#include "store/Database.h"
#include "store/DatabaseFunctions.h"
#include "tests/support/TemporaryFolder.h"

#include <fmt/format.h>

#include <array>
#include <string>
#include <vector>

namespace zorel::test {

/// One row of USER_ALARMS as text.
struct StoredAlarm {
    int timeId = 0;
    int minute = 0;
    bool active = false;
    std::string prayerTime;
    std::string eventId;
};

inline std::vector<StoredAlarm> storedAlarms(const DatabaseFunctions& functions) {
    std::vector<StoredAlarm> alarms;
    const auto database = Database::openUser(functions.userDBPath());
    if (!database) {
        return alarms;
    }
    Statement rows = database->prepare(
        "SELECT TIMEID, MINUTE, ACTIVE, PRAYTIME, EVENTID FROM USER_ALARMS ORDER BY TIMEID");
    while (rows.nextRow()) {
        alarms.push_back({functions.asInteger(rows.get(), 0), functions.asInteger(rows.get(), 1),
                          functions.asBoolean(rows.get(), 2), rows.text(3), rows.text(4)});
    }
    return alarms;
}

/// "2026-03-28 18:15" on the local clock.
inline std::string localText(Instant instant) {
    const LocalDateTime local = localDateTime(instant);
    return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}", local.year, local.month, local.day, local.hour,
                       local.minute) +
           (local.second == 0 ? "" : fmt::format(":{:02}", local.second));
}

inline Instant localInstant(int year, int month, int day, int hour, int minute, int second = 0) {
    return instantFromLocal({year, month, day, hour, minute, second, 0.0});
}

/// A city with six prayer times [h].
inline City cityWithTimes(const GlobalFuncs& functions, const std::array<double, 6>& times) {
    City city(functions);
    for (std::size_t index = 0; index < times.size(); ++index) {
        city.aNamazVakitleri.times[index] = times[index];
    }
    return city;
}

/// A user database in a temporary data folder.
struct AlarmWorld {
    TemporaryLocations locations;
    GlobalFuncs glbFuncs;
    DatabaseFunctions functions{glbFuncs};

    AlarmWorld() { functions.generateUserDatabaseFile(); }
    [[nodiscard]] std::string path(const std::string& name) const { return locations.folder.path(name); }
    [[nodiscard]] StoredAlarm row(int timeId) const {
        return storedAlarms(functions).at(static_cast<std::size_t>(timeId - 1));
    }
    [[nodiscard]] std::string log() const { return readFile(path("SettingsLog.txt")); }
};

} // namespace zorel::test
