// SPDX-License-Identifier: Apache-2.0
/// @file
/// The whole pane in memory, used as a person uses it: rows are tapped, wheels turned, texts typed. What came
/// of it is looked up in the table, in the database and in the folder of calendar events.
#pragma once

#include "alarms/NextRings.h"
#include "common/GlobalFuncs.h"
#include "platform/eventkit/FolderCalendar.h"
#include "platform/foundation/Clock.h"
#include "platform/uikit/UITouch.h"
#include "settings/ZorelSettingsController.h"
#include "store/CitySearch.h"
#include "store/Database.h"
#include "store/DatabaseFunctions.h"
#include "tests/views/ViewsFixture.h"
#include "views/MessageView.h"

#include <optional>
#include <stdlib.h>

namespace zorel::test {

/// The user's files lie in memory where the system offers that: a test makes thousands of changes, and each
/// waits for the disk.
inline const bool kFilesInMemory =
    std::filesystem::is_directory("/dev/shm") && setenv("TMPDIR", "/dev/shm", 0) == 0;

class PaneFixture : public ViewsFixture {
protected:
    PaneFixture() {
        addRingtone("Bell.wav");
        addRingtone("Flute.wav");
        open();
    }

    /// The present time is 10 March 2026, 9:00.
    void setClock(std::int32_t hour, std::int32_t minute) {
        clock.reset();
        clock.emplace(instantFromLocal({2026, 3, 10, hour, minute, 0, 0.0}));
    }
    void open() {
        pane = std::make_unique<ZorelSettingsController>();
        navigation = std::make_unique<UINavigationController>(*pane);
    }
    void restart() {
        navigation.reset();
        pane.reset();
        open();
    }

    // What a person does.

    void tapAdd() { UITouchDispatcher(*pane->table().viewForHeader(0)).tap({285.0, 20.0}); }
    /// Searches for a city, chooses the first row of that name and confirms.
    void addCity(const std::string& search, const std::string& name) {
        tapAdd();
        AddCityView& screen = pane->addCityView();
        screen.searchBar().userTypes(search);
        screen.searchBar().userTapsSearch();
        UITableView& results = screen.searchTableView();
        int row = 0;
        while (results.hasRow({0, row}) &&
               !results.cellForRowAtIndexPath({0, row})->textLabel().text().starts_with(name + " / ")) {
            ++row;
        }
        ASSERT_TRUE(results.hasRow({0, row})) << name;
        results.userSelectsRow({0, row});
        screen.confirmation()->userTapsButton(0);
        navigation->popViewControllerAnimated(true);
    }
    void addAnkara() { addCity("ankara", "Ankara"); }
    void addBerlin() { addCity("berlin", "Berlin"); }
    [[nodiscard]] UICityView& cityRow(int row) {
        return dynamic_cast<UICityView&>(*pane->table().cellForRowAtIndexPath({0, row})->accessoryView());
    }
    void tapHome(int row) { UITouchDispatcher(cityRow(row)).tap({267.0, 30.0}); }
    void deleteCity(int row) { pane->table().userDeletesRow({0, row}); }
    /// Opens the editor of an alarm, row 0 to 5, and leaves it to the caller to go back.
    AlarmView& openAlarm(int row) {
        pane->table().userSelectsRow({1, row});
        return pane->alarmView();
    }
    void toggleAlarm(int row) {
        openAlarm(row).alarmEnabled().userToggles();
        navigation->popViewControllerAnimated(true);
    }

    // What came of it.

    /// Rows of a query, their columns joined by '|'.
    [[nodiscard]] std::vector<std::string> query(const std::string& sql, int columns = 1) const {
        std::vector<std::string> rows;
        const auto database = Database::openUser(pane->dbFuncs().userDBPath());
        if (!database) {
            return rows;
        }
        Statement statement = database->prepare(sql);
        while (statement.nextRow()) {
            std::string row = statement.text(0);
            for (int column = 1; column < columns; ++column) {
                row += "|" + statement.text(column);
            }
            rows.push_back(row);
        }
        return rows;
    }
    [[nodiscard]] std::vector<std::string> cities() const {
        return query("SELECT ID, SETASHOME FROM USER_CITY", 2);
    }
    [[nodiscard]] std::vector<std::string> activeAlarms() const {
        return query("SELECT TIMEID FROM USER_ALARMS WHERE ACTIVE = 1");
    }
    /// Every event of the calendar folder.
    [[nodiscard]] std::vector<EKEvent> events() const {
        FolderCalendar calendar(Locations::current().data + "/calendar");
        std::vector<EKEvent> all;
        for (const std::string& identifier : calendar.identifiersWithPrefix("")) {
            all.push_back(*calendar.eventWithIdentifier(identifier));
        }
        return all;
    }
    [[nodiscard]] std::optional<EKEvent> eventOfAlarm(int timeId) const {
        const auto ids = query("SELECT EVENTID FROM USER_ALARMS WHERE TIMEID = " + std::to_string(timeId));
        return FolderCalendar(Locations::current().data + "/calendar").eventWithIdentifier(ids.at(0));
    }
    /// The home city's next times of a prayer, by its almanac. @param offset [min]
    [[nodiscard]] NextRings dueTimes(int timeId, std::int32_t offset) const {
        const auto rows = storedUserCities(pane->dbFuncs().userDBPath()).rows;
        const HomePlace home = homePlaceOf(pane->glbFuncs(), rows);
        const auto present = std::chrono::floor<std::chrono::seconds>(now());
        return AlarmDays(home.place.value(), present)
            .nextRings(almanac::prayerOfId(kTimeIdOffset + timeId).value(), offset);
    }
    /// When an alarm that has just been changed should ring.
    [[nodiscard]] Instant dueAt(int timeId, std::int32_t offset = 0) const {
        return dueTimes(timeId, offset).afterMargin.value();
    }
    /// What the clock of the home city shows then, "15:04".
    [[nodiscard]] std::string homeClock(Instant instant) const {
        const auto rows = storedUserCities(pane->dbFuncs().userDBPath()).rows;
        const auto clockThere = homePlaceOf(pane->glbFuncs(), rows).place.value().clock;
        const auto shown = clockThere.localTime(std::chrono::floor<std::chrono::seconds>(instant));
        return almanac::clockText(shown.timeOfDay, almanac::Precision::minutes);
    }
    [[nodiscard]] static City cityNamed(const std::string& search, const std::string& name) {
        static GlobalFuncs funcs; // cities refer to it
        funcs.appBundlePath = Locations::current().bundle;
        for (const FoundCity& city : searchCities(funcs, search)) {
            if (city.name == name) {
                return cityOf(funcs, city);
            }
        }
        throw std::runtime_error("no city " + name);
    }

    std::optional<ClockOverride> clock{std::in_place, instantFromLocal({2026, 3, 10, 9, 0, 0, 0.0})};
    std::unique_ptr<ZorelSettingsController> pane;
    std::unique_ptr<UINavigationController> navigation;
};

} // namespace zorel::test
