// SPDX-License-Identifier: Apache-2.0
#include "catalogue/Catalogue.h"

#include "common/GlobalFuncs.h"
#include "platform/foundation/NumberText.h"
#include "store/AlmanacPlace.h"
#include "store/CatalogueLookup.h"
#include "store/CatalogueRow.h"
#include "store/Database.h"
#include "store/NameResolution.h"

#include <utility>

namespace zorel::catalogue {

struct Catalogue::Held {
    GlobalFuncs services;
};

namespace {

City cityOf(const CataloguePlace& row) {
    return {.id = integerValue(row.city.cityId),
            .place = almanacPlace(row),
            .region = row.city.nameParent,
            .country = row.city.countryNameEn,
            .countryCode = row.countryCode,
            .population = row.population};
}

} // namespace

Catalogue::Catalogue(std::unique_ptr<Held> held) : held_(std::move(held)) {}
Catalogue::Catalogue(Catalogue&&) noexcept = default;
Catalogue& Catalogue::operator=(Catalogue&&) noexcept = default;
Catalogue::~Catalogue() = default;

std::optional<Catalogue> Catalogue::open(const std::string& bundle) {
    auto held = std::make_unique<Held>();
    held->services.appBundlePath = bundle;
    const auto file = Database::openCatalogue(cataloguePath(held->services));
    if (!file || placeCount(*file) == 0) {
        return std::nullopt;
    }
    return Catalogue(std::move(held));
}

std::optional<City> Catalogue::byId(std::int32_t id) const {
    const auto row = placeById(held_->services, id);
    return row ? std::optional(cityOf(*row)) : std::nullopt;
}

std::optional<City> Catalogue::find(std::string_view name) const {
    const auto resolved = resolveName(held_->services, name);
    return resolved && !resolved->places.empty() ? byId(resolved->places.front().id) : std::nullopt;
}

std::vector<City> Catalogue::similar(std::string_view name, std::size_t most) const {
    std::vector<City> cities;
    for (const NamedPlace& place : similarPlaces(held_->services, name, most)) {
        if (auto city = byId(place.id)) {
            cities.push_back(*std::move(city));
        }
    }
    return cities;
}

} // namespace zorel::catalogue
