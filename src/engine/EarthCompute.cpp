// SPDX-License-Identifier: Apache-2.0
#include "engine/EarthCompute.h"

#include "engine/Processor.h"
#include "engine/Single.h"
#include "engine/series/EarthSeries.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace zorel {

namespace {

constexpr double kEpoch = 2451545.0;
constexpr double kDaysPerMillennium = 365250.0;
constexpr double kUnitsPerOne = 100000000.0;

/// The series in the order of the columns below.
enum Series { L0, L1, L2, L3, L4, L5, B0, B1, R0, R1, R2, R3, R4, seriesCount };

/// All terms, series after series, amplitudes, phases and frequencies in a column each: a loop over them
/// works on as many terms at once as the processor's vectors hold. Filled up with terms of amplitude 0 to a
/// multiple of eight, so that nothing is left over at the end of the loop.
struct Columns {
    static constexpr std::size_t kRows = (kEarthRows + 7) / 8 * 8;
    using Column = std::array<double, kRows>;

    Column amplitude{};
    Column phase{};
    Column frequency{};
    std::array<std::size_t, seriesCount + 1> first{}; // row of each series, and the row behind the last one

    template <class... Tables> explicit constexpr Columns(const Tables&... tables) {
        std::size_t row = 0;
        std::size_t number = 0;
        (append(tables, row, number), ...);
    }

private:
    template <class Table> constexpr void append(const Table& table, std::size_t& row, std::size_t& number) {
        for (const EarthTerm& term : table) {
            amplitude[row] = term.amplitude;
            phase[row] = term.phase;
            frequency[row] = term.frequency;
            ++row;
        }
        first[++number] = row;
    }
};

constexpr Columns kTerms(kEarthL0, kEarthL1, kEarthL2, kEarthL3, kEarthL4, kEarthL5, kEarthB0, kEarthB1,
                         kEarthR0, kEarthR1, kEarthR2, kEarthR3, kEarthR4);

/// The terms' values by the arithmetic of cosSingle. Every term is computed as if it were alone: the bits do
/// not depend on how many a processor takes at once.
[[gnu::always_inline]] inline void evaluateTerms(double tau, Columns::Column& values) {
    for (std::size_t row = 0; row < Columns::kRows; ++row) {
        const double angle = single(kTerms.phase[row] + kTerms.frequency[row] * tau);
        values[row] = kTerms.amplitude[row] * single(portable::cosine(angle));
    }
}

void evaluateTermsPlainly(double tau, Columns::Column& values) {
    evaluateTerms(tau, values);
}

ZOREL_TARGET_AVX2 void evaluateTermsWithAvx2(double tau, Columns::Column& values) {
    evaluateTerms(tau, values);
}

/// The same for any tau, also where the angles are too large for the portable cosine.
void evaluateDistantTerms(double tau, Columns::Column& values) {
    for (std::size_t row = 0; row < Columns::kRows; ++row) {
        values[row] = kTerms.amplitude[row] * cosSingle(kTerms.phase[row] + kTerms.frequency[row] * tau);
    }
}

/// The thirteen series at an instant.
class SeriesSums {
public:
    explicit SeriesSums(double tau) {
        constexpr double kFastestFrequency = 100000.0; // [rad per Julian millennium]
        if (!(std::fabs(tau) * kFastestFrequency < portable::kTurnLimit)) {
            evaluateDistantTerms(tau, values_);
        } else if (usesAvx2()) {
            evaluateTermsWithAvx2(tau, values_);
        } else {
            evaluateTermsPlainly(tau, values_);
        }
    }

    /// Term after term in the order of the series: another order would give other bits.
    [[nodiscard]] double operator[](Series series) const {
        double sum = 0.0;
        for (std::size_t row = kTerms.first[series]; row < kTerms.first[series + 1]; ++row) {
            sum += values_[row];
        }
        return sum;
    }

private:
    Columns::Column values_;
};

} // namespace

EarthPosition EarthCompute::position(double julianDay) const {
    const double tau = (julianDay - kEpoch) / kDaysPerMillennium;
    const double tau2 = tau * tau;
    const double tau3 = tau2 * tau;
    const double tau4 = tau3 * tau;
    const SeriesSums sum(tau);
    return {(sum[L0] + sum[L1] * tau + sum[L2] * tau2 + sum[L3] * tau3 + sum[L4] * tau4 +
             sum[L5] * (tau4 * tau)) /
                kUnitsPerOne,
            (sum[B0] + sum[B1] * tau) / kUnitsPerOne,
            (sum[R0] + sum[R1] * tau + sum[R2] * tau2 + sum[R3] * tau3 + sum[R4] * (tau3 * tau)) /
                kUnitsPerOne};
}

double EarthCompute::EarthL(double julianDay) const {
    return position(julianDay).longitude;
}
double EarthCompute::EarthB(double julianDay) const {
    return position(julianDay).latitude;
}
double EarthCompute::EarthR(double julianDay) const {
    return position(julianDay).radius;
}

double EarthCompute::_L0(double tau) const {
    return SeriesSums(tau)[L0];
}
double EarthCompute::_L1(double tau) const {
    return SeriesSums(tau)[L1];
}
double EarthCompute::_L2(double tau) const {
    return SeriesSums(tau)[L2];
}
double EarthCompute::_L3(double tau) const {
    return SeriesSums(tau)[L3];
}
double EarthCompute::_L4(double tau) const {
    return SeriesSums(tau)[L4];
}
double EarthCompute::_L5(double tau) const {
    return SeriesSums(tau)[L5];
}
double EarthCompute::_B0(double tau) const {
    return SeriesSums(tau)[B0];
}
double EarthCompute::_B1(double tau) const {
    return SeriesSums(tau)[B1];
}
double EarthCompute::_R0(double tau) const {
    return SeriesSums(tau)[R0];
}
double EarthCompute::_R1(double tau) const {
    return SeriesSums(tau)[R1];
}
double EarthCompute::_R2(double tau) const {
    return SeriesSums(tau)[R2];
}
double EarthCompute::_R3(double tau) const {
    return SeriesSums(tau)[R3];
}
double EarthCompute::_R4(double tau) const {
    return SeriesSums(tau)[R4];
}

} // namespace zorel
