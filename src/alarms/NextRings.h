// SPDX-License-Identifier: Apache-2.0
/// @file
/// When an alarm should ring, by the home city's almanac.
#pragma once

#include "almanac/Almanac.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>

namespace zorel {

/// A person who has just changed an alarm is not rung within this time: the alarm waits for its next time.
inline constexpr std::chrono::minutes kMarginAfterEdit{5};

/// The next times of one alarm: the prayer's shown minute on the day on which it will ring, plus the offset.
struct NextRings {
    std::optional<almanac::Instant> next;        ///< after the present
    std::optional<almanac::Instant> afterMargin; ///< the first that lies at least kMarginAfterEdit ahead
};

/// The days around an instant. A time is looked for until two days after the home city's date; an alarm whose
/// prayer has no time so long has none.
class AlarmDays {
public:
    AlarmDays(const almanac::Place& place, almanac::Instant now);

    /// @param offset [min] from the prayer.
    [[nodiscard]] NextRings nextRings(almanac::Prayer prayer, std::int32_t offset) const;

private:
    almanac::Instant now_;
    std::array<almanac::Day, 4> days_; ///< from yesterday on, at the place
};

/// The prayer time [h] that DatabaseFunctions has to be handed so that it places an alarm at an instant: on
/// the clock of the machine, counted from the midnight that began its present day, in the middle of a minute,
/// so that neither six decimals nor cutting off can lose or gain one. Where DatabaseFunctions would move the
/// alarm to the next day (it is due within its margin), the time of the day before.
/// @param rings lies ahead. @param offset [min] of the alarm, which DatabaseFunctions adds.
[[nodiscard]] double handedOverTime(almanac::Instant rings, std::int32_t offset, almanac::Instant now);

} // namespace zorel
