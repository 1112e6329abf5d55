// SPDX-License-Identifier: Apache-2.0
// The generated lunar tables hold the rows of their sources.
#include "engine/series/Igrf11.h"
#include "engine/series/MoonLatitudeSeries.h"
#include "engine/series/MoonLongitudeSeries.h"
#include "engine/series/MoonPhaseSeries.h"
#include "engine/series/NutationSeries.h"

#include <charconv>
#include <fstream>
#include <gtest/gtest.h>
#include <span>
#include <sstream>
#include <string>
#include <vector>

namespace zorel {
namespace {

using Row = std::vector<std::string>;

std::vector<Row> source(const char* name) {
    std::ifstream file(std::string(ZOREL_SOURCE_DIR) + "/resources/series/" + name);
    std::vector<Row> rows;
    std::string line;
    std::getline(file, line); // the header
    while (std::getline(file, line)) {
        Row row;
        std::istringstream stream(line);
        for (std::string field; std::getline(stream, field, '\t');) {
            row.push_back(field);
        }
        rows.push_back(row);
    }
    return rows;
}

double value(const std::string& text) {
    double number = 0.0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

void expectRow(const Row& row, std::size_t first, std::initializer_list<double> expected) {
    std::size_t column = first;
    for (const double number : expected) {
        ASSERT_LT(column, row.size());
        ASSERT_EQ(value(row[column++]), number) << row[0];
    }
}

TEST(LunarSeries, Nutation) {
    const auto rows = source("nutation.tsv");
    ASSERT_EQ(rows.size(), kNutation.size());
    ASSERT_EQ(kNutation.size(), 31U);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const NutationTerm& t = kNutation[i];
        expectRow(rows[i], 1,
                  {double(t.D), double(t.M), double(t.Mp), double(t.F), double(t.Omega), double(t.dpsi),
                   double(t.dpsiRate), double(t.deps), double(t.depsRate)});
    }
}

TEST(LunarSeries, LongitudeDistanceAndLatitude) {
    const auto longitude = source("moon_lr.tsv");
    const auto latitude = source("moon_b.tsv");
    ASSERT_EQ(longitude.size(), 60U);
    ASSERT_EQ(latitude.size(), 60U);
    double sumL = 0.0;
    double sumB = 0.0;
    for (std::size_t i = 0; i < 60; ++i) {
        const MoonLongitudeTerm& l = kMoonLongitude[i];
        const MoonLatitudeTerm& b = kMoonLatitude[i];
        expectRow(longitude[i], 1,
                  {double(l.D), double(l.M), double(l.Mp), double(l.F), double(l.sigmaL), double(l.sigmaR)});
        expectRow(latitude[i], 1, {double(b.D), double(b.M), double(b.Mp), double(b.F), double(b.sigmaB)});
        ASSERT_LE(std::abs(l.M), 2); // the powers of E that the sums know
        ASSERT_LE(std::abs(b.M), 2);
        sumL += l.sigmaL;
        sumB += b.sigmaB;
    }
    EXPECT_EQ(kMoonLongitude.back().sigmaR, 8752);
    EXPECT_EQ(kMoonLatitude.back().sigmaB, 107);
    EXPECT_GT(sumL, 6288774.0);
    EXPECT_GT(sumB, 5128122.0);
}

void expectPhases(std::span<const Row> rows, std::span<const MoonPhaseTerm> terms) {
    ASSERT_EQ(terms.size(), 25U);
    for (std::size_t i = 0; i < terms.size(); ++i) {
        const MoonPhaseTerm& t = terms[i];
        expectRow(rows[i], 2,
                  {t.coefficient, double(t.ePower), double(t.M), double(t.Mp), double(t.F), double(t.Omega)});
        ASSERT_LE(t.ePower, 2);
        ASSERT_GE(t.ePower, 0);
    }
}

TEST(LunarSeries, Phases) {
    const auto rows = source("moon_phases.tsv");
    ASSERT_EQ(rows.size(), 75U);
    expectPhases(std::span(rows).subspan(0, 25), kMoonPhaseNew);
    expectPhases(std::span(rows).subspan(25, 25), kMoonPhaseFull);
    expectPhases(std::span(rows).subspan(50, 25), kMoonPhaseQuarter);
}

TEST(LunarSeries, MagneticField) {
    const auto rows = source("igrf11.tsv");
    ASSERT_EQ(rows.size(), kIgrf11.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const MagneticCoefficient& c = kIgrf11[i];
        ASSERT_EQ(rows[i][1][0], c.kind);
        expectRow(rows[i], 2, {double(c.n), double(c.m)});
        ASSERT_EQ(value(rows[i][6]), c.main);
        ASSERT_EQ(rows[i].size() > 7 ? value(rows[i][7]) : 0.0, c.secular);
        ASSERT_EQ(c.secular != 0.0 && c.n > 8, false);
    }
}

} // namespace
} // namespace zorel
