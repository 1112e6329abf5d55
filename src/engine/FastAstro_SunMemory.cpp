// SPDX-License-Identifier: Apache-2.0
// What is remembered of the Sun, and the rise and set search that uses it.
#include "engine/DayArc.h"
#include "engine/FastAstro.h"
#include "engine/Integers.h"
#include "engine/Single.h"

#include <array>
#include <cmath>

namespace zorel {

namespace {

/// Position in a table of `size` (a power of two) for a whole number of hours or days.
std::size_t slot(double count, std::size_t size) {
    return static_cast<std::size_t>(static_cast<std::uint32_t>(toInt(count))) & (size - 1);
}

/// Julian days between which the engine's series are close to the truth: years -1000 to 5000 or so.
bool inModelledEpoch(double julianDay) {
    return julianDay > 1356000.0 && julianDay < 3547000.0;
}

/// The 25 full hours of a local day at which the sine of the altitude lies away from that of the rise. The
/// arc is within 0.015 of the true sine (its Sun is at most 1.6 days away), its parabola within 0.002, and
/// between full hours the curve bends by less than 0.009.
class LikelyHours {
public:
    /// @param firstHourAngle [rad].
    LikelyHours(const DayArc& arc, double firstHourAngle) {
        constexpr double kStep = 0.26179938779914946; // 15 degrees
        const double cosStep = std::cos(kStep);
        const double sinStep = std::sin(kStep);
        double c = std::cos(firstHourAngle);
        double s = std::sin(firstHourAngle);
        for (double& y : sine_) {
            y = arc.base + arc.swing * c;
            const double next = c * cosStep - s * sinStep;
            s = s * cosStep + c * sinStep;
            c = next;
        }
    }

    /// Whether the window of an hour between its neighbours may hold a root.
    [[nodiscard]] bool mayHoldEvent(std::size_t hour) const {
        constexpr double kAway = 0.03;
        const bool above = sine_[hour - 1] > kAway && sine_[hour] > kAway && sine_[hour + 1] > kAway;
        const bool below = sine_[hour - 1] < -kAway && sine_[hour] < -kAway && sine_[hour + 1] < -kAway;
        return !above && !below;
    }

private:
    std::array<double, 25> sine_{};
};

} // namespace

void FastAstro::RememberSun(bool remember) {
    sunCache = SunCache{};
    sunCache.enabled = remember;
}

const HourSun& FastAstro::sunAtHour(double julianDay) {
    HourSun& sun = sunCache.hours[slot(std::round(julianDay * 24.0), sunCache.hours.size())];
    if (sun.julianDay != julianDay) {
        SunDecRA(julianDay);
        sun = HourSun{};
        sun.julianDay = julianDay;
        sun.declination = SunDec;
        sun.rightAscension = SunRA;
        sun.eclipticLongitude = EclipticLongitude;
        sun.greenwichSidereal = GM_Sidereal_Time(julianDay);
        sun.sinDeclination = std::sin(SunDec * kRadiansPerDegree);
        sun.cosDeclination = std::cos(SunDec * kRadiansPerDegree);
    }
    if (sun.latitude != Lat || sun.longitude != Lon) {
        if (sunCache.latitude != Lat) {
            sunCache.latitude = Lat;
            sunCache.sinLatitude = std::sin(Lat * kRadiansPerDegree);
            sunCache.cosLatitude = std::cos(Lat * kRadiansPerDegree);
        }
        // In the order of LM_Sidereal_Time and SinElev, for the same bits.
        const double sidereal = 24.0 * astroGlobalFuncs.frac((sun.greenwichSidereal - -Lon / 15.0) / 24.0);
        double H = (sidereal - sun.rightAscension) * 15.0;
        if (H < 0.0) {
            H += 360.0;
        }
        sun.latitude = Lat;
        sun.longitude = Lon;
        sun.sinAltitude = sunCache.cosLatitude * sun.cosDeclination * std::cos(H * kRadiansPerDegree) +
                          sunCache.sinLatitude * sun.sinDeclination;
    }
    SunDec = sun.declination;
    SunRA = sun.rightAscension;
    EclipticLongitude = sun.eclipticLongitude;
    return sun;
}

DaySun FastAstro::sunAtMidnight(double julianDay) {
    DaySun& known = sunCache.days[slot(std::floor(julianDay), sunCache.days.size())];
    if (!sunCache.enabled || known.julianDay != julianDay) {
        SunDecRAAccurate(julianDay);
        known = {julianDay, SunDistance, SunDec, SunRA, EquationOfTime(julianDay, SunRA)};
    }
    sunCache.nearby = known;
    return known;
}

bool FastAstro::recallRiseSet(std::int32_t year, std::int32_t month, std::int32_t day, std::int32_t zone) {
    if (!sunCache.enabled) {
        return false;
    }
    for (const RiseSetDay& known : sunCache.events) {
        if (known.latitude != Lat || known.longitude != Lon || known.day != day || known.month != month ||
            known.year != year || known.zone != zone) {
            continue;
        }
        UTRise = known.rise;
        UTSet = known.set;
        Rise = true;
        Sett = true;
        SunDec = known.declination;
        SunRA = known.rightAscension;
        EclipticLongitude = known.eclipticLongitude;
        YE = known.quadratic[0];
        Zero1 = known.quadratic[1];
        Zero2 = known.quadratic[2];
        DX = known.quadratic[3];
        return true;
    }
    return false;
}

void FastAstro::rememberRiseSet(std::int32_t year, std::int32_t month, std::int32_t day, std::int32_t zone) {
    sunCache.events[sunCache.nextEvent] = {day,
                                           month,
                                           year,
                                           zone,
                                           Lat,
                                           Lon,
                                           UTRise,
                                           UTSet,
                                           SunDec,
                                           SunRA,
                                           EclipticLongitude,
                                           {YE, Zero1, Zero2, DX}};
    sunCache.nextEvent = (sunCache.nextEvent + 1) % sunCache.events.size();
}

double FastAstro::hourAngleNear(const DaySun& sun, double julianDay) const {
    constexpr double kAscensionPerDay = 24.0 / 365.2422; // mean motion of the Sun [h]
    const double ascension = sun.rightAscension + (julianDay - sun.julianDay) * kAscensionPerDay;
    return (GM_Sidereal_Time(julianDay) + Lon / 15.0 - ascension) * 15.0;
}

bool FastAstro::searchLikelyHours(std::int32_t year, std::int32_t month, std::int32_t day,
                                  std::int32_t zone) {
    const double firstHour = astroGlobalFuncs.CalculateJulianDay(year, month, day, -zone, 0, 0);
    if (!inModelledEpoch(firstHour) || !(std::fabs(Lat) <= 360.0) || !(std::fabs(Lon) <= 720.0)) {
        return false;
    }
    if (!(std::fabs(firstHour + 0.5 - sunCache.nearby.julianDay) < 1.1)) {
        sunAtHour(firstHour);
        sunCache.nearby = {firstHour, 0.0, SunDec, SunRA, 0.0};
    }
    const DaySun& sun = sunCache.nearby;
    const LikelyHours likely(DayArc(Lat * kRadiansPerDegree, sun.declination * kRadiansPerDegree),
                             hourAngleNear(sun, firstHour) * kRadiansPerDegree);
    for (std::int32_t hour = 1; hour < 24 && !(Rise && Sett); ++hour) {
        if (likely.mayHoldEvent(static_cast<std::size_t>(hour))) {
            RiseSet(day, month, year, hour - zone);
        }
    }
    return Rise && Sett;
}

} // namespace zorel
