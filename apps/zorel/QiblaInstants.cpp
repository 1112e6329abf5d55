// SPDX-License-Identifier: Apache-2.0
#include "QiblaInstants.h"

#include "engine/FastAstro.h"
#include "engine/SunAtQibla.h"

#include <cmath>

namespace zorel::cli {

namespace {
constexpr double kKaabaLatitude = 21.4225;  // [deg]
constexpr double kKaabaLongitude = 39.8262; // [deg]
constexpr double kSameSpot = 0.001;         // [deg]
constexpr double kHalfMinute = 1.0 / 120.0; // [h]
} // namespace

std::optional<double> qiblaBearing(const Place& place) {
    if (std::abs(place.latitude - kKaabaLatitude) < kSameSpot &&
        std::abs(place.longitude - kKaabaLongitude) < kSameSpot)
        return std::nullopt;
    return QiblaBearing(FastAstro().KibleAcisi(place.latitude, place.longitude));
}

std::vector<EventTime> sunAtQiblaInstants(const Place& place, Date date) {
    const double offset = static_cast<double>(place.clock.offsetOn(date).count()) / 3600.0;
    const DateTimeRecord day = engineDate(date);
    std::vector<EventTime> instants;
    for (const SunAtQiblaInstant& instant :
         SunAtQibla(place.latitude, place.longitude, offset, day.year, day.month, day.day)) {
        if (instant.visible)
            instants.push_back(eventTime(place.clock, date, instant.hour + kHalfMinute, Rounding::earlier,
                                         Precision::minutes));
    }
    return instants;
}

} // namespace zorel::cli
