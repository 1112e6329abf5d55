// SPDX-License-Identifier: Apache-2.0
// Whole stories, each looked up afterwards in the table, the database and the calendar folder.
#include "platform/foundation/NumberText.h"
#include "tests/settings/PaneFixture.h"

#include <set>

namespace zorel {
namespace {

class Story : public test::PaneFixture {
protected:
    void switchAllOn() {
        for (int row = 0; row < 6; ++row) {
            toggleAlarm(row);
        }
    }
    [[nodiscard]] std::string alarmRow(int timeId) const {
        return query("SELECT MINUTE, ACTIVE, MELODYTIME, MELODYNAME FROM USER_ALARMS WHERE TIMEID = " +
                         std::to_string(timeId),
                     4)
            .at(0);
    }
    [[nodiscard]] double storedTime(int timeId) const {
        return doubleValue(
            query("SELECT PRAYTIME FROM USER_ALARMS WHERE TIMEID = " + std::to_string(timeId)).at(0));
    }
    /// All six alarms are on, each with its own event at the home city's time plus the offset.
    void expectSixAlarmsOfHome(int offset = 0) {
        EXPECT_EQ(activeAlarms().size(), 6U);
        EXPECT_EQ(events().size(), 6U);
        for (int timeId = 1; timeId <= 6; ++timeId) {
            const auto event = eventOfAlarm(timeId);
            ASSERT_TRUE(event) << timeId;
            EXPECT_EQ(minuteOfDay(*event), (prayerMinute(timeId) + offset + 1440) % 1440) << timeId;
            EXPECT_NEAR(storedTime(timeId), pane->homeCity()->getRelevantPrayerTime(199 + timeId), 1e-6);
            EXPECT_EQ(event->title, "Prayer Alarm");
            EXPECT_EQ(event->location, "Zorel");
        }
    }
    void expectNoAlarms() {
        EXPECT_TRUE(activeAlarms().empty());
        EXPECT_TRUE(events().empty());
        EXPECT_EQ(query("SELECT TIMEID FROM USER_ALARMS WHERE EVENTID <> ''").size(), 0U);
    }
    [[nodiscard]] std::string idOf(int row) const {
        return pane->userCities().at(static_cast<std::size_t>(row)).cityId;
    }
};

TEST_F(Story, FirstCityBecomesHome) {
    addAnkara();
    EXPECT_EQ(pane->userCities().front().name, "Ankara");
    EXPECT_EQ(cities(), std::vector<std::string>{idOf(0) + "|1"});
    EXPECT_EQ(pane->currentCityId(), 0);
    EXPECT_EQ(pane->table().numberOfRowsInSection(0), 1);
    EXPECT_TRUE(cityRow(0).buttonHome().isSelected());
    expectNoAlarms();
}

TEST_F(Story, SearchScreenStaysOnShowAfterAdding) {
    tapAdd();
    pane->delegateAddCityView_AddTapped(cityNamed("ankara", "Ankara"));
    EXPECT_EQ(navigation->topViewController(), &pane->addCityViewController());
}

TEST_F(Story, FurtherCitiesAreAddedBehindAndTouchNoAlarm) {
    addAnkara();
    toggleAlarm(2);
    const auto before = events();
    addBerlin();
    addAnkara();
    EXPECT_EQ(cities(), (std::vector<std::string>{idOf(0) + "|1", idOf(1) + "|0", idOf(0) + "|0"}));
    EXPECT_EQ(pane->homeCity()->name, "Ankara");
    ASSERT_EQ(events().size(), 1U);
    EXPECT_TRUE(sameEvent(events().front(), before.front()));
}

/// Alarms can be on without a city only when the cities were removed by something else. The first city begins
/// afresh.
TEST_F(Story, FirstCityAddedWhileAlarmsAreOnSwitchesThemOff) {
    for (int prayer = 200; prayer <= 205; ++prayer) {
        pane->dbFuncs().updateAlarmDefinitions(prayer, 5, 12.5, "Bell.wav", 2);
    }
    ASSERT_EQ(events().size(), 6U);
    addAnkara();
    expectNoAlarms();
    EXPECT_EQ(pane->homeCity()->name, "Ankara");
    EXPECT_EQ(alarmRow(3), "5|0|2|Bell.wav") << "the choices stay";
}

TEST_F(Story, AlarmsAreSwitchedOnForTheHomeCity) {
    addAnkara();
    switchAllOn();
    expectSixAlarmsOfHome();
    restart();
    expectSixAlarmsOfHome();
    for (int row = 0; row < 6; ++row) {
        EXPECT_TRUE(openAlarm(row).alarmEnabled().isOn());
    }
}

TEST_F(Story, AlarmWithoutACityIsRefused) {
    AlarmView& alarm = openAlarm(0);
    alarm.alarmEnabled().userToggles();
    EXPECT_FALSE(alarm.alarmEnabled().isOn());
    ASSERT_NE(MessageView::toasts(), nullptr);
    EXPECT_EQ(MessageView::toasts()->front()->superview(), &alarm);
    alarm.pickerTime().userPicksRow(0);
    alarm.pickerMelody().userPicksRow(1);
    alarm.pickerMelodyTime().userPicksRow(5);
    EXPECT_EQ(pane->delegateAlarmView_AlarmEnabledChanged(alarm.alarmEnabled(), alarm), -1);
    alarm.alarmEnabled().setOn(true);
    EXPECT_EQ(pane->delegateAlarmView_TimeChanged(alarm.pickerTime(), alarm), -1);
    EXPECT_EQ(pane->delegateAlarmView_MelodyNameChanged(alarm.pickerTime(), alarm), -1);
    EXPECT_EQ(pane->delegateAlarmView_MelodyTimeChanged(alarm.pickerTime(), alarm), -1);
    EXPECT_EQ(alarmRow(1), "0|0||");
    expectNoAlarms();
}

TEST_F(Story, ChoicesMadeWhileOffAreStoredWithTheNextSwitchingOn) {
    addAnkara();
    AlarmView& alarm = openAlarm(3);
    alarm.pickerTime().userPicksRow(59 + 12);
    const int tone = alarm.pickerMelody().selectedRow() == 0 ? 1 : 0;
    alarm.pickerMelody().userPicksRow(tone);
    alarm.pickerMelodyTime().userPicksRow(6);
    EXPECT_EQ(alarmRow(4), "0|0||");
    EXPECT_EQ(pane->delegateAlarmView_TimeChanged(alarm.pickerTime(), alarm), -1);
    EXPECT_EQ(pane->delegateAlarmView_MelodyNameChanged(alarm.pickerTime(), alarm), -1);
    EXPECT_EQ(pane->delegateAlarmView_MelodyTimeChanged(alarm.pickerTime(), alarm), -1);
    EXPECT_EQ(alarmRow(4), "0|0||");
    alarm.alarmEnabled().userToggles();
    EXPECT_EQ(alarmRow(4), "12|1|6|" + alarm.melodyArray()[static_cast<std::size_t>(tone)].originalText);
    ASSERT_TRUE(eventOfAlarm(4));
    EXPECT_EQ(minuteOfDay(*eventOfAlarm(4)), prayerMinute(4) + 12);
    restart();
    AlarmView& again = openAlarm(3);
    EXPECT_TRUE(again.alarmEnabled().isOn());
    EXPECT_EQ(again.pickerTime().selectedRow(), 71);
    EXPECT_EQ(again.pickerMelodyTime().selectedRow(), 6);
}

TEST_F(Story, ChoicesMadeWhileOnAreStoredAtOnce) {
    addAnkara();
    AlarmView& alarm = openAlarm(4);
    alarm.alarmEnabled().userToggles();
    const auto first = eventOfAlarm(5);
    ASSERT_TRUE(first);
    alarm.pickerTime().userPicksRow(59 - 30);
    const auto moved = eventOfAlarm(5);
    ASSERT_TRUE(moved);
    EXPECT_EQ(moved->eventIdentifier, first->eventIdentifier);
    EXPECT_EQ(minuteOfDay(*moved), prayerMinute(5) - 30);
    alarm.pickerMelody().userPicksRow(1);
    alarm.pickerMelodyTime().userPicksRow(3);
    EXPECT_EQ(alarmRow(5), "-30|1|3|" + alarm.melodyArray()[1].originalText);
    EXPECT_TRUE(sameEvent(*eventOfAlarm(5), *moved)) << "the event does not know the ringtone";
}

TEST_F(Story, SwitchingOffRemovesTheEventAndKeepsTheChoices) {
    addAnkara();
    AlarmView& alarm = openAlarm(5);
    alarm.pickerTime().userPicksRow(59 - 7);
    alarm.alarmEnabled().userToggles();
    ASSERT_EQ(events().size(), 1U);
    alarm.alarmEnabled().userToggles();
    expectNoAlarms();
    EXPECT_TRUE(alarmRow(6).starts_with("-7|0|0|"));
    openAlarm(5);
    EXPECT_FALSE(alarm.alarmEnabled().isOn());
    EXPECT_EQ(alarm.timeOffset(), -7);
}

TEST_F(Story, ChangingTheHomeCityMovesTheAlarms) {
    addAnkara();
    addBerlin();
    switchAllOn();
    const int before = prayerMinute(4);
    tapHome(1);
    EXPECT_EQ(cities(), (std::vector<std::string>{idOf(0) + "|0", idOf(1) + "|1"}));
    EXPECT_EQ(pane->currentCityId(), 1);
    EXPECT_FALSE(cityRow(0).buttonHome().isSelected());
    EXPECT_TRUE(cityRow(1).buttonHome().isSelected());
    EXPECT_NE(prayerMinute(4), before);
    expectSixAlarmsOfHome();
}

TEST_F(Story, TappingTheHomeCityChangesNothing) {
    addAnkara();
    addBerlin();
    switchAllOn();
    const std::string database = test::readFile(pane->dbFuncs().userDBPath());
    const auto before = events();
    tapHome(0);
    EXPECT_TRUE(cityRow(0).buttonHome().isSelected());
    EXPECT_EQ(test::readFile(pane->dbFuncs().userDBPath()), database);
    ASSERT_EQ(events().size(), before.size());
}

TEST_F(Story, DeletingTheHomeCityMakesTheFirstOfTheOthersHome) {
    addBerlin();
    addAnkara();
    addCity("konya", "Konya");
    switchAllOn();
    tapHome(2);
    ASSERT_EQ(pane->homeCity()->name, "Konya");
    deleteCity(2);
    EXPECT_EQ(cities(), (std::vector<std::string>{idOf(0) + "|1", idOf(1) + "|0"}));
    EXPECT_EQ(pane->homeCity()->name, "Berlin");
    EXPECT_TRUE(cityRow(0).buttonHome().isSelected());
    expectSixAlarmsOfHome();
    deleteCity(0);
    EXPECT_EQ(pane->homeCity()->name, "Ankara");
    EXPECT_EQ(cities(), std::vector<std::string>{idOf(0) + "|1"});
    expectSixAlarmsOfHome();
}

TEST_F(Story, DeletingAnotherCityTouchesNoAlarm) {
    addAnkara();
    addBerlin();
    switchAllOn();
    const auto alarms = query("SELECT TIMEID, MINUTE, ACTIVE, PRAYTIME, EVENTID FROM USER_ALARMS", 5);
    const auto before = events();
    setClock(23, 30);
    deleteCity(1);
    EXPECT_EQ(cities(), std::vector<std::string>{idOf(0) + "|1"});
    EXPECT_EQ(query("SELECT TIMEID, MINUTE, ACTIVE, PRAYTIME, EVENTID FROM USER_ALARMS", 5), alarms);
    ASSERT_EQ(events().size(), before.size());
    for (std::size_t place = 0; place < before.size(); ++place) {
        EXPECT_TRUE(sameEvent(events()[place], before[place]));
    }
}

TEST_F(Story, DeletingTheLastCitySwitchesEverythingOff) {
    addAnkara();
    switchAllOn();
    deleteCity(0);
    EXPECT_TRUE(cities().empty());
    EXPECT_EQ(pane->currentCityId(), -1);
    EXPECT_EQ(cityRow(0).cityName().text(), "No city added yet");
    expectNoAlarms();
    openAlarm(2);
    EXPECT_FALSE(pane->alarmView().alarmEnabled().isOn());
}

/// Both rows of a city that was added twice go together, because a row is known by the city alone.
TEST_F(Story, CityAddedTwiceIsDeletedAsOne) {
    addAnkara();
    addAnkara();
    addBerlin();
    switchAllOn();
    deleteCity(1);
    EXPECT_EQ(pane->userCities().size(), 1U);
    EXPECT_EQ(pane->homeCity()->name, "Berlin");
}

TEST_F(Story, EveryEventHasItsOwnIdentifierAndOneAlarm) {
    addAnkara();
    switchAllOn();
    std::set<std::string> identifiers;
    for (const EKEvent& event : events()) {
        identifiers.insert(event.eventIdentifier);
        ASSERT_EQ(event.alarms.size(), 1U);
        EXPECT_EQ(event.alarms.front().relativeOffset, 0);
        EXPECT_FALSE(event.allDay);
        EXPECT_GT(event.startDate, now());
        EXPECT_LE(event.startDate, now() + std::chrono::hours(25));
    }
    EXPECT_EQ(identifiers.size(), 6U);
}

TEST_F(Story, RingtoneWithAnApostropheIsNotStoredAndHarmsNothing) {
    addRingtone("Rock 'n' Roll.wav");
    restart();
    addAnkara();
    AlarmView& alarm = openAlarm(0);
    alarm.alarmEnabled().userToggles();
    const std::string before = alarmRow(1);
    const auto& tones = alarm.melodyArray();
    for (std::size_t row = 0; row < tones.size(); ++row) {
        if (tones[row].originalText.starts_with("Rock")) {
            alarm.pickerMelody().userPicksRow(static_cast<int>(row));
        }
    }
    EXPECT_EQ(alarm.melodyName(), "Rock 'n' Roll.wav");
    EXPECT_EQ(alarmRow(1), before);
    EXPECT_FALSE(log().empty());
}

} // namespace
} // namespace zorel
