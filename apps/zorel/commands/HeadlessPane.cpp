// SPDX-License-Identifier: Apache-2.0
#include "commands/HeadlessPane.h"

#include "platform/foundation/NumberText.h"
#include "settings/ZorelSettingsController.h"
#include "store/Database.h"
#include "store/DatabaseFunctions.h"
#include "views/Settings.h"

#include <fmt/format.h>

namespace zorel::cli {

namespace {
constexpr int kCitySection = 0;

/// Reports a change of the editor to the controller, as the editor's own controls do; -1 is a refusal.
int report(ZorelSettingsController& controller, AlarmView& view, HeadlessPane::Change change) {
    switch (change) {
    case HeadlessPane::Change::on:
    case HeadlessPane::Change::off:
        view.alarmEnabled().setOn(change == HeadlessPane::Change::on);
        return controller.delegateAlarmView_AlarmEnabledChanged(view.alarmEnabled(), view);
    case HeadlessPane::Change::offset:
        return controller.delegateAlarmView_TimeChanged(view.pickerTime(), view);
    case HeadlessPane::Change::ringtone:
        return controller.delegateAlarmView_MelodyNameChanged(view.pickerTime(), view);
    default:
        return controller.delegateAlarmView_MelodyTimeChanged(view.pickerTime(), view);
    }
}
} // namespace

HeadlessPane::HeadlessPane() : controller_(std::make_unique<ZorelSettingsController>()) {}

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

void HeadlessPane::add(const City& city) {
    controller_->delegateAddCityView_AddTapped(city);
}

void HeadlessPane::makeHome(std::int32_t cityId) {
    const Settings settings;
    UICityView row({}, controller_->glbFuncs(), settings);
    row.setCityId(cityId);
    controller_->delegateUICityView_HomeTapped(row);
}

void HeadlessPane::remove(std::size_t row) {
    controller_->commitEditingStyle(controller_->table(), UITableViewCellEditingStyle::deleteRow,
                                    {kCitySection, static_cast<int>(row)});
}

AlarmInfo HeadlessPane::alarm(std::int32_t prayerId) const {
    return controller_->dbFuncs().getAlarmInfo(prayerId);
}

std::string HeadlessPane::eventId(std::int32_t prayerId) const {
    const auto database = Database::openUser(controller_->dbFuncs().userDBPath());
    if (!database) {
        return {};
    }
    Statement row = database->prepare(
        fmt::format("SELECT EVENTID FROM USER_ALARMS WHERE TIMEID = {}", prayerId - kTimeIdOffset));
    return row.nextRow() ? row.text(0) : std::string();
}

bool HeadlessPane::edit(std::int32_t prayerId, Change change, const std::function<void(AlarmView&)>& edit) {
    AlarmView& view = controller_->alarmView();
    view.setAlarmInfo(prayerId);
    edit(view);
    return report(*controller_, view, change) == 0;
}

AlarmView& HeadlessPane::editor() const {
    return controller_->alarmView();
}

void HeadlessPane::refresh() {
    controller_->dbFuncs().setAllAlarms(*controller_->homeCity());
}

} // namespace zorel::cli
