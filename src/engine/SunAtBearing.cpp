// SPDX-License-Identifier: Apache-2.0
#include "engine/SunAtBearing.h"

#include "engine/FastAstro.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace zorel {

namespace {

constexpr double kRadian = 0.017453292519943295;
constexpr double kSinVisibleAbove = -kSinRiseDepth;
constexpr double kSameInstant = 1.0 / 3600.0; // [h]
constexpr double kDegreesPerHour = 15.0;
constexpr double kSlack = 1.0; // how far beyond the span a first guess is followed [h]
constexpr int kRounds = 12;

/// Where the Sun stands.
struct SunPlace {
    double declination; // [rad]
    double hourAngle;   // [deg]
};

/// The engine's accurate position at an hour after a Julian day.
class AccurateSun {
public:
    AccurateSun(double longitude, double julianDay) : longitude_(longitude), julianDay_(julianDay) {}

    SunPlace operator()(double hour) {
        const double instant = julianDay_ + hour / 24.0;
        engine_.SunDecRAAccurate(instant);
        return {engine_.SunDec * kRadian,
                (engine_.GM_Sidereal_Time(instant) - engine_.SunRA) * 15.0 + longitude_};
    }

    static constexpr double kEnough = 1e-6; // [h]

private:
    FastAstro engine_;
    double longitude_; // [deg]
    double julianDay_;
};

/// Declination and equation of time between two midnights.
class EvenSun {
public:
    EvenSun(double longitude, const SunInfoForPray& sun)
        : longitude_(longitude), declination_(sun.declinationToday() * kRadian),
          declinationPerHour_((sun.declinationTomorrow() - sun.declinationToday()) * kRadian / 24.0),
          equation_(sun.equationOfTimeToday()),
          equationPerHour_((sun.equationOfTimeTomorrow() - sun.equationOfTimeToday()) / 24.0) {}

    SunPlace operator()(double hour) const {
        return {declination_ + declinationPerHour_ * hour,
                (hour - 12.0 + equation_ + equationPerHour_ * hour) * 15.0 + longitude_};
    }

    static constexpr double kEnough = 1e-3; // [h]; what is left then is a hundredth of it

private:
    double longitude_;          // [deg]
    double declination_;        // [rad]
    double declinationPerHour_; // [rad]
    double equation_;           // [h]
    double equationPerHour_;
};

/// The vertical circle of a place in a direction.
class Circle {
public:
    Circle(double latitude, double bearing)
        : sinLatitude_(std::sin(latitude * kRadian)), cosLatitude_(std::cos(latitude * kRadian)),
          sinBearing_(std::sin(bearing * kRadian)), cosBearing_(std::cos(bearing * kRadian)),
          middle_(std::atan2(-cosBearing_, sinBearing_ * sinLatitude_)),
          slope_(sinBearing_ * cosLatitude_ / std::hypot(cosBearing_, sinBearing_ * sinLatitude_)) {}

    /// Cosine of half the distance of the two hour angles at which a body of the Sun's declination crosses
    /// the whole circle; beyond 1 in size when it does not. From east * cos(bearing) - north * sin(bearing) =
    /// 0.
    [[nodiscard]] double cosine(const SunPlace& sun) const { return slope_ * std::tan(sun.declination); }

    /// One of the two (branch -1 and +1) [deg].
    [[nodiscard]] double hourAngle(double cosine, int branch) const {
        return (middle_ + branch * std::acos(cosine)) / kRadian;
    }

    /// The instant, when the Sun then stands on the side of the bearing and not opposite to it.
    [[nodiscard]] std::optional<SunAtBearingInstant> facing(double hour, const SunPlace& sun) const {
        const double H = sun.hourAngle * kRadian;
        const double sinDeclination = std::sin(sun.declination);
        const double cosDeclination = std::cos(sun.declination);
        const double along = cosDeclination * std::cos(H);
        const double north = cosLatitude_ * sinDeclination - sinLatitude_ * along;
        const double east = -cosDeclination * std::sin(H);
        if (!(north * cosBearing_ + east * sinBearing_ > 0.0)) {
            return std::nullopt;
        }
        const double up = sinLatitude_ * sinDeclination + cosLatitude_ * along;
        return SunAtBearingInstant{hour, std::asin(std::clamp(up, -1.0, 1.0)) / kRadian,
                                   up > kSinVisibleAbove};
    }

private:
    double sinLatitude_;
    double cosLatitude_;
    double sinBearing_;
    double cosBearing_;
    double middle_; // hour angle half way between the crossings [rad]
    double slope_;
};

double nearTurn(double degrees) {
    return degrees - 360.0 * std::floor(degrees / 360.0 + 0.5);
}

/// Follows a crossing from a first guess; nothing where the Sun does not reach the circle.
template <typename Sun>
std::optional<double> crossingNear(const Circle& circle, Sun& sun, double hour, int branch) {
    for (int round = 0; round < kRounds; ++round) {
        const SunPlace place = sun(hour);
        const double cosine = circle.cosine(place);
        if (!(std::fabs(cosine) <= 1.0)) {
            return std::nullopt;
        }
        const double change = nearTurn(circle.hourAngle(cosine, branch) - place.hourAngle) / kDegreesPerHour;
        hour += change;
        if (std::fabs(change) < Sun::kEnough) {
            break;
        }
    }
    return hour;
}

template <typename Sun>
void searchBranch(const Circle& circle, Sun& sun, double from, double to, int branch,
                  SunAtBearingInstants& found) {
    const double middle = (from + to) / 2.0;
    const SunPlace place = sun(middle);
    const double angle = circle.hourAngle(std::clamp(circle.cosine(place), -1.0, 1.0), branch);
    const double first = middle + nearTurn(angle - place.hourAngle) / kDegreesPerHour;
    const double earliest = first + 24.0 * std::ceil((from - kSlack - first) / 24.0);
    for (double guess = earliest; guess < to + kSlack; guess += 24.0) {
        const std::optional<double> hour = crossingNear(circle, sun, guess, branch);
        if (hour && *hour >= from && *hour < to) {
            if (const auto instant = circle.facing(*hour, sun(*hour))) {
                found.add(*instant);
            }
        }
    }
}

template <typename Sun>
SunAtBearingInstants instantsOf(double latitude, double bearing, Sun sun, double from, double to) {
    SunAtBearingInstants found;
    if (to - from <= kLongestBearingSpan) { // false for what is not a number
        const Circle circle(latitude, bearing);
        searchBranch(circle, sun, from, to, -1, found);
        searchBranch(circle, sun, from, to, 1, found);
    }
    return found;
}

} // namespace

void SunAtBearingInstants::add(const SunAtBearingInstant& instant) {
    std::size_t at = size_;
    while (at > 0 && instants_[at - 1].hour > instant.hour) {
        --at;
    }
    const bool known = (at > 0 && instant.hour - instants_[at - 1].hour < kSameInstant) ||
                       (at < size_ && instants_[at].hour - instant.hour < kSameInstant);
    if (known || size_ == instants_.size()) {
        return;
    }
    std::copy_backward(instants_.begin() + at, instants_.begin() + size_, instants_.begin() + size_ + 1);
    instants_[at] = instant;
    ++size_;
}

SunAtBearingInstants SunAtBearing(double latitude, double longitude, double bearing, double julianDay,
                                  double from, double to) {
    return instantsOf(latitude, bearing, AccurateSun(longitude, julianDay), from, to);
}

SunAtBearingInstants SunAtBearing(double latitude, double longitude, double bearing,
                                  const SunInfoForPray& sun, double from, double to) {
    return instantsOf(latitude, bearing, EvenSun(longitude, sun), from, to);
}

} // namespace zorel
