// SPDX-License-Identifier: Apache-2.0
#include "engine/SunAtQibla.h"

#include "engine/Angles.h"
#include "engine/FastAstro.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace zorel {

namespace {

constexpr double kRadian = 0.017453292519943295;
constexpr double kVisibleAbove = -50.0 / 60.0; // [deg]
constexpr double kSamePlace = 0.01;           // nearer to the Kaaba or its antipode there is no bearing [deg]
constexpr double kSameInstant = 1.0 / 3600.0; // [h]
constexpr int kRounds = 12;

/// One place and local day.
class QiblaDay {
public:
    QiblaDay(double latitude, double longitude, double timeZone, double midnight, double bearing)
        : sinLatitude_(std::sin(latitude * kRadian)), cosLatitude_(std::cos(latitude * kRadian)),
          sinBearing_(std::sin(bearing * kRadian)), cosBearing_(std::cos(bearing * kRadian)),
          longitude_(longitude), midnight_(midnight - timeZone / 24.0) {}

    /// The instant of one of the two crossings of the vertical circle (branch -1 and +1), near an hour of the
    /// day.
    std::optional<SunAtQiblaInstant> crossing(double near, int branch) {
        double hour = near;
        for (int round = 0; round < kRounds; ++round) {
            const std::optional<double> angle = hourAngleOfCircle(hour, branch);
            if (!angle) {
                return std::nullopt;
            }
            const double change = std::remainder(*angle - hourAngle_, 360.0) / 15.04107;
            hour += change;
            if (std::fabs(change) < 1e-6) {
                break;
            }
        }
        if (!(hour >= 0.0 && hour < 24.0)) {
            return std::nullopt;
        }
        return inDirection(hour);
    }

private:
    void placeSun(double hour) {
        const double julianDay = midnight_ + hour / 24.0;
        sun_.SunDecRAAccurate(julianDay);
        declination_ = sun_.SunDec * kRadian;
        hourAngle_ = intoTurn((sun_.GM_Sidereal_Time(julianDay) - sun_.SunRA) * 15.0 + longitude_);
    }

    /// Hour angle [deg] at which a body of the Sun's declination crosses the circle through zenith and qibla:
    /// a cos H + b sin H + c = 0, with the terms of east * cos(bearing) - north * sin(bearing).
    std::optional<double> hourAngleOfCircle(double hour, int branch) {
        placeSun(hour);
        const double a = sinBearing_ * sinLatitude_ * std::cos(declination_);
        const double b = -cosBearing_ * std::cos(declination_);
        const double c = -sinBearing_ * cosLatitude_ * std::sin(declination_);
        const double ratio = -c / std::hypot(a, b);
        if (!(std::fabs(ratio) <= 1.0)) {
            return std::nullopt;
        }
        return (std::atan2(b, a) + branch * std::acos(ratio)) / kRadian;
    }

    /// The instant, when the Sun then stands on the side of the qibla and not opposite to it.
    std::optional<SunAtQiblaInstant> inDirection(double hour) {
        placeSun(hour);
        const double H = hourAngle_ * kRadian;
        const double sinDeclination = std::sin(declination_);
        const double cosDeclination = std::cos(declination_);
        const double north = cosLatitude_ * sinDeclination - sinLatitude_ * cosDeclination * std::cos(H);
        const double east = -cosDeclination * std::sin(H);
        if (!(north * cosBearing_ + east * sinBearing_ > 0.0)) {
            return std::nullopt;
        }
        const double up = sinLatitude_ * sinDeclination + cosLatitude_ * cosDeclination * std::cos(H);
        const double altitude = std::asin(std::clamp(up, -1.0, 1.0)) / kRadian;
        return SunAtQiblaInstant{hour, altitude, altitude > kVisibleAbove};
    }

    double sinLatitude_;
    double cosLatitude_;
    double sinBearing_;
    double cosBearing_;
    double longitude_; // [deg]
    double midnight_;  // Julian day of the local midnight
    FastAstro sun_;
    double declination_ = 0.0; // [rad]
    double hourAngle_ = 0.0;   // [deg]
};

/// Whether the place is the Kaaba or its antipode, to a kilometre.
bool hasNoBearing(double latitude, double longitude) {
    const bool here = std::hypot(latitude - 21.4225, longitude - 39.8262) < kSamePlace;
    const bool opposite = std::hypot(latitude + 21.4225, longitude + 140.1738) < kSamePlace;
    return here || opposite;
}

} // namespace

double QiblaBearing(const QiblaRecord& qibla) {
    const double bearing = intoTurn(360.0 - qibla.q1);
    return bearing < 360.0 ? bearing : 0.0;
}

std::vector<SunAtQiblaInstant> SunAtQibla(double latitude, double longitude, double timeZone,
                                          std::int32_t year, std::int32_t month, std::int32_t day) {
    const double bearing = QiblaBearing(FastAstro().KibleAcisi(latitude, longitude));
    const double midnight = AstroGlobalFuncs().CalculateJulianDay(year, month, day, 0, 0, 0);
    const bool finite = std::isfinite(latitude) && std::isfinite(longitude) && std::isfinite(timeZone);
    if (!finite || hasNoBearing(latitude, longitude)) {
        return {};
    }
    QiblaDay place(latitude, longitude, timeZone, midnight, bearing);
    std::vector<SunAtQiblaInstant> found;
    for (const int branch : {-1, 1}) {
        for (const double near : {0.0, 6.0, 12.0, 18.0, 24.0}) {
            const std::optional<SunAtQiblaInstant> instant = place.crossing(near, branch);
            const auto isSame = [&](const SunAtQiblaInstant& other) {
                return std::fabs(other.hour - instant->hour) < kSameInstant;
            };
            if (instant && std::none_of(found.begin(), found.end(), isSame)) {
                found.push_back(*instant);
            }
        }
    }
    std::sort(found.begin(), found.end(),
              [](const SunAtQiblaInstant& a, const SunAtQiblaInstant& b) { return a.hour < b.hour; });
    return found;
}

} // namespace zorel
