// SPDX-License-Identifier: Apache-2.0
/// @file
/// Where the almanac departs from the engine, by name. docs/accuracy.md says of each why, how large and
/// where.
#pragma once

#include "engine/Api.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zorel::almanac {

/// A reason for which a told time is not the engine's.
enum class Correction : std::uint8_t {
    /// The time lies before midnight, on the eve. The engine adds an hour to it.
    beforeMidnight,
    /// The engine judges by the day before, hour by hour, whether the Sun rises and sets. This day it does,
    /// and the engine took a lower latitude; or it does not, and the engine kept the latitude.
    seamOfDays,
    /// A 5 degree time with the Sun of the day itself. The engine takes it from the day on which its search
    /// of the second nightfall ended.
    ownSun,
    /// The place keeps the date of the other side of the date line: its clock is a day away from its
    /// meridian.
    dateLine,
    /// A part of a night that has no beginning or no end. The engine counts it from times that are not there.
    nightWithoutEnds,
    /// The Sun sets or rises so flatly that the precaution is used up before it is really down (or up). Where
    /// its centre stays below the horizon all day, the rule's event is taken to fall on the transit.
    sunStillUp,
    /// The clock changes between this time and noon: the same instant is told by the clock in force then.
    clockChange,
    /// A time taken from an earlier day that would stand before the one it follows: there is none that day.
    outOfOrder,
    /// Sun at the qibla, towards the Kaaba itself. The engine's time lacks the zone and half of the cases.
    trueQibla,
};

inline constexpr std::size_t kCorrections = 9;

/// Stable name in JSON and on the command line ("before_midnight").
[[nodiscard]] ZOREL_API std::string_view keyOf(Correction correction);

/// A set of corrections.
class Corrections {
public:
    constexpr Corrections() = default;
    constexpr Corrections(Correction correction) : bits_(bitOf(correction)) {}

    [[nodiscard]] constexpr bool has(Correction correction) const { return (bits_ & bitOf(correction)) != 0; }
    [[nodiscard]] constexpr bool none() const { return bits_ == 0; }
    constexpr Corrections& operator|=(Corrections other) {
        bits_ = static_cast<std::uint16_t>(bits_ | other.bits_);
        return *this;
    }

    friend constexpr bool operator==(Corrections, Corrections) = default;

private:
    static constexpr std::uint16_t bitOf(Correction correction) {
        return static_cast<std::uint16_t>(1U << static_cast<unsigned>(correction));
    }

    std::uint16_t bits_ = 0;
};

} // namespace zorel::almanac
