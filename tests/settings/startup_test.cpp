// SPDX-License-Identifier: Apache-2.0
// How the pane begins: screens, cities, home city, times; and how it ends.
#include "engine/FastAstro.h"
#include "platform/foundation/NumberText.h"
#include "tests/settings/PaneFixture.h"

#include <sstream>
#include <stdexcept>

namespace zorel {
namespace {

class StartUp : public test::PaneFixture {
protected:
    void insert(int id, int home) {
        pane->dbFuncs().executeSQL("INSERT INTO USER_CITY (ID,SETASHOME) VALUES (" + std::to_string(id) +
                                   ", " + std::to_string(home) + ")");
    }
    [[nodiscard]] int idOf(const std::string& search, const std::string& name) const {
        return integerValue(cityNamed(search, name).cityId);
    }
};

TEST_F(StartUp, MakesTheDatabaseWithSixAlarmsAndNoCities) {
    EXPECT_TRUE(cities().empty());
    EXPECT_EQ(query("SELECT TIMEID, MINUTE, ACTIVE FROM USER_ALARMS", 3),
              (std::vector<std::string>{"1|0|0", "2|0|0", "3|0|0", "4|0|0", "5|0|0", "6|0|0"}));
    EXPECT_EQ(pane->currentCityId(), -1);
    EXPECT_EQ(pane->homeCity(), nullptr);
    EXPECT_FALSE(pane->findHomeCityId());
    pane->calculatePrayerTimes();
    EXPECT_TRUE(pane->userCities().empty());
    EXPECT_TRUE(events().empty());
}

TEST_F(StartUp, ReadsTheSpecifiersOnce) {
    const auto& specifiers = pane->specifiers();
    EXPECT_EQ(specifiers.size(), 3U);
    for (const PSSpecifier& specifier : specifiers) {
        EXPECT_EQ(specifier.target, pane.get());
    }
    std::filesystem::remove(Locations::current().bundle + "/ZorelSettings.plist");
    EXPECT_EQ(&pane->specifiers(), &specifiers);
    EXPECT_EQ(pane->specifiers().size(), 3U);
    EXPECT_FALSE(pane->shouldReloadSpecifiersOnResume());
}

TEST_F(StartUp, BuildsTheTableAndItsHeader) {
    EXPECT_EQ(pane->view(), &pane->table());
    EXPECT_EQ(pane->table().tag(), -1000);
    EXPECT_TRUE(pane->table().allowsSelection());
    EXPECT_FALSE(pane->table().allowsMultipleSelection());
    EXPECT_EQ(pane->cityHeaderView().frame(), (CGRect{0.0, 0.0, 320.0, 40.0}));
    EXPECT_EQ(pane->cityHeaderView().delegate(), pane.get());
}

TEST_F(StartUp, BuildsTheSearchScreenBelowTheBar) {
    EXPECT_EQ(pane->addCityView().frame(), (CGRect{0.0, 64.0, 320.0, 504.0}));
    EXPECT_EQ(pane->addCityView().backgroundColor(), UIColor::lightGrayColor());
    EXPECT_EQ(pane->addCityView().delegate(), pane.get());
    EXPECT_EQ(pane->addCityViewController().view(), &pane->addCityView());
    EXPECT_EQ(pane->addCityViewController().navigationItem().title(), "City Search");
}

/// The alarm screen has the full height of the screen although it begins below the bar.
TEST_F(StartUp, BuildsTheAlarmScreen) {
    EXPECT_EQ(pane->alarmView().frame(), (CGRect{0.0, 64.0, 320.0, 568.0}));
    EXPECT_EQ(pane->alarmView().backgroundColor(), UIColor::lightGrayColor());
    EXPECT_EQ(pane->alarmView().delegate(), pane.get());
    EXPECT_EQ(pane->alarmViewCotroller().view(), &pane->alarmView());
    EXPECT_EQ(pane->alarmViewCotroller().navigationItem().title(), "Alarm");
}

TEST_F(StartUp, NamesTheBackButton) {
    EXPECT_EQ(pane->navigationItem().backBarButtonItem(),
              (UIBarButtonItem{"Back", UIBarButtonItemStyle::bordered}));
    tapAdd();
    EXPECT_EQ(navigation->backButtonTitle(), "Back");
}

TEST_F(StartUp, SpeaksTurkishButForTheAlarmScreensTitle) {
    const LocaleOverride turkish("tr_TR");
    restart();
    EXPECT_EQ(pane->addCityViewController().navigationItem().title(), "Şehir Ara");
    EXPECT_EQ(pane->navigationItem().backBarButtonItem()->title, "Geri");
    EXPECT_EQ(pane->alarmViewCotroller().navigationItem().title(), "Alarm");
}

TEST_F(StartUp, WorksWithoutAScreen) {
    UIScreen::mainScreen().setBounds({});
    restart();
    EXPECT_EQ(pane->cityHeaderView().frame(), (CGRect{0.0, 0.0, 0.0, 40.0}));
    EXPECT_EQ(pane->addCityView().frame(), (CGRect{0.0, 64.0, 0.0, -64.0}));
    EXPECT_EQ(pane->alarmView().frame(), (CGRect{0.0, 64.0, 0.0, 0.0}));
    pane->delegateAddCityView_AddTapped(cityNamed("ankara", "Ankara"));
    EXPECT_EQ(pane->currentCityId(), 0);
}

TEST_F(StartUp, FirstOfSeveralHomeCitiesWins) {
    insert(idOf("berlin", "Berlin"), 0);
    insert(idOf("ankara", "Ankara"), 1);
    insert(idOf("konya", "Konya"), 1);
    pane->loadAllUserCities();
    EXPECT_EQ(pane->currentCityId(), 1);
    EXPECT_EQ(pane->homeCity()->name, "Ankara");
    EXPECT_EQ(pane->userCities().size(), 3U);
}

TEST_F(StartUp, FirstCityIsHomeWhenNoneIsMarkedAndTheDatabaseStays) {
    insert(idOf("berlin", "Berlin"), 0);
    insert(idOf("ankara", "Ankara"), 0);
    const auto before = cities();
    pane->loadAllUserCities();
    EXPECT_EQ(pane->currentCityId(), 0);
    EXPECT_EQ(pane->homeCity()->name, "Berlin");
    EXPECT_EQ(cities(), before);
    EXPECT_EQ(pane->userCities().front().setAsHome, "0");
}

TEST_F(StartUp, OnlyTheNumberOneMarksAHomeCity) {
    insert(idOf("berlin", "Berlin"), 2);
    insert(idOf("ankara", "Ankara"), 1);
    pane->loadAllUserCities();
    EXPECT_EQ(pane->homeCity()->name, "Ankara");
}

TEST_F(StartUp, OnlyTheHomeCityGetsTimes) {
    insert(idOf("berlin", "Berlin"), 0);
    insert(idOf("ankara", "Ankara"), 1);
    pane->loadAllUserCities();
    EXPECT_EQ(pane->userCities()[0].aNamazVakitleri, PrayerTimes{});
    const City& home = *pane->homeCity();
    FastAstro engine;
    engine.SetCurrentDateTime(GlobalFuncs().GetCurrentDateTime());
    engine.SetPlace(doubleValue(home.latitude), doubleValue(home.longitude), doubleValue(home.GMT),
                    integerValue(home.DST), integerValue(home.startMonth), integerValue(home.startDay),
                    integerValue(home.stopMonth), integerValue(home.stopDay), integerValue(home.hour),
                    integerValue(home.temkin));
    PrayerTimes expected = engine.CalculatePrayTimes().today;
    expected.ezani = {}; // not computed yet, a working value apart
    EXPECT_EQ(home.aNamazVakitleri, expected);
    for (int prayer = 200; prayer < 205; ++prayer) {
        EXPECT_LT(home.getRelevantPrayerTime(prayer), home.getRelevantPrayerTime(prayer + 1));
    }
    EXPECT_NEAR(home.getRelevantPrayerTime(202), 13.0, 0.35);
}

TEST_F(StartUp, CityThatTheCatalogueDoesNotKnowStaysEmpty) {
    insert(2147483647, 1);
    pane->loadAllUserCities();
    ASSERT_NE(pane->homeCity(), nullptr);
    EXPECT_EQ(pane->homeCity()->name, "");
    EXPECT_EQ(pane->homeCity()->cityId, "2147483647");
    EXPECT_TRUE(log().empty()) << log();
    EXPECT_EQ(cityRow(0).cityName().text(), "Unknown city 2147483647");
    EXPECT_FALSE(pane->homeDay()) << "such a city has no times";
    EXPECT_EQ(pane->summaryOfAlarm(203), "");
}

TEST_F(StartUp, MissingDatabaseLeavesNoCities) {
    insert(idOf("ankara", "Ankara"), 1);
    pane->loadAllUserCities();
    ASSERT_EQ(pane->currentCityId(), 0);
    std::filesystem::remove(pane->dbFuncs().userDBPath());
    pane->loadAllUserCities();
    EXPECT_EQ(pane->currentCityId(), -1);
    EXPECT_TRUE(pane->userCities().empty());
    EXPECT_TRUE(log().empty());
}

TEST_F(StartUp, BrokenDatabaseLeavesNoCities) {
    test::writeFile(pane->dbFuncs().userDBPath(), "this is no database, however long it may be read as one");
    restart();
    EXPECT_EQ(pane->currentCityId(), -1);
    pane->delegateAddCityView_AddTapped(cityNamed("ankara", "Ankara"));
    EXPECT_EQ(pane->currentCityId(), -1);
}

TEST_F(StartUp, ExceptionIsLoggedUnderAnothersName) {
    insert(idOf("ankara", "Ankara"), 1);
    clock.reset();
    int calls = 0;
    {
        const ClockOverride broken([&calls]() -> Instant {
            if (calls++ == 0) {
                throw std::runtime_error("the clock stands still");
            }
            return instantFromLocal({2026, 3, 10, 9, 0, 0, 0.0});
        });
        EXPECT_NO_THROW(pane->loadAllUserCities());
    }
    std::istringstream lines(log());
    std::string line;
    std::getline(lines, line);
    EXPECT_EQ(line, "[2026-03-10 09:00:00] Error in ZorelController -> calculatePrayerTimes");
    std::getline(lines, line);
    EXPECT_EQ(line, "[2026-03-10 09:00:00] the clock stands still");
    EXPECT_EQ(pane->userCities().size(), 1U) << "work already done stays";
    EXPECT_EQ(pane->currentCityId(), 0);
}

TEST_F(StartUp, SecondStartKeepsEverything) {
    insert(idOf("ankara", "Ankara"), 1);
    const std::string bytes = test::readFile(pane->dbFuncs().userDBPath());
    restart();
    EXPECT_EQ(test::readFile(pane->dbFuncs().userDBPath()), bytes);
    EXPECT_EQ(pane->homeCity()->name, "Ankara");
}

TEST_F(StartUp, StartItselfMovesNoAlarm) {
    addAnkara();
    toggleAlarm(3);
    const auto before = events();
    setClock(23, 0);
    restart();
    ASSERT_EQ(events().size(), 1U);
    EXPECT_TRUE(sameEvent(events().front(), before.front()));
}

TEST_F(StartUp, EndsWithAScreenOnTopAndAMessageOnShow) {
    openAlarm(0).alarmEnabled().userToggles();
    ASSERT_NE(MessageView::toasts(), nullptr);
    static_cast<void>(pane->table().cellForRowAtIndexPath({0, 0}));
    static_cast<void>(pane->table().viewForHeader(0));
    pane.reset();
    EXPECT_TRUE(navigation->viewControllers().empty());
    RunLoop::main().advance(10.0);
    EXPECT_EQ(MessageView::toasts(), nullptr);
}

} // namespace
} // namespace zorel
