// SPDX-License-Identifier: Apache-2.0
/// @file
/// Between the engine's ways of telling time and the command line's.
#pragma once

#include "Context.h"
#include "Place.h"
#include "Rounding.h"

#include "engine/MoonDay.h"

#include <optional>

namespace zorel::cli {

/// The nearest whole second of a Julian day of universal time.
[[nodiscard]] UtcSeconds instantOfJulianDay(double julianDay);
[[nodiscard]] double julianDayOf(UtcSeconds instant);
/// The place and its clock on a day.
[[nodiscard]] Observer observerOf(const Place& place, Date date);
/// An hour of the local day as an event rounded to the nearest minute; nothing becomes an event that does not
/// exist.
[[nodiscard]] EventTime nearestMinute(const Place& place, Date date, const std::optional<double>& hour);
/// The moment that an option names, by the place's clock when it has no offset; without one the present.
[[nodiscard]] UtcSeconds momentOf(const Context& context, const Place& place, const std::string& text);

} // namespace zorel::cli
