// SPDX-License-Identifier: Apache-2.0
/// @file
/// The pane: the user's cities, the home city and its prayer times of today, the six alarms.
#pragma once

#include "almanac/Day.h"
#include "almanac/Place.h"
#include "platform/preferences/PSListController.h"
#include "settings/AddCityViewController.h"
#include "settings/AlarmViewController.h"
#include "store/City.h"
#include "views/AddCityView.h"
#include "views/AlarmView.h"
#include "views/UICityHeaderView.h"
#include "views/UICityView.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zorel {

class DatabaseFunctions;
class GlobalFuncs;
class Settings;

/// Owns every long-lived object of the pane, fills its table and does what the views ask for. After each
/// change the list of cities is read anew from the database; nothing else is remembered. Times are those of
/// the last reading.
///
/// Failures of the database and the calendar are logged, not shown: the table then shows what the database
/// holds.
class ZorelSettingsController : public PSListController,
                                public UICityHeaderViewDelegate,
                                public AddCityViewDelegate,
                                public UICityViewDelegate,
                                public AlarmViewDelegate {
public:
    /// Opens the user database of the data folder (made when missing), reads the cities and builds the
    /// screens, as large as the main screen is now.
    ZorelSettingsController();
    ~ZorelSettingsController() override;

    // Start-up and home city (ZorelSettingsController.cpp).

    [[nodiscard]] const std::vector<PSSpecifier>& specifiers() override;
    [[nodiscard]] bool shouldReloadSpecifiersOnResume() const override { return false; }
    /// Makes the first city that is marked as home, or else the first city, the home city. False without
    /// cities.
    bool findHomeCityId();
    /// Reads the cities from the database, finds the home city and computes its times.
    void loadAllUserCities();
    /// Computes the times of the home city for today, by its own calendar; nothing without one.
    void calculatePrayerTimes();

    [[nodiscard]] const std::vector<City>& userCities() const { return userCities_; }
    /// Position of the home city in userCities, -1 when there is none. Not a catalogue id.
    [[nodiscard]] std::int32_t currentCityId() const { return currentCityId_; }
    /// The home city, or nullptr.
    [[nodiscard]] const City* homeCity() const;
    /// The home city as a place; nothing without one that the catalogue knows.
    [[nodiscard]] const std::optional<almanac::Place>& homePlace() const { return homePlace_; }
    /// What the day of the home city is told as: the source of its stored times. Nothing without a home city
    /// that the catalogue knows.
    [[nodiscard]] const std::optional<almanac::Day>& homeDay() const { return homeDay_; }
    /// The date at the home city now; at this device without one.
    [[nodiscard]] almanac::Date currentDate() const;
    [[nodiscard]] const GlobalFuncs& glbFuncs() const { return *glbFuncs_; }
    [[nodiscard]] DatabaseFunctions& dbFuncs() const { return *dbFuncs_; }
    [[nodiscard]] UICityHeaderView& cityHeaderView() const { return *cityHeaderView_; }
    [[nodiscard]] AddCityView& addCityView() const { return *addCityView_; }
    [[nodiscard]] AddCityViewController& addCityViewController() const { return *addCityViewController_; }
    [[nodiscard]] AlarmView& alarmView() const { return *alarmView_; }
    [[nodiscard]] AlarmViewController& alarmViewCotroller() const { return *alarmViewCotroller_; }

    // What a host can show beside an alarm's row (ZorelSettingsController_Table.cpp).

    /// What a reader has to know of a prayer's time: that there is none today, so that its alarm rings at no
    /// meaningful time, that it was computed for a lower latitude, or that it lies on the evening before.
    /// Nothing on an ordinary day.
    [[nodiscard]] std::optional<std::string> noticeForAlarm(std::int32_t prayerId) const;
    /// "05:32", with the alarm on "05:32 · Alarm 05:22", each with the notice behind it; the notice alone
    /// when there is no time; "" without a home city. The prayer's minute is the one that the almanac shows;
    /// the alarm's is that of its event, cut off.
    [[nodiscard]] std::string summaryOfAlarm(std::int32_t prayerId) const;

    // The table (ZorelSettingsController_Table.cpp): cities, alarms, information.

    int numberOfSectionsInTableView(UITableView& table) override;
    int numberOfRowsInSection(UITableView& table, int section) override;
    double heightForRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;
    /// Below a city: its region and country. Beside an alarm: summaryOfAlarm.
    std::string detailForRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;
    std::string titleForHeaderInSection(UITableView& table, int section) override;
    UIView* viewForHeaderInSection(UITableView& table, int section) override;
    double heightForHeaderInSection(UITableView& table, int section) override;
    std::string titleForFooterInSection(UITableView& table, int section) override;
    std::unique_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView& table,
                                                           NSIndexPath indexPath) override;
    void didSelectRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;
    bool canEditRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;
    UITableViewCellEditingStyle editingStyleForRowAtIndexPath(UITableView& table,
                                                              NSIndexPath indexPath) override;
    void commitEditingStyle(UITableView& table, UITableViewCellEditingStyle style,
                            NSIndexPath indexPath) override;

    // What the views report (ZorelSettingsController_Callbacks.cpp). -1 refuses a change.

    void delegateUICityHeaderView_AddTapped(UIButtonX& button) override;
    /// Adds the city, as home city when it is the first. The search screen stays on show.
    void delegateAddCityView_AddTapped(const City& city) override;
    void delegateUICityView_HomeTapped(UICityView& view) override;
    int delegateAlarmView_AlarmEnabledChanged(UISwitch& control, AlarmView& view) override;
    int delegateAlarmView_TimeChanged(UIPickerView& picker, AlarmView& view) override;
    /// A ringtone or duration chosen while the alarm is off is stored when it is switched on.
    int delegateAlarmView_MelodyNameChanged(UIPickerView& picker, AlarmView& view) override;
    int delegateAlarmView_MelodyTimeChanged(UIPickerView& picker, AlarmView& view) override;

private:
    bool readUserCities();
    /// The city where times are told; nothing when the catalogue cannot be read or does not have it.
    [[nodiscard]] std::optional<almanac::Place> placeOf(const City& city) const;
    /// Gives a city its times of today, when its place is known.
    void tellTimes(City& city);
    /// Whether the home city's clock is not the device's, by which the alarms ring.
    [[nodiscard]] bool homeClockDiffers() const;
    /// The told time of the home city's day; nothing without one, and for an id that no time has.
    [[nodiscard]] const almanac::DayTime* homeTime(std::int32_t prayerId) const;
    /// What a reader has to know of where the home city's clock comes from; "" on an ordinary day.
    [[nodiscard]] std::string clockNotice() const;
    /// "Île-de-France, France".
    [[nodiscard]] std::string regionOfCity(int row) const;
    void buildScreens();
    void buildAddCityScreen(double width, double height);
    /// Lets the search screen mark the cities of the list.
    void markListedCities();
    void buildAlarmScreen(double width, double height);
    void push(UIViewController& screen);
    void fillCityCell(UITableViewCell& cell, int row);
    void fillAlarmCell(UITableViewCell& cell, int row);
    void deleteCity(int row);
    void moveHomeFrom(int row);
    void storeAlarm(const AlarmView& view);

    std::vector<PSSpecifier> specifiers_;
    bool specifiersLoaded_ = false;
    std::unique_ptr<GlobalFuncs> glbFuncs_;
    std::unique_ptr<Settings> glbSettings_;
    std::unique_ptr<DatabaseFunctions> dbFuncs_;
    std::unique_ptr<UICityHeaderView> cityHeaderView_;
    std::vector<City> userCities_;
    std::int32_t currentCityId_ = -1;
    std::optional<almanac::Place> homePlace_;
    std::optional<almanac::Day> homeDay_;
    std::unique_ptr<AddCityView> addCityView_;
    std::unique_ptr<AddCityViewController> addCityViewController_;
    std::unique_ptr<AlarmView> alarmView_;
    std::unique_ptr<AlarmViewController> alarmViewCotroller_;
};

} // namespace zorel
