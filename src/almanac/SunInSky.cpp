// SPDX-License-Identifier: Apache-2.0
#include "almanac/SunInSky.h"

#include "almanac/Degrees.h"

#include "engine/DeltaT.h"

#include <algorithm>
#include <cmath>

namespace zorel::almanac {

namespace {

constexpr double kLimbAltitude = -50.0 / 60.0;      // [deg]
constexpr double kParallaxAtOneAu = 8.794 / 3600.0; // [deg]
constexpr double kBetweenInstants = 13.0;           // [h]
constexpr double kSecondsPerDay = 86400.0;
constexpr double kEnough = 1e-6; // [h]
constexpr int kMostRounds = 80;

/// The root of a function between two arguments at which its signs differ: regula falsi, the value at an end
/// that stays being halved.
template <class Function> double root(const Function& function, double a, double b) {
    double ya = function(a);
    double yb = function(b);
    for (int round = 0; round < kMostRounds && std::fabs(b - a) > kEnough; ++round) {
        const double middle = a - ya * (b - a) / (yb - ya);
        const double y = function(middle);
        if (y == 0.0) {
            return middle;
        }
        if ((y < 0.0) == (yb < 0.0)) {
            ya /= 2.0;
        } else {
            a = b;
            ya = yb;
        }
        const bool settled = std::fabs(middle - b) < kEnough / 10.0;
        b = middle;
        yb = y;
        if (settled) {
            break;
        }
    }
    return b;
}

double julianDayAtMidnight(const AstroGlobalFuncs& calendar, Date date) {
    const DateTimeRecord record = engineDate(date);
    return calendar.CalculateJulianDay(record.year, record.month, record.day, 0, 0, 0);
}

} // namespace

double SunInSky::Parabola::operator()(double step) const {
    const double slope = (at[2] - at[0]) / 2.0;
    const double bend = (at[2] + at[0]) / 2.0 - at[1];
    return at[1] + step * (slope + step * bend);
}

SunInSky::SunInSky(FastAstro& engine, double latitude, double longitude, Date date)
    : latitude_(latitude), longitude_(longitude), sinLatitude_(std::sin(latitude * kRadian)),
      cosLatitude_(std::cos(latitude * kRadian)), middle_(12.0 - longitude / 15.0) {
    const double midnight = julianDayAtMidnight(engine.astroGlobalFuncs, date);
    const double deltaT = DeltaT(midnight) / kSecondsPerDay;
    double distance = 1.0;
    for (std::size_t i = 0; i < 3; ++i) {
        const double hour = middle_ + (static_cast<double>(i) - 1.0) * kBetweenInstants;
        const double julianDay = midnight + hour / 24.0 + deltaT;
        engine.SunDecRAAccurate(julianDay);
        declination_.at[i] = engine.SunDec;
        equation_.at[i] = engine.EquationOfTime(julianDay, engine.SunRA) / 60.0;
        distance = engine.SunDistance;
    }
    parallax_ = kParallaxAtOneAu / distance;
    transit_ = middle_ - equation_(0.0);
    transit_ = middle_ - equation_(step(transit_));
    highest_ = turningPoint(transit_);
    lowestBefore_ = turningPoint(transit_ - 12.0);
    lowestAfter_ = turningPoint(transit_ + 12.0);
}

double SunInSky::step(double hour) const {
    return (hour - middle_) / kBetweenInstants;
}

double SunInSky::declination(double hour) const {
    return declination_(step(hour));
}

double SunInSky::hourAngle(double hour) const {
    return 15.0 * (hour - 12.0 + equation_(step(hour))) + longitude_;
}

double SunInSky::sine(double hour) const {
    const double sun = declination(hour) * kRadian;
    return sinLatitude_ * std::sin(sun) + cosLatitude_ * std::cos(sun) * std::cos(hourAngle(hour) * kRadian);
}

double SunInSky::altitude(double hour) const {
    const double geocentric = std::asin(std::clamp(sine(hour), -1.0, 1.0));
    return geocentric / kRadian - parallax_ * std::cos(geocentric);
}

/// The highest or lowest point near an upper or lower transit: away from it by what the declination changes
/// meanwhile, which is seconds at middle latitudes and minutes near the poles.
double SunInSky::turningPoint(double near) const {
    constexpr double kReach = 0.5;    // [h]
    constexpr double kFarthest = 3.0; // [h]
    double hour = near;
    for (int round = 0; round < 3; ++round) {
        const double before = sine(hour - kReach);
        const double at = sine(hour);
        const double after = sine(hour + kReach);
        const double bend = before + after - 2.0 * at;
        if (bend == 0.0) {
            break;
        }
        hour += std::clamp(kReach * (before - after) / (2.0 * bend), -1.0, 1.0);
    }
    return std::clamp(hour, near - kFarthest, near + kFarthest);
}

/// @param height above what is asked for, at an hour; rises through the morning and falls after.
template <class Height> SunCrossing SunInSky::find(HalfDay half, const Height& height) const {
    const double low = half == HalfDay::morning ? lowestBefore_ : lowestAfter_;
    if (height(low) >= 0.0) {
        return {low, false};
    }
    if (height(highest_) <= 0.0) {
        return {highest_, false};
    }
    return {root(height, low, highest_), true};
}

SunCrossing SunInSky::centre(double target, HalfDay half) const {
    return find(half, [&](double hour) { return altitude(hour) - target; });
}

SunCrossing SunInSky::limb(HalfDay half) const {
    const double target = std::sin(kLimbAltitude * kRadian);
    return find(half, [&](double hour) { return sine(hour) - target; });
}

SunCrossing SunInSky::shadow(int staffs) const {
    if (sine(highest_) <= 0.0) {
        return {highest_, false};
    }
    return find(HalfDay::evening, [&](double hour) {
        const double ofNoon = std::tan(std::fabs(latitude_ - declination(hour)) * kRadian);
        return std::asin(sine(hour)) - std::atan(1.0 / (staffs + ofNoon));
    });
}

bool SunInSky::risesAndSets() const {
    return limb(HalfDay::morning).occurs && limb(HalfDay::evening).occurs;
}

} // namespace zorel::almanac
