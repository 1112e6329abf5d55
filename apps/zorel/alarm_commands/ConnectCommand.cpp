// SPDX-License-Identifier: Apache-2.0
#include "commands/Commands.h"

#include "alarm_commands/RingClient.h"

#include "platform/eventkit/GnomeSource.h"
#include "platform/foundation/Locations.h"

#include <fmt/format.h>

namespace zorel::cli {
namespace {

std::string calendarFolder(const Context& context) {
    return context.options.calendar.empty() ? Locations::current().data + "/calendar"
                                            : context.options.calendar;
}

void requireWritten(std::error_code error) {
    if (error) {
        throw CliError(Exit::dataTrouble,
                       fmt::format("cannot write {}: {}", gnomeSourcePath(), error.message()),
                       "look at the folder's rights and the space that is left");
    }
}

} // namespace

Exit runAlarmsConnect(const Context& context) {
    const std::string folder = calendarFolder(context);
    if (context.options.value == "gnome") {
        requireWritten(connectGnome(folder));
        context.streams.out << "GNOME rings from now on; the ring service keeps still.\n";
    } else {
        requireWritten(disconnectGnome(folder));
        context.streams.out << "No calendar program is connected.\n";
    }
    return Exit::ok;
}

} // namespace zorel::cli
