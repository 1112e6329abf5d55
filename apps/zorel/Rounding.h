// SPDX-License-Identifier: Apache-2.0
/// @file
/// How a computed time becomes a time on screen: never later than the fast begins or the dawn prayer ends,
/// never earlier than a prayer begins.
#pragma once

#include "Dates.h"
#include "ZoneClock.h"

#include <chrono>

namespace zorel::cli {

/// Which way a time goes to the whole minute (or second).
enum class Rounding { earlier, later };

/// The direction of a position of PrayerTimes. Earlier: what something ends at or must have stopped by (dawn
/// ends the night and begins the fast, sunrise ends the dawn prayer, the span before noon and the afternoon 5
/// degree time begin a time without prayer, the night's third and half end the best time of the night
/// prayer). Later: all others, which are beginnings of prayers.
[[nodiscard]] Rounding roundingOf(int index);

/// A moment of a place's day, ready to be shown.
struct EventTime {
    bool exists = false;
    UtcSeconds utc{};                  ///< the rounded instant
    Date date{};                       ///< local date of the rounded instant
    std::chrono::seconds timeOfDay{0}; ///< local, 0:00:00 to 23:59:59
    std::chrono::seconds offset{0};    ///< local minus universal time
};

enum class Precision { minutes, seconds };

/// @param hours decimal hours after 0:00 of `date` at the day's offset, may lie outside 0 to 24; not a number
/// and -1 exactly give an event that does not exist.
[[nodiscard]] EventTime eventTime(const ZoneClock& clock, Date date, double hours, Rounding rounding,
                                  Precision precision);
/// The event of an instant, unrounded.
[[nodiscard]] EventTime eventAt(const ZoneClock& clock, UtcSeconds instant);

/// "06:32" or "06:32:07".
[[nodiscard]] std::string clockText(std::chrono::seconds timeOfDay, Precision precision);

} // namespace zorel::cli
