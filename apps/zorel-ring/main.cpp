// SPDX-License-Identifier: Apache-2.0
// Waits for the prayer alarms in the user's session and rings.
#include "Commands.h"
#include "RingOptions.h"

#include "platform/foundation/FileLock.h"
#include "platform/foundation/Locations.h"
#include "platform/foundation/ProgramLocations.h"
#include "ring/RingObject.h"
#include "ring/RingService.h"
#include "ring/SessionBus.h"
#include "words/Language.h"

#include <csignal>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <sys/prctl.h>

namespace zorel::ring {
namespace {

enum Exit { kDone = 0, kFailed = 1, kBadUse = 2 };

int complain(const std::string& what) {
    std::fprintf(stderr, "zorel-ring: %s\n", what.c_str());
    return kFailed;
}

/// The folder of a helper program: beside this one, or "libexec/zorel" beside the folder of this one.
std::string folderOfHelpers() {
    std::error_code error;
    const auto here = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
    const auto apart = here.parent_path() / "libexec" / "zorel";
    return (std::filesystem::exists(here / "zorel-ring-plan", error) ? here : apart).string();
}

ServiceFiles filesOf(const RingOptions& options) {
    const std::string helpers = options.helpers.empty() ? folderOfHelpers() : options.helpers;
    ServiceFiles files;
    files.data = options.data.empty() ? userDataDirectory().value_or("") : options.data;
    files.calendar = options.calendar.empty() ? files.data + "/calendar" : options.calendar;
    files.gnome = userConfigDirectory().value_or("") + "/evolution/sources";
    files.planner = {helpers + "/zorel-ring-plan"};
    files.planner.insert(files.planner.end(), options.forPlanner.begin(), options.forPlanner.end());
    files.player = helpers + "/zorel-ring-play";
    return files;
}

/// Takes the name on the bus; false when another process of the session has it.
bool takeName(sd_bus* bus) {
    return bus == nullptr || sd_bus_request_name(bus, kBusName, 0) >= 0;
}

Event makeLoop(sd_bus* bus) {
    sd_event* made = nullptr;
    if (sd_event_new(&made) < 0) {
        return nullptr;
    }
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGTERM, SIGINT, SIGCHLD}) {
        sigaddset(&signals, signal);
    }
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    sd_event_add_signal(made, nullptr, SIGTERM, nullptr, nullptr);
    sd_event_add_signal(made, nullptr, SIGINT, nullptr, nullptr);
    if (bus != nullptr) {
        sd_bus_attach_event(bus, made, SD_EVENT_PRIORITY_NORMAL);
        sd_bus_set_exit_on_disconnect(bus, 1);
    }
    return Event(made);
}

int runLoop(const ServiceFiles& files, sd_bus* bus) {
    const Event event = makeLoop(bus);
    if (!event) {
        return complain("the system gives no event loop");
    }
    SystemClock clock;
    RingService service(event.get(), bus, clock, files);
    const auto object = bus == nullptr ? nullptr : std::make_unique<RingObject>(bus, service);
    // Only now: whoever waits for the name may ask at once.
    if (!takeName(bus)) {
        return complain("another one runs in this session");
    }
    return sd_event_loop(event.get()) < 0 ? complain("the event loop broke") : kDone;
}

/// The alarms of one data folder ring once, whatever sessions their user has.
int waitForAlarms(const RingOptions& options) {
    prctl(PR_SET_NAME, "zorel-ring"); // one that was started by another has a name of the kernel's
    // A capability of the file stays with this process, and none of its children can gain any.
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    const ServiceFiles files = filesOf(options);
    if (files.data.empty() || !createDirectoryAtPath(files.data)) {
        return complain("there is no folder for the alarms: set HOME, or name it with --data-dir DIR");
    }
    const FileLock lock(files.data + "/ring.lock", LockKind::exclusive, FileLock::Deadline());
    if (lock.state() == LockState::busy) {
        std::fputs("zorel-ring: another one rings these alarms already\n", stderr);
        return kDone;
    }
    const Bus bus = sessionBus();
    if (!bus) {
        std::fputs("zorel-ring: no session bus, so there is sound alone\n", stderr);
    }
    return runLoop(files, bus.get());
}

int run(const RingOptions& options, const char* program) {
    if (options.command != RingCommand::wait) { // what waits speaks to the journal, and to people by its plan
        useLanguageOfEnvironment();
    }
    std::vector<std::string> words{program};
    words.insert(words.end(), options.forPlanner.begin(), options.forPlanner.end());
    switch (options.command) {
    case RingCommand::wait:
        return waitForAlarms(options);
    case RingCommand::start:
        return startService(words);
    case RingCommand::stop:
        return callService("Stop");
    case RingCommand::snooze:
        return callService("Snooze");
    case RingCommand::test:
        return testService(options.prayer);
    case RingCommand::status:
        return printStatus();
    case RingCommand::help:
        std::fputs(ringHelp().c_str(), stdout);
        return kDone;
    case RingCommand::version:
        std::puts("zorel-ring " ZOREL_VERSION);
        return kDone;
    case RingCommand::badUse:
        break;
    }
    std::fputs(ringHelp().c_str(), stderr);
    return kBadUse;
}

} // namespace
} // namespace zorel::ring

int main(int argc, char** argv) {
    try {
        return zorel::ring::run(zorel::ring::ringOptions(argc, argv), argv[0]);
    } catch (const std::exception& error) {
        return zorel::ring::complain(error.what());
    }
}
