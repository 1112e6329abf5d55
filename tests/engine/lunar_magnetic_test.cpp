// SPDX-License-Identifier: Apache-2.0
// The magnetic field: decimal years, sexagesimal angles, extrapolation, synthesis, undefined directions.
#include "engine/MagneticVariation.h"
#include "engine/series/Igrf11.h"
#include "tests/engine/Steps.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace zorel {
namespace {

TEST(MagneticDate, CountsALeapDayInTheYearsThatHaveNone) {
    const MagneticVariation field;
    EXPECT_DOUBLE_EQ(field.Julday(1, 1, 2025), 2025.0 + 1.0 / 365.0);
    EXPECT_DOUBLE_EQ(field.Julday(1, 3, 2025), 2025.0 + 61.0 / 366.0);
    EXPECT_DOUBLE_EQ(field.Julday(1, 3, 2024), 2024.0 + 60.0 / 365.0);
    EXPECT_DOUBLE_EQ(field.Julday(28, 2, 2023), 2023.0 + 59.0 / 365.0);
    EXPECT_DOUBLE_EQ(field.Julday(1, 3, 1900), 1900.0 + 60.0 / 365.0);
    EXPECT_DOUBLE_EQ(field.Julday(1, 3, 2100), 2100.0 + 60.0 / 365.0);
    EXPECT_DOUBLE_EQ(field.Julday(31, 12, 2025), 2026.0);
}

TEST(MagneticDate, AbsurdMonthsStayInTheTable) {
    const MagneticVariation field;
    EXPECT_EQ(field.Julday(1, 0, 2012), field.Julday(1, 1, 2012));
    EXPECT_EQ(field.Julday(1, 13, 2012), field.Julday(1, 12, 2012));
    EXPECT_TRUE(std::isfinite(field.Julday(std::numeric_limits<std::int32_t>::max(), -5,
                                           std::numeric_limits<std::int32_t>::min())));
}

TEST(MagneticAngles, TheFirstPartThatIsNotZeroGivesTheSign) {
    const MagneticVariation field;
    EXPECT_DOUBLE_EQ(field.DegreesToDecimal(0, -30, 0), -0.5);
    EXPECT_DOUBLE_EQ(field.DegreesToDecimal(-10, 30, 0), -10.5);
    EXPECT_DOUBLE_EQ(field.DegreesToDecimal(10, -30, 0), 10.5);
    EXPECT_NEAR(field.DegreesToDecimal(0, 0, -36), -0.01, 1e-9);
    EXPECT_NEAR(field.DegreesToDecimal(41, 0, 32), 41.008889, 1e-6);
    EXPECT_EQ(field.DegreesToDecimal(0, 0, 0), 0.0);
    EXPECT_LT(field.DegreesToDecimal(std::numeric_limits<std::int32_t>::min(), 0, 0), 0.0);
}

TEST(MagneticModel, ExtrapolatesDegreesOneToEight) {
    MagneticVariation field;
    EXPECT_EQ(field.ExtraPSH(2020.0, 2010.0, 13, 8, MagneticVariation::kDateSet), 13);
    EXPECT_EQ(field.gha[0], kIgrf11[0].main + 10.0 * kIgrf11[0].secular);
    EXPECT_EQ(field.gha[79], kIgrf11[79].main + 10.0 * kIgrf11[79].secular);
    EXPECT_EQ(field.gha[80], kIgrf11[80].main);
    EXPECT_EQ(field.gha[194], kIgrf11[194].main);
    EXPECT_EQ(field.ghb[0], 0.0);
}

TEST(MagneticModel, OtherDegreesAreAllowed) {
    MagneticVariation field;
    EXPECT_EQ(field.ExtraPSH(2020.0, 2010.0, 8, 8, MagneticVariation::kNextYearSet), 8);
    EXPECT_EQ(field.ghb[79], kIgrf11[79].main + 10.0 * kIgrf11[79].secular);
    EXPECT_EQ(field.ExtraPSH(2020.0, 2010.0, 4, 8, MagneticVariation::kNextYearSet), 8);
    EXPECT_EQ(field.ghb[30], 10.0 * kIgrf11[30].secular); // degree 5: nothing but change
    EXPECT_EQ(field.ExtraPSH(2020.0, 2010.0, 99, -3, MagneticVariation::kNextYearSet), 13);
}

TEST(MagneticModel, CoefficientsAreThoseOfTheModel) {
    EXPECT_EQ(kIgrf11.size(), 195U);
    EXPECT_EQ(kIgrf11[0].main, -29496.5);
    EXPECT_FLOAT_EQ(static_cast<float>(kIgrf11[2].main), 4945.1F);
    EXPECT_FLOAT_EQ(static_cast<float>(kIgrf11[7].secular), -12.9F);
    std::size_t i = 0;
    for (int n = 1; n <= 13; ++n) {
        for (int m = 0; m <= n; ++m) {
            for (const char kind : {'g', 'h'}) {
                if (kind == 'h' && m == 0) {
                    continue;
                }
                ASSERT_EQ(kIgrf11[i].n, n);
                ASSERT_EQ(kIgrf11[i].m, m);
                ASSERT_EQ(kIgrf11[i].kind, kind);
                ++i;
            }
        }
    }
}

// On the Earth's axis only the zonal terms and those of order 1 count, and the direction hangs on the
// longitude.
TEST(MagneticField, ThePoleIsEvaluatedJustBesideIt) {
    MagneticVariation pole;
    MagneticVariation beside;
    EXPECT_EQ(pole.getMagneticVariation(2, 7, 2012, 90.0, 30.0, 0.0),
              beside.getMagneticVariation(2, 7, 2012, 89.999, 30.0, 0.0));
    EXPECT_EQ(pole.getMagneticVariation(2, 7, 2012, -89.9995, 30.0, 0.0),
              beside.getMagneticVariation(2, 7, 2012, -89.999, 30.0, 0.0));
    EXPECT_EQ(pole.iTotalIntensity, beside.iTotalIntensity);
}

TEST(MagneticField, PartsMakeUpTheWhole) {
    MagneticVariation field;
    for (const double latitude : testing::steps(-90.0, 90.0, 15.0)) {
        for (const double longitude : testing::steps(-180.0, 180.0, 30.0)) {
            const double declination = field.getMagneticVariation(1, 1, 2012, latitude, longitude, 100.0);
            const double H = std::hypot(field.iNorthwardComp, field.iEastwardComp);
            ASSERT_NEAR(field.iHorizontalIntensity, H, 1e-6);
            ASSERT_NEAR(field.iTotalIntensity, std::hypot(H, field.iVerticalDownwardComp), 1e-6);
            ASSERT_NEAR(declination, std::atan2(field.iEastwardComp, field.iNorthwardComp) * 57.29578, 1e-5);
            ASSERT_GT(field.iTotalIntensity, 22000.0);
            ASSERT_LT(field.iTotalIntensity, 68000.0);
        }
    }
}

// The field is the gradient of a potential: its components in the two horizontal directions fit together.
TEST(MagneticField, HasNoCurl) {
    MagneticVariation field;
    field.ExtraPSH(2012.0, 2010.0, 13, 8, MagneticVariation::kDateSet);
    constexpr double step = 1e-3;
    constexpr double radians = 0.017453292519943295;
    const auto components = [&field](double latitude, double longitude) {
        field.SHVAL3(0, latitude, longitude, 6371.2, 13, MagneticVariation::kDateSet);
        return std::pair{field.iNorthwardComp, field.iEastwardComp};
    };
    for (const double latitude : testing::steps(-80.0, 80.0, 20.0)) {
        const double northByLongitude =
            (components(latitude, 33.0 + step).first - components(latitude, 33.0 - step).first) /
            (2.0 * step);
        const double upper = components(latitude + step, 33.0).second * std::cos((latitude + step) * radians);
        const double lower = components(latitude - step, 33.0).second * std::cos((latitude - step) * radians);
        ASSERT_NEAR(northByLongitude, (upper - lower) / (2.0 * step), 0.05) << latitude;
    }
}

TEST(MagneticField, NextYearIsComputedBesideTheDate) {
    MagneticVariation field;
    field.getMagneticVariation(1, 1, 2012, 41.0, 29.0, 0.0);
    MagneticVariation next;
    const double later = next.getMagneticVariation(1, 1, 2013, 41.0, 29.0, 0.0);
    EXPECT_NEAR(field.iDeclinationTemp * 57.29578, later, 1e-3);
    EXPECT_NEAR(field.iTotalIntensityTemp, next.iTotalIntensity, 0.5);
}

TEST(MagneticField, SexagesimalPlacesGiveTheSame) {
    MagneticVariation field;
    const double sexagesimal = field.getMagneticVariation2(1, 6, 2014, 41, 30, 0, -28, 15, 0, 50.0);
    EXPECT_EQ(sexagesimal, field.getMagneticVariation(1, 6, 2014, 41.5, -28.25, 50.0));
}

TEST(MagneticField, ChangesLinearlyFarBeyondItsValidity) {
    MagneticVariation field;
    const auto north = [&field](std::int32_t year) {
        field.getMagneticVariation(1, 1, year, 41.0, 29.0, 0.0);
        return field.iNorthwardComp;
    };
    const double perYear = (north(2050) - north(2020)) / 30.0;
    EXPECT_NEAR((north(3000) - north(2050)) / 950.0, perYear, 1e-6);
}

TEST(MagneticDirection, IsUndefinedWithoutAField) {
    MagneticVariation field;
    field.DIHF(MagneticVariation::kDateSet);
    EXPECT_EQ(field.iDeclination, 57238.484375);
    EXPECT_EQ(field.iInclination, 57238.484375);
    field.DIHF(MagneticVariation::kNextYearSet);
    EXPECT_EQ(field.iDeclinationTemp, 999.0);
    EXPECT_EQ(field.iInclinationTemp, 999.0);
}

TEST(MagneticDirection, IsUndefinedWhereTheFieldIsVertical) {
    MagneticVariation field;
    field.iVerticalDownwardComp = field.iVerticalDownwardCompTemp = 50000.0;
    field.DIHF(MagneticVariation::kDateSet);
    field.DIHF(MagneticVariation::kNextYearSet);
    EXPECT_EQ(field.iDeclination, 57238.484375);
    EXPECT_EQ(field.iDeclinationTemp, 999.0);
    EXPECT_NEAR(field.iInclination, 1.5707963, 1e-6);
}

TEST(MagneticDirection, DueSouthIsPiAndOneHundredAndEighty) {
    MagneticVariation field;
    field.iNorthwardComp = field.iNorthwardCompTemp = -20000.0;
    field.DIHF(MagneticVariation::kDateSet);
    field.DIHF(MagneticVariation::kNextYearSet);
    EXPECT_EQ(field.iDeclination, 3.1415927410125732);
    EXPECT_EQ(field.iDeclinationTemp, 180.0);
}

TEST(MagneticDirection, UsesTheHalfAngle) {
    MagneticVariation field;
    field.iNorthwardComp = 10.0;
    field.iEastwardComp = -10.0;
    field.DIHF(MagneticVariation::kDateSet);
    EXPECT_NEAR(field.iDeclination, -0.785398163, 1e-9);
    EXPECT_NEAR(field.iHorizontalIntensity, 14.142136, 1e-6);
}

TEST(MagneticForPeople, CarriesTheModelAndItsValidity) {
    MagneticVariation field;
    const auto now = field.Declination(2026, 11, 20, 41.0082, 28.9784, 0.0);
    ASSERT_TRUE(now.has_value());
    EXPECT_EQ(now->model, "IGRF-11");
    EXPECT_EQ(now->epoch, 2010.0);
    EXPECT_EQ(now->validFrom, 2010.0);
    EXPECT_EQ(now->validTo, 2015.0);
    EXPECT_TRUE(now->extrapolated);
    EXPECT_EQ(now->declination, field.getMagneticVariation(20, 11, 2026, 41.0082, 28.9784, 0.0));
    EXPECT_FALSE(field.Declination(2012, 6, 1, 41.0, 29.0, 0.0)->extrapolated);
    EXPECT_TRUE(field.Declination(2008, 12, 31, 41.0, 29.0, 0.0)->extrapolated);
}

TEST(MagneticForPeople, SaysNothingWithoutADirection) {
    MagneticVariation field;
    constexpr double infinity = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(field.Declination(2012, 1, 1, std::nan(""), 0.0, 0.0));
    EXPECT_FALSE(field.Declination(2012, 1, 1, 41.0, infinity, 0.0));
    EXPECT_FALSE(field.Declination(2012, 1, 1, 41.0, 29.0, -infinity));
    EXPECT_FALSE(field.Declination(2012, 1, 1, 41.0, 29.0, 1e12)); // no field is left so far out
}

} // namespace
} // namespace zorel
