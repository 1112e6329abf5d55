// SPDX-License-Identifier: Apache-2.0
#include "engine/EarthCompute.h"

#include "engine/Single.h"
#include "engine/series/EarthSeries.h"

#include <cmath>
#include <cstdint>

namespace zorel {

namespace {

constexpr double kEpoch = 2451545.0;
constexpr double kDaysPerMillennium = 365250.0;
constexpr double kUnitsPerOne = 100000000.0;

using Pair [[gnu::vector_size(16)]] = double;
using PairBits [[gnu::vector_size(16)]] = std::uint64_t;
using SinglePair [[gnu::vector_size(8)]] = float;

Pair singles(Pair x) {
    return __builtin_convertvector(__builtin_convertvector(x, SinglePair), Pair);
}

/// The cosines of two terms at once, with the same bits as cosSingle.
Pair cosines(Pair x) {
    return singles(portable::cosine<Pair, PairBits>(singles(x)));
}

double termValue(const EarthTerm& term, double tau) {
    return term.amplitude * cosSingle(term.phase + term.frequency * tau);
}

/// Terms are summed in their order, two at a time.
template <std::size_t Rows> double seriesSum(const std::array<EarthTerm, Rows>& series, double tau) {
    constexpr double kFastestFrequency = 100000.0; // [rad per Julian millennium]
    std::size_t row = 0;
    double sum = 0.0;
    if (std::fabs(tau) * kFastestFrequency < portable::kTurnLimit) {
        for (; row + 1 < Rows; row += 2) {
            const EarthTerm& a = series[row];
            const EarthTerm& b = series[row + 1];
            const Pair cosine = cosines(Pair{a.phase, b.phase} + Pair{a.frequency, b.frequency} * tau);
            sum += a.amplitude * cosine[0];
            sum += b.amplitude * cosine[1];
        }
    }
    for (; row < Rows; ++row) {
        sum += termValue(series[row], tau);
    }
    return sum;
}

double millennia(double julianDay) {
    return (julianDay - kEpoch) / kDaysPerMillennium;
}

} // namespace

double EarthCompute::EarthL(double julianDay) const {
    const double tau = millennia(julianDay);
    const double tau2 = tau * tau;
    const double tau3 = tau2 * tau;
    const double tau4 = tau3 * tau;
    return (_L0(tau) + _L1(tau) * tau + _L2(tau) * tau2 + _L3(tau) * tau3 + _L4(tau) * tau4 +
            _L5(tau) * (tau4 * tau)) /
           kUnitsPerOne;
}

double EarthCompute::EarthB(double julianDay) const {
    const double tau = millennia(julianDay);
    return (_B0(tau) + _B1(tau) * tau) / kUnitsPerOne;
}

double EarthCompute::EarthR(double julianDay) const {
    const double tau = millennia(julianDay);
    const double tau2 = tau * tau;
    const double tau3 = tau2 * tau;
    return (_R0(tau) + _R1(tau) * tau + _R2(tau) * tau2 + _R3(tau) * tau3 + _R4(tau) * (tau3 * tau)) /
           kUnitsPerOne;
}

double EarthCompute::_L0(double tau) const {
    return seriesSum(kEarthL0, tau);
}
double EarthCompute::_L1(double tau) const {
    return seriesSum(kEarthL1, tau);
}
double EarthCompute::_L2(double tau) const {
    return seriesSum(kEarthL2, tau);
}
double EarthCompute::_L3(double tau) const {
    return seriesSum(kEarthL3, tau);
}
double EarthCompute::_L4(double tau) const {
    return seriesSum(kEarthL4, tau);
}
double EarthCompute::_L5(double tau) const {
    return seriesSum(kEarthL5, tau);
}
double EarthCompute::_B0(double tau) const {
    return seriesSum(kEarthB0, tau);
}
double EarthCompute::_B1(double tau) const {
    return seriesSum(kEarthB1, tau);
}
double EarthCompute::_R0(double tau) const {
    return seriesSum(kEarthR0, tau);
}
double EarthCompute::_R1(double tau) const {
    return seriesSum(kEarthR1, tau);
}
double EarthCompute::_R2(double tau) const {
    return seriesSum(kEarthR2, tau);
}
double EarthCompute::_R3(double tau) const {
    return seriesSum(kEarthR3, tau);
}
double EarthCompute::_R4(double tau) const {
    return seriesSum(kEarthR4, tau);
}

} // namespace zorel
