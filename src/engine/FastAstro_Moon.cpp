// SPDX-License-Identifier: Apache-2.0
// Position of the Moon: the short series of Montenbruck & Pfleger, Astronomy on the Personal Computer
// (procedure MINI_MOON), the full theory, sidereal time, altitude, azimuth and the observer's place on the
// ellipsoid.
#include "engine/Angles.h"
#include "engine/FastAstro.h"
#include "engine/Single.h"
#include "engine/Turns.h"

#include <algorithm>
#include <cmath>

namespace zorel {

namespace {

constexpr double kArcsecPerRadian = single(206264.8062);
constexpr double kArcsecPerTurn = 1296000.0;
constexpr double kKmPerAu = single(149597872.0);
constexpr double kRadiansPerHour = single(0.2617993877991494); // pi / 12

/// Fundamental arguments of the short series: mean longitude [turns], the others [rad].
struct ShortArguments {
    double L0, l, ls, D, F;
};

ShortArguments shortArguments(const AstroGlobalFuncs& calendar, double T) {
    return {
        calendar.frac(single(0.606433) + single(1336.855225) * T),
        kTwoPi * calendar.frac(single(0.374897) + single(1325.552410) * T),
        kTwoPi * calendar.frac(single(0.993133) + single(99.997361) * T),
        kTwoPi * calendar.frac(single(0.827361) + single(1236.853086) * T),
        kTwoPi * calendar.frac(single(0.259086) + single(1342.227825) * T),
    };
}

/// Perturbations of the longitude [arcsec].
double longitudePerturbation(const ShortArguments& a) {
    const double D2 = 2.0 * a.D;
    return 22640.0 * std::sin(a.l) - 4586.0 * std::sin(a.l - D2) + 2370.0 * std::sin(D2) +
           769.0 * std::sin(2.0 * a.l) - 668.0 * std::sin(a.ls) - 412.0 * std::sin(2.0 * a.F) -
           212.0 * std::sin(2.0 * a.l - D2) - 206.0 * std::sin(a.l + a.ls - D2) + 192.0 * std::sin(a.l + D2) -
           165.0 * std::sin(a.ls - D2) - 125.0 * std::sin(a.D) - 110.0 * std::sin(a.l + a.ls) +
           148.0 * std::sin(a.l - a.ls) - 55.0 * std::sin(2.0 * a.F - D2);
}

/// Perturbations of the latitude [arcsec].
double latitudePerturbation(const ShortArguments& a) {
    const double h = a.F - 2.0 * a.D;
    return -526.0 * std::sin(h) + 44.0 * std::sin(a.l + h) - 31.0 * std::sin(h - a.l) -
           23.0 * std::sin(a.ls + h) + 11.0 * std::sin(h - a.ls) - 25.0 * std::sin(a.F - 2.0 * a.l) +
           21.0 * std::sin(a.F - a.l);
}

/// Greenwich hour angle [deg] in [0, 360].
double hourAngle(double siderealTime, double rightAscension) {
    return intoClosedTurn((siderealTime - rightAscension) * 15.0);
}

} // namespace

void FastAstro::MoonDecRA(double julianDay) {
    const ShortArguments a = shortArguments(astroGlobalFuncs, (julianDay - 2451545.0) / 36525.0);
    const double dL = longitudePerturbation(a);
    const double S = a.F + (dL + 412.0 * std::sin(2.0 * a.F) + 541.0 * std::sin(a.ls)) / kArcsecPerRadian;
    L_Moon = kTwoPi * astroGlobalFuncs.frac(a.L0 + dL / kArcsecPerTurn);
    B_Moon = (18520.0 * std::sin(S) + latitudePerturbation(a)) / kArcsecPerRadian;

    constexpr double cosEpsilon = single(0.917482062); // obliquity of J2000
    constexpr double sinEpsilon = single(0.397777156);
    const double cosB = std::cos(B_Moon);
    const double sinB = std::sin(B_Moon);
    const double cosBsinL = cosB * std::sin(L_Moon);
    const double x = cosB * std::cos(L_Moon);
    const double y = cosBsinL * cosEpsilon - sinB * sinEpsilon;
    const double z = cosBsinL * sinEpsilon + sinB * cosEpsilon;
    const double rho = std::sqrt(1.0 - z * z);
    MoonDec = std::atan2(z, rho) * kDegreesPerRadian;
    MoonRA = std::atan2(y, x + rho) * single(7.6394372);
    MoonGHA = hourAngle(LMST(julianDay - 2400000.5, 0.0), MoonRA);
    MoonRA = addWhileNegative(MoonRA, 24.0);
    if (MoonRA >= 24.0) {
        MoonRA -= 24.0;
    }
}

void FastAstro::MoonDecRAAccurate(double julianDay) {
    moonCompute.Moon_Coordinate(julianDay, MoonDec, MoonRA, MoonDist);
    MoonGHA = hourAngle(LMST(julianDay - 2400000.5, 0.0), MoonRA);
}

double FastAstro::MoonSideRealTime(double julianDay) const {
    const double whole = std::trunc(julianDay);
    const double rest = julianDay - whole;
    const bool afternoon = rest < 0.5; // Julian days begin at noon
    const double midnight = afternoon ? whole - 0.5 : whole + 0.5;
    const double fraction = afternoon ? rest + 0.5 : rest - 0.5;
    const double T = (midnight - 2451545.0) / 36525.0;
    constexpr double perCentury = single(8640184.812866);
    const double atMidnight = single(24110.54841) + perCentury * T + single(0.0927701) * T * T -
                              single(3.0e-7) * T * T * T - single(2.0e-6) * T * T * T * T;
    const double rate =
        1.0 + (perCentury + single(0.1855402) * T - single(9.0e-7) * T * T - single(8.0e-6) * T * T * T) /
                  3155760.0 / 1000.0;
    const double seconds = atMidnight + rate * fraction * 86400.0 + Lon * 240.0;
    return seconds - single(std::trunc(seconds / 86400.0) * 86400.0);
}

double FastAstro::moonSiderealHours(double julianDay) const {
    constexpr double kHoursPerRadian = single(3.8197186);
    return MoonSideRealTime(julianDay) * kRadiansPerDegree / 240.0 * kHoursPerRadian;
}

double FastAstro::MoonTrueAltitude(double julianDay) {
    MoonDecRA(julianDay);
    const double H =
        addWhileNegative((LMST(julianDay - 2400000.5, Lon) - MoonRA) * 15.0, 360.0) * kRadiansPerDegree;
    const double phi = Lat * kRadiansPerDegree;
    const double delta = MoonDec * kRadiansPerDegree;
    MoonAlt = std::asin(std::cos(phi) * std::cos(delta) * std::cos(H) + std::sin(phi) * std::sin(delta)) /
              kRadiansPerDegree;
    return MoonAlt;
}

double FastAstro::MoonDistance(double julianDay) const {
    const double T = (julianDay - 2415020.0) / 36525.0; // centuries from 1900 January 0.5
    const double T2 = T * T;
    const double Mp = (single(296.104608) + 477000.0 * T + single(198.849108) * T + single(0.009192) * T2) *
                      kRadiansPerDegree;
    const double moon = single(270.434164) + 480960.0 * T + single(307.8831) * T - single(0.001133) * T2;
    const double sun = single(279.696678) + single(36000.768925) * T + single(0.000303) * T2;
    const double D = (moon - sun) * kRadiansPerDegree;
    const double parallax = 3423.0 + 187.0 * std::cos(Mp) + 10.0 * std::cos(2.0 * Mp) +
                            34.0 * std::cos(2.0 * D - Mp) + 28.0 * std::cos(2.0 * D) +
                            3.0 * std::cos(2.0 * D + Mp);
    return single(6378.14) / std::sin(parallax / 3600.0 * kRadiansPerDegree);
}

double FastAstro::MoonParallax(double altitude, double distance) const {
    const double horizontal = single(8.794) / (distance / kKmPerAu);
    return std::asin(std::cos(altitude * kRadiansPerDegree) *
                     std::sin(horizontal / 3600.0 * kRadiansPerDegree)) /
           kRadiansPerDegree;
}

double FastAstro::MoonAppAltitude(const DateTimeRecord& record) {
    const double julianDay = astroGlobalFuncs.JulianDay(record);
    MoonDecRA(julianDay);
    const double altitude = SunElev(julianDay, Lat, -Lon, MoonDec, MoonRA);
    const double noon = astroGlobalFuncs.CalculateJulianDay(record.year, record.month, record.day, 12, 0, 0);
    const double topocentric = altitude - MoonParallax(altitude, MoonDistance(noon));
    // The refraction, in degrees already, is divided by 60 once more: it adds at most half an arc minute.
    return topocentric + Refract(topocentric) / 60.0;
}

double FastAstro::MoonAzimuth(double declination, double gha, double altitude) const {
    const double phi = Lat * kRadiansPerDegree;
    const double a = altitude * kRadiansPerDegree;
    const double cosine = (std::sin(declination * kRadiansPerDegree) - std::sin(phi) * std::sin(a)) /
                          (std::cos(a) * std::cos(phi));
    const double azimuth = std::acos(cosine) / kRadiansPerDegree;
    const bool east = std::sin((Lon + gha) * kRadiansPerDegree) <= 0.0;
    return east ? azimuth : 360.0 - azimuth;
}

void FastAstro::CalculateTLong() {
    constexpr double equatorialRadius = 6378137.0; // [m]
    const double phi = Lat * kRadiansPerDegree;
    const double cosPhi = std::cos(phi);
    const double sinPhi = std::sin(phi);
    const double q = 1.0 / std::sqrt(cosPhi * cosPhi + 0.9933055996612872 * sinPhi * sinPhi);
    const double x = equatorialRadius * q;
    const double z = 6335439.197506843 * q;
    const double r = std::sqrt(x * x * cosPhi * cosPhi + z * z * sinPhi * sinPhi);
    // Rounding may lift the cosine above one at the equator.
    tLat = std::acos(std::min(1.0, x * cosPhi / r)) * kDegreesPerRadian;
    if (Lat < 0.0) {
        tLat = -tLat;
    }
    trho = r / equatorialRadius;
}

void FastAstro::DiurnalAberration(double& rightAscension, double& declination, double siderealAngle) const {
    const double k = single(1.5472e-6) * trho * std::cos(tLat * kRadiansPerDegree);
    const double H = siderealAngle - rightAscension;
    const double cosDeclination = std::cos(declination);
    if (cosDeclination != 0.0) {
        rightAscension += k * std::cos(H) / cosDeclination;
    }
    declination += k * std::sin(H) * std::sin(declination);
}

void FastAstro::DiurnalParallax(double& rightAscension, double& declination, double siderealAngle,
                                double distance) const {
    if (distance > single(1758.8)) {
        return;
    }
    const double r = distance * kKmPerAu / single(6378.137);
    const double rhoCos = trho * std::cos(tLat * kRadiansPerDegree);
    const double rhoSin = trho * std::sin(tLat * kRadiansPerDegree);
    const double cosDeclination = std::cos(declination);
    const double x = r * cosDeclination * std::cos(rightAscension) - rhoCos * std::cos(siderealAngle);
    const double y = r * cosDeclination * std::sin(rightAscension) - rhoCos * std::sin(siderealAngle);
    const double z = r * std::sin(declination) - rhoSin;
    rightAscension = astroGlobalFuncs.ZArcTan2(x, y);
    declination = std::asin(z / std::sqrt(x * x + y * y + z * z));
}

void FastAstro::MoonAltitudeAzimuth(double& altitude, double& azimuth) const {
    double delta = Moon.declination * kRadiansPerDegree;
    double alpha = Moon.rightAscension * kRadiansPerHour;
    const double theta = Moon.siderealTime * kRadiansPerHour;
    DiurnalAberration(alpha, delta, theta);
    DiurnalParallax(alpha, delta, theta, Moon.distance / kKmPerAu);
    const double H = theta - alpha;
    const double phi = Lat * kRadiansPerDegree;
    const double cosDelta = std::cos(delta);
    azimuth =
        astroGlobalFuncs.ZArcTan2(std::sin(delta) * std::cos(phi) - cosDelta * std::cos(H) * std::sin(phi),
                                  -cosDelta * std::sin(H)) *
        kDegreesPerRadian;
    altitude = std::asin(std::sin(delta) * std::sin(phi) + cosDelta * std::cos(H) * std::cos(phi)) *
               kDegreesPerRadian;
}

double FastAstro::MoonLambda(double radians) const {
    return addWhileNegative(radians * kDegreesPerRadian, 360.0);
}

} // namespace zorel
