// SPDX-License-Identifier: Apache-2.0
/// @file
/// The catalogue of cities for programs that use the library: a place by its name or its id, ready for the
/// almanac.
///
///     const auto cities = zorel::catalogue::Catalogue::open("/usr/share/zorel/Zorel.bundle");
///     const auto city = cities ? cities->find("Istanbul") : std::nullopt;
///     if (city) { const zorel::almanac::Almanac almanac(city->place); ... }
///
/// What it leaves out: points given by coordinates (make an almanac::Place of them), and the search for a
/// part of a name, which the programs offer.
#pragma once

#include "almanac/Place.h"

#include "engine/Api.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorel::catalogue {

/// A place of the catalogue.
struct City {
    std::int32_t id = 0; ///< GeoNames id
    almanac::Place place;
    std::string region;
    std::string country;         ///< in English
    std::string countryCode;     ///< ISO 3166-1 alpha-2, or XK
    std::int64_t population = 0; ///< 0 = unknown
};

/// An open catalogue. Cheap to move; not to be used from two threads at once. A catalogue that becomes
/// unreadable while it is open has no places.
class ZOREL_API Catalogue {
public:
    /// @param bundle folder that holds "database/cities.sqlite". Nothing when there is no readable catalogue.
    [[nodiscard]] static std::optional<Catalogue> open(const std::string& bundle);
    /// The catalogue that was installed with the library: the nearest "share/zorel/Zorel.bundle" in a folder
    /// above the library's file, or the program's own when it has the library within itself.
    [[nodiscard]] static std::optional<Catalogue> openInstalled();
    Catalogue(Catalogue&&) noexcept;
    Catalogue& operator=(Catalogue&&) noexcept;
    ~Catalogue();

    /// The place that is called so, in any of its spellings, with or without its region or country ("Köln",
    /// "Paris, Texas"); the largest of several. Nothing when no place is: a beginning or a part of a name is
    /// not taken for the name.
    [[nodiscard]] std::optional<City> find(std::string_view name) const;
    /// Places that may have been meant by a name that find() does not know, at most `most`, the likeliest
    /// first.
    [[nodiscard]] std::vector<City> similar(std::string_view name, std::size_t most) const;
    [[nodiscard]] std::optional<City> byId(std::int32_t id) const;

    /// Whether it can (still) be read: tells why there was no answer.
    [[nodiscard]] bool readable() const;

private:
    struct Held;
    explicit Catalogue(std::unique_ptr<Held> held);
    std::unique_ptr<Held> held_;
};

} // namespace zorel::catalogue
