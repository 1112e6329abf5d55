// SPDX-License-Identifier: Apache-2.0
// Prints the next sunset prayer of a city:  next-sunset BUNDLE-FOLDER CITY
#include <zorel/almanac/Almanac.h>
#include <zorel/catalogue/Catalogue.h>

#include <iostream>

using namespace zorel::almanac;

int main(int argc, char** argv) {
    const auto cities =
        zorel::catalogue::Catalogue::open(argc > 1 ? argv[1] : "/usr/share/zorel/Zorel.bundle");
    const auto city = cities ? cities->find(argc > 2 ? argv[2] : "Istanbul") : std::nullopt;
    if (!city) {
        std::cerr << "next-sunset: no such city, or no catalogue\n";
        return 1;
    }
    const Almanac almanac(city->place);
    const Instant now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    const Date today = city->place.clock.dateAt(now);
    // In the far north yesterday's sunset may still be to come; near the poles there is none for months.
    for (int days = -1; days < 366; ++days) {
        const Day day = almanac.day(addDays(today, days));
        const DayTime& sunset = day[Prayer::maghrib];
        if (sunset.exists() && sunset.shown > now) {
            std::cout << city->place.name << ' ' << isoDateTime(sunset.local) << '\n';
            return 0;
        }
    }
    std::cerr << "next-sunset: no sunset within a year\n";
    return 1;
}
