// SPDX-License-Identifier: Apache-2.0
#include "commands/Commands.h"

#include "commands/PlaceResolver.h"
#include "print/ClockNotices.h"
#include "print/WidgetState.h"
#include "terminal/WallClockTimer.h"

namespace zorel::cli {

namespace {
/// Prints whenever the line becomes another one, until the reader goes away or the program is ended by a
/// signal.
Exit follow(const Context& context, const ShownPlace& place) {
    const WallClockTimer timer;
    almanac::Memory memory;
    std::string shown;
    while (true) {
        const WidgetState state = widgetState(context, memory, place, context.now());
        if (state.line != shown) {
            context.streams.out << state.line << '\n' << std::flush;
        }
        shown = state.line;
        if (!context.streams.out.good() ||
            timer.sleepUntil(state.nextChange, context.streams.outDescriptor) == Woken::readerGone) {
            return Exit::ok;
        }
    }
}

/// The tooltip says it too, but it is not always looked at.
void noteClock(const Context& context, const ShownPlace& place) {
    const std::string notice = clockNoticeText(context, place, place.clock().dateAt(context.now()));
    if (!notice.empty()) {
        context.note(notice);
    }
}
} // namespace

Exit runWidget(const Context& context) {
    const ShownPlace place = resolvePlace(context);
    if (context.options.follow && !context.options.now.empty()) {
        throw CliError(Exit::badUse, "--follow and --now do not go together", "leave one of them out");
    }
    noteClock(context, place);
    if (context.options.follow) {
        return follow(context, place);
    }
    almanac::Memory memory;
    context.streams.out << widgetState(context, memory, place, context.now()).line << '\n';
    return Exit::ok;
}

} // namespace zorel::cli
