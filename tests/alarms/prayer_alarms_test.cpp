// SPDX-License-Identifier: Apache-2.0
// What rings is what is shown, on the day on which it rings, whatever the clock of the machine.
#include "tests/eventkit/MemoryCalendar.h"
#include "tests/support/HomeWorld.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorel {
namespace {

using almanac::Instant;
using namespace std::chrono_literals;
using std::chrono::sys_days;
using testing::HasSubstr;

class ReconcileTest : public testing::Test {
protected:
    ReconcileTest() {
        EKEventStore::setCalendar(calendar);
        setClock(sys_days{2026y / 11 / 22} + 9h);
        world.liveIn(test::kIstanbul);
    }
    ~ReconcileTest() override { EKEventStore::setCalendar(nullptr); }

    void setClock(Instant instant) {
        present = instant;
        clock.reset();
        clock.emplace(instant);
    }
    [[nodiscard]] const EKEvent& onlyEvent() const {
        EXPECT_EQ(calendar->events.size(), 1U);
        return calendar->events.begin()->second;
    }
    AlarmStatus reconciled(int timeId) { return world.alarms.reconcile().of(kTimeIdOffset + timeId); }

    std::shared_ptr<MemoryCalendar> calendar = std::make_shared<MemoryCalendar>();
    test::HomeWorld world;
    Instant present;
    std::optional<ClockOverride> clock;
};

TEST_F(ReconcileTest, PlacesEachAlarmAtItsShownMinute) {
    for (int timeId = 1; timeId <= 6; ++timeId) {
        world.switchOn(timeId, timeId * 7 - 20);
    }
    const AlarmReport report = world.alarms.reconcile();
    EXPECT_TRUE(report.isGood()) << report.complaint();
    for (int timeId = 1; timeId <= 6; ++timeId) {
        const AlarmStatus& alarm = report.of(kTimeIdOffset + timeId);
        const auto offset = std::chrono::minutes(timeId * 7 - 20);
        const Instant today = world.shown(timeId, 2026y / 11 / 22) + offset;
        const Instant expected = today > present ? today : world.shown(timeId, 2026y / 11 / 23) + offset;
        EXPECT_EQ(alarm.state, AlarmState::rings);
        EXPECT_EQ(alarm.ringsAt, expected) << timeId;
        EXPECT_EQ(alarm.due, expected) << timeId;
        EXPECT_EQ(
            Instant(std::chrono::floor<std::chrono::seconds>(calendar->events.at(alarm.eventId).startDate)),
            expected);
    }
}

TEST_F(ReconcileTest, TheAlarmOfAnEventNamesPrayerTimeAndCity) {
    world.glbFuncs.languageId = 1;
    world.glbFuncs.loadLanguageFile();
    world.switchOn(5, -10);
    EXPECT_EQ(reconciled(5).state, AlarmState::rings);
    EXPECT_EQ(onlyEvent().title, "Prayer Alarm");
    ASSERT_EQ(onlyEvent().alarms.size(), 1U);
    // The prayer's own time: ten minutes before it, the alarm rings.
    EXPECT_EQ(onlyEvent().alarms.front().text, "Maghrib 17:48, " + world.home().name);
}

/// Istanbul's sunset prayer of 22 November 2026 and its neighbours fall into different parts of a minute.
TEST_F(ReconcileTest, RingsOnTheMinuteThroughoutAYear) {
    world.switchOn(5);
    for (int day = 0; day < 366; day += 3) {
        setClock(sys_days{2026y / 11 / 22} + std::chrono::days(day) + 9h);
        const almanac::Date date{std::chrono::floor<std::chrono::days>(present)};
        ASSERT_EQ(reconciled(5).ringsAt, world.shown(5, date)) << almanac::isoDate(date);
        ASSERT_EQ(onlyEvent().startDate, world.shown(5, date));
    }
}

TEST_F(ReconcileTest, DoesNothingTheSecondTime) {
    world.switchOn(1);
    world.switchOn(4, -10);
    world.alarms.reconcile();
    const std::size_t saved = calendar->handedOver.size();
    const std::string rows = test::readFile(world.functions.userDBPath());
    EXPECT_TRUE(world.alarms.reconcile().isGood());
    EXPECT_EQ(calendar->handedOver.size(), saved);
    EXPECT_EQ(test::readFile(world.functions.userDBPath()), rows);
}

TEST_F(ReconcileTest, MovesAnAlarmThatHasPassedToTheTimeOfThatDay) {
    world.switchOn(1);
    const std::string identifier = reconciled(1).eventId;
    setClock(sys_days{2026y / 11 / 26} + 9h);
    EXPECT_EQ(world.alarms.report().of(200).state, AlarmState::passed);
    EXPECT_FALSE(world.alarms.report().isGood());
    const AlarmStatus alarm = reconciled(1);
    EXPECT_EQ(alarm.ringsAt, world.shown(1, 2026y / 11 / 27));
    EXPECT_EQ(alarm.eventId, identifier);
}

/// The margin of five minutes is for people who change an alarm.
TEST_F(ReconcileTest, NeverPassesOverATimeThatIsNear) {
    world.switchOn(5);
    const Instant sunset = world.shown(5, 2026y / 11 / 22);
    for (const auto before : {5min, 4min, 1min}) {
        calendar->events.clear();
        setClock(sunset - before);
        EXPECT_EQ(reconciled(5).ringsAt, sunset) << before.count();
        EXPECT_FALSE(world.alarms.report().of(204).skipsNext());
    }
    calendar->events.clear();
    setClock(sunset - 1s);
    EXPECT_EQ(reconciled(5).ringsAt, sunset);
    calendar->events.clear();
    setClock(sunset);
    EXPECT_EQ(reconciled(5).ringsAt, world.shown(5, 2026y / 11 / 23));
}

TEST_F(ReconcileTest, HoldsTheMarginAfterAnEditAndSaysSo) {
    world.switchOn(5);
    const Instant sunset = world.shown(5, 2026y / 11 / 22);
    setClock(sunset - 4min);
    const AlarmStatus edited = world.alarms.reconcile(204).of(204);
    EXPECT_EQ(edited.ringsAt, world.shown(5, 2026y / 11 / 23));
    EXPECT_TRUE(edited.skipsNext());
    EXPECT_EQ(reconciled(5).ringsAt, edited.ringsAt) << "what is right stays";
    setClock(sunset - 5min);
    EXPECT_EQ(world.alarms.reconcile(204).of(204).ringsAt, sunset);
}

/// In June the dawn of Kirov lies before midnight of the day that it belongs to.
TEST_F(ReconcileTest, RingsOnTheEveForADawnBeforeMidnight) {
    world.liveIn(test::kKirov);
    world.switchOn(1);
    setClock(sys_days{2026y / 6 / 9} + 9h);
    const Instant dawn = world.shown(1, 2026y / 6 / 10);
    ASSERT_EQ(world.home().clock.dateAt(dawn), 2026y / 6 / 9);
    EXPECT_EQ(reconciled(1).ringsAt, dawn);
}

class MachineZone : public ReconcileTest, public testing::WithParamInterface<const char*> {};

/// Round the clock, so that the margin, midnight and both days of the machine are met.
TEST_P(MachineZone, DoesNotMatter) {
    const TimeZoneOverride machine(GetParam());
    world.switchOn(1, -59);
    world.switchOn(5);
    world.switchOn(6, 59);
    for (auto hour = 0h; hour < 48h; hour += 2h) {
        setClock(sys_days{2026y / 10 / 24} + hour + 17min);
        const AlarmReport report = world.alarms.reconcile();
        ASSERT_TRUE(report.isGood()) << report.complaint();
        for (const std::int32_t prayer : {200, 204, 205}) {
            ASSERT_EQ(report.of(prayer).ringsAt, report.of(prayer).due) << prayer << " at " << hour.count();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Zones, MachineZone,
                         testing::Values("UTC", "Europe/Istanbul", "Europe/Berlin", "America/Los_Angeles",
                                         "Pacific/Kiritimati", "Pacific/Marquesas", "Asia/Kathmandu"));

/// The clock of Berlin shows 2:00 to 3:00 twice on 25 October 2026. The alarm is an instant, not a clock
/// time.
TEST_F(ReconcileTest, RingsInTheSecondOfTwoHoursToo) {
    const TimeZoneOverride machine("Europe/Berlin");
    world.liveIn(test::kBerlin);
    world.switchOn(1);
    setClock(sys_days{2026y / 10 / 24} + 12h);
    const Instant dawn = world.shown(1, 2026y / 10 / 25);
    world.switchOn(1, -static_cast<std::int32_t>((dawn - (sys_days{2026y / 10 / 25} + 1h + 30min)) / 1min));
    EXPECT_EQ(reconciled(1).ringsAt, sys_days{2026y / 10 / 25} + 1h + 30min);
    EXPECT_TRUE(world.alarms.report().isGood());
}

TEST_F(ReconcileTest, APrayerWithoutATimeHasNoEvent) {
    world.liveIn(test::kLongyearbyen);
    for (int timeId = 1; timeId <= 6; ++timeId) {
        world.switchOn(timeId);
    }
    int without = 0;
    for (int day = 0; day < 40; ++day) {
        setClock(sys_days{2026y / 10 / 10} + std::chrono::days(day) + 9h);
        const AlarmReport report = world.alarms.reconcile();
        ASSERT_TRUE(report.isGood()) << report.complaint();
        std::size_t ringing = 0;
        for (const AlarmStatus& alarm : report.alarms) {
            ASSERT_EQ(alarm.state, alarm.due ? AlarmState::rings : AlarmState::noSuchTime);
            ringing += alarm.due ? 1 : 0;
            without += alarm.due ? 0 : 1;
            ASSERT_TRUE(alarm.info.active);
        }
        ASSERT_EQ(calendar->events.size(), ringing);
    }
    EXPECT_GT(without, 0);
}

TEST_F(ReconcileTest, RemovesEventsOfAlarmsThatAreOff) {
    world.switchOn(3);
    reconciled(3);
    world.run({statements::setActive(3, false)});
    EXPECT_EQ(world.alarms.reconcile().of(202).state, AlarmState::off);
    EXPECT_TRUE(calendar->events.empty());
    EXPECT_EQ(world.row(3).eventId, "");
}

TEST_F(ReconcileTest, SweepsLeftoversWhenNothingIsOn) {
    EKEvent leftover;
    leftover.startDate = present + 3h;
    leftover.endDate = present + 3h;
    leftover.calendar = EKCalendar{"", ""};
    ASSERT_TRUE(EKEventStore(alarmOwner(world.functions.userDBPath()))
                    .saveEvent(leftover, EKSpan::thisEvent, nullptr));
    EXPECT_EQ(world.alarms.report().trouble, AlarmTrouble::leftovers);
    EXPECT_TRUE(world.alarms.reconcile().isGood());
    EXPECT_TRUE(calendar->events.empty());
}

TEST_F(ReconcileTest, WithoutACityNothingRings) {
    world.switchOn(3);
    reconciled(3);
    world.run({"DELETE FROM USER_CITY"});
    const AlarmReport report = world.alarms.reconcile();
    EXPECT_EQ(report.home.state, HomeState::none);
    EXPECT_TRUE(calendar->events.empty());
    EXPECT_THAT(report.complaint(), HasSubstr("no home city"));
}

TEST_F(ReconcileTest, PutsBackAnAlarmThatAnotherProgramTookOrChanged) {
    world.switchOn(2);
    const AlarmStatus placed = reconciled(2);
    calendar->events.clear();
    EXPECT_EQ(world.alarms.report().of(201).state, AlarmState::failed);
    const AlarmStatus again = reconciled(2);
    EXPECT_EQ(again.ringsAt, placed.ringsAt);
    calendar->events.at(again.eventId).alarms.clear();
    EXPECT_THAT(world.alarms.report().complaint(), HasSubstr("lost its alarm"));
    EXPECT_EQ(reconciled(2).state, AlarmState::rings);
    calendar->events.at(again.eventId).startDate += 10min;
    EXPECT_THAT(world.alarms.report().complaint(), HasSubstr("next time"));
    EXPECT_EQ(reconciled(2).ringsAt, placed.ringsAt);
}

// What cannot be read or written.

class UnreadableTest : public ReconcileTest {
protected:
    UnreadableTest() {
        world.switchOn(3, 5);
        world.switchOn(5);
        world.alarms.reconcile();
        before = calendar->events;
    }
    void expectUntouched(const AlarmReport& report, AlarmTrouble trouble) {
        EXPECT_EQ(report.trouble, trouble);
        EXPECT_FALSE(report.isGood());
        EXPECT_NE(report.complaint(), "");
        ASSERT_EQ(calendar->events.size(), before.size());
        for (const auto& [identifier, event] : before) {
            EXPECT_TRUE(sameEvent(calendar->events.at(identifier), event));
        }
    }
    std::map<std::string, EKEvent> before;
};

TEST_F(UnreadableTest, ACatalogueTouchesNoAlarm) {
    world.glbFuncs.appBundlePath = world.path("nowhere");
    setClock(present + 24h);
    expectUntouched(world.alarms.reconcile(), AlarmTrouble::unreadableCatalogue);
}

TEST_F(UnreadableTest, ACityThatTheCatalogueDoesNotKnowTouchesNoAlarm) {
    world.liveIn(999'999'999);
    setClock(present + 24h);
    expectUntouched(world.alarms.reconcile(), AlarmTrouble::unknownHome);
    EXPECT_TRUE(world.row(3).active);
}

TEST_F(UnreadableTest, ADamagedDatabaseTouchesNoAlarm) {
    test::writeFile(world.functions.userDBPath(), "this is no database, it is a text of some length");
    expectUntouched(world.alarms.reconcile(), AlarmTrouble::unreadableRows);
}

TEST_F(UnreadableTest, ARowThatIsMissingTouchesNoAlarm) {
    world.run({"DELETE FROM USER_ALARMS WHERE TIMEID = 4"});
    expectUntouched(world.alarms.reconcile(), AlarmTrouble::unreadableRows);
}

TEST_F(UnreadableTest, ABusyDatabaseTouchesNoAlarmAndIsNotCalledUnreadable) {
    const FileLock other(world.functions.userDBPath() + ".lock");
    ASSERT_EQ(other.state(), LockState::acquired);
    expectUntouched(world.alarms.reconcile(), AlarmTrouble::busy);
}

TEST_F(UnreadableTest, ACalendarThatRefusesToSaveIsTold) {
    setClock(present + 24h);
    calendar->refusesSaving = true;
    const AlarmReport report = world.alarms.reconcile();
    EXPECT_EQ(report.of(202).state, AlarmState::failed);
    EXPECT_THAT(report.of(202).reason, HasSubstr("refused"));
    EXPECT_THAT(world.log(), HasSubstr("refused"));
    calendar->refusesSaving = false;
    EXPECT_TRUE(world.alarms.reconcile().isGood());
}

TEST_F(UnreadableTest, ACalendarThatRefusesToRemoveIsTold) {
    world.run({statements::setActive(3, false)});
    calendar->refusesRemoving = true;
    const AlarmReport report = world.alarms.reconcile();
    EXPECT_EQ(report.of(202).state, AlarmState::failed);
    EXPECT_THAT(report.of(202).reason, HasSubstr("refused"));
    EXPECT_NE(world.row(3).eventId, "") << "the row still knows which event it is";
    calendar->refusesRemoving = false;
    EXPECT_TRUE(world.alarms.reconcile().isGood());
    EXPECT_EQ(calendar->events.size(), 1U);
}

TEST_F(ReconcileTest, ChangesArePublishedOnceAtTheEnd) {
    for (int timeId = 1; timeId <= 6; ++timeId) {
        world.switchOn(timeId);
    }
    EXPECT_TRUE(world.alarms.reconcile().isGood());
    EXPECT_EQ(calendar->publications, 1);
    EXPECT_TRUE(world.alarms.reconcile().isGood());
    EXPECT_EQ(calendar->publications, 1) << "nothing changed";
}

TEST_F(ReconcileTest, WhatCouldNotBePublishedIsToldAndHealed) {
    world.switchOn(5);
    calendar->refusesPublishing = true;
    EXPECT_EQ(world.alarms.reconcile().trouble, AlarmTrouble::unpublished);
    const AlarmReport report = world.alarms.report();
    EXPECT_EQ(report.trouble, AlarmTrouble::unpublished);
    EXPECT_FALSE(report.isGood());
    EXPECT_FALSE(report.complaint().empty());
    calendar->refusesPublishing = false;
    EXPECT_TRUE(world.alarms.reconcile().isGood());
    EXPECT_TRUE(world.alarms.report().isGood());
}

} // namespace
} // namespace zorel
