// SPDX-License-Identifier: Apache-2.0
#include "commands/Commands.h"

#include "alarm_commands/RingClient.h"

#include "platform/eventkit/GnomeSource.h"
#include "platform/eventkit/OneFile.h"
#include "platform/foundation/Locations.h"
#include "store/UserLock.h"

#include <fmt/format.h>

namespace zorel::cli {
namespace {

std::string calendarFolder(const Context& context) {
    return context.options.calendar.empty() ? Locations::current().data + "/calendar"
                                            : context.options.calendar;
}

void requireWritten(const Context& context, std::error_code error) {
    if (error) {
        throw CliError(Exit::dataTrouble,
                       tr("{0} or {1} could not be written: {2}", gnomeSourcePath(),
                          oneFileOf(calendarFolder(context)), error.message()),
                       tr("look at the folders' rights and the space that is left"));
    }
}

} // namespace

Exit runAlarmsConnect(const Context& context) {
    const std::string folder = calendarFolder(context);
    // No change of the alarms in between: the file has to hold the latest.
    const UserLock lock(Locations::current().data + "/user.sqlite", LockKind::exclusive);
    if (!lock.isHeld()) {
        throw CliError(Exit::dataTrouble, lock.reason(), "try again");
    }
    if (context.options.value == "gnome") {
        requireWritten(context, connectGnome(folder));
        context.streams.out << tr("GNOME rings from now on; the ring service keeps still.") << '\n';
    } else {
        requireWritten(context, disconnectGnome(folder));
        context.streams.out << tr("No calendar program is connected.") << '\n';
    }
    return Exit::ok;
}

} // namespace zorel::cli
