// SPDX-License-Identifier: Apache-2.0
#include "store/NearestPlace.h"

#include "common/Bundle.h"
#include "platform/foundation/NumberText.h"
#include "platform/foundation/SquareDegree.h"
#include "store/CatalogueRow.h"

#include <algorithm>
#include <cmath>
#include <sqlite3.h>

namespace zorel {

namespace {

constexpr double kEarthRadius = 6371.0088; // [km]
constexpr double kRadian = 3.14159265358979323846 / 180.0;

constexpr const char* kPlacesOfSquares = "SELECT C.ID, C.LAT, C.LON FROM SQUARE_DEGREE S, CITY C "
                                         "WHERE S.SQUARE BETWEEN ?1 AND ?2 AND C.ROWID = S.CITY";

struct Point {
    double latitude;  ///< [deg]
    double longitude; ///< [deg]
};

/// By the haversine, which is exact for small distances [km].
double distanceBetween(const Point& one, const Point& other) {
    const double north = std::sin((other.latitude - one.latitude) * kRadian / 2.0);
    const double east = std::sin((other.longitude - one.longitude) * kRadian / 2.0);
    const double part =
        north * north + std::cos(one.latitude * kRadian) * std::cos(other.latitude * kRadian) * east * east;
    return 2.0 * kEarthRadius * std::asin(std::sqrt(std::min(part, 1.0)));
}

/// Looks at the places of the square degrees around a point.
class Search {
public:
    Search(const Bundle& bundle, const Database& catalogue, const Point& point, double within)
        : bundle_(bundle), rows_(catalogue.prepare(kPlacesOfSquares)), point_(point), distance_(within) {}

    /// @return whether the catalogue could be read.
    bool run() {
        // The point's own square degree comes first: where it has a place nearby, few others can have a
        // nearer one.
        const std::int32_t own = latitudeBand(point_.latitude);
        lookAt(own, 0.0);
        // Coordinates are rounded in the catalogue: a place may stand beyond the edge of its square.
        constexpr double kMargin = 0.01; // [deg]
        const double reach = distance_ / kEarthRadius / kRadian + kMargin;
        const std::int32_t southernmost = latitudeBand(point_.latitude - reach);
        const std::int32_t northernmost = latitudeBand(point_.latitude + reach);
        const double aside = longitudeReach(reach);
        if (southernmost == northernmost && isWithinOneSquare(aside)) {
            return sound_;
        }
        for (std::int32_t band = southernmost; band <= northernmost; ++band) {
            lookAt(band, aside);
        }
        return sound_;
    }
    [[nodiscard]] std::int32_t id() const { return id_; }
    [[nodiscard]] double distance() const { return distance_; }

private:
    /// How far east and west the points within a reach lie [deg].
    [[nodiscard]] double longitudeReach(double reach) const {
        if (std::fabs(point_.latitude) + reach >= 89.0) {
            return 180.0;
        }
        return std::asin(std::sin(reach * kRadian) / std::cos(point_.latitude * kRadian)) / kRadian;
    }
    [[nodiscard]] bool isWithinOneSquare(double reach) const {
        return reach < 0.5 &&
               positionInBand(point_.longitude - reach) == positionInBand(point_.longitude + reach);
    }
    void lookAt(std::int32_t band, double reach) {
        const std::int32_t first = band * kSquareDegreesOfBand;
        const std::int32_t last = first + kSquareDegreesOfBand - 1;
        const std::int32_t from = first + positionInBand(point_.longitude - reach);
        const std::int32_t to = first + positionInBand(point_.longitude + reach);
        if (reach >= 179.0) {
            lookAt(first, last);
        } else if (from <= to) {
            lookAt(from, to);
        } else { // across 180 degrees
            lookAt(from, last);
            lookAt(first, to);
        }
    }
    void lookAt(std::int32_t first, std::int32_t last) {
        if (rows_.isPrepared()) {
            sqlite3_reset(rows_.get());
            sqlite3_bind_int(rows_.get(), 1, first);
            sqlite3_bind_int(rows_.get(), 2, last);
        }
        while (rows_.nextRow()) {
            consider({coordinate(1), coordinate(2)});
        }
        sound_ = sound_ && rows_.isAtEnd();
    }
    void consider(const Point& place) {
        const double distance = distanceBetween(point_, place);
        if (distance <= distance_) {
            distance_ = distance;
            id_ = sqlite3_column_int(rows_.get(), 0);
        }
    }
    [[nodiscard]] double coordinate(int column) const {
        return doubleValue(coordinateText(rows_, column, bundle_));
    }

    const Bundle& bundle_;
    Statement rows_;
    Point point_;
    double distance_;
    std::int32_t id_ = 0;
    bool sound_ = true;
};

} // namespace

std::optional<NearestPlace> nearestPlace(const Bundle& bundle, double latitude, double longitude,
                                         double within) {
    const auto catalogue = Database::openCatalogue(cataloguePath(bundle));
    if (!catalogue) {
        return std::nullopt;
    }
    Search search(bundle, *catalogue, {latitude, longitude}, within);
    if (!search.run()) {
        return std::nullopt;
    }
    if (search.id() == 0) {
        return NearestPlace{};
    }
    auto place = placeById(bundle, search.id());
    return place ? std::optional(NearestPlace{std::move(place), search.distance()}) : std::nullopt;
}

} // namespace zorel
