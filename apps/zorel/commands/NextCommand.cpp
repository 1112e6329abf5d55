// SPDX-License-Identifier: Apache-2.0
#include "commands/Commands.h"

#include "commands/Follow.h"
#include "commands/PlaceResolver.h"
#include "print/ClockNotices.h"
#include "print/NextLine.h"

namespace zorel::cli {

namespace {
/// "Dhuhr 13:00, in 4 h".
std::string usualPattern() {
    // translators: "Dhuhr 13:00, in 4 h"; the names in braces stay as they are
    return tr("{name} {time}, in {countdown}");
}
} // namespace

Exit runNext(const Context& context) {
    const std::string& chosen = context.options.format;
    const NextPattern pattern(chosen.empty() ? usualPattern() : chosen);
    const ShownPlace place = resolvePlace(context);
    noteClock(context, place);
    almanac::Memory memory;
    return printOrFollow(context, [&](almanac::Instant instant) {
        return nextLine(context, memory, place, pattern, instant);
    });
}

} // namespace zorel::cli
