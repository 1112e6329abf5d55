// SPDX-License-Identifier: Apache-2.0
/// @file
/// A day's times as lines on a terminal.
#pragma once

#include "Context.h"
#include "Day.h"
#include "DayFlags.h"

#include <string>
#include <vector>

namespace zorel::cli {

/// What a text of a day shows beside the six times.
struct DayTextParts {
    bool others = true;
    bool ezani = false;
    std::vector<EventTime> sunAtQibla;
    const NextPrayer* next =
        nullptr; ///< marks the next time and says how long it is away; nullptr: another day
};

/// "15:04", "00:12 +1" when the time falls on another date than `date`, or "none today".
[[nodiscard]] std::string eventText(const Context& context, const EventTime& event, Date date);
/// The sunset-based clock of a position of PrayerTimes, "10:30"; empty when the event does not exist.
[[nodiscard]] std::string ezaniText(const Day& day, int index);
/// The flags as sentences, each on a line of its own: "latitude lowered to 64", "Fajr: taken from 3 May".
[[nodiscard]] std::string flagsText(const Context& context, const DayFlags& flags);
/// The table of times with its headings.
[[nodiscard]] std::string dayText(const Context& context, const Day& day, const DayTextParts& parts);

} // namespace zorel::cli
