// SPDX-License-Identifier: Apache-2.0
/// @file
/// A date in every calendar of the engine.
#pragma once

#include "Dates.h"
#include "engine/Records.h"

namespace zorel::cli {

/// Uses an engine of its own, because the search for the crescent moves the engine to a reference place.
[[nodiscard]] AllCalendarRecord calendarsOf(Date date);

} // namespace zorel::cli
