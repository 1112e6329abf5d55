// SPDX-License-Identifier: Apache-2.0
/// @file
/// Sun and Moon as a person sees them: where they stand, when they rise, culminate and set, the next phases.
#pragma once

#include "almanac/Time.h"

#include "engine/MoonDay.h"
#include "engine/Records.h"

#include <array>
#include <optional>

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

/// Both bodies at an instant, the events of its local date, the next four phases.
struct Sky {
    LocalTime at;
    SunDetails sun; ///< its rise, transit and set are the engine's own: take `sunEvents`
    BodyEvents sunEvents;
    MoonInfo moon; ///< likewise
    BodyEvents moonEvents;
    std::array<MoonPhase, 4> phases{};
};

} // namespace zorel::almanac
