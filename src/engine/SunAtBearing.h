// SPDX-License-Identifier: Apache-2.0
/// @file
/// When the Sun stands in a direction.
#pragma once

#include "engine/Api.h"
#include "engine/Records.h"

#include <array>
#include <cstddef>

namespace zorel {

/// An instant at which the Sun's azimuth equals a bearing.
struct SunAtBearingInstant {
    double hour = 0.0;     ///< on the scale of the span that was searched
    double altitude = 0.0; ///< of the Sun's centre, without refraction [deg]
    bool visible = false;  ///< the Sun is above the horizon (its centre above -50', as for rise and set)
};

/// Up to eight instants in order: what fits into the longest span.
class SunAtBearingInstants {
public:
    [[nodiscard]] const SunAtBearingInstant* begin() const { return instants_.data(); }
    [[nodiscard]] const SunAtBearingInstant* end() const { return instants_.data() + size_; }
    [[nodiscard]] std::size_t size() const { return size_; }
    [[nodiscard]] bool empty() const { return size_ == 0; }
    [[nodiscard]] const SunAtBearingInstant& operator[](std::size_t i) const { return instants_[i]; }

    /// Put in its place; not when it is full or an instant within a second is there (two crossings that are
    /// one).
    void add(const SunAtBearingInstant& instant);

private:
    std::array<SunAtBearingInstant, 8> instants_{};
    std::size_t size_ = 0;
};

/// Longest span that is searched [h].
inline constexpr double kLongestBearingSpan = 49.0;

/// The instants within a span of universal time, in order: of a day none, one or two, seldom more (a day can
/// begin and end with one).
///
/// Solves the vertical circle of the bearing for the Sun's hour angle; right in both hemispheres, in the
/// tropics and near the poles. Within 20 s of the truth where the Sun crosses the circle at an angle, 1800 to
/// 2200; neither delta-T nor the Sun's parallax is modelled. Crossings that only graze the circle may be
/// missed. Nothing for a span that is too long or numbers that are not finite.
/// @param latitude [deg]. @param longitude [deg] east positive. @param bearing true, clockwise from north
/// [deg]. @param julianDay of universal time, where the hours are counted from. @param from, to [h]; `to`
/// itself lies outside.
[[nodiscard]] ZOREL_API SunAtBearingInstants SunAtBearing(double latitude, double longitude, double bearing,
                                                          double julianDay, double from, double to);

/// The same, within a second of it but for 20 s where the Sun nearly grazes the circle, in a tenth of the
/// time: declination and equation of time go evenly from 0 h of universal time of a date to the next, and on
/// at both ends.
/// @param sun of the date (SunInformationForPray). @param from, to universal time of the date [h], -26 to 50.
[[nodiscard]] ZOREL_API SunAtBearingInstants SunAtBearing(double latitude, double longitude, double bearing,
                                                          const SunInfoForPray& sun, double from, double to);

} // namespace zorel
