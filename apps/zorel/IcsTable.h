// SPDX-License-Identifier: Apache-2.0
/// @file
/// Prayer times as one iCalendar document to import or subscribe to.
#pragma once

#include "Dates.h"

#include <string>
#include <vector>

namespace zorel::cli {

struct IcsEntry {
    std::string uid; ///< the same for the same place, day and prayer, whenever the document is made
    std::string title;
    UtcSeconds start{};
};

/// RFC 5545 with the calendar's name and refresh interval of RFC 7986 (and their older X- forms). Every entry
/// is one minute long, transparent, in universal time, without an alarm. `made`: the DTSTAMP of all entries.
[[nodiscard]] std::string icsDocument(const std::string& calendarName, const std::string& location,
                                      const std::vector<IcsEntry>& entries, UtcSeconds made);

} // namespace zorel::cli
