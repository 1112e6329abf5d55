// SPDX-License-Identifier: Apache-2.0
// The pane's table: cities, alarms, information.
#include "settings/ZorelSettingsController.h"

#include "common/GlobalFuncs.h"
#include "platform/foundation/NumberText.h"
#include "store/CitySearch.h"
#include "store/UserCities.h"
#include "views/Texts.h"

#include <algorithm>
#include <fmt/format.h>
#include <string_view>
#include <vector>

namespace zorel {
namespace {

enum Section : int { citySection = 0, alarmSection = 1, informationSection = 2 };

constexpr int kSections = 3;
constexpr int kAlarmRows = 6;
constexpr double kCityRowHeight = 60.0;
constexpr double kRowHeight = 40.0;
constexpr double kHeaderHeight = 40.0;
constexpr CGRect kCityFrame = {0.0, 0.0, 302.0, 60.0};
constexpr std::int32_t kAlarmsTitleKey = 1024;
constexpr std::int32_t kAlarmKey = 1039;
constexpr std::int32_t kNoCityKey = 1040;
constexpr std::int32_t kInformationKey = 1041;
constexpr std::int32_t kNoSuchTimeKey = 1043;
constexpr std::int32_t kLowerLatitudeKey = 1044;
constexpr std::int32_t kOtherClockKey = 1045;
constexpr std::int32_t kOnTheEveKey = 1046;
constexpr std::int32_t kRuleOnlyKey = 1047;
constexpr std::int32_t kRuleIsNewerKey = 1048;
constexpr std::int32_t kSystemIsOlderKey = 1049;
constexpr const char* kCellIdentifier = "CellIdentifier";
constexpr std::int32_t kTomorrowKey = 1056;
constexpr std::int32_t kOnThisDeviceKey = 1057;
constexpr std::int32_t kPassedKey = 1058;
constexpr std::int32_t kWillNotRingKey = 1059;
constexpr std::int32_t kUnknownCityKey = 1063;
constexpr std::int32_t kSkipsKey = 1065;
constexpr std::int32_t kPausedKey = 1066;

std::string minuteText(const almanac::LocalTime& time) {
    return almanac::clockText(time.timeOfDay, almanac::Precision::minutes);
}

/// The texts that are not empty, one behind the other.
std::string joined(const std::vector<std::string>& parts) {
    std::string all;
    for (const std::string& part : parts) {
        all += all.empty() || part.empty() ? part : " · " + part;
    }
    return all;
}

} // namespace

int ZorelSettingsController::numberOfSectionsInTableView(UITableView& /*table*/) {
    return kSections;
}

int ZorelSettingsController::numberOfRowsInSection(UITableView& /*table*/, int section) {
    switch (section) {
    case citySection:
        return std::max(1, static_cast<int>(userCities_.size()));
    case alarmSection:
        return kAlarmRows;
    default:
        return 0;
    }
}

double ZorelSettingsController::heightForRowAtIndexPath(UITableView& /*table*/, NSIndexPath indexPath) {
    return indexPath.section == citySection ? kCityRowHeight : kRowHeight;
}

std::string ZorelSettingsController::titleForHeaderInSection(UITableView& /*table*/, int section) {
    return section == alarmSection ? textForKey(*glbFuncs_, kAlarmsTitleKey) : std::string();
}

UIView* ZorelSettingsController::viewForHeaderInSection(UITableView& /*table*/, int section) {
    return section == citySection ? cityHeaderView_.get() : nullptr;
}

double ZorelSettingsController::heightForHeaderInSection(UITableView& /*table*/, int section) {
    return section == citySection ? cityHeaderView_->frame().height : kHeaderHeight;
}

std::string ZorelSettingsController::titleForFooterInSection(UITableView& /*table*/, int section) {
    if (section == citySection) {
        return cityMessage_;
    }
    if (section == alarmSection) {
        return listResult_.isDone() ? alarms().complaint() : std::string();
    }
    std::string information = textForKey(*glbFuncs_, kInformationKey);
    if (homeClockDiffers()) {
        information += ' ' + textForKey(*glbFuncs_, kOtherClockKey);
    }
    const std::string notice = clockNotice();
    return notice.empty() ? information : information + ' ' + notice;
}

std::unique_ptr<UITableViewCell> ZorelSettingsController::cellForRowAtIndexPath(UITableView& table,
                                                                                NSIndexPath indexPath) {
    auto cell = table.dequeueReusableCellWithIdentifier(kCellIdentifier);
    if (!cell) {
        cell = std::make_unique<UITableViewCell>(kCellIdentifier);
        cell->setBackgroundColor(UIColor::whiteColor());
    }
    if (indexPath.section == citySection) {
        fillCityCell(*cell, indexPath.row);
    } else {
        fillAlarmCell(*cell, indexPath.row);
    }
    return cell;
}

/// The row shows a view of its own; without cities that view says so.
void ZorelSettingsController::fillCityCell(UITableViewCell& cell, int row) {
    auto view = std::make_unique<UICityView>(kCityFrame, *glbFuncs_, *glbSettings_);
    view->setDelegate(this);
    if (userCities_.empty()) {
        const std::string trouble = listMessage();
        view->cityName().setText(trouble.empty() ? textForKey(*glbFuncs_, kNoCityKey) : trouble);
        view->cityName().setTextAlignment(UITextAlignment::center);
        view->buttonHome().setHidden(true);
    } else {
        const City& city = userCities_.at(static_cast<std::size_t>(row));
        view->setCityId(integerValue(city.cityId));
        view->cityName().setText(
            city.name.empty() ? textForKey(*glbFuncs_, kUnknownCityKey) + ' ' + city.cityId : city.name);
        if (isMarkedAsHome(city)) {
            view->buttonHome().setSelected(true);
            view->buttonHome().setNeedsDisplay();
        }
    }
    cell.textLabel().setText("");
    cell.setAccessoryType(UITableViewCellAccessoryType::none);
    cell.setAccessoryView(std::move(view));
    cell.setTag(0);
}

void ZorelSettingsController::fillAlarmCell(UITableViewCell& cell, int row) {
    const std::int32_t prayerId = kFirstAlarmPrayerId + row;
    cell.setAccessoryView(nullptr);
    cell.textLabel().setText(glbFuncs_->GetTextPrayLabels(prayerId).value_or(std::string()));
    cell.textLabel().setTextAlignment(UITextAlignment::left);
    cell.setAccessoryType(UITableViewCellAccessoryType::disclosureIndicator);
    cell.setTag(prayerId);
}

void ZorelSettingsController::didSelectRowAtIndexPath(UITableView& table, NSIndexPath indexPath) {
    if (indexPath.section != alarmSection) {
        return;
    }
    if (const UITableViewCell* cell = table.cellForRowAtIndexPath(indexPath)) {
        alarmView_->setAlarmInfo(cell->tag());
        push(*alarmViewCotroller_);
    }
}

bool ZorelSettingsController::canEditRowAtIndexPath(UITableView& /*table*/, NSIndexPath indexPath) {
    return indexPath.section == citySection;
}

/// The row that says that there is no city cannot be deleted.
UITableViewCellEditingStyle ZorelSettingsController::editingStyleForRowAtIndexPath(UITableView& /*table*/,
                                                                                   NSIndexPath indexPath) {
    const bool deletable = indexPath.section == citySection && !userCities_.empty();
    return deletable ? UITableViewCellEditingStyle::deleteRow : UITableViewCellEditingStyle::none;
}

void ZorelSettingsController::commitEditingStyle(UITableView& /*table*/, UITableViewCellEditingStyle style,
                                                 NSIndexPath indexPath) {
    if (style == UITableViewCellEditingStyle::deleteRow && indexPath.section == citySection) {
        deleteCity(indexPath.row);
    }
}

const almanac::DayTime* ZorelSettingsController::homeTime(std::int32_t prayerId) const {
    const auto prayer = almanac::prayerOfId(prayerId);
    return homeDay_ && prayer ? &(*homeDay_)[*prayer] : nullptr;
}

std::optional<std::string> ZorelSettingsController::noticeForAlarm(std::int32_t prayerId) const {
    const almanac::DayTime* time = homeTime(prayerId);
    if (time == nullptr) {
        return std::nullopt;
    }
    if (!time->exists()) {
        return textForKey(*glbFuncs_, kNoSuchTimeKey);
    }
    if (homeDay_->loweredLatitude()) {
        return textForKey(*glbFuncs_, kLowerLatitudeKey);
    }
    if (time->local.date < homeDay_->date) {
        return textForKey(*glbFuncs_, kOnTheEveKey);
    }
    return std::nullopt;
}

std::string ZorelSettingsController::detailForRowAtIndexPath(UITableView& /*table*/, NSIndexPath indexPath) {
    if (indexPath.section == citySection) {
        return regionOfCity(indexPath.row);
    }
    return indexPath.section == alarmSection ? summaryOfAlarm(indexPath.row + kFirstAlarmPrayerId)
                                             : std::string();
}

/// What follows the name where the search lists the city.
std::string ZorelSettingsController::regionOfCity(int row) const {
    constexpr std::string_view separator = " / ";
    if (row < 0 || row >= static_cast<int>(userCities_.size())) {
        return {};
    }
    std::string text = citySearchText(*glbFuncs_, userCities_[static_cast<std::size_t>(row)]);
    std::size_t at = text.find(separator);
    text.erase(0, at == std::string::npos ? text.size() : at + separator.size());
    while ((at = text.find(separator)) != std::string::npos) {
        text.replace(at, separator.size(), ", ");
    }
    return text;
}

std::string ZorelSettingsController::summaryOfAlarm(std::int32_t prayerId) const {
    const almanac::DayTime* time = homeTime(prayerId);
    return joined({time != nullptr && time->exists() ? minuteText(time->local) : std::string(),
                   alarmPart(prayerId), noticeForAlarm(prayerId).value_or(std::string())});
}

/// What its alarm does, where it is on.
std::string ZorelSettingsController::alarmPart(std::int32_t prayerId) const {
    if (homeCity() == nullptr) {
        return {};
    }
    const AlarmStatus& alarm = alarms().of(prayerId);
    switch (alarm.state) {
    case AlarmState::rings:
        return joined({textForKey(*glbFuncs_, kAlarmKey) + ' ' + ringText(alarm), silenceText(alarm)});
    case AlarmState::passed:
        return textForKey(*glbFuncs_, kPassedKey);
    case AlarmState::failed:
        return textForKey(*glbFuncs_, kWillNotRingKey);
    default:
        return {};
    }
}

std::string ZorelSettingsController::ringText(const AlarmStatus& alarm) const {
    return momentText(*alarm.ringsAt);
}

/// What is left out until it rings.
std::string ZorelSettingsController::silenceText(const AlarmStatus& alarm) const {
    if (!alarm.skipped) {
        return {};
    }
    const auto pause = alarms().pausedUntil;
    const almanac::PlaceClock clock = homePlace_ ? homePlace_->clock : almanac::PlaceClock::ofMachine();
    std::string text = textForKey(*glbFuncs_, pause ? kPausedKey : kSkipsKey);
    const auto at = text.find("%@");
    return at == std::string::npos
               ? text
               : text.replace(at, 2,
                              pause ? almanac::isoDate(clock.dateAt(*pause)) : momentText(*alarm.skipped));
}

/// By the home city's clock, with this device's beside it where that is another.
std::string ZorelSettingsController::momentText(almanac::Instant instant) const {
    const almanac::PlaceClock here = almanac::PlaceClock::ofMachine();
    const almanac::PlaceClock& clock = homePlace_ ? homePlace_->clock : here;
    const almanac::LocalTime there = clock.localTime(instant);
    const std::int64_t days = almanac::daysBetween(currentDate(), there.date);
    std::string text = minuteText(there);
    if (days == 1) {
        text = textForKey(*glbFuncs_, kTomorrowKey) + ' ' + text;
    } else if (days != 0) {
        text = almanac::isoDate(there.date) + ' ' + text;
    }
    const almanac::LocalTime local = here.localTime(instant);
    if (local.offset != there.offset) {
        text += fmt::format(" ({} {})", minuteText(local), textForKey(*glbFuncs_, kOnThisDeviceKey));
    }
    return text;
}

std::string ZorelSettingsController::clockNotice() const {
    switch (homeDay_ ? homeDay_->clockNotice : almanac::ClockNotice::none) {
    case almanac::ClockNotice::ruleOnly:
        return textForKey(*glbFuncs_, kRuleOnlyKey);
    case almanac::ClockNotice::ruleIsNewer:
        return textForKey(*glbFuncs_, kRuleIsNewerKey);
    case almanac::ClockNotice::systemIsOlder:
        return textForKey(*glbFuncs_, kSystemIsOlderKey);
    default:
        return {};
    }
}

} // namespace zorel
