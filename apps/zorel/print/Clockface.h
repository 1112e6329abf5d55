// SPDX-License-Identifier: Apache-2.0
/// @file
/// How the times of a place are shown: by its clock, to the minute or to the second.
#pragma once

#include "almanac/Day.h"
#include "almanac/Sky.h"

#include <optional>

namespace zorel::cli {

/// Nothing when there is no such event.
using ShownTime = std::optional<almanac::LocalTime>;

/// Borrows the clock.
class Clockface {
public:
    Clockface(const almanac::PlaceClock& clock, almanac::Precision precision)
        : clock_(clock), precision_(precision) {}

    [[nodiscard]] almanac::Precision precision() const { return precision_; }
    /// What the clock shows at the time, which goes to the safe side.
    [[nodiscard]] ShownTime of(const almanac::DayTime& time) const;

private:
    const almanac::PlaceClock& clock_;
    almanac::Precision precision_;
};

[[nodiscard]] ShownTime shownTime(const std::optional<almanac::SkyEvent>& event);

/// "15:04", "00:12+1" when the time falls on the date after `date`, "23:51-1" on the one before. @param blank
/// stands before the sign.
[[nodiscard]] std::string clockAndDayText(const almanac::LocalTime& time, almanac::Date date,
                                          almanac::Precision precision, std::string_view blank);

} // namespace zorel::cli
