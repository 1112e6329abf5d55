// SPDX-License-Identifier: Apache-2.0
#include "store/UserRows.h"

#include "platform/foundation/Locations.h"
#include "platform/foundation/NumberText.h"
#include "store/UserStatements.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <algorithm>
#include <iterator>

namespace zorel {
namespace {

StoreResult resultOf(const UserLock& lock) {
    return {lock.state() == LockState::busy ? StoreState::busy : StoreState::failed, lock.reason()};
}

std::optional<std::string> textOrNull(const Statement& row, int column) {
    const bool isNull = sqlite3_column_type(row.get(), column) == SQLITE_NULL;
    return isNull ? std::nullopt : std::optional(row.text(column));
}

StoreResult readAlarm(const UserReader& reader, AlarmRow& alarm) {
    bool found = false;
    StoreResult result = reader.forEachRow(
        fmt::format(" SELECT MINUTE, MELODYTIME, MELODYNAME, ACTIVE  FROM USER_ALARMS WHERE TIMEID = {} ",
                    alarm.timeId),
        [&](const Statement& row) {
            found = true;
            alarm.minute = integerValue(row.text(0));
            const auto duration = textOrNull(row, 1);
            alarm.melodyTime = duration ? std::optional(integerValue(*duration)) : std::nullopt;
            alarm.melodyName = textOrNull(row, 2);
            alarm.active = integerValue(row.text(3)) > 0;
        });
    if (result.isDone() && !found) {
        return {StoreState::failed, fmt::format("the row of alarm {} is missing", alarm.timeId)};
    }
    return result;
}

StoreResult readEvent(const UserReader& reader, AlarmRow& alarm) {
    return reader.forEachRow(
        fmt::format(" SELECT MINUTE, PRAYTIME, EVENTID FROM USER_ALARMS WHERE TIMEID = {}", alarm.timeId),
        [&](const Statement& row) {
            const auto time = textOrNull(row, 1);
            alarm.prayerTime = time ? std::optional(doubleValue(*time)) : std::nullopt;
            alarm.eventId = textOrNull(row, 2);
        });
}

StoreResult readAlarms(const UserReader& reader, std::array<AlarmRow, kAlarms>& alarms) {
    std::int32_t timeId = 0;
    for (AlarmRow& alarm : alarms) {
        alarm.timeId = ++timeId;
        StoreResult result = readAlarm(reader, alarm);
        if (result.isDone()) {
            result = readEvent(reader, alarm);
        }
        if (!result.isDone()) {
            return result;
        }
    }
    return {StoreState::done, {}};
}

/// An instant of a row of settings; nothing where it holds no whole number that can be one.
std::optional<std::int64_t> instantOf(const Statement& row, int column) {
    constexpr double latest = 253'402'300'800; // the year 10000
    const auto text = textOrNull(row, column);
    const double seconds = text ? doubleValue(*text) : 0.0;
    return seconds > 0.0 && seconds < latest ? std::optional(static_cast<std::int64_t>(seconds))
                                             : std::nullopt;
}

StoreResult readSilences(const UserReader& reader, UserRows& rows) {
    return reader.forEachRow(
        fmt::format("SELECT SETTINGID, PARAM1 FROM USER_SETTINGS WHERE SETTINGID IN ({}, 200, 201, 202, 203, "
                    "204, 205)",
                    statements::kPauseSetting),
        [&](const Statement& row) {
            const std::int32_t settingId = integerValue(row.text(0));
            if (settingId == statements::kPauseSetting) {
                rows.pausedUntil = instantOf(row, 1);
            } else {
                rows.alarms.at(static_cast<std::size_t>(settingId - kFirstAlarmPrayerId)).silentUntil =
                    instantOf(row, 1);
            }
        });
}

bool sameCities(const std::vector<UserCity>& left, const std::vector<UserCity>& right) {
    return std::ranges::equal(left, right, [](const UserCity& one, const UserCity& other) {
        return one.cityId == other.cityId && one.setAsHome == other.setAsHome;
    });
}

/// Every city goes and comes again, so that the list has its order.
void restoreCities(const UserRows& before, const UserRows& now, std::vector<std::string>& statements) {
    if (sameCities(before.cities, now.cities)) {
        return;
    }
    for (const UserCity& city : now.cities) {
        statements.push_back(statements::removeCity(integerValue(city.cityId)));
    }
    for (const UserCity& city : before.cities) {
        statements.push_back(statements::addCity(integerValue(city.cityId), isMarkedAsHome(city)));
    }
}

std::string textLiteral(const std::optional<std::string>& text) {
    if (!text) {
        return "NULL";
    }
    std::string literal = "'";
    for (const char character : *text) {
        literal.append(character == '\'' ? 2 : 1, character);
    }
    return literal + "'";
}

std::string restoreAlarm(const AlarmRow& row) {
    return fmt::format(
        " UPDATE USER_ALARMS SET  MINUTE = {}, ACTIVE = {}, MELODYTIME = {}, MELODYNAME = {}, PRAYTIME = {}, "
        "EVENTID = {}  WHERE TIMEID = {} ",
        row.minute, row.active ? 1 : 0, row.melodyTime ? fmt::format("{}", *row.melodyTime) : "NULL",
        textLiteral(row.melodyName), row.prayerTime ? sixDecimals(*row.prayerTime) : "NULL",
        textLiteral(row.eventId), row.timeId);
}

} // namespace

AlarmInfo AlarmRow::info() const {
    return {active, minute, melodyTime.value_or(0), melodyName.value_or(std::string())};
}

UserReader::UserReader(const std::string& path)
    : lock_(path, LockKind::shared), isThere_(!isMissingAtPath(path)),
      database_(isThere_ && lock_.allowsReading() ? Database::openUser(path, UserLock::patience(path))
                                                  : std::nullopt) {}

StoreResult UserReader::forEachRow(const std::string& query,
                                   const std::function<void(const Statement&)>& take) const {
    if (!lock_.allowsReading()) {
        return resultOf(lock_);
    }
    if (!isThere_) {
        return {StoreState::missing, "there is no user database"};
    }
    if (!database_) {
        return {StoreState::failed, "the user database cannot be opened"};
    }
    Statement rows = database_->prepare(query);
    while (rows.isPrepared() && rows.nextRow()) {
        take(rows);
    }
    return rows.isAtEnd() ? StoreResult{StoreState::done, {}} : database_->trouble();
}

UserRows storedUserRows(const std::string& path) {
    const UserReader reader(path);
    UserRows rows;
    rows.result = reader.forEachRow("SELECT ID, SETASHOME FROM USER_CITY", [&](const Statement& row) {
        rows.cities.push_back({row.text(0), row.text(1)});
    });
    if (rows.result.isDone()) {
        rows.result = readAlarms(reader, rows.alarms);
    }
    if (rows.result.isDone()) {
        rows.result = readSilences(reader, rows);
    }
    return rows;
}

StoreResult changeUserRows(const std::string& path, const std::vector<std::string>& statements) {
    const UserLock lock(path, LockKind::exclusive);
    if (!lock.isHeld()) {
        return resultOf(lock);
    }
    if (isMissingAtPath(path)) {
        return {StoreState::missing, "there is no user database"};
    }
    const auto database = Database::openUser(path, UserLock::patience(path));
    return database ? database->change(statements)
                    : StoreResult{StoreState::failed, "the user database cannot be opened"};
}

std::vector<std::string> statementsToRestore(const UserRows& before, const UserRows& now) {
    std::vector<std::string> statements;
    restoreCities(before, now, statements);
    for (std::size_t index = 0; index < kAlarms; ++index) {
        const AlarmRow& row = before.alarms[index];
        if (row != now.alarms[index]) {
            statements.push_back(restoreAlarm(row));
            std::ranges::move(statements::setSilence(row.prayerId(), row.silentUntil),
                              std::back_inserter(statements));
        }
    }
    if (before.pausedUntil != now.pausedUntil) {
        std::ranges::move(statements::setSilence(statements::kPauseSetting, before.pausedUntil),
                          std::back_inserter(statements));
    }
    return statements;
}

} // namespace zorel
