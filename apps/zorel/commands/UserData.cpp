// SPDX-License-Identifier: Apache-2.0
#include "commands/UserData.h"

#include "terminal/CliError.h"

#include "platform/foundation/Locations.h"
#include "platform/foundation/NumberText.h"
#include "store/UserCities.h"

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
        throw CliError(Exit::dataTrouble, fmt::format("cannot make the folder {}", folder),
                       "check its permissions, or name another one with --data-dir DIR");
    }
}

void requireReadableUserData() {
    static_cast<void>(homeCityId());
}

void requireRead(const StoreResult& result) {
    if (result.state == StoreState::busy) {
        throw CliError(Exit::dataTrouble, "your cities are busy: " + result.reason, "try again");
    }
    if (!result.isDone()) {
        throw CliError(Exit::dataTrouble,
                       fmt::format("cannot read your cities in {}: {}", databasePath(), result.reason),
                       "check its permissions; a broken file can be moved away to begin anew");
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
    return fmt::format("check that {} can be written and its disk has room", Locations::current().data);
}

std::string remedyFor(const AlarmReport& report) {
    const bool hasPassed = std::ranges::any_of(
        report.alarms, [](const AlarmStatus& alarm) { return alarm.state == AlarmState::passed; });
    switch (report.trouble) {
    case AlarmTrouble::busy:
        return "try again";
    case AlarmTrouble::unreadableRows:
        return "check its permissions; a broken file can be moved away to begin anew";
    case AlarmTrouble::unreadableCatalogue:
        return "install it again, or name the folder of another one with --bundle DIR";
    case AlarmTrouble::unknownHome:
        return "choose another home city: zorel cities home NAME";
    default:
        break;
    }
    return hasPassed
               ? "zorel alarms refresh moves it; zorel-refresh.timer does that every night"
               : "check that the calendar's folder can be read and written and its disk has room, then: "
                 "zorel alarms refresh";
}

void requireDone(const ActionResult& result, const std::string& what) {
    const auto fail = [&](Exit code, const std::string& says, const std::string& hint) {
        throw CliError(code, fmt::format("{} {}: {}", what, says, result.reason), hint);
    };
    switch (result.state) {
    case ActionState::done:
    case ActionState::alreadyListed:
        return;
    case ActionState::notListed:
    case ActionState::noHome:
    case ActionState::alarmIsOff:
    case ActionState::noNextTime:
        return fail(Exit::noResult, "was not done", "");
    case ActionState::badName:
        return fail(Exit::dataTrouble, "could not be stored", "give the file another name");
    case ActionState::busy:
        return fail(Exit::dataTrouble, "could not be stored", "try again");
    case ActionState::unstorable:
        return fail(Exit::dataTrouble, "could not be stored", storingHint());
    case ActionState::unfinished:
        return fail(Exit::dataTrouble, "may be done in part",
                    storingHint() + ", then complete it: zorel alarms refresh");
    case ActionState::refused:
        return fail(Exit::dataTrouble, "could not be done and was taken back",
                    result.alarms ? remedyFor(*result.alarms) : storingHint());
    }
}

Exit showAfterwards(const Context& context, const HeadlessPane& pane, const std::function<void()>& show) {
    try {
        pane.requireLoaded();
        show();
    } catch (const CliError& error) {
        context.note(fmt::format("this was done, but cannot be shown: {}", error.what()));
    }
    return Exit::ok;
}

} // namespace zorel::cli
