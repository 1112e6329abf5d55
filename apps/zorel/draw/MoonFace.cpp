// SPDX-License-Identifier: Apache-2.0
#include "draw/MoonFace.h"

#include "almanac/Degrees.h"

#include <algorithm>
#include <cmath>

namespace zorel::cli {

namespace {
constexpr int kSteps = 24; // of half of the limb
}

MoonFace::MoonFace(double lit, double side)
    : flatness_(1.0 - 2.0 * std::clamp(lit, 0.0, 1.0)), sine_(std::sin(side * almanac::kRadian)),
      cosine_(std::cos(side * almanac::kRadian)) {}

bool MoonFace::isLit(FacePoint point) const {
    const double towards = point.x * sine_ - point.y * cosine_;
    const double across = point.x * cosine_ + point.y * sine_;
    const double limb = 1.0 - across * across;
    return limb >= 0.0 && towards * towards <= limb && towards > flatness_ * std::sqrt(limb);
}

std::vector<FacePoint> MoonFace::outline() const {
    std::vector<FacePoint> points;
    const auto add = [&](double towards, double across) {
        points.push_back({towards * sine_ + across * cosine_, across * sine_ - towards * cosine_});
    };
    for (int step = -kSteps; step <= kSteps; ++step) {
        const double angle = 90.0 * almanac::kRadian * step / kSteps;
        add(std::cos(angle), std::sin(angle));
    }
    for (int step = kSteps - 1; step > -kSteps; --step) {
        const double angle = 90.0 * almanac::kRadian * step / kSteps;
        add(flatness_ * std::cos(angle), std::sin(angle));
    }
    return points;
}

} // namespace zorel::cli
