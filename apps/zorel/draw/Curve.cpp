// SPDX-License-Identifier: Apache-2.0
#include "draw/Curve.h"

#include <algorithm>
#include <cmath>

namespace zorel::cli {

namespace {
constexpr double kLeap = 2.0; // [h]

CurvePiece pointsOf(const YearOfPlace& year, almanac::Prayer prayer) {
    CurvePiece points;
    for (const almanac::Day& day : year.days) {
        const almanac::DayTime& time = day[prayer];
        if (time.exists() && static_cast<int>(time.local.date.year()) == year.year) {
            const double hour = static_cast<double>(time.local.timeOfDay.count()) / 3600.0;
            points.push_back({year.indexOf(time.local.date), hour});
        }
    }
    std::ranges::stable_sort(points, {}, &CurvePoint::day);
    return points;
}

bool belongsTo(const CurvePiece& piece, const CurvePoint& point) {
    return !piece.empty() && point.day == piece.back().day + 1 &&
           std::abs(point.hour - piece.back().hour) < kLeap;
}
} // namespace

std::vector<CurvePiece> curveOf(const YearOfPlace& year, almanac::Prayer prayer) {
    // A time that comes earlier each day and passes midnight falls twice on one date: two pieces go on side
    // by side for that day.
    std::vector<CurvePiece> pieces;
    for (const CurvePoint& point : pointsOf(year, prayer)) {
        auto piece = std::find_if(pieces.rbegin(), pieces.rend(),
                                  [&](const CurvePiece& one) { return belongsTo(one, point); });
        if (piece == pieces.rend()) {
            pieces.push_back({point});
        } else {
            piece->push_back(point);
        }
    }
    return pieces;
}

} // namespace zorel::cli
