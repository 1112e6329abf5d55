// SPDX-License-Identifier: Apache-2.0
#include "commands/Commands.h"

#include "commands/Follow.h"
#include "commands/PlaceResolver.h"
#include "print/ClockNotices.h"
#include "print/WidgetState.h"

namespace zorel::cli {

Exit runWidget(const Context& context) {
    const ShownPlace place = resolvePlace(context);
    noteClock(context, place); // the tooltip says it too, but it is not always looked at
    almanac::Memory memory;
    return printOrFollow(
        context, [&](almanac::Instant instant) { return widgetLine(context, memory, place, instant); });
}

} // namespace zorel::cli
