// SPDX-License-Identifier: Apache-2.0
// The arithmetic Hijri calendar: cycle of thirty years with eleven leap years, 10631 days, epoch 16 July 622;
// integer form in the manner of Fliegel & Van Flandern, Comm. ACM 11, 657 (1968), for the day numbers.
#include "engine/AstroGlobalFuncs.h"
#include "engine/Integers.h"

#include <cstdint>

namespace zorel {

namespace {

constexpr std::int64_t kHijriEpoch = 1948440; // first day of the year 1
constexpr std::int64_t kCycleDays = 10631;    // thirty years
constexpr HijriDate kBeforeEpoch{-1, -1, -1};

std::int64_t julianDayNumber(std::int64_t Y, std::int64_t M, std::int64_t D) {
    return 367 * Y - 7 * (Y + 5001 + (M - 9) / 7) / 4 + 275 * M / 9 + D + 1729777;
}

std::int64_t gregorianDayNumber(std::int64_t Y, std::int64_t M, std::int64_t D) {
    const std::int64_t a = (M - 14) / 12;
    return 1461 * (Y + 4800 + a) / 4 + 367 * (M - 2 - 12 * a) / 12 - 3 * ((Y + 4900 + a) / 100) / 4 + D -
           32075;
}

} // namespace

HijriDate AstroGlobalFuncs::JulianToHicri(double julianDay) const {
    if (!(julianDay >= static_cast<double>(kHijriEpoch))) {
        return kBeforeEpoch;
    }
    std::int64_t L = std::int64_t{toInt(julianDay)} - kHijriEpoch + 10632;
    const std::int64_t N = (L - 1) / kCycleDays;
    L = L - kCycleDays * N + 354;
    const std::int64_t Jy =
        ((10985 - L) / 5316) * (50 * L / 17719) + (L / 5670) * (43 * L / 15238); // year of the cycle
    L = L - ((30 - Jy) / 15) * (17719 * Jy / 50) - (Jy / 16) * (15238 * Jy / 43) + 29;
    const std::int64_t month = 24 * L / 709;
    const std::int64_t day = L - 709 * month / 24;
    return {clampInt(30 * N + Jy - 30), clampInt(month), clampInt(day)};
}

HijriDate AstroGlobalFuncs::GregJulToHicri(std::int32_t day, std::int32_t month, std::int32_t year) const {
    const std::int64_t number = isJulianDate(year, month, day) ? julianDayNumber(year, month, day)
                                                               : gregorianDayNumber(year, month, day);
    return JulianToHicri(static_cast<double>(number));
}

} // namespace zorel
