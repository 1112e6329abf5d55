// SPDX-License-Identifier: Apache-2.0
#include "engine/MagneticVariation.h"

#include "engine/Single.h"
#include "engine/series/Igrf11.h"

#include <cmath>
#include <cstddef>

namespace zorel {

namespace {

constexpr double kEpoch = 2010.0;
constexpr int kMainDegree = 13;
constexpr int kSecularDegree = 8;
constexpr double kSmall = 0.0001; // [nT] a field below gives no direction

constexpr int termsOfDegree(int degree) {
    return degree * (degree + 2);
}

static_assert(kIgrf11.size() == MagneticVariation::kCoefficients && termsOfDegree(kMainDegree) == 195);

/// Where a point lies in the sphere the harmonics are for, and how its vertical is tilted.
struct GeocentricPlace {
    double sinLatitude, cosLatitude;
    double ratio;            // reference radius / distance from the centre
    double sinTilt, cosTilt; // between the geodetic and the geocentric vertical
};

GeocentricPlace geocentricPlace(int kind, double latitude, double elevation) {
    constexpr double referenceRadius = 6371.2; // [km]
    constexpr double a2 = 40680924.0;          // [km^2]
    constexpr double b2 = 40408588.0;
    const double sine = std::sin(latitude * kRadiansPerDegree);
    const double cosine = std::cos(latitude * kRadiansPerDegree);
    if (kind != 1) {
        return {sine, cosine, referenceRadius / elevation, 0.0, 1.0};
    }
    const double a2cos2 = a2 * cosine * cosine;
    const double b2sin2 = b2 * sine * sine;
    const double sum = a2cos2 + b2sin2;
    const double root = std::sqrt(sum);
    const double r = std::sqrt(elevation * (elevation + 2.0 * root) + (a2 * a2cos2 + b2 * b2sin2) / sum);
    const double cosTilt = (elevation + root) / r;
    const double sinTilt = (a2 - b2) / root * sine * cosine / r;
    return {sine * cosTilt - cosine * sinTilt, cosine * cosTilt + sine * sinTilt, referenceRadius / r,
            sinTilt, cosTilt};
}

constexpr int kSize = kMainDegree + 1;

/// Sines and cosines of the multiples of the longitude.
struct Multiples {
    std::array<double, kSize> sine{};
    std::array<double, kSize> cosine{};

    explicit Multiples(double longitude) {
        cosine[0] = 1.0;
        sine[1] = std::sin(longitude * kRadiansPerDegree);
        cosine[1] = std::cos(longitude * kRadiansPerDegree);
        for (std::size_t m = 2; m < kSize; ++m) {
            sine[m] = sine[m - 1] * cosine[1] + cosine[m - 1] * sine[1];
            cosine[m] = cosine[m - 1] * cosine[1] - sine[m - 1] * sine[1];
        }
    }
};

/// Schmidt quasi-normalised Legendre functions times (n + 1), and their derivatives by latitude with the sign
/// of the northward component.
struct Legendre {
    using Table = std::array<std::array<double, kSize>, kSize>;
    Table p{};
    Table q{};

    Legendre(double sine, double cosine, int degree) {
        seed(sine, cosine);
        for (int n = 3; n <= degree; ++n) {
            for (int m = 0; m < n; ++m) {
                stepDegree(static_cast<std::size_t>(n), static_cast<std::size_t>(m), sine, cosine);
            }
            stepDiagonal(static_cast<std::size_t>(n), sine, cosine);
        }
    }

private:
    void seed(double sine, double cosine) {
        const double root3 = std::sqrt(3.0);
        p[1][0] = 2.0 * sine;
        p[1][1] = 2.0 * cosine;
        p[2][0] = 4.5 * sine * sine - 1.5;
        p[2][1] = std::sqrt(27.0) * cosine * sine;
        q[1][0] = -cosine;
        q[1][1] = sine;
        q[2][0] = -3.0 * cosine * sine;
        q[2][1] = root3 * (sine * sine - cosine * cosine);
        stepDiagonal(2, sine, cosine);
    }

    /// Order n from order n - 1.
    void stepDiagonal(std::size_t n, double sine, double cosine) {
        const double fn = static_cast<double>(n);
        const double root = std::sqrt(1.0 - 0.5 / fn);
        p[n][n] = (1.0 + 1.0 / fn) * root * cosine * p[n - 1][n - 1];
        q[n][n] = root * (cosine * q[n - 1][n - 1] + sine / fn * p[n - 1][n - 1]);
    }

    /// Degree n from the two below, same order.
    void stepDegree(std::size_t n, std::size_t m, double sine, double cosine) {
        const double fn = static_cast<double>(n);
        const double fm = static_cast<double>(m);
        const double root = std::sqrt(fn * fn - fm * fm);
        const double below2 = std::sqrt((fn - 1.0) * (fn - 1.0) - fm * fm) / root;
        const double below1 = (2.0 * fn - 1.0) / root;
        p[n][m] = (fn + 1.0) * (below1 * sine / fn * p[n - 1][m] - below2 / (fn - 1.0) * p[n - 2][m]);
        q[n][m] = below1 * (sine * q[n - 1][m] - cosine / fn * p[n - 1][m]) - below2 * q[n - 2][m];
    }
};

/// North, east and down in the geocentric frame [nT].
struct Components {
    double x = 0.0, y = 0.0, z = 0.0;
};

/// Adds one term; `g` and `h` already carry the radial factor.
void addTerm(Components& sum, const Legendre& functions, std::size_t n, std::size_t m, double g, double h,
             const Multiples& multiples, const GeocentricPlace& place) {
    const double p = functions.p[n][m];
    const double q = functions.q[n][m];
    const double along = g * multiples.cosine[m] + h * multiples.sine[m];
    const double across = g * multiples.sine[m] - h * multiples.cosine[m];
    sum.x += along * q;
    sum.z -= along * p;
    if (place.cosLatitude > 0.0) {
        sum.y += across * static_cast<double>(m) * p / (static_cast<double>(n + 1) * place.cosLatitude);
    } else {
        sum.y += across * q * place.sinLatitude;
    }
}

Components synthesis(const MagneticVariation::Coefficients& coefficients, int degree, double longitude,
                     const GeocentricPlace& place) {
    const Multiples multiples(longitude);
    const Legendre functions(place.sinLatitude, place.cosLatitude, degree);
    Components sum;
    double radial = place.ratio * place.ratio;
    std::size_t l = 0;
    for (std::size_t n = 1; n <= static_cast<std::size_t>(degree); ++n) {
        radial *= place.ratio;
        addTerm(sum, functions, n, 0, radial * coefficients[l++], 0.0, multiples, place);
        for (std::size_t m = 1; m <= n; ++m) {
            addTerm(sum, functions, n, m, radial * coefficients[l], radial * coefficients[l + 1], multiples,
                    place);
            l += 2;
        }
    }
    return sum;
}

double awayFromPole(double latitude) {
    if (90.0 - latitude < 0.001) {
        return 89.999;
    }
    return 90.0 + latitude < 0.001 ? -89.999 : latitude;
}

int limitedDegree(int degree) {
    return degree < 0 ? 0 : (degree > kMainDegree ? kMainDegree : degree);
}

} // namespace

double MagneticVariation::Julday(std::int32_t day, std::int32_t month, std::int32_t year) const {
    constexpr std::array<int, 12> firstOfMonth{1, 32, 60, 91, 121, 152, 182, 213, 244, 274, 305, 335};
    const std::int32_t bounded = month < 1 ? 1 : (month > 12 ? 12 : month);
    const bool leap = year != 1900 && year != 2100 && year % 4 > 0 && month > 2;
    const double dayOfYear = static_cast<double>(firstOfMonth[static_cast<std::size_t>(bounded - 1)]) + day +
                             (leap ? 1.0 : 0.0) - 1.0;
    return year + dayOfYear / (leap ? 366.0 : 365.0);
}

double MagneticVariation::DegreesToDecimal(std::int32_t degrees, std::int32_t minutes,
                                           std::int32_t seconds) const {
    const double m = static_cast<double>(static_cast<float>(minutes) / 60.0F);
    const double s = static_cast<double>(static_cast<float>(seconds) / 3600.0F);
    const double magnitude = std::fabs(s) + std::fabs(m) + std::fabs(static_cast<double>(degrees));
    const bool negative = degrees < 0 || (degrees == 0 && (m < 0.0 || (m == 0.0 && s < 0.0)));
    return negative ? -magnitude : magnitude;
}

int MagneticVariation::ExtraPSH(double date, double epoch, int mainDegree, int secularDegree, int set) {
    Coefficients& out = set == kDateSet ? gha : ghb;
    const double dt = date - epoch;
    const int main = limitedDegree(mainDegree);
    const int secular = limitedDegree(secularDegree);
    const std::size_t mainTerms = static_cast<std::size_t>(termsOfDegree(main));
    const std::size_t secularTerms = static_cast<std::size_t>(termsOfDegree(secular));
    const std::size_t common = main < secular ? mainTerms : secularTerms;
    for (std::size_t i = 0; i < common; ++i) {
        out[i] = kIgrf11[i].main + dt * kIgrf11[i].secular;
    }
    for (std::size_t i = common; i < mainTerms; ++i) { // degrees without secular variation
        out[i] = kIgrf11[i].main;
    }
    for (std::size_t i = common; i < secularTerms; ++i) { // degrees that are nothing but change
        out[i] = dt * kIgrf11[i].secular;
    }
    return main > secular ? main : secular;
}

void MagneticVariation::SHVAL3(int kind, double latitude, double longitude, double elevation, int degree,
                               int set) {
    const GeocentricPlace place = geocentricPlace(kind, awayFromPole(latitude), elevation);
    const bool date = set == kDateSet;
    const Components field = synthesis(date ? gha : ghb, limitedDegree(degree), longitude, place);
    (date ? iNorthwardComp : iNorthwardCompTemp) = field.x * place.cosTilt + field.z * place.sinTilt;
    (date ? iEastwardComp : iEastwardCompTemp) = field.y;
    (date ? iVerticalDownwardComp : iVerticalDownwardCompTemp) =
        field.z * place.cosTilt - field.x * place.sinTilt;
}

void MagneticVariation::DIHF(int set) {
    const bool date = set == kDateSet;
    const double X = date ? iNorthwardComp : iNorthwardCompTemp;
    const double Y = date ? iEastwardComp : iEastwardCompTemp;
    const double Z = date ? iVerticalDownwardComp : iVerticalDownwardCompTemp;
    const double H = std::sqrt(X * X + Y * Y);
    const double F = std::sqrt(H * H + Z * Z);
    // The two sets use different values for what is undefined, and pi beside 180 for due south.
    const double undefined = date ? kUndefined : kUndefinedNextYear;
    const double south = date ? kPi : 180.0;
    double& declination = date ? iDeclination : iDeclinationTemp;
    double& inclination = date ? iInclination : iInclinationTemp;
    (date ? iHorizontalIntensity : iHorizontalIntensityTemp) = H;
    (date ? iTotalIntensity : iTotalIntensityTemp) = F;
    if (F < kSmall) {
        declination = undefined;
        inclination = undefined;
        return;
    }
    inclination = std::atan2(Z, H);
    if (H < kSmall) {
        declination = undefined;
    } else if (H + X < kSmall) {
        declination = south;
    } else {
        declination = 2.0 * std::atan2(Y, H + X);
    }
}

double MagneticVariation::getMagneticVariation(std::int32_t day, std::int32_t month, std::int32_t year,
                                               double latitude, double longitude, double elevation) {
    const double date = Julday(day, month, year);
    const double kilometres = elevation * 0.001;
    const int degree = ExtraPSH(date, kEpoch, kMainDegree, kSecularDegree, kDateSet);
    ExtraPSH(date + 1.0, kEpoch, kMainDegree, kSecularDegree, kNextYearSet);
    SHVAL3(1, latitude, longitude, kilometres, degree, kDateSet);
    DIHF(kDateSet);
    SHVAL3(1, latitude, longitude, kilometres, degree, kNextYearSet);
    DIHF(kNextYearSet);
    iDeclination *= kDegreesPerRadian;
    iInclination *= kDegreesPerRadian;
    return iDeclination;
}

double MagneticVariation::getMagneticVariation2(std::int32_t day, std::int32_t month, std::int32_t year,
                                                std::int32_t latDegrees, std::int32_t latMinutes,
                                                std::int32_t latSeconds, std::int32_t lonDegrees,
                                                std::int32_t lonMinutes, std::int32_t lonSeconds,
                                                double elevation) {
    return getMagneticVariation(day, month, year, DegreesToDecimal(latDegrees, latMinutes, latSeconds),
                                DegreesToDecimal(lonDegrees, lonMinutes, lonSeconds), elevation);
}

std::optional<MagneticDeclination> MagneticVariation::Declination(std::int32_t year, std::int32_t month,
                                                                  std::int32_t day, double latitude,
                                                                  double longitude, double elevation) {
    const double declination = getMagneticVariation(day, month, year, latitude, longitude, elevation);
    if (!std::isfinite(declination) || std::fabs(declination) > 360.0) {
        return std::nullopt;
    }
    MagneticDeclination result;
    result.declination = declination;
    const double date = Julday(day, month, year);
    result.extrapolated = date < result.validFrom || date > result.validTo;
    return result;
}

} // namespace zorel
