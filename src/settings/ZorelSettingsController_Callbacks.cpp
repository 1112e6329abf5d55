// SPDX-License-Identifier: Apache-2.0
// What the user does to cities and alarms: UserActions does it as a whole, and what came of it is shown.
#include "settings/ZorelSettingsController.h"

#include "alarms/PrayerAlarms.h"
#include "common/GlobalFuncs.h"
#include "platform/foundation/NumberText.h"
#include "views/MessageView.h"
#include "views/Texts.h"

#include <set>

namespace zorel {
namespace {

constexpr int kDone = 0;
constexpr int kRefused = -1;   ///< there is no city, or the alarm is off: the editor says so
constexpr int kNotStored = -2; ///< it has been said why
constexpr std::int32_t kBusyKey = 1050;
constexpr std::int32_t kNotStoredKey = 1051;
constexpr std::int32_t kTakenBackKey = 1052;
constexpr std::int32_t kListedAlreadyKey = 1053;
constexpr std::int32_t kUnreadableKey = 1054;

} // namespace

std::string ZorelSettingsController::messageFor(const ActionResult& result) const {
    switch (result.state) {
    case ActionState::done:
        return {};
    case ActionState::alreadyListed:
        return textForKey(*glbFuncs_, kListedAlreadyKey);
    case ActionState::busy:
        return textForKey(*glbFuncs_, kBusyKey);
    case ActionState::unfinished: {
        constexpr std::int32_t unfinishedKey = 1064;
        return textForKey(*glbFuncs_, unfinishedKey) + ' ' + result.reason;
    }
    case ActionState::refused:
        return textForKey(*glbFuncs_, kTakenBackKey) + ' ' + result.reason;
    default:
        return textForKey(*glbFuncs_, kNotStoredKey) + ' ' + result.reason;
    }
}

std::string ZorelSettingsController::listMessage() const {
    switch (listResult_.state) {
    case StoreState::busy:
        return textForKey(*glbFuncs_, kBusyKey);
    case StoreState::failed:
        return textForKey(*glbFuncs_, kUnreadableKey) + ' ' + listResult_.reason;
    default:
        return {};
    }
}

void ZorelSettingsController::showCities(const ActionResult& result) {
    cityMessage_ = messageFor(result);
    loadAllUserCities();
    table().reloadData();
}

void ZorelSettingsController::deleteCity(int row) {
    if (row >= 0 && row < static_cast<int>(userCities_.size())) {
        const City& city = userCities_[static_cast<std::size_t>(row)];
        showCities(actions().removeCity(integerValue(city.cityId)));
    }
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

void ZorelSettingsController::delegateAddCityView_AddTapped(const City& city) {
    const ActionResult result = actions().addCity(integerValue(city.cityId));
    showCities(result);
    markListedCities();
    if (!result.isDone()) {
        MessageView::toastInView(*addCityView_, cityMessage_);
    }
    if (result.state == ActionState::alreadyListed) {
        cityMessage_.clear(); // nothing is wrong with the list
    }
}

void ZorelSettingsController::delegateUICityView_HomeTapped(UICityView& view) {
    showCities(actions().makeHome(view.cityId()));
}

/// Shows in its editor what became of a change of an alarm, and reads the alarms anew.
int ZorelSettingsController::showAlarm(const ActionResult& result, AlarmView& view) {
    alarms_ = result.alarms;
    table().reloadData();
    std::string notice = messageFor(result);
    if (notice.empty() && result.alarms && result.alarms->of(view.prayerTag()).skipsNext()) {
        constexpr std::int32_t marginKey = 1055;
        notice = textForKey(*glbFuncs_, marginKey) + ' ' + ringText(alarms().of(view.prayerTag()));
    }
    view.setNotice(notice);
    return result.isDone() ? kDone : kNotStored;
}

ActionResult ZorelSettingsController::storeAlarm(const AlarmView& view) {
    return actions().switchOn(view.prayerTag(), [&view](AlarmInfo& alarm) {
        alarm.timeOffset = view.timeOffset();
        alarm.melodyName = view.melodyName();
        alarm.melodyTime = view.melodyTime();
    });
}

/// A switch that could not be followed goes back.
int ZorelSettingsController::delegateAlarmView_AlarmEnabledChanged(UISwitch& control, AlarmView& view) {
    if (homeCity() == nullptr && listResult_.isDone()) {
        return kRefused;
    }
    const int answer =
        showAlarm(control.isOn() ? storeAlarm(view) : actions().switchOff(view.prayerTag()), view);
    if (answer == kNotStored) {
        control.setOn(!control.isOn());
    }
    return answer;
}

int ZorelSettingsController::delegateAlarmView_TimeChanged(UIPickerView& /*picker*/, AlarmView& view) {
    if (!view.alarmEnabled().isOn() || homeCity() == nullptr) {
        return kRefused;
    }
    return showAlarm(storeAlarm(view), view);
}

/// The event stays as it is: it does not know the ringtone.
int ZorelSettingsController::delegateAlarmView_MelodyNameChanged(UIPickerView& /*picker*/, AlarmView& view) {
    if (!view.alarmEnabled().isOn() || homeCity() == nullptr) {
        return kRefused;
    }
    return showAlarm(actions().setRingtone(view.prayerTag(), view.melodyName()), view);
}

int ZorelSettingsController::delegateAlarmView_MelodyTimeChanged(UIPickerView& /*picker*/, AlarmView& view) {
    if (!view.alarmEnabled().isOn() || homeCity() == nullptr) {
        return kRefused;
    }
    return showAlarm(actions().setDuration(view.prayerTag(), view.melodyTime()), view);
}

} // namespace zorel
