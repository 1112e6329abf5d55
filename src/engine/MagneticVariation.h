// SPDX-License-Identifier: Apache-2.0
/// @file
/// Magnetic declination from the International Geomagnetic Reference Field.
#pragma once

#include "engine/Api.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace zorel {

/// A magnetic declination with what a person must know to judge it.
struct MagneticDeclination {
    double declination = 0.0; ///< [deg] east positive: true bearing = magnetic bearing + declination
    std::string_view model = "IGRF-11"; ///< name of the field model
    double epoch = 2010.0;              ///< its epoch [decimal year]
    double validFrom = 2010.0;          ///< first year its secular variation was made for
    double validTo = 2015.0;            ///< and the last
    bool extrapolated = false;          ///< the date lies outside: the error grows with every year
};

/// The Earth's main magnetic field and its change: IGRF-11, epoch 2010.0, degree and order 13, secular
/// variation of degree 8 carried on linearly without limit.
///
/// Not modelled: crustal anomalies, daily variation, magnetic storms, and everything later than the model
/// knows. Accuracy: the published results of the model are reproduced within 0.05 nT. On 21 November 2026 the
/// declination is 0.3 degree off that of the World Magnetic Model 2025 in the middle of the 5,994 cities of
/// 100,000 and more, at most 2.3 degrees; near the magnetic poles more.
/// Source: Finlay et al., Geophys. J. Int. 183, 1216 (2010); synthesis as in Langel, Geomagnetism 1 (1987),
/// ch. 4, on the ellipsoid a^2 = 40680924 km^2, b^2 = 40408588 km^2.
class ZOREL_API MagneticVariation {
public:
    /// Which set of coefficients and results an operation works on.
    static constexpr int kDateSet = 3;                  ///< the date asked for
    static constexpr int kNextYearSet = 4;              ///< one year later
    static constexpr double kUndefined = 57238.484375;  ///< an angle of the date set that does not exist
    static constexpr double kUndefinedNextYear = 999.0; ///< the same for the set one year later
    static constexpr int kCoefficients = 195;
    using Coefficients = std::array<double, kCoefficients>;

    // Results of the date set, and (Temp) of the set one year later. Intensities and components in [nT].
    Coefficients gha{};        ///< coefficients at the date [nT]
    Coefficients ghb{};        ///< and one year later
    double iDeclination = 0.0; ///< [rad], in degrees after getMagneticVariation
    double iTotalIntensity = 0.0;
    double iHorizontalIntensity = 0.0;
    double iInclination = 0.0;     ///< [rad], in degrees after getMagneticVariation
    double iDeclinationTemp = 0.0; ///< [rad]
    double iTotalIntensityTemp = 0.0;
    double iHorizontalIntensityTemp = 0.0;
    double iInclinationTemp = 0.0; ///< [rad]
    double iNorthwardComp = 0.0;
    double iEastwardComp = 0.0;
    double iVerticalDownwardComp = 0.0;
    double iNorthwardCompTemp = 0.0;
    double iEastwardCompTemp = 0.0;
    double iVerticalDownwardCompTemp = 0.0;

    /// Decimal year of a date. From March on, years that are not multiples of four count one day more.
    [[nodiscard]] double Julday(std::int32_t day, std::int32_t month, std::int32_t year) const;
    /// Degrees, minutes, seconds to degrees; negative when the first of them that is not 0 is (seconds: only
    /// with 0 degrees and 0 minutes).
    [[nodiscard]] double DegreesToDecimal(std::int32_t degrees, std::int32_t minutes,
                                          std::int32_t seconds) const;
    /// Carries the coefficients of a set to a date. @param date, epoch [decimal year]. @param mainDegree,
    /// secularDegree of the field and of its change, brought into 0 to 13. @param set kDateSet, else the set
    /// one year later. @return degree of the set.
    int ExtraPSH(double date, double epoch, int mainDegree, int secularDegree, int set);
    /// Field components of a set. @param kind 1: geodetic, else geocentric (then `elevation` is the distance
    /// from the Earth's centre). @param latitude, longitude [deg]; a latitude within 0.001 degree of a pole
    /// counts as 89.999. @param elevation [km]. @param degree brought into 0 to 13.
    void SHVAL3(int kind, double latitude, double longitude, double elevation, int degree, int set);
    /// Declination, inclination [rad], horizontal and total intensity of a set from its components. Below
    /// 0.0001 nT there is no direction: kUndefined or kUndefinedNextYear.
    void DIHF(int set);
    /// Both sets for a place. @param latitude, longitude [deg]. @param elevation [m]. @return declination
    /// [deg], east positive.
    double getMagneticVariation(std::int32_t day, std::int32_t month, std::int32_t year, double latitude,
                                double longitude, double elevation);
    /// The same for latitude and longitude in degrees, minutes and seconds, as DegreesToDecimal takes them.
    double getMagneticVariation2(std::int32_t day, std::int32_t month, std::int32_t year,
                                 std::int32_t latDegrees, std::int32_t latMinutes, std::int32_t latSeconds,
                                 std::int32_t lonDegrees, std::int32_t lonMinutes, std::int32_t lonSeconds,
                                 double elevation);
    /// What to show a person: the declination with the model's name, epoch and validity. @param latitude,
    /// longitude [deg]. @param elevation [m]. Nothing where the field gives no direction (at the magnetic
    /// poles' very point, or for arguments that are not numbers).
    std::optional<MagneticDeclination> Declination(std::int32_t year, std::int32_t month, std::int32_t day,
                                                   double latitude, double longitude, double elevation);
};

} // namespace zorel
