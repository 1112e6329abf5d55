// SPDX-License-Identifier: Apache-2.0
/// @file
/// Night, dawn, day and dusk of a date, as the told times part it.
#pragma once

#include "almanac/Almanac.h"
#include "almanac/CivilDay.h"

#include <span>
#include <vector>

namespace zorel::cli {

enum class Light : std::uint8_t {
    night,
    dawn, ///< from the dawn prayer to sunrise
    day,  ///< from sunrise to the sunset prayer
    dusk, ///< from the sunset prayer to nightfall
};

struct LightSpan {
    Light light = Light::night;
    almanac::Instant begin{};
    almanac::Instant end{}; ///< lies outside
};

/// The six times that fall into a date from 0:00 to 24:00, be they told with it, the day before or the day
/// after, and its spans that are not night. Times are those shown. A span whose begin or end does not exist
/// is not there.
struct DayLight {
    almanac::CivilDay civil;
    std::vector<LightSpan> spans;        ///< within the date; where two overlap, the later one counts
    std::vector<almanac::DayTime> times; ///< in their order
    bool known = false;                  ///< the date has a sunrise and a sunset prayer of its own
};

[[nodiscard]] DayLight dayLight(const almanac::Almanac& almanac, almanac::Memory& memory, almanac::Date date);
/// The same of days that were told before: the one before the date, its own, and the one after it.
[[nodiscard]] DayLight dayLight(const almanac::PlaceClock& clock, std::span<const almanac::Day, 3> days);
/// The light at an instant of the date.
[[nodiscard]] Light lightAt(const DayLight& day, almanac::Instant instant);

} // namespace zorel::cli
