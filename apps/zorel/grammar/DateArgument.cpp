// SPDX-License-Identifier: Apache-2.0
#include "grammar/DateArgument.h"

#include "terminal/CliError.h"

#include <fmt/format.h>

namespace zorel::cli {

almanac::Date requireDate(std::string_view text, almanac::Date today, std::string_view option) {
    if (const auto date = almanac::parseDate(text, today)) {
        return *date;
    }
    throw CliError(Exit::badUse, tr("{0}: {1} is not a date", option, quote(text)),
                   tr("write it as 2026-11-21 (years 1583 to 9998), or today, tomorrow, yesterday, +3, -3"));
}

almanac::Instant instantOf(const almanac::Moment& moment, const almanac::PlaceClock& clock,
                           almanac::Date today) {
    const almanac::Date date = moment.date.value_or(today);
    return moment.offset ? std::chrono::sys_days(date) + moment.timeOfDay - *moment.offset
                         : clock.instantOf(date, moment.timeOfDay);
}

} // namespace zorel::cli
