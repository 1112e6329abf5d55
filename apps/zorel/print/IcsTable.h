// SPDX-License-Identifier: Apache-2.0
/// @file
/// Prayer times as one iCalendar document to import or subscribe to.
#pragma once

#include "almanac/Time.h"

#include <string>
#include <vector>

namespace zorel::cli {

struct IcsEntry {
    std::string uid; ///< the same for the same place, day and prayer, whenever the document is made
    std::string title;
    almanac::Instant start{};
};

struct IcsHead {
    std::string name;
    std::string description;    ///< what a reader has to know; empty: nothing
    std::string location;       ///< of every entry
    almanac::Instant made{};    ///< the DTSTAMP of all entries
    std::vector<int> reminders; ///< of every entry, each so many minutes before its start
};

/// RFC 5545 with the calendar's name, description and refresh interval of RFC 7986 (and their older X-
/// forms). Every entry is one minute long, transparent, in universal time, with a display alarm for each
/// reminder.
[[nodiscard]] std::string icsDocument(const IcsHead& head, const std::vector<IcsEntry>& entries);

} // namespace zorel::cli
