// SPDX-License-Identifier: Apache-2.0
#include "engine/DeltaT.h"

#include <array>
#include <cstddef>

namespace zorel {

namespace {

/// One polynomial in t = year - origin, lowest power first, for years below `until`.
struct Span {
    double until;
    double origin;
    std::array<double, 8> coefficients;
};

constexpr double kFirstYear = 1600.0;
constexpr std::array<Span, 11> kSpans{{
    {1700.0, 1600.0, {120.0, -0.9808, -0.01532, 1.0 / 7129.0}},
    {1800.0, 1700.0, {8.83, 0.1603, -0.0059285, 0.00013336, -1.0 / 1174000.0}},
    {1860.0,
     1800.0,
     {13.72, -0.332447, 0.0068612, 0.0041116, -0.00037436, 0.0000121272, -0.0000001699, 0.000000000875}},
    {1900.0, 1860.0, {7.62, 0.5737, -0.251754, 0.01680668, -0.0004473624, 1.0 / 233174.0}},
    {1920.0, 1900.0, {-2.79, 1.494119, -0.0598939, 0.0061966, -0.000197}},
    {1941.0, 1920.0, {21.20, 0.84493, -0.076100, 0.0020936}},
    {1961.0, 1950.0, {29.07, 0.407, -1.0 / 233.0, 1.0 / 2547.0}},
    {1986.0, 1975.0, {45.45, 1.067, -1.0 / 260.0, -1.0 / 718.0}},
    {2005.0, 2000.0, {63.86, 0.3345, -0.060374, 0.0017275, 0.000651814, 0.00002373599}},
    {2050.0, 2000.0, {62.92, 0.32217, 0.005589}},
    // The parabola below and -0.5628 (2150 - year), multiplied out.
    {2150.0, 1820.0, {-205.724, 0.5628, 0.0032}},
}};

double polynomial(const Span& span, double year) {
    const double t = year - span.origin;
    double sum = 0.0;
    for (std::size_t i = span.coefficients.size(); i-- > 0;) {
        sum = sum * t + span.coefficients[i];
    }
    return sum;
}

} // namespace

double DeltaT(double julianDay) {
    const double year = 2000.0 + (julianDay - 2451545.0) / 365.25;
    if (year >= kFirstYear) {
        for (const Span& span : kSpans) {
            if (year < span.until) {
                return polynomial(span, year);
            }
        }
    }
    const double centuries = (year - 1820.0) / 100.0;
    return -20.0 + 32.0 * centuries * centuries;
}

} // namespace zorel
