// SPDX-License-Identifier: Apache-2.0
#include "alarm_commands/RingClient.h"

#include "terminal/Program.h"

#include "platform/eventkit/EKEventStore.h"
#include "platform/eventkit/GnomeSource.h"
#include "platform/foundation/Locations.h"
#include "words/Tr.h"

#include <sstream>
#include <utility>

namespace zorel::cli {
namespace {

/// The options that name folders, as the service is to have them.
std::vector<std::string> folderOptions(const Options& options) {
    std::vector<std::string> words;
    for (const auto& [name, value] : {std::pair{"--data-dir", options.dataDir},
                                      {"--calendar", options.calendar},
                                      {"--bundle", options.bundle},
                                      {"--ringtones", options.ringtones}}) {
        if (!value.empty()) {
            words.insert(words.end(), {name, value});
        }
    }
    return words;
}

} // namespace

RingStatus ringStatus() {
    RingStatus status;
    const ProgramResult result = runSibling({"zorel-ring", "--status"});
    std::istringstream lines(result.output);
    for (std::string line; std::getline(lines, line);) {
        const auto tab = line.find('\t');
        if (tab != std::string::npos) {
            status.words[line.substr(0, tab)] = line.substr(tab + 1);
        }
    }
    status.runs = result.status == 0 && status.words["data"] == Locations::current().data;
    return status;
}

void startRinging(const Context& context) {
    std::vector<std::string> words = folderOptions(context.options);
    words.insert(words.begin(), {"zorel-ring", "--start"});
    // Whether it runs then is asked of the service itself.
    static_cast<void>(runSibling(words));
}

bool isGnomeRinging() {
    return isGnomeConnected(EKEventStore().defaultCalendarForNewEvents().calendarIdentifier);
}

std::string whoRings(const RingStatus& status) {
    if (isGnomeRinging()) {
        return tr("rings through GNOME");
    }
    if (!status.runs) {
        return tr("nobody rings yet: start zorel-ring in your session, or see docs/alarms.md");
    }
    const auto keeper = status.words.find("keeper");
    return keeper == status.words.end() ? tr("rings through zorel-ring")
                                        : tr("rings through {}", keeper->second);
}

void tellWhoRings(const Context& context) {
    const Options& options = context.options;
    if (!options.now.empty()) {
        return; // nothing rings for a pretended moment
    }
    RingStatus status = ringStatus();
    // Whoever names other folders starts a service for them himself.
    if (!status.runs && options.dataDir.empty() && options.calendar.empty()) {
        startRinging(context);
        status = ringStatus();
    }
    context.note(whoRings(status));
}

} // namespace zorel::cli
