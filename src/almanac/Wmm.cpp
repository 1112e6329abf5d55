// SPDX-License-Identifier: Apache-2.0
#include "almanac/Wmm.h"

#include "almanac/Degrees.h"
#include "almanac/series/Wmm2025.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstddef>

namespace zorel::almanac {

namespace {

constexpr std::size_t kDegree = 12;
constexpr std::size_t kSize = kDegree + 1;
constexpr double kReferenceRadius = 6371.2; // [km]

static_assert(kWmm2025.size() == kDegree * (kDegree + 3) / 2);

/// A point as seen from the Earth's centre, and the tilt of its plumb line.
struct Geocentric {
    double sine, cosine;     // of the geocentric latitude
    double ratio;            // reference radius / distance from the centre
    double sinTilt, cosTilt; // geocentric minus geodetic latitude
};

Geocentric geocentric(double latitude, double height) {
    constexpr double equatorialRadius = 6378.137; // WGS 84 [km]
    constexpr double flattening = 1.0 / 298.257223563;
    constexpr double e2 = flattening * (2.0 - flattening);
    const double sine = std::sin(latitude * kRadian);
    const double cosine = std::cos(latitude * kRadian);
    const double normal = equatorialRadius / std::sqrt(1.0 - e2 * sine * sine);
    const double axial = (normal * (1.0 - e2) + height) * sine;
    const double equatorial = (normal + height) * cosine;
    const double r = std::hypot(axial, equatorial);
    const double s = axial / r;
    const double c = equatorial / r;
    return {s, c, kReferenceRadius / r, s * cosine - c * sine, c * cosine + s * sine};
}

using Table = std::array<std::array<double, kSize>, kSize>;

/// Schmidt semi-normalised Legendre functions of the sine of the latitude; those of order 1 and more divided
/// by its cosine, so that nothing is divided by zero at a pole.
Table legendre(double sine, double cosine) {
    Table p{};
    p[0][0] = 1.0;
    p[1][0] = sine;
    p[1][1] = 1.0;
    for (std::size_t n = 2; n <= kDegree; ++n) {
        const double fn = static_cast<double>(n);
        p[n][n] = cosine * std::sqrt(1.0 - 0.5 / fn) * p[n - 1][n - 1];
        for (std::size_t m = 0; m < n; ++m) {
            const double fm = static_cast<double>(m);
            const double below =
                m + 2 <= n ? std::sqrt((fn - 1.0) * (fn - 1.0) - fm * fm) * p[n - 2][m] : 0.0;
            p[n][m] = ((2.0 * fn - 1.0) * sine * p[n - 1][m] - below) / std::sqrt(fn * fn - fm * fm);
        }
    }
    return p;
}

/// Derivative of the undivided function of degree n and order m by the latitude.
double slope(const Table& p, std::size_t n, std::size_t m, const Geocentric& at) {
    const double fn = static_cast<double>(n);
    const double fm = static_cast<double>(m);
    if (m == 0) {
        return std::sqrt(0.5 * fn * (fn + 1.0)) * at.cosine * p[n][1];
    }
    return std::sqrt(fn * fn - fm * fm) * p[n - 1][m] - fn * at.sine * p[n][m];
}

/// The part of one pair of coefficients, in the geocentric frame, without the radial factor.
FieldVector term(const Table& p, std::size_t n, std::size_t m, double along, double across,
                 const Geocentric& at) {
    const double function = m == 0 ? p[n][0] : at.cosine * p[n][m];
    return {-along * slope(p, n, m, at), across * static_cast<double>(m) * p[n][m],
            -along * static_cast<double>(n + 1) * function};
}

struct Multiples {
    std::array<double, kSize> sine{};
    std::array<double, kSize> cosine{};

    explicit Multiples(double longitude) {
        for (std::size_t m = 0; m < kSize; ++m) {
            const double angle = static_cast<double>(m) * longitude * kRadian;
            sine[m] = std::sin(angle);
            cosine[m] = std::cos(angle);
        }
    }
};

FieldVector synthesis(double years, double longitude, const Geocentric& at) {
    const Table p = legendre(at.sine, at.cosine);
    const Multiples multiple(longitude);
    FieldVector sum;
    for (const GaussCoefficients& row : kWmm2025) {
        const auto n = static_cast<std::size_t>(row.n);
        const auto m = static_cast<std::size_t>(row.m);
        const double radial = std::pow(at.ratio, row.n + 2);
        const double g = (row.g + years * row.gRate) * radial;
        const double h = (row.h + years * row.hRate) * radial;
        const FieldVector part = term(p, n, m, g * multiple.cosine[m] + h * multiple.sine[m],
                                      g * multiple.sine[m] - h * multiple.cosine[m], at);
        sum.north += part.north;
        sum.east += part.east;
        sum.down += part.down;
    }
    return sum;
}

} // namespace

double FieldVector::horizontal() const {
    return std::hypot(north, east);
}

double FieldVector::total() const {
    return std::hypot(north, east, down);
}

double FieldVector::inclination() const {
    return std::atan2(down, horizontal()) / kRadian;
}

double FieldVector::declination() const {
    return std::atan2(east, north) / kRadian;
}

FieldVector wmm2025(double date, double latitude, double longitude, double height) {
    const Geocentric at = geocentric(latitude, height);
    const FieldVector field = synthesis(date - kWmmEpoch, longitude, at);
    return {field.north * at.cosTilt - field.down * at.sinTilt, field.east,
            field.north * at.sinTilt + field.down * at.cosTilt};
}

double decimalYear(Date date) {
    using namespace std::chrono;
    const sys_days first = date.year() / January / 1;
    const auto days = static_cast<double>((sys_days(date) - first).count());
    return static_cast<int>(date.year()) + days / (date.year().is_leap() ? 366.0 : 365.0);
}

double wmmUncertainty(double horizontal) {
    return std::min(180.0, std::hypot(0.26, 5417.0 / horizontal));
}

} // namespace zorel::almanac
