// SPDX-License-Identifier: Apache-2.0
#include "print/Clockface.h"

#include <fmt/format.h>

namespace zorel::cli {

ShownTime Clockface::of(const almanac::DayTime& time) const {
    if (!time.exists()) {
        return std::nullopt;
    }
    return precision_ == almanac::Precision::minutes ? time.local
                                                     : clock_.localTime(time.rounded(precision_));
}

ShownTime shownTime(const std::optional<almanac::SkyEvent>& event) {
    return event ? ShownTime(event->local) : std::nullopt;
}

std::string clockAndDayText(const almanac::LocalTime& time, almanac::Date date, almanac::Precision precision,
                            std::string_view blank) {
    const std::string text = almanac::clockText(time.timeOfDay, precision);
    const auto days = almanac::daysBetween(date, time.date);
    return days == 0 ? text : fmt::format("{}{}{:+}", text, blank, days);
}

} // namespace zorel::cli
