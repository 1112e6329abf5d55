// SPDX-License-Identifier: Apache-2.0
// zorel-ring-plan: brings the calendar in step with the alarms, prints what shall ring, ends.
// Exit status 0: the plan holds; 1: the alarms could not be read, the plan says why; 2: wrong arguments.
#include "Planner.h"

#include "alarms/PrayerAlarms.h"
#include "common/GlobalFuncs.h"
#include "common/SpokenLanguage.h"
#include "platform/eventkit/EKEventStore.h"
#include "platform/eventkit/FolderCalendar.h"
#include "platform/foundation/Clock.h"
#include "platform/foundation/Locations.h"
#include "platform/foundation/ProgramLocations.h"
#include "store/DatabaseFunctions.h"
#include "words/Language.h"

#include <clocale>
#include <cstdio>
#include <map>
#include <memory>
#include <string>

namespace zorel::ring {
namespace {

enum Exit { kDone = 0, kUnknown = 1, kBadUse = 2 };

using Options = std::map<std::string, std::string>;

/// "--name value" pairs; nothing when they are none, or a name is not known.
std::optional<Options> optionsOf(int argc, char** argv) {
    Options options{
        {"--data-dir", ""}, {"--calendar", ""}, {"--bundle", ""}, {"--ringtones", ""}, {"--test", ""}};
    for (int index = 1; index < argc; index += 2) {
        const auto found = options.find(argv[index]);
        if (found == options.end() || index + 1 == argc) {
            return std::nullopt;
        }
        found->second = argv[index + 1];
    }
    return options;
}

void setLocations(const Options& options) {
    const auto chosen = [&](const char* name, std::string usual) {
        const std::string& value = options.at(name);
        return value.empty() ? std::move(usual) : value;
    };
    Locations& folders = Locations::current();
    folders.bundle = chosen("--bundle", bundleBesideProgram());
    folders.data = chosen("--data-dir", userDataDirectory().value_or(folders.data));
    folders.ringtones = chosen("--ringtones", ringtonesBesideBundle(folders.bundle));
    const std::string calendar = options.at("--calendar");
    EKEventStore::setCalendar(calendar.empty() ? nullptr : std::make_shared<FolderCalendar>(calendar));
}

Planned planned(const std::string& testedPrayer) {
    const GlobalFuncs services;
    DatabaseFunctions rows(services);
    PrayerAlarms alarms(services, rows);
    const Planner planner(services, std::chrono::floor<std::chrono::seconds>(now()));
    const AlarmReport before = alarms.report();
    if (const auto prayer = almanac::prayerOfKey(testedPrayer)) {
        return planner.test(before, *prayer);
    }
    return services.fileExists(rows.userDBPath()) ? planner.plan(before, alarms.reconcile())
                                                  : planner.nothing();
}

bool isAlarm(const std::string& key) {
    const auto prayer = almanac::prayerOfKey(key);
    return prayer && almanac::identityOf(*prayer).row >= 0;
}

int run(int argc, char** argv) {
    const auto options = optionsOf(argc, argv);
    if (!options || !(options->at("--test").empty() || isAlarm(options->at("--test")))) {
        std::fprintf(
            stderr,
            "usage: %s [--data-dir DIR] [--calendar DIR] [--bundle DIR] [--ringtones DIR] [--test PRAYER]\n",
            argv[0]);
        return kBadUse;
    }
    setLocations(*options);
    useLanguageOfEnvironment();
    speakInPane(languageInUse());
    const Planned result = planned(options->at("--test"));
    std::fputs(textOf(result.plan).c_str(), stdout);
    return result.isKnown && std::fflush(stdout) == 0 ? kDone : kUnknown;
}

} // namespace
} // namespace zorel::ring

int main(int argc, char** argv) {
    return zorel::ring::run(argc, argv);
}
