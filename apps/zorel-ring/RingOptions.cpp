// SPDX-License-Identifier: Apache-2.0
#include "RingOptions.h"

#include "words/Tr.h"

#include <array>
#include <string_view>

#include <getopt.h>

#include <array>

namespace zorel::ring {
namespace {

enum Letter : int {
    kData = 1,
    kCalendar,
    kBundle,
    kRingtones,
    kHelpers,
    kStart,
    kStop,
    kSnooze,
    kTest,
    kStatus
};

constexpr std::array<option, 13> kOptions{{{"data-dir", required_argument, nullptr, kData},
                                           {"calendar", required_argument, nullptr, kCalendar},
                                           {"bundle", required_argument, nullptr, kBundle},
                                           {"ringtones", required_argument, nullptr, kRingtones},
                                           {"helpers", required_argument, nullptr, kHelpers},
                                           {"start", no_argument, nullptr, kStart},
                                           {"stop", no_argument, nullptr, kStop},
                                           {"snooze", no_argument, nullptr, kSnooze},
                                           {"test", required_argument, nullptr, kTest},
                                           {"status", no_argument, nullptr, kStatus},
                                           {"help", no_argument, nullptr, 'h'},
                                           {"version", no_argument, nullptr, 'V'},
                                           {nullptr, 0, nullptr, 0}}};

void handOn(RingOptions& options, const char* name) {
    options.forPlanner.insert(options.forPlanner.end(), {name, optarg});
}

void take(RingOptions& options, int letter) {
    switch (letter) {
    case kData:
        options.data = optarg;
        return handOn(options, "--data-dir");
    case kCalendar:
        options.calendar = optarg;
        return handOn(options, "--calendar");
    case kBundle:
        return handOn(options, "--bundle");
    case kRingtones:
        return handOn(options, "--ringtones");
    case kHelpers:
        options.helpers = optarg;
        return;
    case kStart:
        options.command = RingCommand::start;
        return;
    case kStop:
        options.command = RingCommand::stop;
        return;
    case kSnooze:
        options.command = RingCommand::snooze;
        return;
    case kTest:
        options.command = RingCommand::test;
        options.prayer = optarg;
        return;
    case kStatus:
        options.command = RingCommand::status;
        return;
    case 'h':
        options.command = RingCommand::help;
        return;
    case 'V':
        options.command = RingCommand::version;
        return;
    default:
        options.command = RingCommand::badUse;
    }
}

} // namespace

RingOptions ringOptions(int argc, char** argv) {
    RingOptions options;
    for (int letter = 0; (letter = getopt_long(argc, argv, "hV", kOptions.data(), nullptr)) != -1;) {
        take(options, letter);
        if (options.command == RingCommand::badUse) {
            return options;
        }
    }
    if (optind < argc) {
        options.command = RingCommand::badUse;
    }
    return options;
}

std::string ringHelp() {
    struct Option {
        std::string_view names;
        const char* meaning;
    };
    constexpr std::array kOptions{
        Option{"--start", trLater("start it in the background, unless it runs")},
        Option{"--stop", trLater("silence what rings")},
        Option{"--snooze", trLater("silence it, and ring once more in five minutes")},
        Option{"--test PRAYER", trLater("ring an alarm now, as it would")},
        Option{"--status", trLater("what it waits for")},
        Option{"--data-dir DIR", trLater("folder of the user's cities and alarms")},
        Option{"--calendar DIR", trLater("folder of .ics files that carries the alarms")},
        Option{"--bundle DIR", trLater("folder of language files and catalogue")},
        Option{"--ringtones DIR", trLater("folder of ringtones")},
        Option{"--helpers DIR", trLater("folder of zorel-ring-plan and zorel-ring-play")},
    };
    constexpr std::size_t kColumn = 19;
    std::string text = "zorel-ring [OPTIONS]\n  " +
                       tr("Waits for the prayer alarms and rings: a notification, and the chosen ringtone.") +
                       "\n\n";
    for (const Option& option : kOptions) {
        text += "  " + std::string(option.names) + std::string(kColumn - option.names.size(), ' ') +
                tr(option.meaning) + '\n';
    }
    return text + "  -h, --help; -V, --version\n";
}

} // namespace zorel::ring
