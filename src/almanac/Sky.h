// SPDX-License-Identifier: Apache-2.0
/// @file
/// Sun and Moon as a person sees them: where they stand, when they rise, culminate and set, the next phases.
#pragma once

#include "almanac/Time.h"

#include "engine/MoonDay.h"
#include "engine/Records.h"

#include <array>
#include <optional>
#include <vector>

namespace zorel::almanac {

/// An event told to the nearest minute of the local clock, by the offset in force at the event.
struct SkyEvent {
    Instant instant{};
    LocalTime local;
};

/// Rise, upper transit and set on a local date, which its told minute has; nothing for one that does not
/// happen that day. Every event belongs to one date, on days of 23 and 25 hours too. Of two of a kind on one
/// date (a sunset just after midnight and another just before the next, a day or two in the summer of the far
/// north) it is the first. Upper limb, standard refraction. Accuracy: SunEventsOfDay and MoonEventsOfDay
/// (engine/MoonDay.h).
struct BodyEvents {
    std::optional<SkyEvent> rise;
    std::optional<SkyEvent> transit;
    std::optional<SkyEvent> set;
};

struct MoonPhase {
    PrincipalPhase::Kind kind = PrincipalPhase::newMoon;
    SkyEvent at;
};

/// The Moon on a local date: its events, and its look at noon (its light by FastAstro::Phase, within half a
/// percent).
struct MoonOfDay {
    BodyEvents events;
    double illuminated = 0.0; ///< part of the disc that is lit at local noon [%]
    bool waxing = false;
    double age = 0.0; ///< since the last new Moon at local noon [days], within 4 minutes
};

/// Where a body stands, as SunDetails and MoonInfo (apparent) tell it.
struct Standing {
    double altitude = 0.0; ///< [deg]
    double azimuth = 0.0;  ///< [deg] from north, clockwise
};

/// Both bodies at an instant.
struct SkyMoment {
    Instant instant{};
    Standing sun;
    Standing moon;
};

/// The side of the Moon that the Sun lights, as one who looks at the Moon sees it: the angle at the Moon from
/// the zenith to the Sun, clockwise, [0, 360) [deg]. 0: the upper side is lit, 90: the right one. (The
/// position angle of the bright limb less the parallactic angle, J. Meeus, Astronomical Algorithms, chapters
/// 14 and 48, counted the other way round; here from the horizontal coordinates themselves, which have the
/// parallax of the Moon in them.) Accuracy: a degree, for a Moon more than 15 degrees from the Sun and from
/// the point opposite to it; where they meet, the side is undefined.
[[nodiscard]] double litSide(const Standing& sun, const Standing& moon);

/// Both bodies at an instant, the events of its local date, the next four phases.
struct Sky {
    LocalTime at;
    SunDetails sun; ///< its rise, transit and set are the engine's own: take `sunEvents`
    BodyEvents sunEvents;
    MoonInfo moon; ///< likewise
    BodyEvents moonEvents;
    double litSide = 0.0; ///< of the Moon [deg], see the function
    std::array<MoonPhase, 4> phases{};
};

} // namespace zorel::almanac
