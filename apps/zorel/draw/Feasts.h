// SPDX-License-Identifier: Apache-2.0
/// @file
/// Days of the Hijri year that people mark.
#pragma once

#include "engine/Records.h"

#include <string>

namespace zorel::cli {

/// The name of the feast or the marked day whose daylight falls on a date; empty for any other day. Nights
/// (that of the power, of the ascent, of mid-Shaban) belong to the day that follows them.
/// @param calendars of the date.
[[nodiscard]] std::string feastOf(const AllCalendarRecord& calendars);
/// Whether it is one of the days of the two feasts.
[[nodiscard]] bool isHoliday(const AllCalendarRecord& calendars);

} // namespace zorel::cli
