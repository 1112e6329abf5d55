// SPDX-License-Identifier: Apache-2.0
/// @file
/// The user database: chosen cities, the six alarms, and the calendar events that carry the alarms.
#pragma once

#include "store/AlarmRecords.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

struct sqlite3;
struct sqlite3_stmt;

namespace zorel {

class City;
class Database;
class GlobalFuncs;

/// Every operation opens the file, works and closes it again; failures are logged and answered with false or
/// default values, never thrown. Those on alarms work under the user's lock and do nothing without it.
class DatabaseFunctions {
public:
    explicit DatabaseFunctions(const GlobalFuncs& glbFuncs);

    /// "user.sqlite" of the data folder, unless another path was set.
    [[nodiscard]] const std::string& userDBPath() const { return userDBPath_; }
    void setUserDBPath(std::string path) { userDBPath_ = std::move(path); }

    // Database (DatabaseFunctions.cpp).

    /// Creates the file with its tables and six alarm rows when it does not exist; an existing file is never
    /// altered.
    void generateUserDatabaseFile();
    /// Runs a statement, or several separated by semicolons, that return no rows; false when one failed.
    bool executeSQL(const std::string& statement);
    /// Runs each statement on one connection; true when at least one succeeded.
    bool executeArrayOfSQL(std::span<const std::string> statements);

    // Typed readers of a column of the current row. NULL and text that is no number give 0, false or "".
    [[nodiscard]] std::int32_t asInteger(sqlite3_stmt* statement, int column) const;
    [[nodiscard]] bool asBoolean(sqlite3_stmt* statement, int column) const;
    [[nodiscard]] double asFloat(sqlite3_stmt* statement, int column) const;
    [[nodiscard]] std::string asString(sqlite3_stmt* statement, int column) const;

    // Alarms (DatabaseFunctions_Alarms.cpp). Prayer ids 200 to 205. Offsets [min], prayer times [h] local.

    /// What is stored of an alarm; off and empty when it cannot be read.
    [[nodiscard]] AlarmInfo getAlarmInfo(std::int32_t prayerId) const;
    /// Stores an alarm, switches it on and places its event. @param melodyName path below the ringtone
    /// folder. @param melodyTime index of the ringing duration.
    void updateAlarmDefinitions(std::int32_t prayerId, std::int32_t minuteOffset, double prayerTime,
                                const std::string& melodyName, std::int32_t melodyTime);
    /// Stores the time that an alarm is counted from, switches it on and moves its event.
    void updateAlarmPrayerTime(std::int32_t prayerId, double prayerTime);
    /// Places the alarm's event at its next occurrence, or moves it there; switches the alarm on.
    void reCalculateAlarm(std::int32_t prayerId);
    /// Switches an alarm off and removes its event; what was chosen for it stays.
    void deleteAlarm(std::int32_t prayerId);
    /// Recomputes every active alarm from the city's times.
    void setAllAlarms(const City& city);
    /// Removes the events of all active alarms; switches them off too when `deactivate` is set.
    void clearAllAlarms(bool deactivate);

    // What went wrong.

    /// Logs why an operation could not be done ("Error in saveEvent : no room"), and keeps the reason.
    /// Without an operation the reason is logged as it is.
    void logTrouble(std::string_view operation, const std::string& reason);
    /// The latest reason; empty after forgetTrouble and until something goes wrong.
    [[nodiscard]] const std::string& trouble() const { return trouble_; }
    void forgetTrouble() { trouble_.clear(); }

private:
    [[nodiscard]] std::optional<Database> openOrLog(std::string_view operation);
    bool executeOrLog(const Database& database, const std::string& statement);

    const GlobalFuncs& glbFuncs_;
    std::string userDBPath_;
    std::string trouble_;
};

} // namespace zorel
