// SPDX-License-Identifier: Apache-2.0
// The alarm half of DatabaseFunctions against a calendar in memory.
#include "tests/eventkit/MemoryCalendar.h"
#include "tests/support/AlarmWorld.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <limits>
#include <memory>

namespace zorel {
namespace {

using std::chrono::minutes;
using test::localInstant;
using test::localText;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class Alarms : public testing::Test {
protected:
    Alarms() { EKEventStore::setCalendar(calendar); }
    ~Alarms() override { EKEventStore::setCalendar(nullptr); }

    void setNow(int hour, int minute, int second = 0, int day = 20) {
        clock.reset();
        clock = std::make_unique<ClockOverride>(localInstant(2026, 11, day, hour, minute, second));
    }
    void place(std::int32_t prayerId, double prayerTime, std::int32_t offset) {
        functions.updateAlarmDefinitions(prayerId, offset, prayerTime, "Chime", 2);
    }
    /// The event of an alarm as it was handed to the calendar last.
    [[nodiscard]] EKEvent event(int timeId) const { return calendar->events.at(world.row(timeId).eventId); }
    [[nodiscard]] std::string start(int timeId) const { return localText(event(timeId).startDate); }

    test::AlarmWorld world;
    DatabaseFunctions& functions = world.functions;
    std::shared_ptr<MemoryCalendar> calendar = std::make_shared<MemoryCalendar>();
    std::unique_ptr<ClockOverride> clock = std::make_unique<ClockOverride>(localInstant(2026, 11, 20, 12, 0));
};

// Placing.

TEST_F(Alarms, AnAlarmTodayWhenMoreThanFiveMinutesAhead) {
    setNow(18, 10);
    place(204, 18.5, -15);
    EXPECT_EQ(start(5), "2026-11-20 18:15");
}

TEST_F(Alarms, AnAlarmTomorrowWhenLessThanFiveMinutesAhead) {
    setNow(18, 12);
    place(204, 18.5, -15);
    EXPECT_EQ(start(5), "2026-11-21 18:15");
}

TEST_F(Alarms, ExactlyFiveMinutesAheadIsToday) {
    setNow(18, 10, 59); // the seconds do not count
    place(204, 18.5, -15);
    EXPECT_EQ(start(5), "2026-11-20 18:15");
    setNow(18, 11, 0);
    functions.reCalculateAlarm(204);
    EXPECT_EQ(start(5), "2026-11-21 18:15");
}

TEST_F(Alarms, MinutesCarryIntoTheNextDayBeforeTheComparison) {
    setNow(23, 50);
    place(205, 23.5, 45);
    EXPECT_EQ(start(6), "2026-11-21 00:15");
    setNow(0, 5); // the alarm of "today" is again past midnight
    functions.reCalculateAlarm(205);
    EXPECT_EQ(start(6), "2026-11-21 00:15");
}

TEST_F(Alarms, MinutesCarryIntoTheDayBefore) {
    setNow(12, 0);
    place(200, 0.25, -30); // 23:45 of yesterday, hence of today after one day is added
    EXPECT_EQ(start(1), "2026-11-20 23:45");
}

TEST_F(Alarms, TheLastFiveMinutesOfADayLookAtTheNext) {
    setNow(23, 57);
    place(200, 0.0, 1442); // 0:02 of tomorrow: the margin reaches it exactly
    EXPECT_EQ(start(1), "2026-11-21 00:02");
    place(200, 0.0, 1441);
    EXPECT_EQ(start(1), "2026-11-22 00:01");
}

TEST_F(Alarms, TheEventHasExactlyTheFieldsOfAnAlarm) {
    place(203, 15.75, 10);
    ASSERT_THAT(calendar->handedOver, SizeIs(1));
    const EKEvent& handed = calendar->handedOver.front();
    EXPECT_EQ(handed.title, "Prayer Alarm");
    EXPECT_EQ(handed.location, "Zorel");
    EXPECT_FALSE(handed.allDay);
    EXPECT_EQ(localText(handed.startDate), "2026-11-20 15:55");
    EXPECT_EQ(handed.endDate - handed.startDate, minutes{1});
    EXPECT_THAT(handed.alarms, ElementsAre(EKAlarm{0}));
    EXPECT_EQ(handed.calendar, calendar->description());
    EXPECT_THAT(handed.recurrenceRules, IsEmpty());
    EXPECT_EQ(handed.notes, std::nullopt);
}

TEST_F(Alarms, AnAlarmAtTheLastMinuteIsHandedOverWithAnEndBeforeItsStart) {
    place(205, 23.0, 59);
    ASSERT_THAT(calendar->handedOver, SizeIs(1));
    EXPECT_EQ(localText(calendar->handedOver.front().startDate), "2026-11-20 23:59");
    EXPECT_EQ(localText(calendar->handedOver.front().endDate), "2026-11-20 00:00");
    EXPECT_EQ(localText(event(6).endDate), "2026-11-21 00:00") << "the calendar keeps one minute";
}

TEST_F(Alarms, ACalendarThatRefusesSuchAnEndLeavesNoEvent) {
    calendar->refusesSaving = true;
    place(205, 23.0, 59);
    EXPECT_EQ(world.row(6).eventId, "");
    EXPECT_TRUE(world.row(6).active);
}

TEST_F(Alarms, APrayerTimeThatDoesNotOccurIsPlacedLikeAnyNumber) {
    place(205, -1.0, 0); // 23:00 of yesterday, one day later
    EXPECT_EQ(start(6), "2026-11-20 23:00");
    place(205, -1.0, 15);
    EXPECT_EQ(start(6), "2026-11-20 23:15");
}

TEST_F(Alarms, PartsOfAMinuteAreCutOff) {
    place(203, 15.0 + 29.99 / 60.0, 0);
    EXPECT_EQ(start(4), "2026-11-20 15:29");
}

TEST_F(Alarms, ManyMinutesOfTheDayAreHit) {
    setNow(0, 0);
    for (int minute = 5; minute < 1440; minute += 67) {
        place(200, 0.0, minute);
        ASSERT_EQ(start(1), fmt::format("2026-11-20 {:02}:{:02}", minute / 60, minute % 60));
        ASSERT_EQ(event(1).endDate - event(1).startDate, minutes{1});
    }
}

/// The arithmetic on which the alarm moment stands: no minute of any day is lost on the way to a Julian day
/// and back.
TEST_F(Alarms, EveryMinuteSurvivesTheJulianDay) {
    const GlobalFuncs& dates = world.glbFuncs;
    for (const int year : {2024, 2026, 2100}) {
        for (const int day : {1, 28, 31}) {
            for (int minute = 0; minute < 1440; ++minute) {
                const double julianDay =
                    dates.GregorianDateToJulian(DateRecordMake(day, 12, year, 0, minute, 0));
                const DateTimeRecord expected = DateRecordMake(day, 12, year, minute / 60, minute % 60, 0);
                ASSERT_EQ(dates.JulianToGregorian(julianDay), expected);
            }
        }
    }
}

TEST_F(Alarms, TheSameEventIsMovedAtTheNextComputation) {
    place(202, 13.0, 0);
    const std::string identifier = world.row(3).eventId;
    setNow(14, 0);
    functions.reCalculateAlarm(202);
    EXPECT_EQ(world.row(3).eventId, identifier);
    EXPECT_EQ(start(3), "2026-11-21 13:00");
    EXPECT_THAT(calendar->events, SizeIs(1));
}

TEST_F(Alarms, FieldsThatTheUserChangedAreOverwritten) {
    place(202, 13.0, 0);
    EKEvent& changed = calendar->events.at(world.row(3).eventId);
    const EKEvent original = changed;
    changed.title = "Lunch";
    changed.location = "Kitchen";
    changed.notes = "bring bread";
    changed.allDay = true;
    changed.alarms = {EKAlarm{-3600}, EKAlarm{-60}};
    changed.recurrenceRules = {"FREQ=DAILY"};
    functions.reCalculateAlarm(202);
    EXPECT_TRUE(sameEvent(event(3), original));
}

TEST_F(Alarms, AnEventThatTheUserDeletedIsMadeAnewWithANewIdentifier) {
    place(202, 13.0, 0);
    const std::string identifier = world.row(3).eventId;
    calendar->events.clear();
    functions.reCalculateAlarm(202);
    EXPECT_NE(world.row(3).eventId, identifier);
    EXPECT_EQ(start(3), "2026-11-20 13:00");
}

TEST_F(Alarms, RecomputingSwitchesAnAlarmOn) {
    EXPECT_FALSE(world.row(1).active);
    functions.reCalculateAlarm(200);
    EXPECT_TRUE(world.row(1).active);
    EXPECT_EQ(start(1), "2026-11-21 00:00") << "no time stored: midnight";
}

TEST_F(Alarms, StoresDefinitionsAndTimes) {
    functions.updateAlarmDefinitions(201, -20, 6.75, "Morning Call", 3);
    EXPECT_EQ(world.row(2).minute, -20);
    EXPECT_EQ(world.row(2).prayerTime, "6.75");
    const AlarmInfo info = functions.getAlarmInfo(201);
    EXPECT_TRUE(info.active);
    EXPECT_EQ(info.timeOffset, -20);
    EXPECT_EQ(info.melodyName, "Morning Call");
    EXPECT_EQ(info.melodyTime, 3);
    functions.updateAlarmPrayerTime(201, 13.1234567);
    EXPECT_EQ(world.row(2).prayerTime, "13.123457");
    EXPECT_EQ(start(2), "2026-11-20 12:47");
}

TEST_F(Alarms, AnUntouchedOrUnknownAlarmHasDefaults) {
    for (const std::int32_t prayerId : {200, 205, 206, 0, -5, std::numeric_limits<std::int32_t>::min()}) {
        const AlarmInfo info = functions.getAlarmInfo(prayerId);
        EXPECT_FALSE(info.active);
        EXPECT_EQ(info.timeOffset, 0);
        EXPECT_EQ(info.melodyTime, 0);
        EXPECT_EQ(info.melodyName, "");
    }
}

// Removing.

TEST_F(Alarms, DeletingRemovesTheEventAndSwitchesOff) {
    place(202, 13.0, 0);
    place(203, 16.0, 0);
    functions.deleteAlarm(202);
    EXPECT_FALSE(world.row(3).active);
    EXPECT_EQ(world.row(3).eventId, "");
    EXPECT_TRUE(world.row(4).active);
    EXPECT_THAT(calendar->events, SizeIs(1));
    EXPECT_EQ(world.row(3).prayerTime, "13.0") << "the definition stays";
}

TEST_F(Alarms, DeletingAnAlarmWhoseEventIsGoneSwitchesOff) {
    place(202, 13.0, 0);
    calendar->events.clear();
    functions.deleteAlarm(202);
    EXPECT_FALSE(world.row(3).active);
    EXPECT_EQ(world.row(3).eventId, "");
}

TEST_F(Alarms, ClearingWithoutSwitchingOffKeepsThemActive) {
    place(200, 5.0, 0);
    place(205, 20.0, 0);
    functions.clearAllAlarms(false);
    EXPECT_THAT(calendar->events, IsEmpty());
    EXPECT_TRUE(world.row(1).active);
    EXPECT_TRUE(world.row(6).active);
    EXPECT_EQ(world.row(1).eventId, "");
    EXPECT_EQ(world.row(6).eventId, "");
}

TEST_F(Alarms, ClearingWithSwitchingOff) {
    place(200, 5.0, 0);
    place(205, 20.0, 0);
    functions.clearAllAlarms(true);
    EXPECT_THAT(calendar->events, IsEmpty());
    for (const auto& alarm : test::storedAlarms(functions)) {
        EXPECT_FALSE(alarm.active);
        EXPECT_EQ(alarm.eventId, "");
    }
}

TEST_F(Alarms, ANewHomeCityMovesTheActiveAlarmsOnly) {
    place(200, 5.0, 10);
    place(205, 20.0, -10);
    functions.clearAllAlarms(false);
    functions.setAllAlarms(test::cityWithTimes(world.glbFuncs, {6.5, 8.0, 13.0, 15.5, 18.0, 19.5}));
    EXPECT_THAT(calendar->events, SizeIs(2));
    EXPECT_EQ(start(1), "2026-11-21 06:40");
    EXPECT_EQ(start(6), "2026-11-20 19:20");
    EXPECT_FALSE(world.row(2).active);
}

TEST_F(Alarms, EveryAlarmTakesItsOwnPrayerTime) {
    for (std::int32_t prayerId = 200; prayerId <= 205; ++prayerId) {
        place(prayerId, 1.0, 0);
    }
    functions.setAllAlarms(test::cityWithTimes(world.glbFuncs, {13.0, 14.0, 15.0, 16.0, 17.0, 18.0}));
    for (int timeId = 1; timeId <= 6; ++timeId) {
        EXPECT_EQ(start(timeId), fmt::format("2026-11-20 {}:00", 12 + timeId));
    }
    EXPECT_THAT(calendar->events, SizeIs(6));
}

TEST_F(Alarms, PlacingAgainChangesNothing) {
    place(202, 13.0, 0);
    const auto before = calendar->events;
    functions.reCalculateAlarm(202);
    ASSERT_THAT(calendar->events, SizeIs(1));
    EXPECT_TRUE(sameEvent(calendar->events.begin()->second, before.begin()->second));
}

// Failures.

TEST_F(Alarms, ACalendarThatRefusesEverythingLeavesTheRowsInStep) {
    place(200, 5.0, 0);
    const std::string identifier = world.row(1).eventId;
    calendar->refusesSaving = true;
    calendar->refusesRemoving = true;
    place(200, 6.0, 0);
    EXPECT_EQ(world.row(1).eventId, identifier) << "the event exists and keeps its identifier";
    EXPECT_EQ(world.row(1).prayerTime, "6.0");
    place(201, 7.0, 0);
    EXPECT_TRUE(world.row(2).active);
    EXPECT_EQ(world.row(2).eventId, "");
    functions.clearAllAlarms(false);
    EXPECT_TRUE(world.row(1).active);
    EXPECT_EQ(world.row(1).eventId, "");
    functions.deleteAlarm(200);
    EXPECT_FALSE(world.row(1).active);
    EXPECT_EQ(world.row(1).eventId, "");
}

TEST_F(Alarms, AnEventThatCouldNotBeRemovedGoesWithTheNextOperation) {
    place(200, 5.0, 0);
    place(201, 7.0, 0);
    calendar->refusesRemoving = true;
    functions.deleteAlarm(200);
    EXPECT_THAT(calendar->events, SizeIs(2));
    calendar->refusesRemoving = false;
    functions.reCalculateAlarm(201);
    EXPECT_THAT(calendar->events, SizeIs(1));
}

TEST_F(Alarms, WithoutADatabaseNothingHappens) {
    std::filesystem::remove(functions.userDBPath());
    place(200, 5.0, 0);
    functions.reCalculateAlarm(200);
    functions.deleteAlarm(200);
    functions.clearAllAlarms(true);
    functions.setAllAlarms(test::cityWithTimes(world.glbFuncs, {}));
    EXPECT_FALSE(functions.getAlarmInfo(200).active);
    EXPECT_THAT(calendar->handedOver, IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(functions.userDBPath()));
    EXPECT_FALSE(std::filesystem::exists(functions.userDBPath() + ".lock"));
    EXPECT_THAT(world.log(), HasSubstr("Error in executeSQL : DB file not exists"));
}

TEST_F(Alarms, ADatabaseThatCannotBeReadPlacesAndRemovesNothing) {
    place(200, 5.0, 0);
    test::writeFile(functions.userDBPath(), std::string(4096, 'x'));
    place(201, 6.0, 0);
    functions.deleteAlarm(200);
    functions.clearAllAlarms(true);
    EXPECT_THAT(calendar->events, SizeIs(1)) << "an event is not an orphan because the rows cannot be read";
    EXPECT_THAT(world.log(), HasSubstr("file is not a database"));
}

TEST_F(Alarms, AnAlarmWithoutARowGetsNoEvent) {
    for (const std::int32_t prayerId : {206, 208, 0, std::numeric_limits<std::int32_t>::min()}) {
        place(prayerId, 13.0, 0);
        functions.deleteAlarm(prayerId);
    }
    EXPECT_THAT(calendar->handedOver, IsEmpty());
}

TEST_F(Alarms, AnApostropheBreaksTheStatementAndCannotReachOtherRows) {
    place(200, 5.0, 7);
    for (const char* name : {"Tom's", "x', MINUTE = 9 --", "x'; DELETE FROM USER_CITY; --", "a''b", "'"}) {
        functions.updateAlarmDefinitions(201, 3, 6.0, name, 1);
        EXPECT_EQ(world.row(2).minute, 0) << name;
        EXPECT_EQ(functions.getAlarmInfo(201).melodyName, "") << name;
        EXPECT_TRUE(world.row(2).active) << "the alarm is recomputed all the same";
        EXPECT_EQ(world.row(1).minute, 7) << name;
        EXPECT_FALSE(world.row(3).active) << name;
    }
    EXPECT_THAT(world.log(), HasSubstr("unrecognized token"));
}

TEST_F(Alarms, NumbersBeyondSenseDoNoHarm) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (const double time : {std::nan(""), infinity, -infinity, 1e300, -1e300, 1e9, -1e9, 25.0, -30.0}) {
        for (const std::int32_t offset :
             {0, std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min()}) {
            place(200, time, offset);
            EXPECT_THAT(calendar->events, SizeIs(1));
        }
    }
}

TEST_F(Alarms, ARowEditedByHandDoesNoHarm) {
    for (const char* values :
         {"PRAYTIME = 'noon', MINUTE = 'many', EVENTID = 7", "PRAYTIME = NULL, EVENTID = NULL",
          "EVENTID = '../../secret'", "TIMEID = 2147483647, PRAYTIME = 1e999"}) {
        functions.executeSQL(fmt::format("UPDATE USER_ALARMS SET ACTIVE = 1, {} WHERE TIMEID = 1", values));
        functions.setAllAlarms(test::cityWithTimes(world.glbFuncs, {13, 14, 15, 16, 17, 18}));
        functions.reCalculateAlarm(200);
        EXPECT_THAT(calendar->events, SizeIs(1)) << values;
    }
}

// Orphans.

TEST_F(Alarms, AnEventWhoseIdentifierWasNeverNotedIsRemoved) {
    place(202, 13.0, 0);
    functions.executeSQL("UPDATE USER_ALARMS SET EVENTID = '' WHERE TIMEID = 3");
    functions.reCalculateAlarm(202);
    EXPECT_THAT(calendar->events, SizeIs(1));
    EXPECT_TRUE(calendar->events.contains(world.row(3).eventId));
}

TEST_F(Alarms, SwitchingOffRemovesSuchAnEventToo) {
    place(202, 13.0, 0);
    functions.executeSQL("UPDATE USER_ALARMS SET EVENTID = '' WHERE TIMEID = 3");
    functions.deleteAlarm(202);
    EXPECT_THAT(calendar->events, IsEmpty());
}

TEST_F(Alarms, EventsOfAnotherDatabaseStay) {
    test::TemporaryFolder other;
    place(202, 13.0, 0);
    DatabaseFunctions second(world.glbFuncs);
    second.setUserDBPath(other.path("user.sqlite"));
    second.generateUserDatabaseFile();
    second.updateAlarmDefinitions(203, 0, 16.0, "Chime", 1);
    EXPECT_THAT(calendar->events, SizeIs(2));
    functions.clearAllAlarms(true);
    EXPECT_THAT(calendar->events, SizeIs(1));
    second.clearAllAlarms(true);
    EXPECT_THAT(calendar->events, IsEmpty());
}

} // namespace
} // namespace zorel
