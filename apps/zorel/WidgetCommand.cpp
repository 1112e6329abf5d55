// SPDX-License-Identifier: Apache-2.0
#include "Commands.h"

#include "PlaceResolver.h"
#include "WallClockTimer.h"
#include "WidgetState.h"

namespace zorel::cli {

namespace {
/// Prints whenever the line becomes another one, until the reader goes away or the program is ended by a
/// signal.
Exit follow(const Context& context, const Place& place) {
    const WallClockTimer timer;
    DayComputer computer;
    std::string shown;
    while (true) {
        const WidgetState state = widgetState(context, computer, place, context.now());
        if (state.line != shown)
            context.streams.out << state.line << '\n' << std::flush;
        shown = state.line;
        if (!context.streams.out.good() ||
            timer.sleepUntil(state.nextChange, context.streams.outDescriptor) == Woken::readerGone)
            return Exit::ok;
    }
}
} // namespace

Exit runWidget(const Context& context) {
    const Place place = resolvePlace(context);
    if (context.options.follow && !context.options.now.empty())
        throw CliError(Exit::badUse, "--follow and --now do not go together", "leave one of them out");
    if (context.options.follow)
        return follow(context, place);
    DayComputer computer;
    context.streams.out << widgetState(context, computer, place, context.now()).line << '\n';
    return Exit::ok;
}

} // namespace zorel::cli
