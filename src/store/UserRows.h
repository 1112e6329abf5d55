// SPDX-License-Identifier: Apache-2.0
/// @file
/// All rows of a user database that an action may change: read at once, and put back as they were.
#pragma once

#include "store/AlarmRecords.h"
#include "store/Database.h"
#include "store/UserCities.h"
#include "store/UserLock.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zorel {

inline constexpr std::size_t kAlarms = 6;

/// A row of USER_ALARMS. What is NULL there is nothing here.
struct AlarmRow {
    std::int32_t timeId = 0;
    std::int32_t minute = 0; ///< offset [min]
    bool active = false;
    std::optional<std::int32_t> melodyTime;
    std::optional<std::string> melodyName;
    std::optional<double> prayerTime; ///< [h]
    std::optional<std::string> eventId;
    /// The person leaves out what it would ring before this instant [s since the beginning of 1970].
    std::optional<std::int64_t> silentUntil = std::nullopt;

    [[nodiscard]] std::int32_t prayerId() const { return timeId + kTimeIdOffset; }
    /// What an alarm's editor shows of it.
    [[nodiscard]] AlarmInfo info() const;
    friend bool operator==(const AlarmRow&, const AlarmRow&) = default;
};

struct UserRows {
    std::vector<UserCity> cities; ///< in the order of the list
    std::array<AlarmRow, kAlarms> alarms;
    /// No alarm rings before this instant [s since the beginning of 1970].
    std::optional<std::int64_t> pausedUntil = std::nullopt;
    StoreResult result; ///< done: all of it was read, and every alarm has its row
};

/// One connection that reads, under the user's lock (shared).
class UserReader {
public:
    explicit UserReader(const std::string& path);

    /// Hands every row of a query over; how that ended.
    [[nodiscard]] StoreResult forEachRow(const std::string& query,
                                         const std::function<void(const Statement&)>& take) const;

private:
    UserLock lock_;
    bool isThere_;
    std::optional<Database> database_;
};

/// Reads the rows of a user database. Nothing is made or changed.
[[nodiscard]] UserRows storedUserRows(const std::string& path);

/// Changes a user database in one transaction, under the user's lock (exclusive).
[[nodiscard]] StoreResult changeUserRows(const std::string& path, const std::vector<std::string>& statements);

/// The statements that make the rows of `now` those of `before`; none where they are the same.
[[nodiscard]] std::vector<std::string> statementsToRestore(const UserRows& before, const UserRows& now);

} // namespace zorel
