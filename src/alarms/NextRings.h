// SPDX-License-Identifier: Apache-2.0
/// @file
/// When an alarm should ring, by the home city's almanac.
#pragma once

#include "almanac/Almanac.h"
#include "store/UserRows.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>

namespace zorel {

/// A person who has just changed an alarm is not rung within this time: the alarm waits for its next time.
inline constexpr std::chrono::minutes kMarginAfterEdit{5};

/// Nobody leaves out alarms for longer: what lies further ahead is the work of a clock that was wrong.
inline constexpr std::chrono::days kLongestSilence{400};

/// The next times of one alarm: the prayer's shown minute on the day on which it will ring, plus the offset.
struct NextRings {
    std::optional<almanac::Instant> next;        ///< after the present, and not before what is left out ends
    std::optional<almanac::Instant> afterMargin; ///< the first of them at least kMarginAfterEdit ahead
    std::optional<almanac::Instant> skipped;     ///< the first that is left out; nothing: none is
};

/// Until when a person leaves an alarm out: alone, or with all others.
[[nodiscard]] std::optional<almanac::Instant> silentUntil(const UserRows& rows, const AlarmRow& row);
/// Seconds since the beginning of 1970 as an instant.
[[nodiscard]] std::optional<almanac::Instant> instantOf(std::optional<std::int64_t> seconds);

/// The days around an instant. A time is looked for until two days after the home city's date; an alarm whose
/// prayer has no time so long has none.
class AlarmDays {
public:
    AlarmDays(const almanac::Place& place, almanac::Instant now);

    /// @param offset [min] from the prayer.
    /// @param notBefore what would ring before is left out. An instant more than kLongestSilence ahead counts
    /// as none.
    [[nodiscard]] NextRings nextRings(almanac::Prayer prayer, std::int32_t offset,
                                      std::optional<almanac::Instant> notBefore = std::nullopt) const;

private:
    [[nodiscard]] NextRings afterPresent(almanac::Prayer prayer, std::int32_t offset) const;

    almanac::Place place_;
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
