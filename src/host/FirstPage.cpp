// SPDX-License-Identifier: Apache-2.0
#include "host/FirstPage.h"

#include "host/Host.h"

#include "common/GlobalFuncs.h"
#include "platform/foundation/FileLock.h"
#include "platform/foundation/Locations.h"
#include "platform/foundation/NumberText.h"
#include "settings/ZorelSettingsController.h"
#include "store/CitySearch.h"
#include "store/DatabaseFunctions.h"

#include <QSettings>

#include <algorithm>

namespace zorel {

namespace {

constexpr int kMessageMilliseconds = 8000;
constexpr int kBusyMilliseconds = 2000;

QString keyText(almanac::Prayer prayer) {
    const std::string_view key = almanac::keyOf(prayer);
    return QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size()));
}

/// The pane's label of a prayer, else the host's own.
PrayerNames namesOf(const GlobalFuncs& glbFuncs, const Words& words) {
    return [&glbFuncs, words](almanac::Prayer prayer) {
        const auto label = glbFuncs.GetTextPrayLabels(almanac::identityOf(prayer).id);
        return label ? QString::fromStdString(*label) : words(keyText(prayer));
    };
}

/// What the host remembers for itself, beside the user's cities.
QSettings memory() {
    return {QString::fromStdString(Locations::current().data) + QStringLiteral("/window.ini"),
            QSettings::IniFormat};
}

constexpr const char* kDeclined = "declinedTimeZone";

} // namespace

FirstPage::FirstPage(Host& host, ZorelSettingsController& pane, bool healthy)
    : host_(host), pane_(pane), healthy_(healthy), words_(host.words()),
      today_(TodayTexts(words_, namesOf(pane.glbFuncs(), words_), QLocale::system())), alarms_(pane, today_),
      editor_(host, pane, today_, alarms_, TonePreview::besideProgram()),
      declinedZone_(memory().value(kDeclined).toString().toStdString()), cities_(pane.userCities().size()) {
    messageTimer_.setSingleShot(true);
    connect(&messageTimer_, &QTimer::timeout, this, [this] { say({}, {}); });
    connect(&host, &Host::reloaded, this, [this](const UITableView* table) {
        if (table == &pane_.table()) {
            follow();
        }
    });
    busyTimer_.setSingleShot(true);
    connect(&busyTimer_, &QTimer::timeout, this, &FirstPage::lookWhetherFree);
    connect(&alarms_, &AlarmRows::answered, &host, &Host::announce);
    // What a row says of a time changes when the time has come.
    connect(&today_, &TodayModel::timesChanged, &alarms_, &AlarmRows::follow);
    follow();
}

void FirstPage::follow() {
    today_.setPlace(pane_.homePlace());
    alarms_.follow();
    if (ringCheck_) {
        ringCheck_->ask();
    }
    readSuggestion();
    noteAddition();
    tellFooter();
    if (pane_.listResult().state == StoreState::busy) {
        busyTimer_.start(kBusyMilliseconds);
    }
    emit changed();
}

void FirstPage::tellFooter() {
    std::string footer = pane_.titleForFooterInSection(pane_.table(), 0);
    if (footer != footer_) {
        footer_ = std::move(footer);
        host_.announce(QString::fromStdString(footer_));
    }
}

void FirstPage::readAgain() {
    pane_.loadAllUserCities();
    pane_.table().reloadData();
}

/// Asks without waiting: a window that waits for another program stands still.
void FirstPage::lookWhetherFree() {
    const FileLock lock(pane_.dbFuncs().userDBPath() + ".lock", LockKind::shared, FileLock::Deadline());
    if (lock.state() == LockState::busy) {
        busyTimer_.start(kBusyMilliseconds);
    } else {
        readAgain();
    }
}

QString FirstPage::listTrouble() const {
    switch (pane_.listResult().state) {
    case StoreState::busy:
        return words_("listBusy");
    case StoreState::failed:
        return words_("listUnreadable");
    default:
        return {};
    }
}

QString FirstPage::emptySearchText(const QString& searched) const {
    const bool readable = searchPlaces(pane_.glbFuncs(), searched.toStdString()).has_value();
    return words_(readable ? "nothingFound" : "searchUnreadable");
}

void FirstPage::setRingCheck(std::unique_ptr<RingCheck> check) {
    ringCheck_ = std::move(check);
    emit ringCheckChanged();
    ringCheck_->ask();
}

/// A city that was chosen on the search screen is said, and the person is back on the first page. After the
/// pane has done its part: it still uses the screen.
void FirstPage::noteAddition() {
    const std::size_t before = std::exchange(cities_, pane_.userCities().size());
    const UINavigationController* stack = pane_.navigationController();
    if (cities_ <= before || stack == nullptr || stack->topViewController() == &pane_) {
        return;
    }
    const City& added = pane_.userCities().back();
    const QString name = QString::fromStdString(added.name);
    say(words_(cities_ == 1 ? "homeNow" : "added").arg(name), {});
    QTimer::singleShot(0, this, [this] { host_.back(); });
}

/// Only looked for where it may be shown: without cities, or where the machine's zone is not the home city's.
void FirstPage::readSuggestion() {
    const std::string zone = almanac::machineZoneName();
    const auto& home = today_.place();
    const bool wanted = healthy_ && !zone.empty() && pane_.listResult().isDone() &&
                        (pane_.userCities().empty() || (home && home->clock.zoneName() != zone));
    if (!wanted) {
        suggestion_.reset();
        suggestionZone_.clear();
    } else if (zone != suggestionZone_) {
        suggestion_ = largestPlaceOfTimeZone(pane_.glbFuncs(), zone);
        suggestionZone_ = zone;
    }
}

bool FirstPage::beginning() const {
    return healthy_ && pane_.listResult().isDone() && pane_.userCities().empty();
}

bool FirstPage::elsewhere() const {
    const auto& home = today_.place();
    return home && suggestion_ && suggestion_->timeZone != home->clock.zoneName() &&
           suggestionZone_ != declinedZone_;
}

QString FirstPage::unknownHome() const {
    const City* home = pane_.homeCity();
    if (home == nullptr || today_.known() || !healthy_) {
        return {};
    }
    const bool unreadable = pane_.alarms().home.state == HomeState::unreadableCatalogue;
    return words_(unreadable ? "noCatalogue" : "noTimes")
        .arg(QString::fromStdString(home->name.empty() ? home->cityId : home->name));
}

QString FirstPage::suggestedCity() const {
    return suggestion_ ? QString::fromStdString(suggestion_->city.name) : QString();
}

QString FirstPage::suggestedCountry() const {
    if (!suggestion_) {
        return {};
    }
    const City& city = suggestion_->city;
    return QString::fromStdString(words_.turkish() ? city.countryNameTr : city.countryNameEn);
}

int FirstPage::rowOf(std::int32_t cityId) const {
    const auto& cities = pane_.userCities();
    const auto found =
        std::ranges::find(cities, cityId, [](const City& city) { return integerValue(city.cityId); });
    return found == cities.end() ? -1 : static_cast<int>(found - cities.begin());
}

/// As a tap on the Home button of its row does.
void FirstPage::makeHome(std::int32_t cityId) {
    const int row = rowOf(cityId);
    if (row < 0) {
        return;
    }
    const UITableViewCell* cell = pane_.table().cellForRowAtIndexPath({0, row});
    if (auto* view = dynamic_cast<UICityView*>(cell != nullptr ? cell->accessoryView() : nullptr)) {
        pane_.delegateUICityView_HomeTapped(*view);
    }
}

void FirstPage::remove(std::int32_t cityId) {
    if (const int row = rowOf(cityId); row >= 0) {
        pane_.commitEditingStyle(pane_.table(), UITableViewCellEditingStyle::deleteRow, {0, row});
    }
}

void FirstPage::useSuggestion() {
    if (!suggestion_) {
        return;
    }
    const City city = suggestion_->city;
    const std::int32_t id = integerValue(city.cityId);
    const City* home = pane_.homeCity();
    const std::int32_t former = home != nullptr ? integerValue(home->cityId) : 0;
    const bool listed = rowOf(id) >= 0;
    if (!listed) {
        pane_.delegateAddCityView_AddTapped(city);
    }
    if (former != 0) {
        makeHome(id);
    }
    const City* now = pane_.homeCity();
    if (now == nullptr || integerValue(now->cityId) != id) {
        return;
    }
    say(words_("homeNow").arg(QString::fromStdString(city.name)), [this, id, former, listed] {
        if (former != 0) {
            makeHome(former);
        }
        if (!listed) {
            remove(id);
        }
    });
}

void FirstPage::declineSuggestion() {
    declinedZone_ = suggestionZone_;
    memory().setValue(kDeclined, QString::fromStdString(declinedZone_));
    emit changed();
}

void FirstPage::openSearch() {
    pane_.delegateUICityHeaderView_AddTapped(pane_.cityHeaderView().buttonAdd());
}

void FirstPage::undo() {
    if (const auto undo = std::exchange(undo_, {})) {
        say({}, {});
        undo();
    }
}

void FirstPage::say(const QString& message, std::function<void()> undo) {
    message_ = message;
    undo_ = std::move(undo);
    if (message.isEmpty()) {
        messageTimer_.stop();
    } else {
        messageTimer_.start(kMessageMilliseconds);
    }
    emit messageChanged();
}

} // namespace zorel
