// SPDX-License-Identifier: Apache-2.0
/// @file
/// What lies in the calendar folder of a test's alarms, and whether it is in step with the database.
#pragma once

#include "platform/eventkit/FolderCalendar.h"
#include "platform/eventkit/IcsEvent.h"
#include "tests/support/AlarmWorld.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>

namespace zorel::test {

/// A calendar folder as found on the disk.
struct CalendarFolder {
    std::map<std::string, EKEvent> events; ///< by file name
    int temporary = 0;                     ///< left-over temporary files
    std::string broken;                    ///< names of event files that cannot be read

    explicit CalendarFolder(const std::string& folder) {
        std::error_code missing;
        for (std::filesystem::directory_iterator entry(folder, missing), end; entry != end; ++entry) {
            look(*entry);
        }
    }

    /// Events whose hour is that of the alarm (the tests give every alarm an hour of its own).
    [[nodiscard]] int countAt(int hour) const {
        int count = 0;
        for (const auto& [name, event] : events) {
            count += localDateTime(event.startDate).hour == hour ? 1 : 0;
        }
        return count;
    }

private:
    void look(const std::filesystem::directory_entry& entry) {
        const std::string name = entry.path().filename().string();
        temporary += name.ends_with(".tmp") ? 1 : 0;
        if (!name.ends_with(".ics") || !name.starts_with("zorel-")) {
            return;
        }
        if (const auto event = eventFromIcs(readFile(entry.path().string()))) {
            events.emplace(name, *event);
        } else {
            broken += name + " ";
        }
    }
};

/// Every active alarm has exactly the event that its row names, and there is no other; inactive alarms have
/// none.
inline void expectInStep(const AlarmWorld& world, const std::string& when) {
    const CalendarFolder folder(world.path("calendar"));
    std::size_t active = 0;
    for (const StoredAlarm& alarm : storedAlarms(world.functions)) {
        active += alarm.active ? 1 : 0;
        EXPECT_EQ(folder.events.contains(alarm.eventId + ".ics"), alarm.active)
            << when << ", alarm " << alarm.timeId;
    }
    EXPECT_EQ(folder.events.size(), active) << when;
    EXPECT_EQ(folder.broken, "") << when;
    EXPECT_EQ(folder.temporary, 0) << when;
}

} // namespace zorel::test
