// SPDX-License-Identifier: Apache-2.0
#include "tests/almanac/sweep/Places.h"

#include "tests/almanac/Reference.h"
#include "tests/almanac/ZoneTable.h"

#include <cmath>
#include <map>
#include <stdexcept>

namespace zorel::almanac::tests {

namespace {

constexpr std::size_t kName = 1;
constexpr std::size_t kLatitude = 6;
constexpr std::size_t kLongitude = 7;
constexpr std::size_t kZone = 9;

/// The edition of the tz database that the catalogue's rules were made from.
std::string ruleEdition() {
    for (const Row& row : tableRows("catalogue/credits.tsv")) {
        if (row.at(0) == "time zones") {
            return row.at(2);
        }
    }
    throw std::runtime_error("credits.tsv does not say where the zones come from");
}

/// By zone; the rows of the table stand in the order of population.
std::map<std::string, Row> largestRows() {
    std::map<std::string, Row> largest;
    for (const Row& row : tableRows("catalogue/places.tsv")) {
        largest.try_emplace(row.at(kZone), row);
    }
    return largest;
}

/// A fraction that runs evenly over 0 to 1.
double evenly(int count) {
    const double golden = count * 0.6180339887498949;
    return golden - std::floor(golden);
}

} // namespace

std::vector<SweptPlace> largestPlaces() {
    const std::string edition = ruleEdition();
    const ZoneTable zones;
    std::vector<SweptPlace> places;
    for (const auto& [zone, row] : largestRows()) {
        SweptPlace& swept = places.emplace_back();
        swept.zone = zone;
        swept.rule = zones.rule(zone);
        swept.place.name = row.at(kName);
        swept.place.latitude = number(row.at(kLatitude));
        swept.place.longitude = number(row.at(kLongitude));
        swept.place.clock = PlaceClock::ofPlace(zone, swept.rule, edition);
    }
    return places;
}

std::vector<SweptPlace> latitudeGrid(double step) {
    constexpr double kFarthest = 88.0;
    std::vector<SweptPlace> places;
    for (int i = 0; - kFarthest + step * i <= kFarthest; ++i) {
        SweptPlace& swept = places.emplace_back();
        swept.place.latitude = -kFarthest + step * i;
        swept.place.longitude = -180.0 + 360.0 * evenly(i);
        swept.place.temkin = i % 2 == 0 ? Temkin::upTo250m : Temkin::upTo500m;
        const double quarters = std::round((swept.place.longitude / 15.0 + 4.0 * evenly(7 * i) - 2.0) * 4.0);
        swept.offset = std::chrono::seconds(static_cast<int>(quarters) * 900);
        swept.place.clock = PlaceClock::fixed(swept.offset);
        swept.place.name = std::to_string(swept.place.latitude) + " deg";
    }
    return places;
}

} // namespace zorel::almanac::tests
