// SPDX-License-Identifier: Apache-2.0
#include "almanac/DayTime.h"

#include "almanac/Rounding.h"

namespace zorel::almanac {

Instant roundedInstant(ExactInstant exact, std::chrono::seconds offset, Rounding rounding,
                       Precision precision) {
    using std::chrono::minutes;
    using std::chrono::seconds;
    const auto wall = exact + offset;
    const bool isUp = rounding == Rounding::later;
    if (precision == Precision::seconds) {
        return (isUp ? std::chrono::ceil<seconds>(wall) : std::chrono::floor<seconds>(wall)) - offset;
    }
    return Instant(isUp ? std::chrono::ceil<minutes>(wall) : std::chrono::floor<minutes>(wall)) - offset;
}

Instant DayTime::rounded(Precision precision) const {
    return roundedInstant(exact, offset, identityOf(prayer).rounding, precision);
}

} // namespace zorel::almanac
