// SPDX-License-Identifier: Apache-2.0
#include "almanac/Magnetic.h"

#include "almanac/Degrees.h"
#include "almanac/Wmm.h"

#include "engine/MagneticVariation.h"

#include <cmath>

namespace zorel::almanac {

namespace {

constexpr double kNoDirection = 0.0001; // [nT]

std::optional<Magnetic> byWmm(double latitude, double longitude, double height, Date date) {
    const FieldVector field = wmm2025(decimalYear(date), latitude, longitude, height / 1000.0);
    const double horizontal = field.horizontal();
    if (!std::isfinite(horizontal) || horizontal < kNoDirection) {
        return std::nullopt;
    }
    return Magnetic{.declination = field.declination(),
                    .uncertainty = wmmUncertainty(horizontal),
                    .horizontalIntensity = horizontal,
                    .model = "WMM2025",
                    .epoch = kWmmEpoch,
                    .validFrom = decimalYear(kWmmFrom),
                    .validTo = decimalYear(addDays(kWmmTo, 1)),
                    .extrapolated = false};
}

std::optional<Magnetic> byIgrf(double latitude, double longitude, double height, Date date) {
    MagneticVariation engine;
    const DateTimeRecord day = engineDate(date);
    const auto found = engine.Declination(day.year, day.month, day.day, latitude, longitude, height);
    if (!found) {
        return std::nullopt;
    }
    return Magnetic{.declination = found->declination,
                    .uncertainty = std::nullopt,
                    .horizontalIntensity = engine.iHorizontalIntensity,
                    .model = found->model,
                    .epoch = found->epoch,
                    .validFrom = found->validFrom,
                    .validTo = found->validTo,
                    .extrapolated = found->extrapolated};
}

} // namespace

std::optional<Magnetic> magneticAt(double latitude, double longitude, double height, Date date) {
    if (!isInRange(date) || !(std::fabs(latitude) <= 90.0)) {
        return std::nullopt;
    }
    const bool wmm = date >= kWmmFrom && date <= kWmmTo;
    return wmm ? byWmm(latitude, longitude, height, date) : byIgrf(latitude, longitude, height, date);
}

double magneticBearing(double trueBearing, double declination) {
    return bearingOf(trueBearing - declination);
}

} // namespace zorel::almanac
