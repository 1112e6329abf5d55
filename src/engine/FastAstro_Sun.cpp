// SPDX-License-Identifier: Apache-2.0
// Position of the Sun: the fast series of the rise and set search, the accurate one of the prayer times,
// sidereal time, horizontal coordinates. Source: Meeus, Astronomical Algorithms, 1st ed., ch. 11, 12, 21,
// 24, 27.
#include "engine/Angles.h"
#include "engine/FastAstro.h"
#include "engine/Single.h"

#include <cmath>

namespace zorel {

namespace {

double centuries(double julianDay) {
    return (julianDay - 2451545.0) / 36525.0;
}

double sinDegrees(double x) {
    return std::sin(x * kRadiansPerDegree);
}
double cosDegrees(double x) {
    return std::cos(x * kRadiansPerDegree);
}

/// Longitude of the Moon's ascending node for the apparent place [deg].
double ascendingNode(double T) {
    return 125.04000091552734 - 1934.135986328125 * T;
}

/// Obliquity corrected for the apparent place [deg].
double apparentObliquity(double T, double node) {
    return 23.433332443237305 +
           (21.447999954223633 - 46.814998626708984 * T - 0.000590000010561198 * T * T +
            0.0018129999516531825 * T * T * T) /
               3600.0 +
           0.0025599999353289604 * cosDegrees(node);
}

/// Aberration and nutation of the longitude [deg].
double apparentLongitude(double longitude, double node) {
    return longitude - 0.005690000019967556 - 0.004780000075697899 * sinDegrees(node);
}

struct Equatorial {
    double declination;    // [deg]
    double rightAscension; // [h]
};

Equatorial equatorial(double longitude, double obliquity) {
    const double sinLongitude = sinDegrees(longitude);
    const double declination = std::asin(sinDegrees(obliquity) * sinLongitude) / kRadiansPerDegree;
    const double ascension = std::atan2(cosDegrees(obliquity) * sinLongitude, cosDegrees(longitude));
    return {declination, intoClosedTurn(ascension / kRadiansPerDegree) / 15.0};
}

/// Arguments of the main nutation terms [deg].
struct NutationArguments {
    double node;
    double sun;
    double moon;
};

NutationArguments nutationArguments(double T, double sunLongitude) {
    return {125.04451751708984 - 1934.13623046875 * T + 0.0020707999356091022 * T * T + T * T * T / 450000.0,
            sunLongitude, 218.31649780273438 + 481267.875 * T};
}

/// Sidereal hours of the secular terms; T in Julian centuries.
double siderealSecular(double T) {
    return ((-6.199999916134402e-06 * T + 0.09310399740934372) * T + 8640185.0) * T / 3600.0;
}

} // namespace

void FastAstro::SunDecRAAccurate(double julianDay) {
    const EarthPosition earth = earthCompute.position(julianDay);
    SunDistance = earth.radius;
    const double inEcliptic = -earth.radius * std::cos(earth.latitude);
    double longitude =
        std::atan2(inEcliptic * std::sin(earth.longitude), inEcliptic * std::cos(earth.longitude)) /
        kRadiansPerDegree;
    if (longitude < 0.0) {
        longitude += 360.0;
    }
    const double T = centuries(julianDay);
    const double node = ascendingNode(T);
    const Equatorial position = equatorial(apparentLongitude(longitude, node), apparentObliquity(T, node));
    SunDec = position.declination;
    SunRA = position.rightAscension;
}

void FastAstro::SunDecRA(double julianDay) {
    const double T = centuries(julianDay);
    const double M = 357.52911376953125 + 35999.05078125 * T - 0.00015589999384246767 * T * T -
                     4.799999828719592e-07 * T * T * T;
    const double L0 = 280.4664611816406 + 36000.76953125 * T + 0.0003032000095117837 * T * T;
    const double Q =
        (1.9146000146865845 - 0.00481700012460351 * T - 1.4000000192027073e-05 * T * T) * sinDegrees(M) +
        (0.019992999732494354 - 0.00010099999781232327 * T) * sinDegrees(2.0 * M) +
        0.0002899999963119626 * sinDegrees(3.0 * M);
    const double node = ascendingNode(T);
    const double longitude = intoClosedTurn(apparentLongitude(L0 + Q, node));
    EclipticLongitude = longitude;
    const Equatorial position = equatorial(longitude, apparentObliquity(T, node));
    SunDec = position.declination;
    SunRA = position.rightAscension;
}

double FastAstro::SunL(double T) const {
    const double tau = T / 10.0;
    const double tau2 = tau * tau;
    const double tau3 = tau2 * tau;
    return intoTurn(280.4664611816406 + 360007.6875 * tau + 0.03032027930021286 * tau2 + tau3 / 49931.0 +
                    tau3 * tau / -15299.0 + tau3 * tau2 / 1988000.0);
}

namespace {

double trueObliquity(double T, const NutationArguments& a) {
    return 23.43929100036621 -
           (46.814998626708984 * T + 0.000590000010561198 * T * T - 0.0018129999516531825 * T * T * T) /
               3600.0 +
           (9.199999809265137 * cosDegrees(a.node) + 0.5699999928474426 * cosDegrees(2.0 * a.sun) +
            0.10000000149011612 * cosDegrees(2.0 * a.moon) - 0.09000000357627869 * cosDegrees(2.0 * a.node)) /
               3600.0;
}

double nutationInLongitude(const NutationArguments& a) {
    const double moon = intoClosedTurn(a.moon);
    return (-17.200000762939453 * sinDegrees(a.node) - 1.3200000524520874 * sinDegrees(2.0 * a.sun) -
            0.23000000417232513 * sinDegrees(2.0 * moon) + 0.20999999344348907 * sinDegrees(2.0 * a.node)) /
           3600.0;
}

} // namespace

double FastAstro::Epsilon(double T) const {
    return trueObliquity(T, nutationArguments(T, SunL(T)));
}

double FastAstro::DeltaPSI(double T) const {
    return nutationInLongitude(nutationArguments(T, SunL(T)));
}

double FastAstro::EquationOfTime(double julianDay, double rightAscension) const {
    const double T = centuries(julianDay);
    const NutationArguments arguments = nutationArguments(T, SunL(T));
    double E = arguments.sun - 0.0057183001190423965 - 15.0 * rightAscension +
               nutationInLongitude(arguments) * cosDegrees(trueObliquity(T, arguments));
    if (E > 5.0) {
        E -= 360.0;
    }
    return 4.0 * E;
}

double FastAstro::GM_Sidereal_Time(double julianDay) const {
    const double m = julianDay - 2400000.5;
    const double n = std::trunc(m);
    const double T = (static_cast<float>(n) - 51544.5F) / 36525.0F;
    return (m - n) * 24.0 * 1.0027378797531128 + 6.69737434387207 + siderealSecular(T);
}

double FastAstro::LM_Sidereal_Time(double julianDay, double westLongitude) const {
    return 24.0 * astroGlobalFuncs.frac((GM_Sidereal_Time(julianDay) - westLongitude / 15.0) / 24.0);
}

double FastAstro::LMST(double modifiedJulianDay, double eastLongitude) const {
    const double T = (modifiedJulianDay - 51544.5) / 36525.0;
    const double hours = astroGlobalFuncs.frac(modifiedJulianDay) * 24.0 * 1.0027378797531128 +
                         6.69737434387207 + siderealSecular(T) + eastLongitude / 15.0;
    return 24.0 * astroGlobalFuncs.frac(hours / 24.0);
}

double FastAstro::ComputeGHA(std::int32_t day, std::int32_t month, std::int32_t year, double hour) const {
    double N = day + 365.0 * year + 31.0 * month - 46.0;
    if (month > 2) {
        N = N - std::trunc(0.4 * month + 2.3) + std::trunc(0.25 * year);
    } else {
        const std::int64_t leapDays = (std::int64_t{year} - 1) / 4;
        N += static_cast<double>(leapDays);
    }
    const double x =
        ((hour / 24.0 + N - 722449.0) * 0.9856473207473755 + 279.3059997558594) * kRadiansPerDegree;
    const double S = -104.55 * std::sin(x) - 429.2659912109375 * std::cos(x) +
                     595.6300048828125 * std::sin(2.0 * x) - 2.2829999923706055 * std::cos(2.0 * x) +
                     4.599999904632568 * std::sin(3.0 * x) + 18.733299255371094 * std::cos(3.0 * x) +
                     13.199999809265137 * std::sin(-4.0 * x) - std::cos(5.0 * x) - std::sin(5.0 * x) / 3.0 +
                     0.5 * std::sin(6.0 * x) + 0.23100000619888306;
    const double gha = S / 240.0 + (hour / 24.0 + 0.5) * 360.0;
    return gha > 360.0 ? gha - 360.0 : gha;
}

double FastAstro::SinElev(double julianDay, double latitude, double westLongitude, double declination,
                          double rightAscension) const {
    double H = (LM_Sidereal_Time(julianDay, westLongitude) - rightAscension) * 15.0;
    if (H < 0.0) {
        H += 360.0;
    }
    return cosDegrees(latitude) * cosDegrees(declination) * cosDegrees(H) +
           sinDegrees(latitude) * sinDegrees(declination);
}

double FastAstro::SunElev(double julianDay, double latitude, double westLongitude, double declination,
                          double rightAscension) const {
    return std::asin(SinElev(julianDay, latitude, westLongitude, declination, rightAscension)) /
           kRadiansPerDegree;
}

double FastAstro::SunAltitude(double declination, double gha) const {
    return std::asin(sinDegrees(declination) * sinDegrees(Lat) +
                     cosDegrees(declination) * cosDegrees(Lat) * cosDegrees(Lon + gha)) /
           kRadiansPerDegree;
}

double FastAstro::SunAzimuth(double declination, double gha, double altitude) const {
    const double cosine = (sinDegrees(declination) - sinDegrees(Lat) * sinDegrees(altitude)) /
                          (cosDegrees(Lat) * cosDegrees(altitude));
    const double azimuth = (kHalfPi - std::asin(cosine)) / kRadiansPerDegree;
    return sinDegrees(Lon + gha) > 0.0 ? 360.0 - azimuth : azimuth;
}

double FastAstro::Refract(double altitude) const {
    const double argument = altitude + 10.300000190734863 / (altitude + 5.110000133514404);
    return 1.0199999809265137 / std::tan(argument * kRadiansPerDegree) / 60.0;
}

} // namespace zorel
