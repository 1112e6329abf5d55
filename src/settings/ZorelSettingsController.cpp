// SPDX-License-Identifier: Apache-2.0
#include "settings/ZorelSettingsController.h"

#include "alarms/PrayerAlarms.h"
#include "almanac/Almanac.h"
#include "common/GlobalFuncs.h"
#include "platform/foundation/Clock.h"
#include "platform/foundation/NumberText.h"
#include "platform/uikit/UIScreen.h"
#include "store/DatabaseFunctions.h"
#include "store/UserCities.h"
#include "views/Settings.h"
#include "views/Texts.h"

#include <algorithm>
#include <chrono>
#include <exception>

namespace zorel {
namespace {

constexpr const char* kSpecifierList = "ZorelSettings";
constexpr std::int32_t kOwnViewTag = -1000;
constexpr double kHeaderHeight = 40.0;
constexpr double kBarHeight = 64.0; ///< navigation bar with the status bar [pt]
constexpr std::int32_t kSearchTitleKey = 1029;
constexpr std::int32_t kBackKey = 1030;

almanac::Date deviceDate() {
    const LocalDateTime today = localDateTime(now());
    return almanac::dateOf({.year = today.year, .month = today.month, .day = today.day});
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
    const auto position = homePosition(userCities_);
    currentCityId_ = position ? static_cast<std::int32_t>(*position) : -1;
    return position.has_value();
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
/// leaves none rather than one of the former list.
void ZorelSettingsController::readUserCities() {
    userCities_.clear();
    alarms_.reset();
    homePlace_.reset();
    currentCityId_ = -1;
    const UserCities stored = storedUserCities(dbFuncs_->userDBPath());
    listResult_ = stored.result;
    const auto home = homePosition(stored.rows);
    for (std::size_t row = 0; row < stored.rows.size() && stored.result.isDone(); ++row) {
        const bool isHome = stored.rows[row].cityId == stored.rows[*home].cityId;
        listCity(stored.rows[row], isHome && isMarkedAsHome(stored.rows[*home]));
    }
    if (stored.result.isDone()) {
        homePlace_ = homePlaceOf(*glbFuncs_, stored.rows).place;
    }
}

/// A city that the database holds twice has one row.
void ZorelSettingsController::listCity(const UserCity& row, bool home) {
    const auto isSame = [&row](const City& city) { return city.cityId == row.cityId; };
    if (std::ranges::any_of(userCities_, isSame)) {
        return;
    }
    City city(*glbFuncs_);
    city.cityId = row.cityId;
    city.setAsHome = home ? "1" : row.setAsHome;
    city.getAllCityInfo(city);
    userCities_.push_back(std::move(city));
}

/// A home city that the catalogue does not have, or cannot be asked for, has no times.
void ZorelSettingsController::calculatePrayerTimes() {
    homeDay_.reset();
    if (currentCityId_ >= 0 && homePlace_) {
        homeDay_ = almanac::Almanac(*homePlace_).day(currentDate());
        userCities_.at(static_cast<std::size_t>(currentCityId_)).setPrayerTimes(homeDay_->record);
    }
}

void ZorelSettingsController::refreshAlarms() {
    const ActionResult result = actions().refresh();
    loadAllUserCities();
    alarms_ = result.alarms;
    table().reloadData();
}

const AlarmReport& ZorelSettingsController::alarms() const {
    if (!alarms_) {
        alarms_ = PrayerAlarms(*glbFuncs_, *dbFuncs_).report();
    }
    return *alarms_;
}

almanac::Date ZorelSettingsController::currentDate() const {
    const auto instant = std::chrono::floor<std::chrono::seconds>(now());
    return homePlace_ ? homePlace_->clock.dateAt(instant) : deviceDate();
}

bool ZorelSettingsController::homeClockDiffers() const {
    const auto instant = std::chrono::floor<std::chrono::seconds>(now());
    return homePlace_ && homePlace_->clock.offsetAt(instant).count() != utcOffsetSeconds(now());
}

void ZorelSettingsController::push(UIViewController& screen) {
    if (UINavigationController* navigation = navigationController()) {
        navigation->pushViewController(screen, true);
    }
}

} // namespace zorel
