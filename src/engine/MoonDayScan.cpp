// SPDX-License-Identifier: Apache-2.0
#include "engine/MoonDayScan.h"

#include "engine/FastAstro.h"
#include "engine/Single.h"

#include <algorithm>
#include <cmath>

namespace zorel {

namespace {

constexpr double kMargin = 5e-4;      // many times the error of the curve
constexpr double kFlat = 2e-4;        // parabolas flatter than this have ill-determined roots
constexpr double kNodeDistance = 8.0; // hours between the positions
constexpr double kSiderealRate = 15.04107 * kRadiansPerDegree; // [rad/h]
// Beyond four centuries the sidereal time, whose century is single precision, moves in steps too large for
// the curve.
constexpr double kMaxDaysFromJ2000 = 4.0 * 36525.0;

struct Vector {
    double x, y, z;
};

Vector operator-(const Vector& a, const Vector& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

/// Direction of the Moon, equator of date.
Vector moonDirection(FastAstro& engine, double julianDay) {
    engine.MoonDecRA(julianDay);
    const double alpha = engine.MoonRA * 15.0 * kRadiansPerDegree;
    const double delta = engine.MoonDec * kRadiansPerDegree;
    return {std::cos(delta) * std::cos(alpha), std::cos(delta) * std::sin(alpha), std::sin(delta)};
}

/// The cubic through four equally spaced values.
struct Cubic {
    Vector value, first, second, third;

    [[nodiscard]] Vector at(double s) const {
        const double c2 = s * (s - 1.0) / 2.0;
        const double c3 = c2 * (s - 2.0) / 3.0;
        return {value.x + s * first.x + c2 * second.x + c3 * third.x,
                value.y + s * first.y + c2 * second.y + c3 * third.y,
                value.z + s * first.z + c2 * second.z + c3 * third.z};
    }
};

Cubic cubicThrough(const Vector& a, const Vector& b, const Vector& c, const Vector& d) {
    const Vector ab = b - a;
    const Vector bc = c - b;
    const Vector cd = d - c;
    return {a, ab, bc - ab, (cd - bc) - (bc - ab)};
}

/// Whether the parabola through three values at -1, 0, +1 comes near zero between them.
bool comesNearZero(double yMinus, double yZero, double yPlus) {
    const double a = (yMinus + yPlus) / 2.0 - yZero;
    const double b = (yPlus - yMinus) / 2.0;
    double lowest = std::min({yMinus, yZero, yPlus});
    double highest = std::max({yMinus, yZero, yPlus});
    if (std::abs(b) <= 2.1 * std::abs(a)) {
        const double extreme = yZero - b * b / (4.0 * a);
        lowest = std::min(lowest, extreme);
        highest = std::max(highest, extreme);
    }
    const bool clear = std::abs(a) > kFlat && (lowest > kMargin || highest < -kMargin);
    return !clear;
}

} // namespace

void MoonDayScan::prepare(FastAstro& engine, std::int32_t year, std::int32_t month, std::int32_t day,
                          std::int32_t firstHour) {
    const Key wanted{engine.Lat, engine.Lon, year, month, day, firstHour};
    if (built && key == wanted) {
        return;
    }
    key = wanted;
    built = true;
    build(engine);
}

void MoonDayScan::build(FastAstro& engine) {
    const double midnight = engine.astroGlobalFuncs.CalculateJulianDay(key.year, key.month, key.day, 0, 0, 0);
    // The calendar change of 1582, where the next day is not the next Julian day, lies beyond that distance.
    usable =
        std::abs(midnight - 2451545.0) < kMaxDaysFromJ2000 && key.firstHour >= -24 && key.firstHour <= 24;
    if (!usable) {
        return;
    }
    const double start = midnight + (key.firstHour - 1.0) / 24.0;
    constexpr double step = kNodeDistance / 24.0;
    const Vector a = moonDirection(engine, start);
    const Vector b = moonDirection(engine, start + step);
    const Vector c = moonDirection(engine, start + 2.0 * step);
    const Vector d = moonDirection(engine, start + 3.0 * step);
    const Cubic curve = cubicThrough(a, b, c, d);

    const double sinPhi = std::sin(key.latitude * kRadiansPerDegree);
    const double cosPhi = std::cos(key.latitude * kRadiansPerDegree);
    const double theta = engine.LM_Sidereal_Time(start, -key.longitude) * 15.0 * kRadiansPerDegree;
    const double cosStep = std::cos(kSiderealRate);
    const double sinStep = std::sin(kSiderealRate);
    double cosTheta = std::cos(theta);
    double sinTheta = std::sin(theta);
    double hour = 0.0;
    for (double& value : altitude) {
        const Vector moon = curve.at(hour / kNodeDistance);
        value = cosPhi * (moon.x * cosTheta + moon.y * sinTheta) + sinPhi * moon.z - kHorizon;
        const double turned = cosTheta * cosStep - sinTheta * sinStep;
        sinTheta = sinTheta * cosStep + cosTheta * sinStep;
        cosTheta = turned;
        hour += 1.0;
    }
}

bool MoonDayScan::mayHoldEvent(int index) const {
    if (!usable) {
        return true;
    }
    const auto i = static_cast<std::size_t>(index);
    return comesNearZero(altitude[i], altitude[i + 1], altitude[i + 2]);
}

} // namespace zorel
