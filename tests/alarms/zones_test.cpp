// SPDX-License-Identifier: Apache-2.0
// The alarm moment is a time on the local clock: it must stay so on the eve, the day and the morrow of a
// clock change.
#include "tests/eventkit/MemoryCalendar.h"
#include "tests/support/AlarmWorld.h"

#include <gtest/gtest.h>

#include <memory>

namespace zorel {
namespace {

using test::localInstant;

/// A day on which the clock is at `hour`:`minute` when an alarm for `alarm` [h] is placed.
struct ZoneCase {
    const char* zone; ///< nullptr: TZ unset
    int year, month, day;
    int hour, minute;
    double alarm;
    const char* utc; ///< the moment it must ring
};

std::string utcText(Instant instant) {
    const TimeZoneOverride utc("UTC");
    return test::localText(instant);
}

class Zones : public testing::TestWithParam<ZoneCase> {
protected:
    Zones() { EKEventStore::setCalendar(calendar); }
    ~Zones() override { EKEventStore::setCalendar(nullptr); }
    std::shared_ptr<MemoryCalendar> calendar = std::make_shared<MemoryCalendar>();
    test::AlarmWorld world;
};

TEST_P(Zones, TheAlarmRingsAtTheLocalTime) {
    const ZoneCase& one = GetParam();
    const TimeZoneOverride zone(one.zone);
    const ClockOverride clock(localInstant(one.year, one.month, one.day, one.hour, one.minute));
    world.functions.updateAlarmDefinitions(200, 0, one.alarm, "Chime", 1);
    ASSERT_EQ(calendar->events.size(), 1U);
    const EKEvent& event = calendar->events.begin()->second;
    EXPECT_EQ(utcText(event.startDate), one.utc);
    EXPECT_EQ(event.endDate - event.startDate, std::chrono::minutes{1});
}

// Each place: the eve (alarm the same day), the eve's evening (alarm on the day of the change), the day
// before and after the change, the morrow.
INSTANTIATE_TEST_SUITE_P(
    Berlin, Zones,
    testing::Values(ZoneCase{"Europe/Berlin", 2026, 3, 28, 3, 0, 5.0, "2026-03-28 04:00"},
                    ZoneCase{"Europe/Berlin", 2026, 3, 28, 20, 0, 5.0, "2026-03-29 03:00"},
                    ZoneCase{"Europe/Berlin", 2026, 3, 29, 1, 0, 5.0, "2026-03-29 03:00"},
                    ZoneCase{"Europe/Berlin", 2026, 3, 29, 4, 0, 5.0, "2026-03-29 03:00"},
                    ZoneCase{"Europe/Berlin", 2026, 3, 29, 20, 0, 5.0, "2026-03-30 03:00"},
                    ZoneCase{"Europe/Berlin", 2026, 3, 30, 3, 0, 5.0, "2026-03-30 03:00"},
                    ZoneCase{"Europe/Berlin", 2026, 10, 24, 3, 0, 5.0, "2026-10-24 03:00"},
                    ZoneCase{"Europe/Berlin", 2026, 10, 24, 20, 0, 5.0, "2026-10-25 04:00"},
                    ZoneCase{"Europe/Berlin", 2026, 10, 25, 1, 0, 5.0, "2026-10-25 04:00"},
                    ZoneCase{"Europe/Berlin", 2026, 10, 25, 4, 0, 5.0, "2026-10-25 04:00"},
                    ZoneCase{"Europe/Berlin", 2026, 10, 26, 3, 0, 5.0, "2026-10-26 04:00"},
                    // 2:30 does not occur: the alarm comes after the gap, at 3:30 summer time
                    ZoneCase{"Europe/Berlin", 2026, 3, 28, 20, 0, 2.5, "2026-03-29 01:30"},
                    // 2:30 occurs twice: the first one
                    ZoneCase{"Europe/Berlin", 2026, 10, 24, 20, 0, 2.5, "2026-10-25 00:30"}));

INSTANTIATE_TEST_SUITE_P(
    NewYork, Zones,
    testing::Values(ZoneCase{"America/New_York", 2026, 3, 7, 3, 0, 5.5, "2026-03-07 10:30"},
                    ZoneCase{"America/New_York", 2026, 3, 7, 20, 0, 5.5, "2026-03-08 09:30"},
                    ZoneCase{"America/New_York", 2026, 3, 8, 1, 0, 5.5, "2026-03-08 09:30"},
                    ZoneCase{"America/New_York", 2026, 3, 8, 4, 0, 5.5, "2026-03-08 09:30"},
                    ZoneCase{"America/New_York", 2026, 3, 9, 3, 0, 5.5, "2026-03-09 09:30"},
                    ZoneCase{"America/New_York", 2026, 10, 31, 3, 0, 5.5, "2026-10-31 09:30"},
                    ZoneCase{"America/New_York", 2026, 10, 31, 20, 0, 5.5, "2026-11-01 10:30"},
                    ZoneCase{"America/New_York", 2026, 11, 1, 0, 30, 5.5, "2026-11-01 10:30"},
                    ZoneCase{"America/New_York", 2026, 11, 1, 4, 0, 5.5, "2026-11-01 10:30"},
                    ZoneCase{"America/New_York", 2026, 11, 2, 3, 0, 5.5, "2026-11-02 10:30"}));

INSTANTIATE_TEST_SUITE_P(
    Sydney, Zones,
    testing::Values(ZoneCase{"Australia/Sydney", 2026, 4, 4, 3, 0, 5.0, "2026-04-03 18:00"},
                    ZoneCase{"Australia/Sydney", 2026, 4, 4, 20, 0, 5.0, "2026-04-04 19:00"},
                    ZoneCase{"Australia/Sydney", 2026, 4, 5, 1, 0, 5.0, "2026-04-04 19:00"},
                    ZoneCase{"Australia/Sydney", 2026, 4, 5, 4, 0, 5.0, "2026-04-04 19:00"},
                    ZoneCase{"Australia/Sydney", 2026, 4, 6, 3, 0, 5.0, "2026-04-05 19:00"},
                    ZoneCase{"Australia/Sydney", 2026, 10, 3, 3, 0, 5.0, "2026-10-02 19:00"},
                    ZoneCase{"Australia/Sydney", 2026, 10, 3, 20, 0, 5.0, "2026-10-03 18:00"},
                    ZoneCase{"Australia/Sydney", 2026, 10, 4, 1, 0, 5.0, "2026-10-03 18:00"},
                    ZoneCase{"Australia/Sydney", 2026, 10, 4, 4, 0, 5.0, "2026-10-03 18:00"},
                    ZoneCase{"Australia/Sydney", 2026, 10, 5, 3, 0, 5.0, "2026-10-04 18:00"}));

// Cairo changes at midnight: the first hour of 2023-04-28 did not occur, the last of 2023-10-26 occurred
// twice.
INSTANTIATE_TEST_SUITE_P(
    Cairo, Zones,
    testing::Values(ZoneCase{"Africa/Cairo", 2023, 4, 27, 3, 0, 4.75, "2023-04-27 02:45"},
                    ZoneCase{"Africa/Cairo", 2023, 4, 27, 20, 0, 4.75, "2023-04-28 01:45"},
                    ZoneCase{"Africa/Cairo", 2023, 4, 28, 2, 0, 4.75, "2023-04-28 01:45"},
                    ZoneCase{"Africa/Cairo", 2023, 4, 29, 3, 0, 4.75, "2023-04-29 01:45"},
                    ZoneCase{"Africa/Cairo", 2023, 10, 26, 3, 0, 4.75, "2023-10-26 01:45"},
                    ZoneCase{"Africa/Cairo", 2023, 10, 26, 20, 0, 4.75, "2023-10-27 02:45"},
                    ZoneCase{"Africa/Cairo", 2023, 10, 27, 2, 0, 4.75, "2023-10-27 02:45"},
                    ZoneCase{"Africa/Cairo", 2023, 10, 28, 3, 0, 4.75, "2023-10-28 02:45"},
                    ZoneCase{"Africa/Cairo", 2023, 4, 27, 20, 0, 0.5, "2023-04-27 22:30"}));

INSTANTIATE_TEST_SUITE_P(
    WithoutChanges, Zones,
    testing::Values(ZoneCase{"UTC", 2026, 3, 29, 20, 0, 5.0, "2026-03-30 05:00"},
                    ZoneCase{"Pacific/Kiritimati", 2026, 3, 29, 20, 0, 5.0, "2026-03-29 15:00"},
                    ZoneCase{"Asia/Kathmandu", 2026, 3, 29, 20, 0, 5.0, "2026-03-29 23:15"},
                    ZoneCase{"Pacific/Marquesas", 2026, 12, 31, 20, 0, 5.0, "2027-01-01 14:30"}));

TEST(ZonesUnset, TheSystemsZoneHolds) {
    const auto calendar = std::make_shared<MemoryCalendar>();
    EKEventStore::setCalendar(calendar);
    test::AlarmWorld world;
    const TimeZoneOverride unset(nullptr);
    const ClockOverride clock(localInstant(2026, 3, 29, 20, 0));
    world.functions.updateAlarmDefinitions(200, 0, 5.0, "Chime", 1);
    EKEventStore::setCalendar(nullptr);
    ASSERT_EQ(calendar->events.size(), 1U);
    EXPECT_EQ(test::localText(calendar->events.begin()->second.startDate), "2026-03-30 05:00");
}

} // namespace
} // namespace zorel
