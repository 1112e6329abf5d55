// SPDX-License-Identifier: Apache-2.0
// What the pane's table shows and which of its rows react.
#include "almanac/Almanac.h"
#include "tests/settings/PaneFixture.h"

#include <fmt/format.h>

namespace zorel {
namespace {

class PaneTable : public test::PaneFixture {
protected:
    [[nodiscard]] UITableViewCell& cell(int section, int row) {
        return *pane->table().cellForRowAtIndexPath({section, row});
    }
};

TEST_F(PaneTable, HasCitiesAlarmsAndInformation) {
    UITableView& table = pane->table();
    EXPECT_EQ(table.numberOfSections(), 3);
    EXPECT_EQ(table.numberOfRowsInSection(0), 1);
    EXPECT_EQ(table.numberOfRowsInSection(1), 6);
    EXPECT_EQ(table.numberOfRowsInSection(2), 0);
    EXPECT_EQ(table.heightForRow({0, 0}), 60.0);
    EXPECT_EQ(table.heightForRow({1, 0}), 40.0);
    EXPECT_EQ(pane->heightForRowAtIndexPath(table, {2, 0}), 40.0);
}

TEST_F(PaneTable, HeadersAndFooter) {
    UITableView& table = pane->table();
    EXPECT_EQ(table.viewForHeader(0), &pane->cityHeaderView());
    EXPECT_EQ(table.viewForHeader(1), nullptr);
    EXPECT_EQ(table.viewForHeader(2), nullptr);
    EXPECT_EQ(table.titleForHeader(0), "");
    EXPECT_EQ(table.titleForHeader(1), "Prayer time alarms");
    EXPECT_EQ(table.titleForHeader(2), "");
    for (int section = 0; section < 3; ++section) {
        EXPECT_EQ(table.heightForHeader(section), 40.0);
    }
    pane->cityHeaderView().setFrame({0.0, 0.0, 320.0, 55.0});
    EXPECT_EQ(table.heightForHeader(0), 55.0);
    EXPECT_EQ(table.titleForFooter(0), "");
    EXPECT_EQ(table.titleForFooter(1), "");
    EXPECT_TRUE(table.titleForFooter(2).starts_with("Every alarm is an event in the calendar"));
}

TEST_F(PaneTable, TheFooterTellsWhenThisDeviceHasAnotherClock) {
    const std::string otherClock = "The clock of this device is not that of the home city";
    addCity("konya", "Konya");
    UITableView& table = pane->table();
    for (const char* zone : {"Europe/London", "America/Lima", "Asia/Kolkata"}) {
        const TimeZoneOverride device(zone);
        EXPECT_NE(table.titleForFooter(2).find(otherClock), std::string::npos) << zone;
    }
    const TimeZoneOverride device("Europe/Istanbul");
    EXPECT_EQ(table.titleForFooter(2).find(otherClock), std::string::npos);
}

TEST_F(PaneTable, EveryLanguageHasAFooter) {
    for (int language = 0; language < 4; ++language) {
        GlobalFuncs funcs;
        funcs.languageId = language;
        funcs.loadLanguageFile();
        EXPECT_GT(funcs.GetKeyValue(1041).value_or("").size(), 60U) << language;
    }
}

TEST_F(PaneTable, EmptyListSaysSoInOneRow) {
    UICityView& row = cityRow(0);
    EXPECT_EQ(row.cityName().text(), "No city added yet");
    EXPECT_EQ(row.cityName().textAlignment(), UITextAlignment::center);
    EXPECT_TRUE(row.buttonHome().isHidden());
    EXPECT_FALSE(pane->table().canDeleteRow({0, 0}));
    tapHome(0);
    deleteCity(0);
    EXPECT_TRUE(cities().empty());
}

TEST_F(PaneTable, CityRowsShowNameAndHome) {
    addAnkara();
    addBerlin();
    EXPECT_EQ(pane->table().numberOfRowsInSection(0), 2);
    EXPECT_EQ(cityRow(0).cityName().text(), "Ankara");
    EXPECT_EQ(cityRow(0).cityName().textAlignment(), UITextAlignment::left);
    EXPECT_TRUE(cityRow(0).buttonHome().isSelected());
    EXPECT_FALSE(cityRow(0).buttonHome().isHidden());
    EXPECT_EQ(cityRow(1).cityName().text(), "Berlin");
    EXPECT_FALSE(cityRow(1).buttonHome().isSelected());
    EXPECT_EQ(std::to_string(cityRow(1).cityId()), pane->userCities()[1].cityId);
    EXPECT_EQ(cityRow(0).frame().size(), (CGSize{302.0, 60.0}));
    EXPECT_EQ(cityRow(0).delegate(), pane.get());
    EXPECT_EQ(cell(0, 0).tag(), 0);
    EXPECT_EQ(cell(0, 0).textLabel().text(), "");
    EXPECT_EQ(cell(0, 0).backgroundColor(), UIColor::whiteColor());
    EXPECT_EQ(cell(0, 0).reuseIdentifier(), "CellIdentifier");
}

TEST_F(PaneTable, AlarmRowsShowThePrayers) {
    const std::string names[] = {"Fajr", "Sunrise", "Dhuhr", "Asr", "Maghrib", "Isha"};
    for (int row = 0; row < 6; ++row) {
        EXPECT_EQ(cell(1, row).textLabel().text(), names[row]);
        EXPECT_EQ(cell(1, row).textLabel().textAlignment(), UITextAlignment::left);
        EXPECT_EQ(cell(1, row).tag(), 200 + row);
        EXPECT_EQ(cell(1, row).accessoryView(), nullptr);
        EXPECT_EQ(cell(1, row).accessoryType(), UITableViewCellAccessoryType::disclosureIndicator);
        EXPECT_EQ(cell(1, row).backgroundColor(), UIColor::whiteColor());
    }
}

TEST_F(PaneTable, ReusedCellsCarryNothingOver) {
    addAnkara();
    UITableView& table = pane->table();
    UITableViewCell* reused = &cell(1, 2);
    table.endDisplayingRow({1, 2});
    ASSERT_EQ(&cell(0, 0), reused);
    EXPECT_EQ(reused->textLabel().text(), "");
    EXPECT_EQ(reused->accessoryType(), UITableViewCellAccessoryType::none);
    EXPECT_EQ(reused->tag(), 0);
    table.endDisplayingRow({0, 0});
    ASSERT_EQ(&cell(1, 4), reused);
    EXPECT_EQ(reused->accessoryView(), nullptr);
    EXPECT_EQ(reused->textLabel().text(), "Maghrib");
    EXPECT_EQ(reused->tag(), 204);
}

TEST_F(PaneTable, OnlyAlarmsReactToSelection) {
    addAnkara();
    pane->table().userSelectsRow({0, 0});
    EXPECT_EQ(navigation->topViewController(), pane.get());
    pane->table().userSelectsRow({1, 4});
    EXPECT_EQ(navigation->topViewController(), &pane->alarmViewCotroller());
    EXPECT_EQ(pane->alarmView().prayerTag(), 204);
}

TEST_F(PaneTable, SelectionWithoutANavigationOnlyLoadsTheAlarm) {
    navigation.reset();
    pane->table().userSelectsRow({1, 1});
    EXPECT_EQ(pane->alarmView().prayerTag(), 201);
    pane->delegateUICityHeaderView_AddTapped(pane->cityHeaderView().buttonAdd());
}

TEST_F(PaneTable, OnlyCitiesCanBeDeleted) {
    addAnkara();
    EXPECT_TRUE(pane->table().canDeleteRow({0, 0}));
    for (int row = 0; row < 6; ++row) {
        EXPECT_FALSE(pane->table().canDeleteRow({1, row}));
        EXPECT_EQ(pane->editingStyleForRowAtIndexPath(pane->table(), {1, row}),
                  UITableViewCellEditingStyle::none);
    }
    pane->commitEditingStyle(pane->table(), UITableViewCellEditingStyle::none, {0, 0});
    pane->commitEditingStyle(pane->table(), UITableViewCellEditingStyle::deleteRow, {1, 0});
    pane->commitEditingStyle(pane->table(), UITableViewCellEditingStyle::deleteRow, {0, 7});
    EXPECT_EQ(cities().size(), 1U);
}

TEST_F(PaneTable, AddButtonOpensTheSearch) {
    tapAdd();
    EXPECT_EQ(navigation->topViewController(), &pane->addCityViewController());
}

TEST_F(PaneTable, SummarySaysPrayerAndAlarmTime) {
    EXPECT_EQ(pane->summaryOfAlarm(200), "");
    EXPECT_FALSE(pane->noticeForAlarm(200));
    addAnkara();
    const TimeZoneOverride device("Europe/Istanbul");
    const std::string shown = homeClock(dueAt(4));
    EXPECT_EQ(pane->summaryOfAlarm(203), shown);
    EXPECT_EQ(pane->table().detailForRow({1, 3}), shown);
    EXPECT_EQ(pane->table().detailForRow({0, 0}), "Türkiye") << "a city tells its region and country";
    AlarmView& alarm = openAlarm(3);
    alarm.pickerTime().userPicksRow(49);
    alarm.alarmEnabled().userToggles();
    EXPECT_EQ(pane->summaryOfAlarm(203), shown + " · Alarm " + homeClock(dueAt(4, -10)));
    EXPECT_EQ(eventOfAlarm(4)->startDate, dueAt(4, -10));
    EXPECT_FALSE(pane->noticeForAlarm(203));
}

TEST_F(PaneTable, SummarySaysTomorrowAndTheTimeOfThisDevice) {
    addAnkara();
    toggleAlarm(0);
    const TimeZoneOverride here("Europe/Berlin");
    pane->loadAllUserCities();
    const Instant dawn = dueAt(1);
    const LocalDateTime local = localDateTime(dawn);
    EXPECT_TRUE(pane->summaryOfAlarm(200).ends_with(fmt::format(
        " · Alarm tomorrow {} ({:02}:{:02} on this device)", homeClock(dawn), local.hour, local.minute)))
        << pane->summaryOfAlarm(200);
}

TEST_F(PaneTable, SummarySaysWhatIsLeftOut) {
    addAnkara();
    const TimeZoneOverride device("Europe/Istanbul");
    toggleAlarm(3);
    ASSERT_TRUE(pane->actions().skipNext(203).isDone());
    pane->loadAllUserCities();
    EXPECT_NE(pane->summaryOfAlarm(203).find(" · Alarm tomorrow "), std::string::npos)
        << pane->summaryOfAlarm(203);
    EXPECT_TRUE(pane->summaryOfAlarm(203).ends_with(" · skips " + homeClock(dueAt(4))))
        << pane->summaryOfAlarm(203);
    const auto until = std::chrono::floor<std::chrono::seconds>(now()) + std::chrono::days(3);
    ASSERT_TRUE(pane->actions().pauseUntil(until).isDone());
    pane->loadAllUserCities();
    EXPECT_NE(pane->summaryOfAlarm(203).find(" · paused until 2026-"), std::string::npos)
        << pane->summaryOfAlarm(203);
}

/// Nothing moves it until somebody refreshes: the row must not promise a ring.
TEST_F(PaneTable, SummarySaysThatAnAlarmHasPassedOrWillNotRing) {
    addAnkara();
    toggleAlarm(3);
    clock.reset();
    clock.emplace(instantFromLocal({2026, 3, 13, 9, 0, 0, 0.0}));
    pane->loadAllUserCities();
    EXPECT_TRUE(pane->summaryOfAlarm(203).ends_with(" · Alarm has passed")) << pane->summaryOfAlarm(203);
    EXPECT_NE(pane->table().titleForFooter(1), "");
    pane->refreshAlarms();
    EXPECT_NE(pane->summaryOfAlarm(203).find(" · Alarm " + homeClock(dueAt(4))), std::string::npos);
    EXPECT_EQ(pane->table().titleForFooter(1), "");
    std::filesystem::remove_all(Locations::current().data + "/calendar");
    pane->loadAllUserCities();
    EXPECT_TRUE(pane->summaryOfAlarm(203).ends_with(" · Alarm will not ring"));
}

/// A home city far from this device, on a day of its own.
class HomeElsewhere : public PaneTable {
protected:
    /// @param moment in universal time.
    void live(const std::string& search, const std::string& name, LocalDateTime moment) {
        const TimeZoneOverride universal("UTC");
        clock.reset();
        clock.emplace(instantFromLocal(moment));
        pane->delegateAddCityView_AddTapped(cityNamed(search, name));
    }
    [[nodiscard]] std::string ringsAt(int timeId) {
        const TimeZoneOverride home("Europe/Kirov");
        const LocalDateTime start = localDateTime(eventOfAlarm(timeId)->startDate);
        return fmt::format("{:02}-{:02} {:02}:{:02}", start.month, start.day, start.hour, start.minute);
    }
};

/// In June the dawn of Kirov lies before midnight.
TEST_F(HomeElsewhere, ShowsATimeOfTheEveAndRingsThen) {
    live("kirov", "Kirov", {2026, 6, 10, 9, 0, 0, 0.0});
    const almanac::DayTime& fajr = (*pane->homeDay())[almanac::Prayer::fajr];
    ASSERT_EQ(fajr.local.date, almanac::addDays(pane->homeDay()->date, -1));
    const std::string shown = almanac::clockText(fajr.local.timeOfDay, almanac::Precision::minutes);
    EXPECT_EQ(shown.substr(0, 3), "23:");
    EXPECT_EQ(pane->summaryOfAlarm(200), shown + " · the evening before");
    const TimeZoneOverride device("Europe/Kirov");
    toggleAlarm(0);
    EXPECT_EQ(ringsAt(1).substr(0, 9), "06-10 23:");
}

/// On 21 November at 23:30 in London it is the 22nd in Tokyo.
TEST_F(HomeElsewhere, LivesOnItsOwnDate) {
    live("tokyo", "Tokyo", {2026, 11, 21, 23, 30, 0, 0.0});
    const TimeZoneOverride device("Europe/London");
    pane->loadAllUserCities();
    EXPECT_EQ(almanac::isoDate(pane->currentDate()), "2026-11-22");
    EXPECT_EQ(almanac::isoDate(pane->homeDay()->date), "2026-11-22");
}

TEST_F(HomeElsewhere, StoresTheTimesOfTheAlmanac) {
    live("helsinki", "Helsinki", {2027, 3, 28, 9, 0, 0, 0.0});
    const almanac::Day& day = *pane->homeDay();
    ASSERT_TRUE(day.corrections().has(almanac::Correction::clockChange));
    for (const almanac::Prayer prayer : almanac::kSixPrayers) {
        const auto& [same, position, id, row, key, rounding] = almanac::identityOf(prayer);
        EXPECT_EQ(pane->homeCity()->getRelevantPrayerTime(id), day.record.times.at(position)) << key;
    }
    EXPECT_EQ(pane->summaryOfAlarm(200), "02:53");
}

/// The clock of Havana in the winter of 2026: the system's time zone data is older than the catalogue.
TEST_F(HomeElsewhere, FooterTellsWhereTheClockComesFrom) {
    live("havana", "Havana", {2026, 11, 22, 9, 0, 0, 0.0});
    const bool isOlder = almanac::systemZoneEdition() < "2026f";
    const std::string footer = pane->table().titleForFooter(2);
    EXPECT_EQ(footer.find("older than the city list") != std::string::npos, isOlder) << footer;
    EXPECT_EQ(pane->homeDay()->offset, std::chrono::hours(-4));
}

class FarNorth : public PaneTable {
protected:
    void goTo(std::int32_t month, std::int32_t day) {
        clock.reset();
        clock.emplace(instantFromLocal({2026, month, day, 9, 0, 0, 0.0}));
        pane->delegateAddCityView_AddTapped(cityNamed("longyearbyen", "Longyearbyen"));
    }
};

/// The sun's last days before the polar night have no sunrise that the method can find.
TEST_F(FarNorth, SummarySaysThatThereIsNoSuchTime) {
    goTo(10, 27);
    int missing = 0;
    for (int prayer = 200; prayer <= 205; ++prayer) {
        const bool none = pane->homeCity()->getRelevantPrayerTime(prayer) < 0.0;
        EXPECT_EQ(pane->noticeForAlarm(prayer) == "No such time today", none);
        EXPECT_EQ(pane->summaryOfAlarm(prayer) == "No such time today", none);
        missing += none ? 1 : 0;
    }
    EXPECT_GT(missing, 0);
}

TEST_F(FarNorth, SummarySaysThatTheTimesAreThoseOfALowerLatitude) {
    goTo(6, 21);
    ASSERT_TRUE(pane->homeCity()->aNamazVakitleri.latitudeLowered);
    EXPECT_EQ(pane->noticeForAlarm(200), "lower latitude");
    EXPECT_TRUE(pane->summaryOfAlarm(200).ends_with(" · lower latitude"));
    EXPECT_EQ(pane->summaryOfAlarm(200)[2], ':');
}

} // namespace
} // namespace zorel
