// SPDX-License-Identifier: Apache-2.0
// Prints a month of the six times of a place, without a catalogue:  month-table
#include <zorel/almanac/Almanac.h>

#include <iostream>

using namespace std::chrono_literals;
using namespace zorel::almanac;

int main() {
    const auto clock = PlaceClock::ofZone("Europe/Paris");
    const Almanac almanac({.name = "Paris",
                           .latitude = 48.8566,
                           .longitude = 2.3522,
                           .clock = clock.value_or(PlaceClock::fixed(1h))});
    for (Date date = 2026y / 12 / 1; date.month() == std::chrono::December; date = addDays(date, 1)) {
        const Day day = almanac.day(date);
        std::cout << isoDate(date);
        for (const Prayer prayer : kSixPrayers) {
            const DayTime& time = day[prayer];
            std::cout << "  "
                      << (time.exists() ? clockText(time.local.timeOfDay, Precision::minutes) : "--:--");
        }
        std::cout << '\n';
    }
}
