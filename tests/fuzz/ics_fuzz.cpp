// SPDX-License-Identifier: Apache-2.0
// Any bytes as an .ics file: they are read or refused, and what was read can be written and read again with
// the same times.
#include "platform/eventkit/IcsEvent.h"
#include "tests/fuzz/Fuzz.h"

#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using zorel::fuzz::require;
    const std::string text(zorel::fuzz::textOf(data, size));
    const auto event = zorel::eventFromIcs(text);
    if (!event) {
        return 0;
    }
    constexpr zorel::Instant stamp{std::chrono::seconds{1772366400}};
    zorel::EKEvent wanted = zorel::withEndAfterStart(*event);
    wanted.recurrenceRules.clear();
    if (const auto written = zorel::icsFromEvent(wanted, text, stamp)) {
        const auto again = zorel::eventFromIcs(*written);
        require(again && again->startDate == wanted.startDate &&
                again->alarms.size() == wanted.alarms.size());
        require(wanted.allDay ? again->endDate > again->startDate : again->endDate == wanted.endDate);
    }
    return 0;
}
