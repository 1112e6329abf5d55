// SPDX-License-Identifier: Apache-2.0
#include "commands/HeadlessPane.h"

#include "commands/UserData.h"

#include "settings/ZorelSettingsController.h"
#include "store/DatabaseFunctions.h"

namespace zorel::cli {

HeadlessPane::HeadlessPane() : controller_(std::make_unique<ZorelSettingsController>()) {
    requireLoaded();
}

HeadlessPane::~HeadlessPane() = default;

std::vector<const City*> HeadlessPane::cities() const {
    std::vector<const City*> cities;
    for (const City& city : controller_->userCities()) {
        cities.push_back(&city);
    }
    return cities;
}

const City* HeadlessPane::home() const {
    return controller_->homeCity();
}

const AlarmReport& HeadlessPane::alarms() const {
    return controller_->alarms();
}

ActionResult HeadlessPane::act(const std::function<ActionResult(UserActions&)>& action) {
    UserActions actions = controller_->actions();
    ActionResult result = action(actions);
    controller_->loadAllUserCities();
    return result;
}

void HeadlessPane::requireLoaded() const {
    requireRead(controller_->listResult());
}

const std::vector<UIComboboxItem>& HeadlessPane::ringtones() const {
    return controller_->alarmView().melodyArray();
}

const std::vector<UIComboboxItem>& HeadlessPane::durations() const {
    return controller_->alarmView().melodyTimeArray();
}

} // namespace zorel::cli
