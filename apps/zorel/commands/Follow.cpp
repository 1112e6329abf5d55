// SPDX-License-Identifier: Apache-2.0
#include "commands/Follow.h"

#include "terminal/WallClockTimer.h"

namespace zorel::cli {

namespace {
Exit follow(const Context& context, const std::function<StatusLine(almanac::Instant)>& lineAt) {
    const WallClockTimer timer;
    std::string shown;
    while (true) {
        const StatusLine now = lineAt(context.now());
        if (now.line != shown) {
            context.streams.out << now.line << '\n' << std::flush;
        }
        shown = now.line;
        if (!context.streams.out.good() ||
            timer.sleepUntil(now.nextChange, context.streams.outDescriptor) == Woken::readerGone) {
            return Exit::ok;
        }
    }
}
} // namespace

Exit printOrFollow(const Context& context, const std::function<StatusLine(almanac::Instant)>& lineAt) {
    if (context.options.follow && !context.options.now.empty()) {
        throw CliError(Exit::badUse, tr("--follow and --now do not go together"),
                       tr("leave one of them out"));
    }
    if (context.options.follow) {
        return follow(context, lineAt);
    }
    context.streams.out << lineAt(context.now()).line << '\n';
    return Exit::ok;
}

} // namespace zorel::cli
