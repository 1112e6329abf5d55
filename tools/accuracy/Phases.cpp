// SPDX-License-Identifier: Apache-2.0
#include "Comparisons.h"
#include "Statistics.h"

#include "engine/FastAstro.h"
#include "engine/MoonDay.h"

#include <array>
#include <cmath>

namespace zorel::accuracy {

void comparePhases(const std::string& folder, std::ostream& out) {
    constexpr std::array<const char*, 4> names{"new Moon", "first quarter", "full Moon", "last quarter"};
    constexpr std::array<int, 4> codes{0, 2, 1, 3};
    constexpr std::array<int, 4> kinds{PrincipalPhase::newMoon, PrincipalPhase::firstQuarter,
                                       PrincipalPhase::fullMoon, PrincipalPhase::lastQuarter};
    Table raw("Phases as the engine's series gives them",
              "`MoonPhaze` leaves out a constant of 0.09765 day and counts in uniform time.");
    Table shown("Phases as people are shown them", "`NextPhases`: the constant put back, in universal time.");
    const FastAstro engine;
    for (const PhaseEvent& event : readPhases(folder + "/usno_moonphases.tsv")) {
        const auto quarter = static_cast<std::size_t>(event.quarter);
        const double year = 2000.0 + (event.julianDay - 2451545.0) / 365.25;
        double best = 1e9;
        for (int month = -1; month <= 1; ++month) {
            const double difference =
                engine.MoonPhaze(year + month / 12.3685, codes[quarter]) - event.julianDay;
            best = std::abs(difference) < std::abs(best) ? difference : best;
        }
        raw.row(names[quarter]).add(best * kSecondsOfDay, event.utc);
        for (const PrincipalPhase& phase : NextPhases(event.julianDay - 1.0, 1)) {
            if (phase.kind == kinds[quarter]) {
                shown.row(names[quarter]).add((phase.julianDay - event.julianDay) * kSecondsOfDay, event.utc);
            } else {
                shown.row(names[quarter]).addMissed(event.utc);
            }
        }
    }
    raw.print(out);
    shown.print(out);
}

} // namespace zorel::accuracy
