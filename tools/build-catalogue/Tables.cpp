// SPDX-License-Identifier: Apache-2.0
#include "tools/build-catalogue/Tables.h"

#include "platform/foundation/SquareDegree.h"
#include "tools/build-catalogue/Coordinates.h"
#include "tools/build-catalogue/Numbering.h"
#include "tools/build-catalogue/SearchName.h"
#include "tools/build-catalogue/SpellingIndex.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace zorel::catalogue {

namespace {

/// CITY keeps its own row numbers, apart from ID, and has no index that a search could walk instead of the
/// table: the rows come out as they were inserted. The other tables are looked up by their integer primary
/// keys.
constexpr const char* kSchema = R"(
PRAGMA page_size = 16384;
PRAGMA journal_mode = OFF;
PRAGMA synchronous = OFF;
PRAGMA application_id = 1515148882;
PRAGMA user_version = 1;
BEGIN;
CREATE TABLE CREDITS (PART TEXT, SOURCE TEXT, EDITION TEXT, LICENCE TEXT, CREDIT TEXT, LICENCETEXT TEXT);
CREATE TABLE COUNTRY (CID INTEGER PRIMARY KEY, CODE TEXT, NAMEEN TEXT, NAMETR TEXT);
CREATE TABLE DST (DSTID INTEGER PRIMARY KEY, DST INTEGER, STARTMONTH INTEGER, STARTDAY INTEGER,
    STOPMONTH INTEGER, STOPDAY INTEGER, HOUR INTEGER);
CREATE TABLE ZONE (ZONE INTEGER PRIMARY KEY, NAME TEXT, LARGEST INTEGER, EXACT INTEGER, DEPARTFIRST INTEGER,
    DEPARTLAST INTEGER, DEPARTGMT NUMERIC);
CREATE TABLE CITY_PARENT (PARENT INTEGER PRIMARY KEY, NAME TEXT, CID INTEGER, GMT NUMERIC, DSTID INTEGER,
    CODE TEXT);
CREATE TABLE CITY (NAMESRC TEXT, NAME TEXT, ID INTEGER, PARENT INTEGER, LAT TEXT, LON TEXT, TEMKIN INTEGER,
    ZONE INTEGER, ELEVATION INTEGER, POPULATION INTEGER);
CREATE TABLE SPELLING (FOLDED TEXT, CITY INTEGER, OTHER INTEGER, PRIMARY KEY (FOLDED, CITY)) WITHOUT ROWID;
CREATE TABLE SQUARE_DEGREE (SQUARE INTEGER, CITY INTEGER, PRIMARY KEY (SQUARE, CITY)) WITHOUT ROWID;
CREATE TABLE COUNTRY_NAME (FOLDED TEXT, CID INTEGER, PRIMARY KEY (FOLDED, CID)) WITHOUT ROWID;
)";

constexpr const char* kFinish = "CREATE UNIQUE INDEX CITY_ID ON CITY (ID); COMMIT;";

std::int64_t numbered(std::size_t position) {
    return static_cast<std::int64_t>(position) + 1;
}

void writeCredits(Output& output, const Sources& sources) {
    Insertion row(output, "INSERT INTO CREDITS VALUES (?, ?, ?, ?, ?, ?)");
    for (const auto& [credit, licenceText] : sources.credits) {
        row.text(credit.part).text(credit.source).text(credit.edition).text(credit.licence);
        row.text(credit.credit).text(licenceText).insert();
    }
}

void writeCountries(Output& output, const Sources& sources) {
    Insertion row(output, "INSERT INTO COUNTRY VALUES (?, ?, ?, ?)");
    for (std::size_t position = 0; position < sources.countries.size(); ++position) {
        const Country& country = sources.countries[position];
        row.integer(numbered(position)).text(country.code).text(country.nameEn).text(country.nameTr).insert();
    }
}

void writeRules(Output& output, const Numbering& numbering) {
    Insertion row(output, "INSERT INTO DST VALUES (?, ?, ?, ?, ?, ?, ?)");
    for (const auto& [rule, number] : numbering.rules) {
        row.integer(number).integer(rule.dst).integer(rule.startMonth).integer(rule.startDay);
        row.integer(rule.stopMonth).integer(rule.stopDay).integer(rule.hour).insert();
    }
}

/// Days are counted from 1970-01-01.
void writeDeparture(Insertion& row, const std::optional<Departure>& departure) {
    if (!departure) {
        row.integerOrNull({}).integerOrNull({}).integerOrNull({});
        return;
    }
    row.integer(departure->first.time_since_epoch().count());
    row.integer(departure->last.time_since_epoch().count()).number(departure->gmt);
}

void writeZones(Output& output, const Sources& sources, const Numbering& numbering) {
    Insertion row(output, "INSERT INTO ZONE VALUES (?, ?, ?, ?, ?, ?, ?)");
    for (std::size_t position = 0; position < sources.zones.size(); ++position) {
        const Zone& zone = sources.zones[position];
        row.integer(numbered(position)).text(zone.name).integer(numbering.largestPlaceOfZone[position]);
        writeDeparture(row.integer(zone.exact ? 1 : 0), zone.departure);
        row.insert();
    }
}

void writeRegions(Output& output, const Sources& sources, const Numbering& numbering) {
    std::map<std::string_view, std::size_t> countries;
    for (std::size_t position = 0; position < sources.countries.size(); ++position) {
        countries[sources.countries[position].code] = position;
    }
    Insertion row(output, "INSERT INTO CITY_PARENT VALUES (?, ?, ?, ?, ?, ?)");
    for (const auto& [clock, number] : numbering.regionClocks) {
        const Region& region = sources.regions[clock.region];
        row.integer(number).text(region.name).integer(numbered(countries.at(region.country)));
        row.number(clock.gmt).integer(numbering.rules.at(clock.rule)).text(region.code).insert();
    }
}

bool usesTurkishLetters(std::string_view country) {
    return country == "TR" || country == "CY" || country == "AZ";
}

std::string searchTextOf(const PlacedPlace& entry) {
    const Place& place = entry.place;
    const bool turkish = usesTurkishLetters(place.country);
    return searchableName({place.name,
                           place.asciiName,
                           {entry.exactSpellings, place.alternates, entry.moreSpellings},
                           turkish || place.population >= kLargePlace,
                           turkish});
}

void writePlaces(Output& output, const Sources& sources, const Numbering& numbering,
                 const PlacesWritten& written) {
    Insertion row(output, "INSERT INTO CITY VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    std::size_t count = 0;
    for (const PlacedPlace& entry : sources.places) {
        const Place& place = entry.place;
        const std::string search = searchTextOf(entry);
        const std::string latitude = encipheredCoordinate(place.latitude);
        const std::string longitude = encipheredCoordinate(place.longitude);
        const auto parent = numbering.regionClocks.at(Numbering::regionClock(sources, entry));
        row.text(search).text(place.name).integer(place.id).integer(parent).text(latitude).text(longitude);
        row.integer(place.elevation.value_or(0) >= kHighPlace ? 1 : 0).integer(numbered(entry.zone));
        row.integerOrNull(place.elevation).integer(place.population).insert();
        written(++count);
    }
}

void writeSpellings(Output& output, const Sources& sources) {
    Insertion row(output, "INSERT INTO SPELLING VALUES (?, ?, ?)");
    for (const Spelling& spelling : spellingsOf(sources.places)) {
        row.text(spelling.folded)
            .integer(numbered(spelling.place))
            .integer(static_cast<int>(spelling.kind))
            .insert();
    }
}

void writeCountryNames(Output& output, const Sources& sources) {
    Insertion row(output, "INSERT INTO COUNTRY_NAME VALUES (?, ?)");
    for (const Spelling& spelling : spellingsOf(sources.countries)) {
        row.text(spelling.folded).integer(numbered(spelling.place)).insert();
    }
}

/// In the order of the table, so that its pages are filled.
void writeSquareDegrees(Output& output, const Sources& sources) {
    std::vector<std::pair<std::int32_t, std::int64_t>> squares;
    for (std::size_t position = 0; position < sources.places.size(); ++position) {
        const Place& place = sources.places[position].place;
        squares.emplace_back(squareDegree(place.latitude, place.longitude), numbered(position));
    }
    std::sort(squares.begin(), squares.end());
    Insertion row(output, "INSERT INTO SQUARE_DEGREE VALUES (?, ?)");
    for (const auto& [square, city] : squares) {
        row.integer(square).integer(city).insert();
    }
}

} // namespace

void writeTables(Output& output, const Sources& sources, const PlacesWritten& written) {
    const Numbering numbering(sources);
    output.execute(kSchema);
    writeCredits(output, sources);
    writeCountries(output, sources);
    writeRules(output, numbering);
    writeZones(output, sources, numbering);
    writeRegions(output, sources, numbering);
    writePlaces(output, sources, numbering, written);
    writeSpellings(output, sources);
    writeSquareDegrees(output, sources);
    writeCountryNames(output, sources);
    output.execute(kFinish);
}

} // namespace zorel::catalogue
