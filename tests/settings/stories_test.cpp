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
    /// All six alarms are on, each with its own event at the home city's time plus the offset.
    void expectSixAlarmsOfHome(int offset = 0) {
        EXPECT_EQ(activeAlarms().size(), 6U);
        EXPECT_EQ(events().size(), 6U);
        for (int timeId = 1; timeId <= 6; ++timeId) {
            const auto event = eventOfAlarm(timeId);
            ASSERT_TRUE(event) << timeId;
            EXPECT_EQ(event->startDate, dueAt(timeId, offset)) << timeId;
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
    EXPECT_EQ(cities(), (std::vector<std::string>{idOf(0) + "|1", idOf(1) + "|0"}));
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
    EXPECT_EQ(eventOfAlarm(4)->startDate, dueAt(4, 12));
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
    EXPECT_EQ(moved->startDate, dueAt(5, -30));
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
    const Instant before = dueAt(4);
    tapHome(1);
    EXPECT_EQ(cities(), (std::vector<std::string>{idOf(0) + "|0", idOf(1) + "|1"}));
    EXPECT_EQ(pane->currentCityId(), 1);
    EXPECT_FALSE(cityRow(0).buttonHome().isSelected());
    EXPECT_TRUE(cityRow(1).buttonHome().isSelected());
    EXPECT_NE(dueAt(4), before);
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

TEST_F(Story, ACityOfTheListIsNotAddedAgainAndThatIsSaid) {
    addAnkara();
    tapAdd();
    pane->delegateAddCityView_AddTapped(cityNamed("ankara", "Ankara"));
    EXPECT_EQ(cities().size(), 1U);
    ASSERT_NE(MessageView::toasts(), nullptr);
    EXPECT_EQ(MessageView::toasts()->front()->superview(), &pane->addCityView());
    EXPECT_EQ(pane->table().titleForFooter(0), "") << "nothing is wrong with the list";
}

/// Lists from before may hold a city twice. It has one row; all of it goes, and the home and the alarms with
/// it.
TEST_F(Story, CityAddedTwiceIsDeletedAsOne) {
    addAnkara();
    addBerlin();
    pane->dbFuncs().executeSQL("INSERT INTO USER_CITY (ID,SETASHOME) VALUES (" + idOf(0) + ", 0)");
    restart();
    EXPECT_EQ(pane->userCities().size(), 2U);
    EXPECT_EQ(pane->table().numberOfRowsInSection(0), 2);
    switchAllOn();
    expectSixAlarmsOfHome();
    deleteCity(0);
    EXPECT_EQ(pane->userCities().size(), 1U);
    EXPECT_EQ(cities(), std::vector<std::string>{idOf(0) + "|1"});
    EXPECT_EQ(pane->homeCity()->name, "Berlin");
    expectSixAlarmsOfHome();
    for (int row = 0; row < 6; ++row) {
        toggleAlarm(row);
    }
    expectNoAlarms();
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
    EXPECT_NE(alarm.notice().find("apostrophe"), std::string::npos) << alarm.notice();
}

// What cannot be done is said in place, and nothing is as if it had been.

class RefusedStory : public Story {
protected:
    /// A file in the place of the calendar's folder takes no event and lets none go.
    void closeCalendar() {
        std::filesystem::rename(folder(), folder() + ".away");
        test::writeFile(folder(), "x");
    }
    void openCalendar() {
        std::filesystem::remove(folder());
        std::filesystem::rename(folder() + ".away", folder());
    }
    [[nodiscard]] static std::string folder() { return Locations::current().data + "/calendar"; }
};

TEST_F(RefusedStory, ASwitchGoesBackAndTheEditorSaysWhy) {
    addAnkara();
    toggleAlarm(1);
    closeCalendar();
    AlarmView& alarm = openAlarm(0);
    alarm.alarmEnabled().userToggles();
    EXPECT_FALSE(alarm.alarmEnabled().isOn());
    EXPECT_EQ(alarmRow(1), "0|0||");
    EXPECT_NE(alarm.notice().find("taken back"), std::string::npos) << alarm.notice();
    EXPECT_EQ(alarm.alarmTableView().titleForFooter(0), alarm.notice());
    openCalendar();
    alarm.alarmEnabled().userToggles();
    EXPECT_TRUE(alarm.alarmEnabled().isOn());
    EXPECT_EQ(alarm.notice(), "");
    EXPECT_EQ(activeAlarms().size(), 2U);
}

TEST_F(RefusedStory, AHomeCityThatTheAlarmsCannotFollowIsNotChosen) {
    addAnkara();
    addBerlin();
    switchAllOn();
    closeCalendar();
    tapHome(1);
    EXPECT_EQ(pane->homeCity()->name, "Ankara");
    EXPECT_NE(pane->table().titleForFooter(0).find("taken back"), std::string::npos);
    openCalendar();
    pane->refreshAlarms();
    expectSixAlarmsOfHome();
    tapHome(1);
    EXPECT_EQ(pane->homeCity()->name, "Berlin");
    EXPECT_EQ(pane->table().titleForFooter(0), "");
    expectSixAlarmsOfHome();
}

TEST_F(RefusedStory, AListThatCannotBeReadIsNotShownAsAnEmptyOne) {
    addAnkara();
    test::writeFile(pane->dbFuncs().userDBPath(), "this is no database, it is a text of some length");
    restart();
    EXPECT_TRUE(cityRow(0).cityName().text().starts_with("Your cities cannot be read"));
    AlarmView& alarm = openAlarm(0);
    alarm.alarmEnabled().userToggles();
    EXPECT_FALSE(alarm.alarmEnabled().isOn());
    EXPECT_NE(alarm.notice(), "");
}

TEST_F(RefusedStory, AnAlarmThatIsDueAtOnceSaysThatItWaits) {
    addAnkara();
    const Instant sunset = dueAt(5);
    clock.reset();
    clock.emplace(sunset - std::chrono::minutes(3));
    AlarmView& alarm = openAlarm(4);
    alarm.alarmEnabled().userToggles();
    EXPECT_TRUE(alarm.notice().starts_with("Less than five minutes are left")) << alarm.notice();
    EXPECT_GT(eventOfAlarm(5)->startDate, sunset + std::chrono::hours(23));
}

} // namespace
} // namespace zorel
