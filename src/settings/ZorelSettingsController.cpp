// SPDX-License-Identifier: Apache-2.0
#include "settings/ZorelSettingsController.h"

#include "common/GlobalFuncs.h"
#include "engine/FastAstro.h"
#include "platform/foundation/Clock.h"
#include "platform/foundation/NumberText.h"
#include "platform/uikit/UIScreen.h"
#include "store/Database.h"
#include "store/DatabaseFunctions.h"
#include "views/Settings.h"
#include "views/Texts.h"

#include <cmath>
#include <exception>
#include <sqlite3.h>

namespace zorel {
namespace {

constexpr const char* kSpecifierList = "ZorelSettings";
constexpr std::int32_t kOwnViewTag = -1000;
constexpr double kHeaderHeight = 40.0;
constexpr double kBarHeight = 64.0; ///< navigation bar with the status bar [pt]
constexpr std::int32_t kSearchTitleKey = 1029;
constexpr std::int32_t kBackKey = 1030;

bool isMarkedAsHome(const City& city) {
    return integerValue(city.setAsHome) == 1;
}

} // namespace

ZorelSettingsController::ZorelSettingsController()
    : glbFuncs_(std::make_unique<GlobalFuncs>()), glbSettings_(std::make_unique<Settings>()),
      dbFuncs_(std::make_unique<DatabaseFunctions>(*glbFuncs_)) {
    dbFuncs_->generateUserDatabaseFile();
    loadAllUserCities();
    buildScreens();
}

/// The header view is not among what is released here: it goes with the object itself, after all of this.
/// Nothing of what the table still shows may be asked for meanwhile.
ZorelSettingsController::~ZorelSettingsController() {
    table().setDataSource(nullptr);
    table().setDelegate(nullptr);
    const std::vector<UIView*> subviews = table().subviews();
    for (UIView* subview : subviews) {
        if (subview->tag() != kOwnViewTag) {
            subview->removeFromSuperview();
        }
    }
    addCityView_.reset();
    addCityViewController_.reset();
    alarmView_.reset();
    alarmViewCotroller_.reset();
    userCities_.clear();
    dbFuncs_.reset();
    glbSettings_.reset();
    glbFuncs_.reset();
}

void ZorelSettingsController::buildScreens() {
    const CGRect screen = UIScreen::mainScreen().bounds();
    cityHeaderView_ = std::make_unique<UICityHeaderView>(CGRect{0.0, 0.0, screen.width, kHeaderHeight},
                                                         *glbFuncs_, *glbSettings_);
    cityHeaderView_->setDelegate(this);
    table().setTag(kOwnViewTag);
    table().setAllowsMultipleSelection(false);
    table().setAllowsSelection(true);
    buildAddCityScreen(screen.width, screen.height - kBarHeight);
    // As high as the whole screen, although it begins below the bar: its foot reaches beyond the screen.
    buildAlarmScreen(screen.width, screen.height);
    navigationItem().setBackBarButtonItem(
        UIBarButtonItem{textForKey(*glbFuncs_, kBackKey), UIBarButtonItemStyle::bordered});
}

void ZorelSettingsController::buildAddCityScreen(double width, double height) {
    addCityView_ = std::make_unique<AddCityView>(CGRect{0.0, kBarHeight, width, height});
    addCityView_->setBackgroundColor(UIColor::lightGrayColor());
    addCityView_->setDelegate(this);
    addCityViewController_ = std::make_unique<AddCityViewController>();
    addCityViewController_->setView(addCityView_.get());
    addCityViewController_->navigationItem().setTitle(textForKey(*glbFuncs_, kSearchTitleKey));
}

void ZorelSettingsController::buildAlarmScreen(double width, double height) {
    alarmView_ = std::make_unique<AlarmView>(CGRect{0.0, kBarHeight, width, height}, *glbFuncs_,
                                             *glbSettings_, *dbFuncs_);
    alarmView_->setBackgroundColor(UIColor::lightGrayColor());
    alarmView_->setDelegate(this);
    alarmViewCotroller_ = std::make_unique<AlarmViewController>();
    alarmViewCotroller_->setView(alarmView_.get());
    alarmViewCotroller_->navigationItem().setTitle("Alarm");
}

const std::vector<PSSpecifier>& ZorelSettingsController::specifiers() {
    if (!specifiersLoaded_) {
        specifiers_ = loadSpecifiersFromPlistName(kSpecifierList, this);
        specifiersLoaded_ = true;
    }
    return specifiers_;
}

bool ZorelSettingsController::findHomeCityId() {
    currentCityId_ = -1;
    if (userCities_.empty()) {
        return false;
    }
    currentCityId_ = 0;
    for (std::size_t index = 0; index < userCities_.size(); ++index) {
        if (isMarkedAsHome(userCities_[index])) {
            currentCityId_ = static_cast<std::int32_t>(index);
            break;
        }
    }
    return true;
}

const City* ZorelSettingsController::homeCity() const {
    return currentCityId_ < 0 ? nullptr : &userCities_.at(static_cast<std::size_t>(currentCityId_));
}

/// The log names calculatePrayerTimes, whichever step failed.
void ZorelSettingsController::loadAllUserCities() {
    try {
        readUserCities();
        findHomeCityId();
        calculatePrayerTimes();
    } catch (const std::exception& error) {
        glbFuncs_->NSLogToFile("Error in ZorelController -> calculatePrayerTimes");
        glbFuncs_->NSLogToFile(error.what());
    }
}

/// In the order of the table's rows. No home city is known until the list is complete: a failure on the way
/// leaves none rather than one of the former list. True when every row was read.
bool ZorelSettingsController::readUserCities() {
    const std::string& path = dbFuncs_->userDBPath();
    const bool exists = glbFuncs_->fileExists(path);
    userCities_.clear();
    currentCityId_ = -1;
    const auto database = exists ? Database::openUser(path) : std::nullopt;
    if (!database) {
        return false;
    }
    Statement rows = database->prepare("SELECT ID, SETASHOME FROM USER_CITY");
    while (rows.nextRow()) {
        City city(*glbFuncs_);
        city.cityId = rows.text(0);
        city.setAsHome = rows.text(1);
        city.getAllCityInfo(city);
        userCities_.push_back(std::move(city));
    }
    return rows.isPrepared() && sqlite3_reset(rows.get()) == SQLITE_OK;
}

void ZorelSettingsController::calculatePrayerTimes() {
    if (currentCityId_ < 0) {
        return;
    }
    City& city = userCities_.at(static_cast<std::size_t>(currentCityId_));
    city.setPrayerTimes(timesOfToday(city));
}

FastAstro ZorelSettingsController::engineOfToday(const City& city) const {
    FastAstro engine;
    engine.SetCurrentDateTime(glbFuncs_->GetCurrentDateTime());
    engine.SetPlace(doubleValue(city.latitude), doubleValue(city.longitude), doubleValue(city.GMT),
                    integerValue(city.DST), integerValue(city.startMonth), integerValue(city.startDay),
                    integerValue(city.stopMonth), integerValue(city.stopDay), integerValue(city.hour),
                    integerValue(city.temkin));
    return engine;
}

PrayerTimes ZorelSettingsController::timesOfToday(const City& city) const {
    return engineOfToday(city).CalculatePrayTimes().today;
}

bool ZorelSettingsController::homeClockDiffers() const {
    const City* home = homeCity();
    return home != nullptr &&
           std::lround(engineOfToday(*home).iPlace.timeZone * 3600.0) != utcOffsetSeconds(now());
}

void ZorelSettingsController::push(UIViewController& screen) {
    if (UINavigationController* navigation = navigationController()) {
        navigation->pushViewController(screen, true);
    }
}

} // namespace zorel
