// SPDX-License-Identifier: Apache-2.0
// The alarm half of DatabaseFunctions: each of the six rows of USER_ALARMS is carried by one event of the
// calendar.
#include "store/DatabaseFunctions.h"

#include "common/GlobalFuncs.h"
#include "platform/eventkit/EKEventStore.h"
#include "platform/foundation/NumberText.h"
#include "store/AlarmOwner.h"
#include "store/City.h"
#include "store/Database.h"
#include "store/UserLock.h"
#include "store/UserStatements.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <fmt/format.h>
#include <limits>
#include <optional>
#include <sqlite3.h>
#include <utility>
#include <vector>

namespace zorel {
namespace {

/// An alarm that is due within this time counts as past [min].
constexpr std::int32_t kMarginMinutes = 5;
/// Far beyond any prayer time [h] or offset [min]; larger values would only overflow.
constexpr double kLargestHour = 100'000.0;
constexpr std::int32_t kLargestOffset = 10'000'000;

constexpr const char* kActiveAlarms = "SELECT TIMEID, EVENTID FROM USER_ALARMS WHERE ACTIVE = 1";

/// What an alarm is placed from.
struct PlacedFrom {
    std::int32_t minute = 0; ///< offset [min]
    double prayerTime = 0.0; ///< [h]
    std::string eventId;
};

/// What every step of an operation works with.
struct Context {
    DatabaseFunctions& database;
    const GlobalFuncs& glbFuncs;
};

std::int64_t timeIdOf(std::int32_t prayerId) {
    return std::int64_t{prayerId} - kTimeIdOffset;
}

/// Keeps a second process (the window and a daily timer, say) out of an operation that reads a row, changes
/// the calendar and writes the row.
class AlarmLock {
public:
    AlarmLock(DatabaseFunctions& database, std::string_view operation)
        : lock_(database.userDBPath(), LockKind::exclusive) {
        if (!lock_.isHeld()) {
            database.logTrouble(operation, lock_.reason());
        }
    }
    [[nodiscard]] bool isHeld() const { return lock_.isHeld(); }

private:
    UserLock lock_;
};

/// Runs a query and hands each row to the function. True when every row was read.
template <typename RowFunction>
bool forEachRow(const GlobalFuncs& glbFuncs, const std::string& path, const std::string& query,
                RowFunction useRow) {
    if (!glbFuncs.fileExists(path)) {
        return false;
    }
    const auto database = Database::openUser(path, UserLock::patience(path));
    if (!database) {
        return false;
    }
    Statement statement = database->prepare(query);
    while (statement.nextRow()) {
        useRow(statement.get());
    }
    return statement.isPrepared() && sqlite3_reset(statement.get()) == SQLITE_OK;
}

template <typename RowFunction>
bool forEachRow(const Context& context, const std::string& query, RowFunction useRow) {
    return forEachRow(context.glbFuncs, context.database.userDBPath(), query, useRow);
}

std::optional<PlacedFrom> readRow(const Context& context, std::int64_t timeId) {
    std::optional<PlacedFrom> row;
    const DatabaseFunctions& database = context.database;
    forEachRow(context,
               fmt::format(" SELECT MINUTE, PRAYTIME, EVENTID FROM USER_ALARMS WHERE TIMEID = {}", timeId),
               [&](sqlite3_stmt* columns) {
                   row = PlacedFrom{database.asInteger(columns, 0), database.asFloat(columns, 1),
                                    database.asString(columns, 2)};
               });
    return row;
}

void writeActive(const Context& context, std::int64_t timeId, bool active) {
    context.database.executeSQL(statements::setActive(timeId, active));
}

void writeEventId(const Context& context, std::int64_t timeId, const std::string& eventId) {
    context.database.executeSQL(statements::setEventId(timeId, eventId));
}

void writePrayerTime(const Context& context, std::int64_t timeId, double prayerTime) {
    context.database.executeSQL(statements::setPrayerTime(timeId, prayerTime));
}

EKEventStore storeFor(const Context& context) {
    return EKEventStore(alarmOwner(context.database.userDBPath()));
}

/// Removes this database's events that no active alarm knows: a process that dies between saving an event and
/// noting its identifier leaves one. When the rows cannot be read completely, nothing is removed.
void removeOrphans(const Context& context, const EKEventStore& store, const std::string& alsoKeep) {
    std::vector<std::string> known{alsoKeep};
    const bool complete = forEachRow(context, kActiveAlarms, [&](sqlite3_stmt* columns) {
        known.push_back(context.database.asString(columns, 1));
    });
    if (complete) {
        store.removeEventsExcept(known);
    }
}

void removeEvent(const Context& context, const EKEventStore& store, const std::string& eventId) {
    std::string reason;
    const auto event = store.eventWithIdentifier(eventId);
    if (event && !store.removeEvent(*event, EKSpan::thisEvent, &reason)) {
        context.database.logTrouble("removeEvent", reason);
    }
}

/// The prayer time on the day of `today` plus the offset, as a Julian day. Minutes outside 0 to 59 carry
/// over; a prayer time of -1 (no such time) gives the hour before midnight like any other number.
double alarmDay(const GlobalFuncs& glbFuncs, const DateTimeRecord& today, const PlacedFrom& row) {
    const double hours =
        std::isnan(row.prayerTime) ? 0.0 : std::clamp(row.prayerTime, -kLargestHour, kLargestHour);
    const double wholeHours = std::trunc(hours);
    const auto minute = static_cast<std::int32_t>((hours - wholeHours) * 60.0) +
                        std::clamp(row.minute, -kLargestOffset, kLargestOffset);
    return glbFuncs.GregorianDateToJulian(
        DateRecordMake(today.day, today.month, today.year, static_cast<std::int32_t>(wholeHours), minute, 0));
}

/// The next occurrence of the alarm, today or tomorrow, on the local clock.
DateTimeRecord alarmMoment(const GlobalFuncs& glbFuncs, const PlacedFrom& row) {
    DateTimeRecord soon = glbFuncs.GetCurrentDateTime();
    const double alarmToday = alarmDay(glbFuncs, soon, row);
    soon.minute += kMarginMinutes;
    soon.second = 0;
    const bool past = glbFuncs.GregorianDateToJulian(soon) > alarmToday;
    return glbFuncs.JulianToGregorian(past ? alarmToday + 1.0 : alarmToday);
}

/// One minute later on the same calendar day: after 23:59 comes 0:00 of that day, which lies before it.
/// Calendars handle that (withEndAfterStart).
DateTimeRecord endOf(const GlobalFuncs& glbFuncs, const DateTimeRecord& start) {
    const DateTimeRecord later = glbFuncs.JulianToGregorian(glbFuncs.GregorianDateToJulian(
        DateRecordMake(start.day, start.month, start.year, start.hour, start.minute + 1, 0)));
    return DateRecordMake(start.day, start.month, start.year, later.hour, later.minute, 0);
}

Instant dateFromComponents(const DateTimeRecord& record) {
    return instantFromLocal({record.year, record.month, record.day, record.hour, record.minute, 0, 0.0});
}

/// Saves the alarm's event, the one it has or a new one, and returns the identifier that the event then has.
std::string placeEvent(const Context& context, const EKEventStore& store, const PlacedFrom& row) {
    const GlobalFuncs& glbFuncs = context.glbFuncs;
    const DateTimeRecord start = alarmMoment(glbFuncs, row);
    auto existing = store.eventWithIdentifier(row.eventId);
    EKEvent event = existing ? std::move(*existing) : EKEvent::eventWithEventStore(store);
    event.alarms = {EKAlarm::alarmWithRelativeOffset(0)};
    event.title = "Prayer Alarm";
    event.allDay = false;
    event.location = "Zorel";
    event.notes.reset();
    event.recurrenceRules.clear();
    event.startDate = dateFromComponents(start);
    event.endDate = dateFromComponents(endOf(glbFuncs, start));
    event.calendar = store.defaultCalendarForNewEvents();
    if (std::string reason; !store.saveEvent(event, EKSpan::thisEvent, &reason)) {
        context.database.logTrouble("saveEvent", reason);
    }
    return event.eventIdentifier;
}

/// reCalculateAlarm, under the lock. An alarm without a readable row gets no event: nobody could find it
/// again.
void place(const Context& context, std::int32_t prayerId) {
    if (!context.glbFuncs.fileExists(context.database.userDBPath())) {
        return;
    }
    const std::int64_t timeId = timeIdOf(prayerId);
    const auto row = readRow(context, timeId);
    writeActive(context, timeId, true);
    if (!row) {
        return;
    }
    const EKEventStore store = storeFor(context);
    removeOrphans(context, store, row->eventId);
    writeEventId(context, timeId, placeEvent(context, store, *row));
}

/// deleteAlarm, under the lock.
void remove(const Context& context, std::int64_t timeId) {
    if (!context.glbFuncs.fileExists(context.database.userDBPath())) {
        return;
    }
    const auto row = readRow(context, timeId);
    const EKEventStore store = storeFor(context);
    removeEvent(context, store, row ? row->eventId : std::string());
    writeEventId(context, timeId, "");
    writeActive(context, timeId, false);
    removeOrphans(context, store, "");
}

} // namespace

AlarmInfo DatabaseFunctions::getAlarmInfo(std::int32_t prayerId) const {
    AlarmInfo info;
    try {
        forEachRow(
            glbFuncs_, userDBPath_,
            fmt::format(" SELECT MINUTE, MELODYTIME, MELODYNAME, ACTIVE  FROM USER_ALARMS WHERE TIMEID = {} ",
                        timeIdOf(prayerId)),
            [&](sqlite3_stmt* columns) {
                info.timeOffset = asInteger(columns, 0);
                info.melodyTime = asInteger(columns, 1);
                info.melodyName = asString(columns, 2);
                info.active = asBoolean(columns, 3);
            });
    } catch (const std::exception& exception) {
        glbFuncs_.NSLogToFile(exception.what());
    }
    return info;
}

void DatabaseFunctions::updateAlarmDefinitions(std::int32_t prayerId, std::int32_t minuteOffset,
                                               double prayerTime, const std::string& melodyName,
                                               std::int32_t melodyTime) {
    const AlarmLock lock(*this, "updateAlarmDefinitions");
    if (!lock.isHeld()) {
        return;
    }
    const Context context{*this, glbFuncs_};
    executeSQL(statements::defineAlarm(timeIdOf(prayerId), {true, minuteOffset, melodyTime, melodyName},
                                       prayerTime));
    place(context, prayerId);
}

void DatabaseFunctions::updateAlarmPrayerTime(std::int32_t prayerId, double prayerTime) {
    const AlarmLock lock(*this, "updateAlarmPrayerTime");
    if (!lock.isHeld()) {
        return;
    }
    const Context context{*this, glbFuncs_};
    writePrayerTime(context, timeIdOf(prayerId), prayerTime);
    place(context, prayerId);
}

void DatabaseFunctions::reCalculateAlarm(std::int32_t prayerId) {
    const AlarmLock lock(*this, "reCalculateAlarm");
    if (!lock.isHeld()) {
        return;
    }
    const Context context{*this, glbFuncs_};
    place(context, prayerId);
}

void DatabaseFunctions::deleteAlarm(std::int32_t prayerId) {
    try {
        const Context context{*this, glbFuncs_};
        const AlarmLock lock(*this, "deleteAlarm");
        if (!lock.isHeld()) {
            return;
        }
        remove(context, timeIdOf(prayerId));
    } catch (const std::exception& exception) {
        glbFuncs_.NSLogToFile(exception.what());
    }
}

void DatabaseFunctions::setAllAlarms(const City& city) {
    const AlarmLock lock(*this, "setAllAlarms");
    if (!lock.isHeld()) {
        return;
    }
    const Context context{*this, glbFuncs_};
    std::vector<AlarmPrayerIdPrayerTime> alarms;
    forEachRow(context, "SELECT TIMEID FROM USER_ALARMS WHERE ACTIVE = 1", [&](sqlite3_stmt* columns) {
        const std::int64_t prayerId = std::int64_t{asInteger(columns, 0)} + kTimeIdOffset;
        const auto bounded = static_cast<std::int32_t>(
            std::min<std::int64_t>(prayerId, std::numeric_limits<std::int32_t>::max()));
        alarms.push_back({bounded, city.getRelevantPrayerTime(bounded)});
    });
    for (const AlarmPrayerIdPrayerTime& alarm : alarms) {
        writePrayerTime(context, timeIdOf(alarm.prayerId), alarm.prayerTime);
        place(context, alarm.prayerId);
    }
}

void DatabaseFunctions::clearAllAlarms(bool deactivate) {
    const AlarmLock lock(*this, "clearAllAlarms");
    if (!lock.isHeld()) {
        return;
    }
    const Context context{*this, glbFuncs_};
    std::vector<AlarmTimeIdEventId> alarms;
    forEachRow(context, kActiveAlarms, [&](sqlite3_stmt* columns) {
        alarms.push_back({asInteger(columns, 0), asString(columns, 1)});
        removeEvent(context, storeFor(context), alarms.back().eventId);
    });
    for (const AlarmTimeIdEventId& alarm : alarms) {
        writeEventId(context, alarm.timeId, "");
        if (deactivate) {
            writeActive(context, alarm.timeId, false);
        }
    }
    removeOrphans(context, storeFor(context), "");
}

} // namespace zorel
