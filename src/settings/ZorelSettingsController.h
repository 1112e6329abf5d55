// SPDX-License-Identifier: Apache-2.0
/// @file
/// The pane: the user's cities, the home city and its prayer times of today, the six alarms.
#pragma once

#include "alarms/UserActions.h"
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

/// Owns every long-lived object of the pane, fills its table and lets UserActions do what the views ask for.
/// After each change the list of cities is read anew from the database; nothing else is remembered. Times are
/// those of the last reading. What the rows say of alarms is PrayerAlarms' report.
///
/// A failure is said in place: under the cities or the alarms, in the alarm's editor, on the search screen.
/// The table shows what the database holds; a list that cannot be read is not shown as an empty one.
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
    /// Moves the alarms to where they should be, as a host does after start-up, at midnight and when the
    /// clock has changed, and reads the cities anew.
    void refreshAlarms();

    /// The cities of the list, each once, also where the database holds one twice.
    [[nodiscard]] const std::vector<City>& userCities() const { return userCities_; }
    /// How the last reading of the list ended.
    [[nodiscard]] const StoreResult& listResult() const { return listResult_; }
    /// What the alarms do, as of the last reading.
    [[nodiscard]] const AlarmReport& alarms() const;
    /// What a person does; loadAllUserCities shows what came of it.
    [[nodiscard]] UserActions actions() const { return {*glbFuncs_, *dbFuncs_}; }
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
    /// "05:32", with the alarm on "05:32 · Alarm tomorrow 05:22", and the notice behind it; "" without a home
    /// city. The alarm's time is read from its event, by the home city's clock, with this device's beside it
    /// where that differs; an alarm that is on and does not ring says so.
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
    void readUserCities();
    void listCity(const UserCity& row, bool home);
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
    [[nodiscard]] std::string alarmPart(std::int32_t prayerId) const;
    [[nodiscard]] std::string ringText(const AlarmStatus& alarm) const;
    [[nodiscard]] std::string silenceText(const AlarmStatus& alarm) const;
    [[nodiscard]] std::string momentText(almanac::Instant instant) const;
    /// What is said of an action that was not done; "" when it was.
    [[nodiscard]] std::string messageFor(const ActionResult& result) const;
    [[nodiscard]] std::string listMessage() const;
    void showCities(const ActionResult& result);
    int showAlarm(const ActionResult& result, AlarmView& view);
    ActionResult storeAlarm(const AlarmView& view);

    std::vector<PSSpecifier> specifiers_;
    bool specifiersLoaded_ = false;
    std::unique_ptr<GlobalFuncs> glbFuncs_;
    std::unique_ptr<Settings> glbSettings_;
    std::unique_ptr<DatabaseFunctions> dbFuncs_;
    std::unique_ptr<UICityHeaderView> cityHeaderView_;
    std::vector<City> userCities_;
    StoreResult listResult_;
    mutable std::optional<AlarmReport> alarms_; ///< read when first asked for
    std::string cityMessage_;
    std::int32_t currentCityId_ = -1;
    std::optional<almanac::Place> homePlace_;
    std::optional<almanac::Day> homeDay_;
    std::unique_ptr<AddCityView> addCityView_;
    std::unique_ptr<AddCityViewController> addCityViewController_;
    std::unique_ptr<AlarmView> alarmView_;
    std::unique_ptr<AlarmViewController> alarmViewCotroller_;
};

} // namespace zorel
