// SPDX-License-Identifier: Apache-2.0
/// @file
/// Why a prayer time is what it is: the rule, the target, the temkin, the date and latitude behind one time.
#pragma once

#include "engine/Records.h"

#include <array>

namespace zorel {

/// What decides a time.
enum class PrayTimeRule {
    none,        ///< not a time of this engine (index 13, or outside 0 to 15)
    altitude,    ///< the Sun stands at an altitude
    shadow,      ///< a shadow is longer than that of noon by a number of staffs
    transit,     ///< the Sun crosses the meridian
    partOfNight, ///< a part of the night from sunset prayer to dawn
    qibla,       ///< the Sun stands in the direction of the qibla
};

struct PrayTimeExplanation {
    int index = 0;
    PrayTimeRule rule = PrayTimeRule::none;
    double targetAltitude = 0.0; ///< of the Sun's centre, geometric [deg]; for a shadow, of the last round
    int shadowFactor = 0;        ///< staffs; 0 when the rule is another
    bool morning = false;        ///< before the Sun's transit
    double partOfNight = 0.0;    ///< the part added to `nightFrom`; below zero: taken off
    int nightFrom = 0;           ///< index of the time that the part of the night is counted from
    double temkin = 0.0;         ///< [h], with its sign
    double addition = 0.0;       ///< fixed addition after the iteration [h], with its sign
    int rounds = 0;              ///< of the iteration; 0 when the rule needs none
    bool converged = false;      ///< two rounds agreed within a second
    DateTimeRecord date;         ///< civil date whose Sun the time is taken from
    int daysBack = 0;            ///< from the date asked about to that one
    double latitude = 0.0;       ///< at which it was computed [deg]
    bool latitudeLowered = false;
    double time = kNoSolarEvent; ///< [h] local
    bool occurs = false;         ///< the event occurs: the time is not -1
};

/// The sixteen times of a day and why each of them is what it is, of one computation.
struct ExplainedPrayTimes {
    PrayerTimes times;
    std::array<PrayTimeExplanation, 16> explanations{};
};

} // namespace zorel
