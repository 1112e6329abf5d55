// SPDX-License-Identifier: Apache-2.0
#include "commands/UserData.h"

#include "terminal/CliError.h"

#include "platform/foundation/Locations.h"
#include "platform/foundation/NumberText.h"
#include "store/UserCities.h"
#include "words/Tr.h"

#include <fmt/format.h>

#include <algorithm>

namespace zorel::cli {

namespace {
std::string databasePath() {
    return Locations::current().data + "/user.sqlite";
}

/// None where there is no database yet.
UserCities readCities() {
    UserCities cities = storedUserCities(databasePath());
    if (cities.result.state != StoreState::missing) {
        requireRead(cities.result);
    }
    return cities;
}
} // namespace

void makeDataDir() {
    const std::string& folder = Locations::current().data;
    if (!createDirectoryAtPath(folder)) {
        throw CliError(Exit::dataTrouble, tr("cannot make the folder {}", folder),
                       tr("check its permissions, or name another one with --data-dir DIR"));
    }
}

void requireReadableUserData() {
    static_cast<void>(homeCityId());
}

void requireRead(const StoreResult& result) {
    if (result.state == StoreState::busy) {
        throw CliError(Exit::dataTrouble, tr("your cities are busy: {}", result.reason), tr("try again"));
    }
    if (!result.isDone()) {
        throw CliError(Exit::dataTrouble,
                       tr("cannot read your cities in {0}: {1}", databasePath(), result.reason),
                       tr("check its permissions; a broken file can be moved away to begin anew"));
    }
}

std::int32_t homeCityId() {
    const UserCities cities = readCities();
    const auto home = homePosition(cities.rows);
    return home ? integerValue(cities.rows[*home].cityId) : 0;
}

std::string noCitiesText() {
    return tr("No cities yet. Add one with: zorel cities add NAME");
}

std::vector<std::int32_t> listedCityIds() {
    std::vector<std::int32_t> ids;
    for (const UserCity& city : readCities().rows) {
        ids.push_back(integerValue(city.cityId));
    }
    return ids;
}

std::string storingHint() {
    return tr("check that {} can be written and its disk has room", Locations::current().data);
}

std::string remedyFor(const AlarmReport& report) {
    const bool hasPassed = std::ranges::any_of(
        report.alarms, [](const AlarmStatus& alarm) { return alarm.state == AlarmState::passed; });
    switch (report.trouble) {
    case AlarmTrouble::busy:
        return tr("try again");
    case AlarmTrouble::unreadableRows:
        return tr("check its permissions; a broken file can be moved away to begin anew");
    case AlarmTrouble::unreadableCatalogue:
        return tr("install it again, or name the folder of another one with --bundle DIR");
    case AlarmTrouble::unknownHome:
        return tr("choose another home city: zorel cities home NAME");
    default:
        break;
    }
    return hasPassed
               ? tr("zorel alarms refresh moves it; zorel-refresh.timer does that every night")
               : tr("check that the calendar's folder can be read and written and its disk has room, then: "
                    "zorel alarms refresh");
}

// translators: {0} is "the change of Bursa", "the alarm fajr" or "the refresh of the alarms"; {1} says why
void requireDone(const ActionResult& result, const std::string& what) {
    switch (result.state) {
    case ActionState::done:
    case ActionState::alreadyListed:
        return;
    case ActionState::notListed:
    case ActionState::noHome:
    case ActionState::alarmIsOff:
    case ActionState::noNextTime:
        throw CliError(Exit::noResult, tr("{0} was not done: {1}", what, result.reason));
    case ActionState::badName:
        throw CliError(Exit::dataTrouble, tr("{0} could not be stored: {1}", what, result.reason),
                       tr("give the file another name"));
    case ActionState::busy:
        throw CliError(Exit::dataTrouble, tr("{0} could not be stored: {1}", what, result.reason),
                       tr("try again"));
    case ActionState::unstorable:
        throw CliError(Exit::dataTrouble, tr("{0} could not be stored: {1}", what, result.reason),
                       storingHint());
    case ActionState::unfinished:
        throw CliError(
            Exit::dataTrouble, tr("{0} may be done in part: {1}", what, result.reason),
            tr("check that {} can be written and its disk has room, then complete it: zorel alarms refresh",
               Locations::current().data));
    case ActionState::refused:
        throw CliError(Exit::dataTrouble,
                       tr("{0} could not be done and was taken back: {1}", what, result.reason),
                       result.alarms ? remedyFor(*result.alarms) : storingHint());
    }
}

Exit showAfterwards(const Context& context, const HeadlessPane& pane, const std::function<void()>& show) {
    try {
        pane.requireLoaded();
        show();
    } catch (const CliError& error) {
        context.note(tr("this was done, but cannot be shown: {}", error.what()));
    }
    return Exit::ok;
}

} // namespace zorel::cli
