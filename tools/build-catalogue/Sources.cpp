// SPDX-License-Identifier: Apache-2.0
#include "tools/build-catalogue/Sources.h"

#include <algorithm>
#include <fmt/format.h>
#include <map>

namespace zorel::catalogue {

namespace {

using RegionKey = std::pair<std::string_view, std::string_view>; ///< country, admin1
template <typename Key> using Positions = std::map<Key, std::size_t>;

/// Reads one folder into `sources`, file after file, with the positions of what later files refer to.
class Loader {
public:
    Loader(const std::filesystem::path& folder, Problems& problems) : folder_(folder), problems_(problems) {}

    Sources load() {
        read<Country>(kCountries, parseCountry, [this](const TsvRow& row, const Country& country) {
            keep(row, countries_, country.code, sources_.countries, country);
        });
        read<CountryNames>(kCountryNames, parseCountryNames,
                           [this](const TsvRow& row, const CountryNames& names) {
                               if (const auto country = findCountry(row, names.country)) {
                                   sources_.countries[*country].names = names.names;
                               }
                           });
        read<Region>(kRegions, parseRegion,
                     [this](const TsvRow& row, const Region& region) { takeRegion(row, region); });
        read<RegionCode>(kRegionCodes, parseRegionCode, [this](const TsvRow& row, const RegionCode& code) {
            if (const auto region = findRegion(row, code.country, code.admin1)) {
                sources_.regions[*region].code = code.code;
            }
        });
        read<Zone>(kZones, parseZone, [this](const TsvRow& row, const Zone& zone) {
            keep(row, zones_, zone.name, sources_.zones, zone);
        });
        read<Place>(kPlaces, parsePlace,
                    [this](const TsvRow& row, const Place& place) { takePlace(row, place); });
        readSpellings(kExactSpellings, &PlacedPlace::exactSpellings);
        readSpellings(kMoreSpellings, &PlacedPlace::moreSpellings);
        read<Credit>(kCredits, parseCredit,
                     [this](const TsvRow& row, const Credit& credit) { takeCredit(row, credit); });
        std::stable_sort(sources_.places.begin(), sources_.places.end(), [](const auto& a, const auto& b) {
            return a.place.population > b.place.population;
        });
        return std::move(sources_);
    }

private:
    template <typename Record, typename Parse, typename Take>
    void read(const TsvLayout& layout, Parse parse, Take take) {
        auto file = TsvFile::read(folder_, layout, problems_);
        if (!file) {
            return;
        }
        sources_.files.push_back(std::move(*file));
        sources_.files.back().forEachRow(problems_, [&](const TsvRow& row) {
            if (const std::optional<Record> record = parse(row, problems_)) {
                take(row, *record);
            }
        });
    }

    template <typename Key, typename Record>
    void keep(const TsvRow& row, Positions<Key>& positions, const Key& key, std::vector<Record>& records,
              const Record& record) {
        if (positions.emplace(key, records.size()).second) {
            records.push_back(record);
        } else {
            problems_.add(row.file, row.line, fmt::format("\"{}\" is there twice", row.fields[0]));
        }
    }

    void takeRegion(const TsvRow& row, const Region& region) {
        if (!countries_.contains(region.country)) {
            problems_.add(row.file, row.line, fmt::format("unknown country \"{}\"", region.country));
        } else {
            keep(row, regions_, RegionKey(region.country, region.admin1), sources_.regions, region);
        }
    }

    template <typename Key>
    std::optional<std::size_t> find(const TsvRow& row, const Positions<Key>& positions, const Key& key,
                                    const std::string& what) {
        const auto found = positions.find(key);
        if (found == positions.end()) {
            problems_.add(row.file, row.line, "unknown " + what);
            return std::nullopt;
        }
        return found->second;
    }

    std::optional<std::size_t> findCountry(const TsvRow& row, std::string_view code) {
        return find(row, countries_, code, fmt::format("country \"{}\"", code));
    }

    std::optional<std::size_t> findRegion(const TsvRow& row, std::string_view country,
                                          std::string_view admin1) {
        return find(row, regions_, RegionKey(country, admin1),
                    fmt::format("region \"{}\" of country \"{}\"", admin1, country));
    }

    void takePlace(const TsvRow& row, const Place& place) {
        if (!ids_.emplace(place.id, sources_.places.size()).second) {
            problems_.add(row.file, row.line, fmt::format("id {} is there twice", place.id));
            return;
        }
        const auto country = findCountry(row, place.country);
        const auto region = findRegion(row, place.country, place.admin1);
        const auto zone = find(row, zones_, place.zone, fmt::format("time zone \"{}\"", place.zone));
        if (country && region && zone) {
            sources_.places.push_back({place, *country, *region, *zone, {}, {}});
        } else {
            ids_.erase(place.id);
        }
    }

    /// One of the two files of further spellings, whose names go into `member`.
    void readSpellings(const TsvLayout& layout, std::string_view PlacedPlace::*member) {
        read<Spellings>(layout, parseSpellings, [&](const TsvRow& row, const Spellings& spellings) {
            if (const auto place = find(row, ids_, spellings.id, fmt::format("place {}", spellings.id))) {
                sources_.places[*place].*member = spellings.names;
            }
        });
    }

    void takeCredit(const TsvRow& row, const Credit& credit) {
        CreditText entry{credit, {}};
        if (!credit.licenceFile.empty()) {
            const auto text = readBytes(folder_ / credit.licenceFile);
            if (!text) {
                problems_.add(row.file, row.line, fmt::format("\"{}\" cannot be read", credit.licenceFile));
                return;
            }
            entry.licenceText.assign(text->begin(), text->end());
        }
        sources_.credits.push_back(std::move(entry));
    }

    const std::filesystem::path& folder_;
    Problems& problems_;
    Sources sources_;
    Positions<std::string_view> countries_;
    Positions<std::string_view> zones_;
    Positions<RegionKey> regions_;
    Positions<std::int32_t> ids_; ///< of places
};

} // namespace

Sources Sources::read(const std::filesystem::path& folder, Problems& problems) {
    Sources sources = Loader(folder, problems).load();
    checkExchangedAxes(sources, problems);
    return sources;
}

} // namespace zorel::catalogue
