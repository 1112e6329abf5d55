// SPDX-License-Identifier: Apache-2.0
#include "catalogue/Catalogue.h"

#include "common/Bundle.h"
#include "platform/foundation/NumberText.h"
#include "platform/foundation/ProgramLocations.h"
#include "store/AlmanacPlace.h"
#include "store/CatalogueLookup.h"
#include "store/CatalogueRow.h"
#include "store/Database.h"
#include "store/NameResolution.h"

#include <dlfcn.h>
#include <utility>

namespace zorel::catalogue {

struct Catalogue::Held {
    Bundle bundle;
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

/// The file that holds this code: the shared library, or a program.
std::string ownFile() {
    Dl_info info{};
    return dladdr(reinterpret_cast<const void*>(&ownFile), &info) != 0 ? info.dli_fname : "";
}

bool isReadable(const Bundle& bundle) {
    const auto file = Database::openCatalogue(cataloguePath(bundle));
    return file && placeCount(*file) > 0;
}

} // namespace

Catalogue::Catalogue(std::unique_ptr<Held> held) : held_(std::move(held)) {}
Catalogue::Catalogue(Catalogue&&) noexcept = default;
Catalogue& Catalogue::operator=(Catalogue&&) noexcept = default;
Catalogue::~Catalogue() = default;

std::optional<Catalogue> Catalogue::open(const std::string& bundle) {
    auto held = std::make_unique<Held>();
    held->bundle.appBundlePath = bundle;
    if (!isReadable(held->bundle)) {
        return std::nullopt;
    }
    return Catalogue(std::move(held));
}

std::optional<Catalogue> Catalogue::openInstalled() {
    return open(bundleAbove(ownFile()));
}

bool Catalogue::readable() const {
    return isReadable(held_->bundle);
}

std::optional<City> Catalogue::byId(std::int32_t id) const {
    const auto row = placeById(held_->bundle, id);
    return row ? std::optional(cityOf(*row)) : std::nullopt;
}

std::optional<City> Catalogue::find(std::string_view name) const {
    const auto resolved = resolveName(held_->bundle, name);
    return resolved && !resolved->places.empty() ? byId(resolved->places.front().id) : std::nullopt;
}

std::vector<City> Catalogue::similar(std::string_view name, std::size_t most) const {
    std::vector<City> cities;
    for (const NamedPlace& place : similarPlaces(held_->bundle, name, most)) {
        if (auto city = byId(place.id)) {
            cities.push_back(*std::move(city));
        }
    }
    return cities;
}

} // namespace zorel::catalogue
