// SPDX-License-Identifier: Apache-2.0
#include "store/NameIndex.h"

#include "common/Bundle.h"
#include "platform/foundation/NumberText.h"
#include "store/CatalogueRow.h"

#include <sqlite3.h>

namespace zorel {

namespace {

#define ZOREL_NAMED_PLACE                                                                                    \
    "SELECT C.ID, C.NAME, CP.NAME, CP.CODE, CP.CID, CC.CODE, CC.NAMEEN, CC.NAMETR, C.POPULATION"

constexpr const char* kPlacesCalled = ZOREL_NAMED_PLACE
    ", S.OTHER FROM SPELLING S, CITY C, CITY_PARENT CP, COUNTRY CC "
    "WHERE S.FOLDED = ?1 AND C.ROWID = S.CITY AND CP.PARENT = C.PARENT AND CC.CID = CP.CID ORDER BY S.CITY";
constexpr const char* kPlaceOfRow =
    ZOREL_NAMED_PLACE ", 0 FROM CITY C, CITY_PARENT CP, COUNTRY CC "
                      "WHERE C.ROWID = ?1 AND CP.PARENT = C.PARENT AND CC.CID = CP.CID";
constexpr const char* kCountriesCalled = "SELECT N.CID FROM COUNTRY_NAME N WHERE N.FOLDED = ?1";
constexpr const char* kSpellings =
    "SELECT S.FOLDED, S.CITY, S.OTHER FROM SPELLING S WHERE S.FOLDED >= ?1 AND S.FOLDED < ?2";
constexpr const char* kNamesWith = "SELECT C.ROWID FROM CITY C WHERE C.ROWID <= ?2 AND C.NAME LIKE ?1";

#undef ZOREL_NAMED_PLACE

NamedPlace readNamedPlace(const Statement& row) {
    NamedPlace place;
    place.id = sqlite3_column_int(row.get(), 0);
    place.name = row.text(1);
    place.region = row.text(2);
    place.regionCode = row.text(3);
    place.countryNumber = sqlite3_column_int(row.get(), 4);
    place.countryCode = row.text(5);
    place.countryEn = row.text(6);
    place.countryTr = row.text(7);
    place.population = sqlite3_column_int64(row.get(), 8);
    const int other = sqlite3_column_int(row.get(), 9);
    place.otherSpelling = other != 0;
    place.looseSpelling = other == 2;
    return place;
}

/// Binds a text to the first parameter; it has to outlive the statement's rows.
auto bindText(const std::string& text) {
    return [&text](sqlite3_stmt* statement) {
        sqlite3_bind_text(statement, 1, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
    };
}

IndexedSpelling readSpelling(const Statement& row) {
    const auto* const bytes = static_cast<const char*>(sqlite3_column_blob(row.get(), 0));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(row.get(), 0));
    return {{bytes, size}, sqlite3_column_int(row.get(), 1), sqlite3_column_int(row.get(), 2) != 0};
}

} // namespace

std::optional<NameIndex> NameIndex::open(const Bundle& bundle) {
    auto catalogue = Database::openCatalogue(cataloguePath(bundle));
    return catalogue ? std::optional(NameIndex(*std::move(catalogue))) : std::nullopt;
}

void NameIndex::run(const char* text, const std::function<void(sqlite3_stmt*)>& bind,
                    const std::function<void(const Statement&)>& take) {
    Statement rows = catalogue_.prepare(text);
    if (rows.isPrepared()) {
        bind(rows.get());
    }
    while (rows.nextRow()) {
        take(rows);
    }
    sound_ = sound_ && rows.isAtEnd();
}

std::vector<NamedPlace> NameIndex::placesCalled(const std::string& folded) {
    std::vector<NamedPlace> places;
    run(kPlacesCalled, bindText(folded),
        [&](const Statement& row) { places.push_back(readNamedPlace(row)); });
    return places;
}

std::optional<NamedPlace> NameIndex::placeOfRow(std::int32_t row) {
    std::optional<NamedPlace> place;
    run(
        kPlaceOfRow, [row](sqlite3_stmt* statement) { sqlite3_bind_int(statement, 1, row); },
        [&](const Statement& found) { place = readNamedPlace(found); });
    return place;
}

std::vector<std::int32_t> NameIndex::countriesCalled(const std::string& folded) {
    std::vector<std::int32_t> countries;
    run(kCountriesCalled, bindText(folded),
        [&](const Statement& row) { countries.push_back(sqlite3_column_int(row.get(), 0)); });
    return countries;
}

void NameIndex::forEachSpelling(const std::string& beginning,
                                const std::function<void(const IndexedSpelling&)>& take) {
    std::string end = beginning; // no spelling has a byte 0xFF
    end.back() = static_cast<char>(static_cast<unsigned char>(end.back()) + 1);
    run(
        kSpellings,
        [&](sqlite3_stmt* statement) {
            bindText(beginning)(statement);
            sqlite3_bind_text(statement, 2, end.data(), static_cast<int>(end.size()), SQLITE_STATIC);
        },
        [&](const Statement& row) { take(readSpelling(row)); });
}

void NameIndex::forEachNameWith(const std::string& text, std::int32_t lastRow,
                                const std::function<void(std::int32_t)>& take) {
    const std::string pattern = '%' + text + '%';
    run(
        kNamesWith,
        [&](sqlite3_stmt* statement) {
            bindText(pattern)(statement);
            sqlite3_bind_int(statement, 2, lastRow);
        },
        [&](const Statement& row) { take(sqlite3_column_int(row.get(), 0)); });
}

} // namespace zorel
