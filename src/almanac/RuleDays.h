// SPDX-License-Identifier: Apache-2.0
/// @file
/// The days on which an exact rule of the catalogue knows better than the system's older data.
#pragma once

#include "almanac/ZoneData.h"

#include <memory>
#include <vector>

namespace zorel::almanac {

/// Days that follow one another.
struct DayRun {
    Date first;
    Date last; ///< inclusive
};

/// Whether a date lies in one of the runs, which are in order.
[[nodiscard]] bool contains(const std::vector<DayRun>& runs, Date date);

/// The days from kRuleExactFrom to kRuleExactTo on which rule and data have another offset at noon.
[[nodiscard]] std::vector<DayRun> differingDays(const Offsets& system, const ClockRule& rule);

/// The data with the rule in its place on the given days. The rule takes over at the noon before a run, when
/// both agree, and gives back at the noon after it: so a change that only one of them knows happens or does
/// not, and none is made up at the seam.
[[nodiscard]] std::shared_ptr<const NearOffsets> withRuleOn(const std::vector<DayRun>& runs,
                                                            const std::shared_ptr<const NearOffsets>& system,
                                                            const ClockRule& rule);

} // namespace zorel::almanac
