// SPDX-License-Identifier: Apache-2.0
/// @file
/// One day of a place, computed by the engine and made ready to be shown.
#pragma once

#include "Place.h"
#include "Rounding.h"

#include "engine/FastAstro.h"

#include <array>
#include <chrono>
#include <optional>
#include <string_view>
#include <vector>

namespace zorel::cli {

/// The six times that have names of their own everywhere, in the order of a day.
inline constexpr std::array<int, 6> kPrayerIndices{PrayerTimes::dawn,   PrayerTimes::sunrise,
                                                   PrayerTimes::noon,   PrayerTimes::afternoon,
                                                   PrayerTimes::sunset, PrayerTimes::nightfall};
/// The other times of the record that a person can use, in the order of a day.
inline constexpr std::array<int, 8> kOtherIndices{
    PrayerTimes::lastSixthOfNight,  PrayerTimes::morningFiveDegrees,   PrayerTimes::transitMinusTemkin,
    PrayerTimes::secondAfternoon,   PrayerTimes::afternoonFiveDegrees, PrayerTimes::secondNightfall,
    PrayerTimes::firstThirdOfNight, PrayerTimes::middleOfNight};

/// The stable name of a position of PrayerTimes in JSON and CSV ("fajr"); empty for positions that are not
/// shown.
[[nodiscard]] std::string_view keyOf(int index);

struct Day {
    Date date{};
    std::chrono::seconds offset{0}; ///< the offset that the day was computed with
    PrayerTimes record;             ///< the engine's result, sunset-based clock included
    std::array<EventTime, 16> events{};

    [[nodiscard]] const EventTime& event(int index) const { return events[static_cast<std::size_t>(index)]; }
};

/// Runs the engine for whole days. One object for each thread; it may go from place to place and day to day.
class DayComputer {
public:
    /// The engine's times of a day, with three corrections that the engine leaves to whoever shows them: a
    /// time before midnight is given by the engine as itself plus one hour, so such a day is computed a
    /// second time with a zone further east and moved back; places whose clock is a day away from their
    /// meridian (Samoa) get the times of the date itself, not of the next; parts of a night that has no
    /// beginning or no end do not exist.
    [[nodiscard]] Day compute(const Place& place, Date date, Precision precision = Precision::minutes);

    [[nodiscard]] FastAstro& engine() { return engine_; }
    /// Sets place and date as compute does, without computing.
    void prepare(const Place& place, Date date, double extraHours = 0.0);

private:
    [[nodiscard]] PrayerTimes times(const Place& place, Date date);

    FastAstro engine_;
};

/// The next of the six times after an instant, and the one before it.
struct NextPrayer {
    int index = -1;          ///< position in PrayerTimes; -1 when there is none within two days
    EventTime event;         ///< of that position
    int previousIndex = -1;  ///< the latest of the six times at or before the instant, -1 when there is none
    EventTime previousEvent; ///< of that position
};

[[nodiscard]] NextPrayer nextPrayer(DayComputer& computer, const Place& place, UtcSeconds instant,
                                    Precision precision = Precision::minutes);

} // namespace zorel::cli
