// SPDX-License-Identifier: Apache-2.0
// place_alarm DATA-DIRECTORY PRAYER-ID HOURS OFFSET: sets one alarm as the pane does and prints the
// identifier of its event. place_alarm DATA-DIRECTORY PRAYER-ID off: switches it off.
#include "common/GlobalFuncs.h"
#include "platform/foundation/Locations.h"
#include "platform/foundation/NumberText.h"
#include "store/Database.h"
#include "store/DatabaseFunctions.h"

#include <iostream>
#include <span>
#include <string>

namespace {

std::string eventIdentifier(const std::string& path, int prayerId) {
    const auto database = zorel::Database::openUser(path);
    if (!database) {
        return {};
    }
    auto rows = database->prepare("SELECT EVENTID FROM USER_ALARMS WHERE TIMEID = " +
                                  std::to_string(prayerId - zorel::kTimeIdOffset));
    return rows.nextRow() ? rows.text(0) : std::string();
}

} // namespace

int main(int argc, char** argv) {
    const std::span<char*> arguments(argv, static_cast<std::size_t>(argc));
    if (arguments.size() != 4 && arguments.size() != 5) {
        std::cerr << "usage: place_alarm DATA-DIRECTORY PRAYER-ID (HOURS OFFSET | off)\n";
        return 2;
    }
    zorel::Locations::current().data = arguments[1];
    const zorel::GlobalFuncs glbFuncs;
    zorel::DatabaseFunctions functions(glbFuncs);
    functions.generateUserDatabaseFile();
    const int prayerId = zorel::integerValue(arguments[2]);
    if (arguments.size() == 4) {
        functions.deleteAlarm(prayerId);
        return 0;
    }
    functions.updateAlarmDefinitions(prayerId, zorel::integerValue(arguments[4]),
                                     zorel::doubleValue(arguments[3]), "Chime", 1);
    const std::string identifier = eventIdentifier(functions.userDBPath(), prayerId);
    std::cout << identifier << "\n";
    return identifier.empty() ? 1 : 0;
}
