// SPDX-License-Identifier: Apache-2.0
// Sun and Moon, and the calendars.
#include "almanac/Almanac.h"
#include "almanac/CivilDay.h"
#include "almanac/Degrees.h"
#include "almanac/Usable.h"

#include "engine/FastAstro.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <vector>

namespace zorel::almanac {

namespace {

constexpr double kHalfMinute = 1.0 / 120.0; // [h]
constexpr double kLunation = 30.0;          // longer than any [day]
constexpr double kCentury = 36525.0;        // [day]
constexpr double kJ2000 = 2451545.0;

using EventsOfSpan = DayEvents (*)(double latitude, double longitude, double julianDay, double hours);

/// An event belongs to the date that its told minute has.
BodyEvents eventsOf(const Place& place, Date date, EventsOfSpan search) {
    const CivilDay day(place.clock, date);
    const Instant begin = day.begin - std::chrono::seconds(30);
    const DayEvents hours = search(place.latitude, place.longitude, julianDayOf(begin), day.hours());
    const auto told = [&](const std::optional<double>& hour) -> std::optional<SkyEvent> {
        return hour ? std::optional(toldByMinute(place.clock, hoursAfter(begin, *hour))) : std::nullopt;
    };
    return {told(hours.rise), told(hours.transit), told(hours.set)};
}

std::array<MoonPhase, 4> phasesAfter(const PlaceClock& clock, Instant instant) {
    std::array<MoonPhase, 4> phases;
    const std::vector<PrincipalPhase> next =
        NextPhases(julianDayOf(instant), static_cast<int>(phases.size()));
    std::transform(next.begin(), next.end(), phases.begin(), [&](const PrincipalPhase& phase) {
        return MoonPhase{phase.kind, toldByMinute(clock, instantOfJulianDay(phase.julianDay))};
    });
    return phases;
}

/// Days since the last new Moon.
double ageAt(double julianDay) {
    double age = 0.0;
    for (const PrincipalPhase& phase : NextPhases(julianDay - kLunation, 5)) {
        if (phase.kind == PrincipalPhase::newMoon && phase.julianDay <= julianDay) {
            age = julianDay - phase.julianDay;
        }
    }
    return age;
}

Standing standingOf(const SunDetails& sun) {
    return {sun.altitude, sun.azimuth};
}

Standing standingOf(const MoonInfo& moon) {
    return {moon.apparentAltitude, moon.azimuth};
}

} // namespace

double litSide(const Standing& sun, const Standing& moon) {
    const double sunHeight = sun.altitude * kRadian;
    const double moonHeight = moon.altitude * kRadian;
    const double aside = (sun.azimuth - moon.azimuth) * kRadian;
    const double right = std::cos(sunHeight) * std::sin(aside);
    const double up = std::sin(sunHeight) * std::cos(moonHeight) -
                      std::cos(sunHeight) * std::sin(moonHeight) * std::cos(aside);
    return bearingOf(std::atan2(right, up) / kRadian);
}

MoonOfDay Almanac::moon(Date date) const {
    if (!isOnEarth(place_) || !isInRange(date)) {
        return {};
    }
    const Instant noon = place_.clock.instantOf(date, std::chrono::hours(12));
    const double julianDay = julianDayOf(noon);
    FastAstro engine;
    MoonOfDay moon;
    moon.events = eventsOf(place_, date, MoonEventsOfSpan);
    moon.illuminated = engine.Phase((julianDay - kJ2000) / kCentury) * 100.0;
    moon.waxing = engine.MoonInformation(engineInstant(noon), place_.latitude, place_.longitude).waxing;
    moon.age = ageAt(julianDay);
    return moon;
}

Sky Almanac::sky(Instant instant) const {
    Sky sky;
    sky.at = place_.clock.localTime(instant);
    if (!isOnEarth(place_) || !isInRange(sky.at.date)) {
        return sky;
    }
    const DateTimeRecord universal = engineInstant(instant);
    FastAstro engine;
    sky.sun = engine.SunInformation(universal, place_.latitude, place_.longitude);
    sky.sunEvents = eventsOf(place_, sky.at.date, SunEventsOfSpan);
    sky.moon = engine.MoonInformation(universal, place_.latitude, place_.longitude);
    sky.moonEvents = eventsOf(place_, sky.at.date, MoonEventsOfSpan);
    sky.litSide = almanac::litSide(standingOf(sky.sun), standingOf(sky.moon));
    sky.phases = phasesAfter(place_.clock, instant);
    return sky;
}

std::vector<SkyMoment> Almanac::course(Date date, std::chrono::seconds step) const {
    std::vector<SkyMoment> moments;
    if (!isOnEarth(place_) || !isInRange(date) || step <= std::chrono::seconds(0)) {
        return moments;
    }
    const CivilDay day(place_.clock, date);
    FastAstro engine;
    for (Instant instant = day.begin; instant <= day.end; instant += step) {
        const DateTimeRecord universal = engineInstant(instant);
        moments.push_back({instant,
                           standingOf(engine.SunInformation(universal, place_.latitude, place_.longitude)),
                           standingOf(engine.MoonInformation(universal, place_.latitude, place_.longitude))});
    }
    return moments;
}

AllCalendarRecord Almanac::calendars(Date date) const {
    AllCalendarRecord calendars;
    if (isInRange(date)) {
        FastAstro engine; // of its own: the search for the crescent moves it to a reference place
        engine.ConvertAllCalendar(engineDate(date), calendars);
    }
    return calendars;
}

} // namespace zorel::almanac
