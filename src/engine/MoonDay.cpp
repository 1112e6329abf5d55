// SPDX-License-Identifier: Apache-2.0
#include "engine/MoonDay.h"

#include "engine/DeltaT.h"
#include "engine/FastAstro.h"
#include "engine/Single.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <initializer_list>

namespace zorel {

namespace {

constexpr double kSecondsPerDay = 86400.0;
constexpr double kSecond = 1.0 / 3600.0;   // [h]
constexpr double kWidestOffset = 23.0;     // [h]
constexpr double kFurthestDay = 3652500.0; // from J2000, ten thousand years
constexpr double kHoursOfDay = 24.0;
constexpr double kLongestSpan = 49.0; // [h]
constexpr double kFurthestSpan = 1e7; // [Julian day]

/// A body as seen from one place: the two things that a search for its events needs.
class Body {
public:
    explicit Body(FastAstro& engine) : engine_(engine) {}
    virtual ~Body() = default;
    Body(const Body&) = delete;
    Body& operator=(const Body&) = delete;

    /// Sine of the altitude above that of rise and set.
    virtual double altitude(double julianDay) = 0;
    /// Local hour angle [h] in [-12, 12).
    virtual double hourAngle(double julianDay) = 0;

protected:
    FastAstro& engine_;

    [[nodiscard]] double hourAngleOf(double julianDay, double rightAscension) const {
        const double angle = engine_.LM_Sidereal_Time(julianDay, -engine_.Lon) - rightAscension;
        return angle - 24.0 * std::floor(angle / 24.0 + 0.5);
    }
};

class MoonBody : public Body {
public:
    using Body::Body;

    double altitude(double julianDay) override {
        locate(julianDay);
        // Parallax less semi-diameter and refraction: 0.7275 horizontal parallax - 34 arc minutes.
        const double parallax = std::asin(6378.137 / engine_.MoonDist);
        const double horizon = 0.7275 * parallax - 34.0 / 60.0 * kRadiansPerDegree;
        return engine_.SinElev(julianDay, engine_.Lat, -engine_.Lon, engine_.MoonDec, engine_.MoonRA) -
               std::sin(horizon);
    }

    double hourAngle(double julianDay) override {
        locate(julianDay);
        return hourAngleOf(julianDay, engine_.MoonRA);
    }

private:
    void locate(double julianDay) {
        engine_.MoonDecRAAccurate(julianDay + DeltaT(julianDay) / kSecondsPerDay);
    }
};

class SunBody : public Body {
public:
    using Body::Body;

    double altitude(double julianDay) override {
        engine_.SunDecRA(julianDay);
        return engine_.SinElev(julianDay, engine_.Lat, -engine_.Lon, engine_.SunDec, engine_.SunRA) -
               std::sin(-50.0 / 60.0 * kRadiansPerDegree);
    }

    double hourAngle(double julianDay) override {
        engine_.SunDecRA(julianDay);
        return hourAngleOf(julianDay, engine_.SunRA);
    }
};

/// Finds the events of a body in a span of time.
class SpanSearch {
public:
    SpanSearch(Body& body, FastAstro& engine, double julianDay, double hours)
        : body_(body), engine_(engine), start_(julianDay), hours_(hours) {}

    DayEvents run() {
        DayEvents events;
        double yBefore = body_.altitude(julianDay(-1.0));
        double y = body_.altitude(julianDay(0.0));
        for (int hour = 0; hour <= hours_; ++hour) {
            const double yAfter = body_.altitude(julianDay(hour + 1.0));
            searchHour(hour, yBefore, y, yAfter, events);
            yBefore = y;
            y = yAfter;
        }
        events.transit = transit();
        return events;
    }

private:
    [[nodiscard]] double julianDay(double hour) const { return start_ + hour / 24.0; }

    /// The events within an hour of a full hour: the engine's parabola through three hours.
    void searchHour(double hour, double yBefore, double y, double yAfter, DayEvents& events) {
        const int roots = engine_.Quad(yBefore, yAfter, y);
        const double first = engine_.Zero1;
        const double second = engine_.Zero2;
        const bool upward = roots == 1 ? yBefore < 0.0 : engine_.YE > 0.0; // at the first root
        if (roots >= 1) {
            keep(hour + first, upward, events);
        }
        if (roots == 2) {
            keep(hour + second, !upward, events);
        }
    }

    void keep(double hour, bool rising, DayEvents& events) {
        std::optional<double>& event = rising ? events.rise : events.set;
        const double found = refined(hour, rising ? 1.0 : -1.0);
        if (!event && found >= 0.0 && found < hours_) {
            event = found;
        }
    }

    /// The crossing of the horizon near an hour, by secant steps; the hour itself where they do not
    /// converge.
    double refined(double start, double direction) {
        constexpr int maxSteps = 12;
        constexpr double furthest = 1.0; // [h]
        double before = start - 0.05;
        double yBefore = body_.altitude(julianDay(before));
        double now = start;
        for (int i = 0; i < maxSteps; ++i) {
            const double y = body_.altitude(julianDay(now));
            const double slope = (y - yBefore) / (now - before);
            const double next = now - y / slope;
            if (!(slope * direction > 0.0) || !(std::fabs(next - start) <= furthest)) {
                return start;
            }
            if (std::fabs(next - now) < 0.1 * kSecond) {
                return next;
            }
            before = now;
            yBefore = y;
            now = next;
        }
        return start;
    }

    /// The culmination: from either neighbourhood of an hour angle of 0 it is reached in a few
    /// steps.
    std::optional<double> transit() {
        for (const double start : {0.0, hours_ / 2.0, hours_}) {
            double hour = start;
            for (int i = 0; i < 6; ++i) {
                hour -= body_.hourAngle(julianDay(hour)) * 1.02; // between the Sun's and the Moon's pace
            }
            if (hour >= 0.0 && hour < hours_) {
                return hour;
            }
        }
        return std::nullopt;
    }

    Body& body_;
    FastAstro& engine_;
    double start_; // [Julian day]
    double hours_;
};

bool usable(const Observer& observer, const DateTimeRecord& date) {
    constexpr std::int32_t furthestYear = 10000;
    return std::fabs(observer.latitude) <= 90.0 && std::fabs(observer.longitude) <= 360.0 &&
           std::fabs(observer.utcOffset) <= kWidestOffset && date.year >= -furthestYear &&
           date.year <= furthestYear && date.month >= 1 && date.month <= 12 && date.day >= 1 &&
           date.day <= 31;
}

template <typename BodyOfSky>
DayEvents eventsOfSpan(double latitude, double longitude, double julianDay, double hours) {
    if (!(std::fabs(latitude) <= 90.0 && std::fabs(longitude) <= 360.0 && hours >= 0.0 &&
          hours <= kLongestSpan && std::fabs(julianDay) <= kFurthestSpan)) {
        return {};
    }
    FastAstro engine;
    engine.SetLatLon(latitude, longitude);
    BodyOfSky body(engine);
    return SpanSearch(body, engine, julianDay, hours).run();
}

/// Where a local day begins [Julian day of universal time].
double beginningOf(const Observer& observer, const DateTimeRecord& date) {
    return AstroGlobalFuncs().CalculateJulianDay(date.year, date.month, date.day, 0, 0, 0) -
           observer.utcOffset / 24.0;
}

/// A phase of lunation k, counted from the new moon of 6 January 2000 [Julian day of universal time].
double phaseOfLunation(const FastAstro& engine, double k, PrincipalPhase::Kind kind) {
    constexpr double epochFraction = 0.09765; // [day] what the engine's epoch leaves out
    // A quarter of a lunation away from zero, so that the engine truncates to k.
    const double year = 2000.0 + (k < 0.0 ? k - 0.25 : k + 0.25) / single(12.3685);
    const double uniform = engine.MoonPhaze(year, kind) + epochFraction;
    return uniform - DeltaT(uniform) / kSecondsPerDay;
}

} // namespace

DayEvents MoonEventsOfSpan(double latitude, double longitude, double julianDay, double hours) {
    return eventsOfSpan<MoonBody>(latitude, longitude, julianDay, hours);
}

DayEvents SunEventsOfSpan(double latitude, double longitude, double julianDay, double hours) {
    return eventsOfSpan<SunBody>(latitude, longitude, julianDay, hours);
}

DayEvents MoonEventsOfDay(const Observer& observer, const DateTimeRecord& date) {
    return usable(observer, date) ? MoonEventsOfSpan(observer.latitude, observer.longitude,
                                                     beginningOf(observer, date), kHoursOfDay)
                                  : DayEvents{};
}

DayEvents SunEventsOfDay(const Observer& observer, const DateTimeRecord& date) {
    return usable(observer, date) ? SunEventsOfSpan(observer.latitude, observer.longitude,
                                                    beginningOf(observer, date), kHoursOfDay)
                                  : DayEvents{};
}

std::vector<PrincipalPhase> NextPhases(double julianDay, int count) {
    std::vector<PrincipalPhase> phases;
    if (!(std::fabs(julianDay - 2451545.0) <= kFurthestDay)) {
        return phases;
    }
    const auto wanted = static_cast<std::size_t>(std::clamp(count, 0, 1000));
    const FastAstro engine;
    for (double k = std::floor((julianDay - 2451550.0) / 29.530588853) - 2.0; phases.size() < wanted;
         k += 1.0) {
        for (const PrincipalPhase::Kind kind : {PrincipalPhase::newMoon, PrincipalPhase::firstQuarter,
                                                PrincipalPhase::fullMoon, PrincipalPhase::lastQuarter}) {
            const double instant = phaseOfLunation(engine, k, kind);
            if (instant >= julianDay && phases.size() < wanted) {
                phases.push_back({kind, instant});
            }
        }
    }
    return phases;
}

} // namespace zorel
