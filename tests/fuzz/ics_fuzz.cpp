// SPDX-License-Identifier: Apache-2.0
// Any bytes as an .ics file: they are read or refused, and what was read can be written and read again.
#include "platform/eventkit/IcsEvent.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(bytes), size);
    const auto event = zorel::eventFromIcs(text);
    if (!event) {
        return 0;
    }
    const zorel::Instant stamp{std::chrono::seconds{1772366400}};
    zorel::EKEvent wanted = zorel::withEndAfterStart(*event);
    wanted.recurrenceRules.clear();
    const auto written = zorel::icsFromEvent(wanted, text, stamp);
    if (written && !zorel::eventFromIcs(*written)) {
        std::abort();
    }
    return 0;
}
