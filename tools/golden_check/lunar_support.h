// SPDX-License-Identifier: Apache-2.0
/// @file
/// What the runners of the lunar operations share.
#pragma once

#include "Registry.h"
#include "engine/FastAstro.h"

namespace zorel::golden {

/// Adds the Moon's position, events, phases and records.
void addMoonOperations(Registry& registry);
/// Adds the Hijri calendar, the magnetic field, the widget summary and the Sun's records.
void addCalendarAndWidgetOperations(Registry& registry);

/// A fresh engine at a latitude and longitude [deg].
inline FastAstro engineAt(double latitude, double longitude) {
    FastAstro engine;
    engine.SetLatLon(latitude, longitude);
    return engine;
}

/// A fresh engine at a place without daylight saving.
inline FastAstro engineInZone(double latitude, double longitude, double timeZone) {
    FastAstro engine;
    engine.SetPlace(latitude, longitude, timeZone, 0, 0, 0, 0, 0, 0, 0);
    return engine;
}

/// A fresh engine for arguments that begin with latitude, longitude, zone, rule in use, record: the record's
/// date is current and the rule, where it is in use, goes from the last Sunday of March to the last of
/// October.
inline FastAstro engineOnDate(const Arguments& in) {
    FastAstro engine;
    engine.SetCurrentDateTime(in.record(4));
    const bool rule = in.integer(3) == 1;
    constexpr std::int32_t lastSunday = 35;
    engine.SetPlace(in.number(0), in.number(1), in.number(2), rule ? 1 : 0, rule ? 2 : 0,
                    rule ? lastSunday : 0, rule ? 9 : 0, rule ? lastSunday : 0, rule ? 1 : 0, 0);
    return engine;
}

} // namespace zorel::golden
