// SPDX-License-Identifier: Apache-2.0
/// @file
/// The iterations of a day's nine events side by side. What PrayerIteration does for one event, loops do here
/// for all of them at once, with the same operations in the same order, so that no bit differs; of the
/// functions that only the C library has, an arc cosine is taken once where two events need the same.
#pragma once

#include "engine/PrayerEvents.h"
#include "engine/PrayerIteration.h"

#include <array>

namespace zorel {

/// What the events of a day have in common.
struct DayIterationInput {
    IterationLatitude latitude;
    double longitudeTerm = 0.0; ///< minus the longitude, as time [h]
    double temkin = 0.0;        ///< without sign [h]
    double timeZone = 0.0;      ///< [h]

    /// For one event.
    [[nodiscard]] IterationInput of(PrayerEvent event) const;
};

using DayIterationResults = std::array<IterationResult, kPrayerEvents.size()>;

/// The results of all events, in their order, as iteratePrayerTime gives them one by one.
[[nodiscard]] DayIterationResults iterateSideBySide(const DayIterationInput& day, const SunInfoForPray& info);
/// The same, really one by one.
[[nodiscard]] DayIterationResults iterateOneByOne(const DayIterationInput& day, const SunInfoForPray& info);

} // namespace zorel
