// SPDX-License-Identifier: Apache-2.0
#include "tools/build-catalogue/Sources.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <numbers>

namespace zorel::catalogue {

namespace {

constexpr double kLeastDistance = 3.0; // [deg]; no place of the present data is suspected from here on
constexpr double kClearlyNearer = 2.0;

struct Position {
    double latitude;  // [deg]
    double longitude; // [deg]
};

double median(std::vector<double>& values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Distance on the map that is true along the parallel of `center` [deg]; enough to tell near from far.
double mapDistance(const Position& place, const Position& center) {
    const double across = std::abs(place.longitude - center.longitude);
    const double scale = std::cos(center.latitude * std::numbers::pi / 180.0);
    return std::hypot(place.latitude - center.latitude, std::min(across, 360.0 - across) * scale);
}

std::vector<Position> medianPlaces(const Sources& sources) {
    std::vector<std::vector<double>> latitudes(sources.regions.size());
    std::vector<std::vector<double>> longitudes(sources.regions.size());
    for (const PlacedPlace& entry : sources.places) {
        latitudes[entry.region].push_back(entry.place.latitude);
        longitudes[entry.region].push_back(entry.place.longitude);
    }
    std::vector<Position> centers(sources.regions.size());
    for (std::size_t region = 0; region < centers.size(); ++region) {
        if (!latitudes[region].empty()) {
            centers[region] = {median(latitudes[region]), median(longitudes[region])};
        }
    }
    return centers;
}

} // namespace

void checkExchangedAxes(const Sources& sources, Problems& problems) {
    const std::vector<Position> centers = medianPlaces(sources);
    for (const PlacedPlace& entry : sources.places) {
        const Place& place = entry.place;
        const Position& center = centers[entry.region];
        const double given = mapDistance({place.latitude, place.longitude}, center);
        const double exchanged = mapDistance({place.longitude, place.latitude}, center);
        if (given > kLeastDistance && given > kClearlyNearer * exchanged) {
            problems.add(
                kPlaces.file, place.line,
                fmt::format("{} lies {:.0f} degrees from the middle of its region: latitude {} and longitude "
                            "{} look exchanged",
                            place.name, given, place.latitude, place.longitude));
        }
    }
}

} // namespace zorel::catalogue
