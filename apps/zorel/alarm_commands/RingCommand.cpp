// SPDX-License-Identifier: Apache-2.0
#include "commands/Commands.h"

#include "alarm_commands/RingClient.h"
#include "terminal/Program.h"

namespace zorel::cli {
namespace {

/// Asks the ring service for something; says what to do where there is none.
Exit ask(std::vector<std::string> words) {
    words.insert(words.begin(), "zorel-ring");
    if (runSibling(std::move(words)).status != 0) {
        throw CliError(Exit::dataTrouble, tr("the ring service does not run in this session"),
                       tr("start it with zorel-ring --start"));
    }
    return Exit::ok;
}

} // namespace

Exit runAlarmsOnTellingWho(const Context& context) {
    const Exit code = runAlarmsOn(context);
    tellWhoRings(context);
    return code;
}

Exit runAlarmsTest(const Context& context) {
    startRinging(context);
    return ask({"--test", context.options.prayer});
}

Exit runAlarmsStop(const Context&) {
    return ask({"--stop"});
}

} // namespace zorel::cli
