// SPDX-License-Identifier: Apache-2.0
// What the user does to cities and alarms. Each step is written to the database before the next one.
#include "settings/ZorelSettingsController.h"

#include "platform/foundation/NumberText.h"
#include "store/AlarmRecords.h"
#include "store/DatabaseFunctions.h"
#include "store/StatementText.h"
#include "store/UserCities.h"

#include <fmt/format.h>
#include <set>

namespace zorel {
namespace {

constexpr int kDone = 0;
constexpr int kRefused = -1;

std::string markAsHome(std::int32_t cityId) {
    return fmt::format("UPDATE USER_CITY SET SETASHOME={} WHERE ID={}", 1, cityId);
}

} // namespace

/// A home city that could not be deleted stays the home city: there must not be two.
void ZorelSettingsController::deleteCity(int row) {
    if (row < 0 || row >= static_cast<int>(userCities_.size())) {
        return;
    }
    const City& city = userCities_[static_cast<std::size_t>(row)];
    const bool wasHome = isMarkedAsHome(city);
    const bool deleted =
        dbFuncs_->executeSQL(fmt::format("DELETE FROM USER_CITY WHERE ID = {}", integerValue(city.cityId)));
    if (deleted && wasHome) {
        moveHomeFrom(row);
    }
    loadAllUserCities();
    table().reloadData();
}

/// The home city goes: the first of the others becomes the home city and takes over the alarms. Without
/// others they are switched off.
void ZorelSettingsController::moveHomeFrom(int row) {
    if (userCities_.size() < 2) {
        dbFuncs_->clearAllAlarms(true);
        return;
    }
    dbFuncs_->clearAllAlarms(false);
    userCities_.erase(userCities_.begin() + row);
    City& next = userCities_.front();
    dbFuncs_->executeSQL(markAsHome(integerValue(next.cityId)));
    tellTimes(next);
    dbFuncs_->setAllAlarms(next);
}

void ZorelSettingsController::markListedCities() {
    std::set<std::string> ids;
    for (const City& city : userCities_) {
        ids.insert(city.cityId);
    }
    addCityView_->setListedCities(std::move(ids));
}

void ZorelSettingsController::delegateUICityHeaderView_AddTapped(UIButtonX& /*button*/) {
    markListedCities();
    push(*addCityViewController_);
}

/// A city that is in the list already gets a second row. An empty list is read again first: when it could not
/// be read, there may be a home city that a second one must not be put beside.
void ZorelSettingsController::delegateAddCityView_AddTapped(const City& city) {
    if (userCities_.empty() && !readUserCities()) {
        return;
    }
    const bool isFirst = userCities_.empty();
    if (isFirst) {
        dbFuncs_->clearAllAlarms(true);
    }
    dbFuncs_->executeSQL(fmt::format("INSERT INTO USER_CITY (ID,SETASHOME) VALUES ({}, {})",
                                     integerValue(city.cityId), isFirst ? 1 : 0));
    loadAllUserCities();
    if (isFirst && !userCities_.empty()) {
        dbFuncs_->setAllAlarms(userCities_.front());
    }
    markListedCities();
    table().reloadData();
}

/// While the former home city cannot be unmarked, no other is marked.
void ZorelSettingsController::delegateUICityView_HomeTapped(UICityView& view) {
    if (dbFuncs_->executeSQL("UPDATE USER_CITY SET SETASHOME = 0")) {
        dbFuncs_->executeSQL(markAsHome(view.cityId()));
    }
    loadAllUserCities();
    dbFuncs_->clearAllAlarms(false);
    if (const City* home = homeCity()) {
        dbFuncs_->setAllAlarms(*home);
    }
    table().reloadData();
}

void ZorelSettingsController::storeAlarm(const AlarmView& view) {
    const double prayerTime = homeCity()->getRelevantPrayerTime(view.prayerTag());
    dbFuncs_->updateAlarmDefinitions(view.prayerTag(), view.timeOffset(), prayerTime, view.melodyName(),
                                     view.melodyTime());
}

int ZorelSettingsController::delegateAlarmView_AlarmEnabledChanged(UISwitch& control, AlarmView& view) {
    if (homeCity() == nullptr) {
        return kRefused;
    }
    if (control.isOn()) {
        storeAlarm(view);
    } else {
        dbFuncs_->deleteAlarm(view.prayerTag());
    }
    return kDone;
}

int ZorelSettingsController::delegateAlarmView_TimeChanged(UIPickerView& /*picker*/, AlarmView& view) {
    if (!view.alarmEnabled().isOn() || homeCity() == nullptr) {
        return kRefused;
    }
    storeAlarm(view);
    return kDone;
}

/// The event stays as it is: it does not know the ringtone.
int ZorelSettingsController::delegateAlarmView_MelodyNameChanged(UIPickerView& /*picker*/, AlarmView& view) {
    if (!view.alarmEnabled().isOn() || homeCity() == nullptr) {
        return kRefused;
    }
    dbFuncs_->executeSQL(fmt::format(" UPDATE USER_ALARMS SET MELODYNAME = '{}'  WHERE TIMEID = {} ",
                                     statementText(view.melodyName()), view.prayerTag() - kTimeIdOffset));
    return kDone;
}

int ZorelSettingsController::delegateAlarmView_MelodyTimeChanged(UIPickerView& /*picker*/, AlarmView& view) {
    if (!view.alarmEnabled().isOn() || homeCity() == nullptr) {
        return kRefused;
    }
    dbFuncs_->executeSQL(fmt::format(" UPDATE USER_ALARMS SET MELODYTIME = {}  WHERE TIMEID = {} ",
                                     view.melodyTime(), view.prayerTag() - kTimeIdOffset));
    return kDone;
}

} // namespace zorel
